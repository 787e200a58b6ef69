#include "text/upper_case.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace quarvel::text {
namespace {

// Small letters first, first + step, ..., last; the capital of each stands `offset` away. Every
// letter and every capital here takes two bytes of UTF-8, so a text never changes its length.
struct CaseRange {
  std::uint16_t first;
  std::uint16_t last;
  std::uint16_t step;
  std::int16_t offset;
};

constexpr CaseRange kCaseRanges[] = {
    // Latin-1, with y diaeresis whose capital stands in Latin Extended-A.
    {0x00E0, 0x00F6, 1, -32},
    {0x00F8, 0x00FE, 1, -32},
    {0x00FF, 0x00FF, 1, 121},
    // Latin Extended-A: pairs, broken by dotless i, kra and the apostrophe-n.
    {0x0101, 0x012F, 2, -1},
    {0x0133, 0x0137, 2, -1},
    {0x013A, 0x0148, 2, -1},
    {0x014B, 0x0177, 2, -1},
    {0x017A, 0x017E, 2, -1},
    // Greek: archaic letters, accented letters, the alphabet with both sigmas.
    {0x0371, 0x0373, 2, -1},
    {0x0377, 0x0377, 1, -1},
    {0x037B, 0x037D, 1, 130},
    {0x03AC, 0x03AC, 1, -38},
    {0x03AD, 0x03AF, 1, -37},
    {0x03B1, 0x03C1, 1, -32},
    {0x03C2, 0x03C2, 1, -31},
    {0x03C3, 0x03CB, 1, -32},
    {0x03CC, 0x03CC, 1, -64},
    {0x03CD, 0x03CE, 1, -63},
    // Greek: letter variants and the Coptic letters of the same block.
    {0x03D0, 0x03D0, 1, -62},
    {0x03D1, 0x03D1, 1, -57},
    {0x03D5, 0x03D5, 1, -47},
    {0x03D6, 0x03D6, 1, -54},
    {0x03D7, 0x03D7, 1, -8},
    {0x03D9, 0x03EF, 2, -1},
    {0x03F0, 0x03F0, 1, -86},
    {0x03F1, 0x03F1, 1, -80},
    {0x03F2, 0x03F2, 1, 7},
    {0x03F3, 0x03F3, 1, -116},
    {0x03F5, 0x03F5, 1, -96},
    {0x03F8, 0x03F8, 1, -1},
    {0x03FB, 0x03FB, 1, -1},
    // Cyrillic.
    {0x0430, 0x044F, 1, -32},
    {0x0450, 0x045F, 1, -80},
    {0x0461, 0x0481, 2, -1},
    {0x048B, 0x04BF, 2, -1},
    {0x04C2, 0x04CE, 2, -1},
    {0x04CF, 0x04CF, 1, -15},
    {0x04D1, 0x052F, 2, -1},
};

constexpr std::size_t kFirstCode = 0x80;
constexpr std::size_t kEndCode = 0x540;

using CapitalTable = std::array<std::uint16_t, kEndCode - kFirstCode>;

constexpr CapitalTable kCapitals = [] {
  CapitalTable capitals{};
  for (std::size_t i = 0; i < capitals.size(); ++i) {
    capitals[i] = static_cast<std::uint16_t>(kFirstCode + i);
  }
  for (const CaseRange& range : kCaseRanges) {
    for (std::size_t code = range.first; code <= range.last; code += range.step) {
      capitals[code - kFirstCode] =
          static_cast<std::uint16_t>(static_cast<int>(code) + range.offset);
    }
  }
  return capitals;
}();

// The first bytes of two-byte sequences that the table covers.
constexpr unsigned kFirstLead = 0xC0 | kFirstCode >> 6;
constexpr unsigned kEndLead = 0xC0 | kEndCode >> 6;

void UpperCaseTwoByteLetters(std::string& text) {
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    const unsigned lead = static_cast<unsigned char>(text[i]);
    const unsigned trail = static_cast<unsigned char>(text[i + 1]);
    if (lead < kFirstLead || lead >= kEndLead || trail >> 6 != 2) continue;
    const unsigned capital = kCapitals[((lead & 0x1F) << 6 | (trail & 0x3F)) - kFirstCode];
    text[i] = static_cast<char>(0xC0 | capital >> 6);
    text[++i] = static_cast<char>(0x80 | (capital & 0x3F));
  }
}

}  // namespace

std::string UpperCase(std::string_view utf8) {
  std::string text(utf8);
  unsigned all_bits = 0;
  for (char& c : text) {
    all_bits |= static_cast<unsigned char>(c);
    c = UpperCaseAscii(c);
  }
  if (all_bits >= 0x80) UpperCaseTwoByteLetters(text);
  return text;
}

}  // namespace quarvel::text
