#include "inspect/byte_marks.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace quarvel::inspect {
namespace {

// "mark" where there is one, and the first line that CR alone ends; the bytes come in pieces of that size.
std::string MarksOf(std::string_view bytes, std::size_t piece) {
  ByteMarks marks;
  for (std::size_t at = 0; at < bytes.size(); at += piece) marks.Use(bytes.substr(at, piece));
  return (marks.has_byte_order_mark() ? "mark " : "") + std::to_string(marks.first_cr_line());
}

TEST(ByteMarks, AreFoundInPiecesOfAnySize) {
  const struct {
    std::string_view bytes;
    const char* marks;
  } cases[] = {
      {"", "0"},
      {"a\nb\n", "0"},
      {"a\r\nb\r\n", "0"},
      {"a\rb\n", "1"},
      {"a\n\r\r", "2"},
      {"a\r\nb\n\nc\rd\re", "4"},
      {"a\r", "0"},
      {"\xEF\xBB\xBF", "mark 0"},
      {"\xEF\xBB\xBF\n\r\n\ra", "mark 3"},
      {"\xEF\xBB", "0"},
      {"\xEF\xBB\xEF\xBB\xBF", "0"},
      {"a\xEF\xBB\xBF", "0"},
  };
  for (const auto& c : cases) {
    for (const std::size_t piece : {1U, 2U, 3U, 100U}) {
      EXPECT_EQ(MarksOf(c.bytes, piece), c.marks) << c.bytes << " by " << piece;
    }
  }
}

class TextBytes : public platform::ByteSource {
 public:
  explicit TextBytes(std::string_view text) : text_(text) {}

  std::uint64_t size() const override { return text_.size(); }
  std::size_t Read(char* buffer, std::size_t capacity) override {
    const std::size_t size = text_.copy(buffer, capacity);
    text_.remove_prefix(size);
    return size;
  }

 private:
  std::string_view text_;
};

TEST(MarkedOpening, LooksAtTheBytesOfTheFirstReading) {
  ByteMarks marks;
  const MarkedOpening::Opener open = [] { return std::make_unique<TextBytes>("a\nb\rc"); };
  const std::string path = "a.mps";
  MarkedOpening opening(path, open, marks);
  char buffer[8];
  for (int i = 0; i < 2; ++i) EXPECT_EQ(opening()->Read(buffer, sizeof buffer), 5U);
  EXPECT_EQ(marks.first_cr_line(), 2);
}

}  // namespace
}  // namespace quarvel::inspect
