#include "mps/line_source.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_store.h"
#include "tests/support/test_paths.h"

namespace quarvel::mps {
namespace {

// What a line says, however it came.
struct SeenLine {
  std::int64_t number = 0;
  std::vector<std::string> tokens;
  bool operator==(const SeenLine&) const = default;
};

void PrintTo(const SeenLine& line, std::ostream* out) {
  *out << line.number << ':';
  for (const std::string& token : line.tokens) *out << " [" << token << ']';
}

class LineSourceTest : public ::testing::Test {
 protected:
  void Open(LineSource& source, std::string_view text) {
    WriteWholeFile(folder_.File("lines.mps"), text);
    source.Open(folder_.File("lines.mps"));
  }

  // All lines of a file, read as lines of that section. Before ROWS each line comes alone.
  std::vector<SeenLine> Lines(std::string_view text, Section section) {
    LineSource source(store_.fill());
    Open(source, text);
    std::vector<SeenLine> lines;
    for (SourceLine& line = source.line(); source.Next(section);) {
      line.Split();
      SeenLine seen{line.number(), {}};
      for (std::size_t i = 1; i <= std::min(line.token_count(), TokenList::kKept); ++i) {
        seen.tokens.emplace_back(line[i]);
        CheckKey(line, i);
      }
      goes_on_ += line.goes_on() ? 1 : 0;
      EXPECT_TRUE(!line.goes_on() || seen.tokens[0] == lines.back().tokens[0]) << seen.number;
      lines.push_back(std::move(seen));
    }
    return lines;
  }

  static void CheckKey(const SourceLine& line, std::size_t token) {
    const model::NameKey made = line.Key(token);
    const model::NameKey plain = model::NameKey::Of(line[token]);
    EXPECT_TRUE(made.Equals(plain.low, plain.high)) << line[token];
    EXPECT_EQ(made.hash, plain.hash) << line[token];
  }

  TemporaryFolder folder_;
  model::ModelStore store_;  // of no names
  int goes_on_ = 0;
};

std::string ManyLines() {
  std::string text;
  for (int i = 0; i < 500; ++i) {
    const std::string column = " column" + std::to_string(i / 3);
    text += column + " row" + std::to_string(i) + " 1.5 a-row-with-a-long-name-" +
            std::to_string(i) + " -2\n";
    if (i % 40 == 0) text += "\r\n" + column + " \xC3\xA4pfel 3\n";
    if (i % 70 == 0) text += column + std::string(80, ' ') + "end 1\r";
  }
  return text;
}

TEST_F(LineSourceTest, GivesTheSameLinesInBatchesAsAlone) {
  const std::vector<SeenLine> alone = Lines(ManyLines(), Section::kStart);
  EXPECT_EQ(goes_on_, 0);
  ASSERT_GT(alone.size(), 500u);
  for (const Section section :
       {Section::kRows, Section::kColumns, Section::kRhs, Section::kRanges, Section::kBounds}) {
    EXPECT_EQ(Lines(ManyLines(), section), alone);
  }
  EXPECT_GT(goes_on_, 100);
}

TEST_F(LineSourceTest, KeepsTheTextOfALineThatComesAloneUntilItIsSplit) {
  LineSource source(store_.fill());
  Open(source, "* Some Words\n");
  ASSERT_TRUE(source.Next(Section::kStart));
  EXPECT_EQ(source.line().text(), "* Some Words");
  source.line().Split();
  EXPECT_EQ(source.line()[2], "SOME");
  EXPECT_FALSE(source.Next(Section::kStart));
}

TEST_F(LineSourceTest, CountsLinesAndCharacters) {
  LineSource source(store_.fill());
  Open(source, "ab\r\n\r\n\xC3\xA4 b");
  EXPECT_EQ(source.file_size(), 10u);
  while (source.Next(Section::kRows)) {
  }
  EXPECT_EQ(source.line().number(), 3);
  EXPECT_EQ(source.characters_read(), 5u);
  EXPECT_EQ(source.bytes_read(), 8u);
}

TEST_F(LineSourceTest, HasNoLinesOfAFileThatCannotBeOpened) {
  LineSource source(store_.fill());
  EXPECT_THROW(source.Open(folder_.File("none.mps")), AutomationError);
  EXPECT_FALSE(source.Next(Section::kStart));
  EXPECT_FALSE(source.Next(Section::kRows));
}

TEST_F(LineSourceTest, MarksATooLongLineAndNoneAfterIt) {
  LineSource source(store_.fill());
  Open(source, std::string(LineReader::kLongestLine + 1, 'x') + "\n a b\n");
  ASSERT_TRUE(source.Next(Section::kRows));
  EXPECT_TRUE(source.line().too_long());
  ASSERT_TRUE(source.Next(Section::kRows));
  EXPECT_FALSE(source.line().too_long());
}

}  // namespace
}  // namespace quarvel::mps
