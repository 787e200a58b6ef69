#include "mps/tokens.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "text/byte_block.h"
#include "text/upper_case.h"

namespace quarvel::mps {
namespace {

// As many bytes as a mask has bits.
constexpr std::size_t kGroup = 64;

// Upper-cases up to 64 bytes and marks those that are not spaces. Reads, but does not change, up to
// 15 bytes more.
std::uint64_t UpperCaseGroup(char* text, std::size_t size) {
  std::uint64_t spaces = 0;
  for (std::size_t from = 0; from < size; from += text::kBlockSize) {
    const text::ByteBlock block(text + from);
    spaces |= std::uint64_t{block.Equal(' ')} << from;
    block.StoreUpperCase(text + from, size - from);
  }
  const std::uint64_t inside = size < kGroup ? (std::uint64_t{1} << size) - 1 : ~std::uint64_t{0};
  return ~spaces & inside;
}

}  // namespace

std::vector<std::string_view> SplitLine(std::string_view line) {
  std::vector<std::string_view> tokens;
  for (std::size_t from = line.find_first_not_of(' '); from != std::string_view::npos;) {
    const std::size_t to = std::min(line.find(' ', from), line.size());
    tokens.push_back(line.substr(from, to - from));
    from = line.find_first_not_of(' ', to);
  }
  return tokens;
}

void Tokens::Split(Line& line) {
  if (line.ascii) {
    SplitUpperCase(line.text, line.size);
    return;
  }
  upper_case_ = text::UpperCase(line.view());
  const std::size_t size = upper_case_.size();
  upper_case_.append(LineReader::kPadding, ' ');
  SplitUpperCase(upper_case_.data(), size);
}

// A token begins or ends wherever the kind of the byte changes.
void Tokens::SplitUpperCase(char* text, std::size_t size) {
  Clear();
  text_ = {text, size};
  const char* token = nullptr;  // the start of the token at hand
  std::uint64_t inside_before = 0;
  for (std::size_t from = 0; from < size; from += kGroup) {
    const std::uint64_t inside = UpperCaseGroup(text + from, std::min(size - from, kGroup));
    std::uint64_t edges = inside ^ (inside << 1 | inside_before);
    inside_before = inside >> (kGroup - 1);
    for (; edges != 0; edges &= edges - 1) {
      const char* edge = text + from + std::countr_zero(edges);
      if (token == nullptr) {
        token = edge;
      } else {
        Keep(token, edge);
        token = nullptr;
      }
    }
  }
  if (token != nullptr) Keep(token, text + size);
}

}  // namespace quarvel::mps
