#include "mps/name_spellings.h"

#include <string>
#include <utility>

namespace quarvel::mps {

void NameSpellings::Compare(Spellings& last, const SourceLine& line, std::string_view name,
                            std::int32_t number, bool is_new, std::string_view made) {
  const auto begin = static_cast<std::size_t>(name.data() - line.split_text().data());
  if (begin + name.size() > LineBatch::kLongest) return;
  const auto place = static_cast<std::size_t>(number);
  const std::uint64_t spelling = line.LettersOf(UnusualLetters(line), name);
  if (spelling == 0 && last.empty()) return;
  has_unusual_ = looks_closer_ = true;
  if (place >= last.size()) last.resize(place + 1);
  if (std::exchange(last[place], spelling) == spelling || is_new) return;
  TellOf(hear_, FileProblemCode::kOtherLetters, line, name, std::string(name), std::string(made));
}

}  // namespace quarvel::mps
