#include "hosts/record_selection.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "hosts/streams.h"
#include "model/record_types.h"
#include "text/upper_case.h"

namespace quarvel::hosts {
namespace {

template <model::RowType kType>
bool IsRowOf(const ListedModel& listed, std::int32_t i) {
  return model::RowTypeOf(listed.model.RowType(i)) == kType;
}

template <model::ColumnType kType>
bool IsColumnOf(const ListedModel& listed, std::int32_t j) {
  return model::ColumnTypeOf(listed.model.ColType(j)) == kType;
}

bool IsInteger(const ListedModel& listed, std::int32_t j) {
  const model::ColumnType type = model::ColumnTypeOf(listed.model.ColType(j));
  return type == model::ColumnType::kInteger || type == model::ColumnType::kBinary;
}

bool IsBinary(const ListedModel& listed, std::int32_t j) {
  return IsInteger(listed, j) && listed.model.ColLowerBound(j) == 0 &&
         listed.model.ColUpperBound(j) == 1;
}

struct TypeWord {
  std::string_view word;
  bool of_rows;
  bool (*test)(const ListedModel& listed, std::int32_t index);
};
constexpr TypeWord kTypeWords[] = {
    {"E", true, IsRowOf<model::RowType::kEqual>},
    {"G", true, IsRowOf<model::RowType::kGreater>},
    {"L", true, IsRowOf<model::RowType::kLess>},
    {"N", true, IsRowOf<model::RowType::kFree>},
    {"R", true, IsRowOf<model::RowType::kRanged>},
    {"continuous", false, IsColumnOf<model::ColumnType::kContinuous>},
    {"integer", false, IsInteger},
    {"binary", false, IsBinary},
    {"R", false, IsColumnOf<model::ColumnType::kContinuous>},
    {"I", false, IsColumnOf<model::ColumnType::kInteger>},
};

bool IsOf(const TypeWord& type, const model::RecordKind& kind) {
  return type.of_rows == (&kind == &model::kRowKind);
}

const TypeWord& FindType(const model::RecordKind& kind, std::string_view word) {
  for (const TypeWord& type : kTypeWords) {
    if (IsOf(type, kind) && text::UpperCase(type.word) == text::UpperCase(word)) return type;
  }
  throw CommandError(kUsage,
                     "--type takes " + TypeWords(kind) + ", not \"" + std::string(word) + '"');
}

std::vector<std::string_view> SplitAtCommas(std::string_view list) {
  std::vector<std::string_view> words;
  while (true) {
    const std::size_t comma = list.find(',');
    words.push_back(list.substr(0, comma));
    if (comma == std::string_view::npos) return words;
    list.remove_prefix(comma + 1);
  }
}

// All bounds that are none are one.
double NumberOf(const Bound& bound) {
  if (!bound.IsNone()) return bound.value;
  return bound.side == Bound::Side::kLower ? -model::BoundLimit : model::BoundLimit;
}

// Bounds as numbers, so that they compare as such.
using Key = std::variant<double, std::string>;

Key KeyOf(FieldValue value) {
  if (auto* const words = std::get_if<std::string>(&value)) return std::move(*words);
  if (const auto* const bound = std::get_if<Bound>(&value)) return NumberOf(*bound);
  if (const auto* const number = std::get_if<double>(&value)) return *number;
  return static_cast<double>(std::get<std::int32_t>(value));
}

}  // namespace

RecordSelection::RecordSelection(const ListChoices& choices, const model::RecordKind& kind)
    : choices_(choices) {
  for (const std::string& pattern : choices.patterns) patterns_.emplace_back(pattern);
  if (!choices.types.empty()) {
    for (const std::string_view word : SplitAtCommas(choices.types)) {
      types_.push_back(FindType(kind, word).test);
    }
  }
  if (choices.sort.empty()) return;
  is_reversed_ = choices.sort.front() == '-';
  const RecordFields fields =
      FieldsOf(kind, std::string_view(choices.sort).substr(is_reversed_ ? 1 : 0), "--sort");
  if (fields.size() > 1) throw CommandError(kUsage, "--sort takes one key");
  key_ = fields[0];
}

std::vector<std::int32_t> RecordSelection::Of(const ListedModel& listed) const {
  std::vector<std::int32_t> records;
  for (std::int32_t i = 0; i < listed.count(); ++i) {
    if (Keeps(listed, i)) records.push_back(i);
  }
  if (key_ != nullptr) Sort(listed, records);
  return records;
}

bool RecordSelection::Keeps(const ListedModel& listed, std::int32_t index) const {
  if (!KeepsBounds(listed, index)) return false;
  if (choices_.is_empty && (listed.model.*listed.kind.elements)(index) != 0) return false;
  if (choices_.is_integer && !IsInteger(listed, index)) return false;
  const auto is_of_type = [&](TypeTest test) { return test(listed, index); };
  if (!types_.empty() && std::none_of(types_.begin(), types_.end(), is_of_type)) return false;
  if (patterns_.empty()) return true;
  const std::string name = (listed.model.*listed.kind.name)(index);
  return std::any_of(patterns_.begin(), patterns_.end(),
                     [&name](const text::Glob& pattern) { return pattern.Matches(name); });
}

std::string RecordSelection::HintOfNone() const {
  for (std::size_t i = 0; i < patterns_.size(); ++i) {
    if (!patterns_[i].has_open_bracket()) continue;
    return "--match " + choices_.patterns[i] + ": a [ that no ] closes stands for itself";
  }
  return "";
}

bool RecordSelection::KeepsBounds(const ListedModel& listed, std::int32_t index) const {
  if (!choices_.is_free && !choices_.is_fixed) return true;
  const model::Bounds bounds = {(listed.model.*listed.kind.lower)(index),
                                (listed.model.*listed.kind.upper)(index)};
  if (choices_.is_fixed && !model::AreFixed(bounds)) return false;
  return !choices_.is_free ||
         !(model::HasLower(bounds.LowerBound) || model::HasUpper(bounds.UpperBound));
}

void RecordSelection::Sort(const ListedModel& listed, std::vector<std::int32_t>& records) const {
  std::vector<std::pair<Key, std::int32_t>> keys;
  keys.reserve(records.size());
  for (const std::int32_t record : records) {
    keys.emplace_back(KeyOf(key_->value(listed, record)), record);
  }
  std::stable_sort(keys.begin(), keys.end(), [this](const auto& a, const auto& b) {
    return is_reversed_ ? b.first < a.first : a.first < b.first;
  });
  std::transform(keys.begin(), keys.end(), records.begin(),
                 [](const auto& key) { return key.second; });
}

std::string TypeWords(const model::RecordKind& kind) {
  std::string words;
  for (const TypeWord& type : kTypeWords) {
    if (!IsOf(type, kind)) continue;
    if (!words.empty()) words += ", ";
    words += type.word;
  }
  return words;
}

std::string ListHelp(const model::RecordKind& kind) {
  return "Options that choose go together: a record must fit all of them. Types: " +
         TypeWords(kind) + ".\nWhat --columns shows and --sort goes by: " + FieldKeys(kind) +
         ".\nWhere there is no bound, --csv has inf or -inf. On a terminal the first 100 are listed, as "
         "wide as\nit is, unless --limit or --full is given; --csv and --json list all there too.\n";
}

}  // namespace quarvel::hosts
