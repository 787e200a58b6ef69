// What the bytes of a file show and its lines do not: a byte order mark, and lines that CR alone ends.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/byte_source.h"

namespace quarvel::inspect {

class ByteMarks {
 public:
  // The next bytes of the file, in pieces of any size. Cost: a look at each byte, until the first CR
  // that ends a line alone.
  void Use(std::string_view bytes);

  bool has_byte_order_mark() const { return mark_place_ == kMark.size(); }
  // Counted from 1; 0 for none. A CR at the very end of the file is not looked at.
  std::int64_t first_cr_line() const { return first_cr_line_; }

 private:
  static constexpr std::string_view kMark = "\xEF\xBB\xBF";

  void UseStart(std::string_view bytes);

  std::size_t start_ = 0;       // bytes of the start that were looked at
  std::size_t mark_place_ = 0;  // those of them that are the mark's
  std::int64_t line_ = 1;
  bool is_behind_cr_ = false;
  std::int64_t first_cr_line_ = 0;
};

// Bytes that are looked at as they are read.
class MarkedBytes : public platform::ByteSource {
 public:
  // The marks must outlive this.
  MarkedBytes(std::unique_ptr<platform::ByteSource> bytes, ByteMarks& marks)
      : bytes_(std::move(bytes)), marks_(marks) {}

  std::uint64_t size() const override { return bytes_->size(); }
  std::size_t Read(char* buffer, std::size_t capacity) override {
    const std::size_t size = bytes_->Read(buffer, capacity);
    marks_.Use({buffer, size});
    return size;
  }

 private:
  std::unique_ptr<platform::ByteSource> bytes_;
  ByteMarks& marks_;
};

// Opens a file, the first time as bytes that are looked at.
class MarkedOpening {
 public:
  using Opener = std::function<std::unique_ptr<platform::ByteSource>()>;

  // `open` gives the bytes in place of those of the file, where it is not empty. The path, the opener and
  // the marks must outlive this.
  MarkedOpening(const std::string& path, const Opener& open, ByteMarks& marks)
      : path_(path), open_(open), marks_(marks) {}

  // Raises what opening the file raises. Null for a file that cannot be read again.
  std::unique_ptr<platform::ByteSource> operator()();

 private:
  const std::string& path_;
  const Opener& open_;
  ByteMarks& marks_;
  bool is_first_ = true;
  bool has_size_ = false;
};

}  // namespace quarvel::inspect
