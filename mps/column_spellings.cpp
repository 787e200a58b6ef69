#include "mps/column_spellings.h"

#include <utility>

namespace quarvel::mps {
namespace {

std::uint64_t SmallLettersOfName(const SourceLine& line) {
  const auto begin = static_cast<std::size_t>(line[1].data() - line.split_text().data());
  if (begin >= LineBatch::kLongest) return 0;
  const std::uint64_t bits = line.small_letters() >> begin;
  const std::size_t size = line[1].size();
  return size >= LineBatch::kLongest ? bits : bits & ((std::uint64_t{1} << size) - 1);
}

}  // namespace

bool ColumnSpellings::IsAnother(const SourceLine& line, std::int32_t column, bool is_new) {
  const auto place = static_cast<std::size_t>(column);
  const std::uint64_t spelling = SmallLettersOfName(line);
  if (place >= last_.size()) last_.resize(place + 1);
  return std::exchange(last_[place], spelling) != spelling && !is_new;
}

}  // namespace quarvel::mps
