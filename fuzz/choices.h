// The bytes of an input as choices, and what a target does when it has found a disagreement.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace quarvel::fuzz {

// What lies beyond the end of the bytes is 0. Copies go on from the same place apart from each
// other: hand it on by reference.
class Choices {
 public:
  Choices(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  bool at_end() const { return next_ >= size_; }
  // In 0..bound-1, of one byte, or of two where one would not reach; bound is at least 1.
  std::uint32_t operator()(std::uint32_t bound) {
    constexpr std::uint32_t kByteValues = 256;
    const std::uint32_t low = Next();
    return (bound <= kByteValues ? low : low * kByteValues + Next()) % bound;
  }
  // The bytes up to the next of that value, which is taken too, or up to the end.
  std::string Until(std::uint8_t stop) {
    std::string bytes;
    while (!at_end()) {
      const auto byte = static_cast<std::uint8_t>(Next());
      if (byte == stop) break;
      bytes += static_cast<char>(byte);
    }
    return bytes;
  }
  // All that is left.
  std::string Rest() {
    std::string bytes;
    while (!at_end()) bytes += static_cast<char>(Next());
    return bytes;
  }

 private:
  std::uint32_t Next() {
    const std::uint32_t byte = at_end() ? 0U : data_[next_];
    ++next_;
    return byte;
  }

  const std::uint8_t* data_;
  std::size_t size_;
  std::size_t next_ = 0;
};

// Ends the program, as the fuzzer wants it, with the fault; nothing when there is none.
inline void Require(const std::string& fault, const std::string& history = "") {
  if (fault.empty()) return;
  std::fprintf(stderr, "%s\n", fault.c_str());
  if (!history.empty()) std::fprintf(stderr, "after:\n%s", history.c_str());
  std::abort();
}

}  // namespace quarvel::fuzz
