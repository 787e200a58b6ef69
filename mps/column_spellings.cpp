#include "mps/column_spellings.h"

#include <utility>

namespace quarvel::mps {

bool ColumnSpellings::IsAnother(const SourceLine& line, std::int32_t column, bool is_new) {
  const auto place = static_cast<std::size_t>(column);
  const std::uint64_t spelling = line.SmallLettersOf(line[1]);
  if (place >= last_.size()) last_.resize(place + 1);
  return std::exchange(last_[place], spelling) != spelling && !is_new;
}

}  // namespace quarvel::mps
