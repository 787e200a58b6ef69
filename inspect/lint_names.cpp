#include <algorithm>

#include "inspect/lint_parts.h"
#include "mps/file_words.h"
#include "text/encoding.h"
#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

using mps::FileProblem;
using mps::FileProblemCode;

struct LongNames {
  const model::NameText* first = nullptr;
  std::int64_t rows = 0;
  std::int64_t columns = 0;
  std::size_t longest = 0;

  void Look(const model::NameText& name, std::int64_t& count) {
    constexpr std::size_t kMost = mps::kLongestFixedName;
    if (name.size() <= kMost) return;
    const std::size_t characters = text::CharacterCount(name);
    if (characters <= kMost) return;
    if (first == nullptr) first = &name;
    ++count;
    longest = std::max(longest, characters);
  }
  std::string Text() const {
    return "row names: " + text::IntegerText(rows) +
           ", column names: " + text::IntegerText(columns) + ", the longest of " +
           text::IntegerText(static_cast<std::int64_t>(longest)) +
           "; fixed columns do not hold them";
  }
};

}  // namespace

void LintNames(const model::ModelData& data, const LintListener& listener) {
  LongNames names;
  for (std::int32_t i = 1; i <= data.NumberOfRows; ++i) names.Look(data.Rows[i].Name, names.rows);
  for (std::int32_t j = 1; j <= data.NumberOfColumns; ++j) {
    names.Look(data.Columns[j].Name, names.columns);
  }
  if (names.first == nullptr) return;
  listener.Tell(FileProblemCode::kLongNames, [&names] {
    return FileProblem{.code = {}, .item = *names.first, .made = names.Text()};
  });
}

}  // namespace quarvel::inspect
