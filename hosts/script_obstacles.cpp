#include "hosts/script_obstacles.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "hosts/edit_words.h"
#include "inspect/repeated_pairs.h"
#include "text/encoding.h"
#include "text/upper_case.h"

namespace quarvel::hosts {
namespace {

using inspect::Difference;
using enum inspect::DifferenceKind;
using Pair = inspect::RepeatedPairs::key_type;

constexpr std::size_t kMostTold = 10;

// Why no edit command gives a record that name; empty when one does.
std::string_view NameObstacle(std::string_view name) {
  if (name.empty()) return "has no name";
  if (name.find(' ') != std::string_view::npos) return "has a blank in its name";
  if (!text::IsValidUtf8(name)) return "has a name that is not UTF-8";
  return text::UpperCase(name) == name ? ""
                                       : "has a name in small letters, and edit makes capitals";
}

// "#5" is number 5 to edit, whatever the names are.
bool IsTakenForANumber(std::string_view name) {
  return name.size() > 1 && name.front() == '#' &&
         name.find_first_not_of("0123456789", 1) == std::string_view::npos;
}

// A bound is a number, or it is none.
bool HaveWords(const model::Bounds& bounds) {
  return (std::isfinite(bounds.LowerBound) || bounds.LowerBound < 0) &&
         (std::isfinite(bounds.UpperBound) || bounds.UpperBound > 0);
}

class ObstacleSearch {
 public:
  ObstacleSearch(const ScriptSide& a, const ScriptSide& b, const inspect::Tolerance& tolerance)
      : a_(a), b_(b), repeated_in_b_(inspect::RepeatedPairsOf(b.store)), tolerance_(tolerance) {}

  std::vector<std::string> Run();

 private:
  void Add(std::string sentence) {
    if (found_.size() < kMostTold) found_.push_back(std::move(sentence));
  }
  void AddOf(std::string_view noun, std::string_view name, std::string_view words) {
    Add(std::string(noun).append(" ").append(QuotedWord(name)).append(" ").append(words));
  }
  void LookAtNames(std::string_view file, const model::ModelStore& store);
  void LookAtObjective();
  void LookAtNameOfObjective();
  void LookAt(const Difference& difference);
  void LookAtText(std::string_view what, std::string_view text);
  void LookAtRow(const model::RowRecord& row);
  void LookAtColumn(const model::ColumnRecord& column);
  void LookAtElements(const model::ElementList& elements);
  void LookAtRepeatedPairs();

  ScriptSide a_;
  ScriptSide b_;
  inspect::RepeatedPairs repeated_in_b_;
  const inspect::Tolerance& tolerance_;
  std::vector<std::string> found_;
};

std::vector<std::string> ObstacleSearch::Run() {
  LookAtObjective();
  if (inspect::Compare(a_.store, b_.store, tolerance_, 0).none()) {
    LookAtNameOfObjective();
    return found_;
  }
  LookAtNames("A", a_.store);
  LookAtNames("B", b_.store);
  if (b_.store.NumberOfElements() == 0) Add("B has no elements, and edit writes no such model");
  if (!found_.empty()) return found_;  // what follows goes by names
  inspect::Compare(a_.store, b_.store, tolerance_,
                   [this](const Difference& difference) { LookAt(difference); });
  LookAtRepeatedPairs();
  return found_;
}

void ObstacleSearch::LookAtNames(std::string_view file, const model::ModelStore& store) {
  const std::string words = "stands several times in " + std::string(file);
  const auto look_at = [&](std::string_view noun, std::string_view name, bool is_first) {
    if (!is_first) AddOf(noun, name, words);
    if (IsTakenForANumber(name)) AddOf(noun, name, "has a name that edit takes for a number");
  };
  for (std::int32_t r = 1; r <= store.NumberOfRows(); ++r) {
    look_at("row", store.Row(r).Name, store.FindRow(store.Row(r).Name) == r);
  }
  for (std::int32_t c = 1; c <= store.NumberOfColumns(); ++c) {
    look_at("column", store.Column(c).Name, store.FindColumn(store.Column(c).Name) == c);
  }
}

void ObstacleSearch::LookAt(const Difference& d) {
  switch (d.kind) {
    case kModelName:
      return LookAtText("name", b_.store.settings().ModelName);
    case kDescription:
      return LookAtText("description", b_.store.settings().ModelDescription);
    case kRowCame:
      if (const auto why = NameObstacle(b_.store.Row(d.row.b).Name); !why.empty())
        AddOf("row", b_.store.Row(d.row.b).Name, why);
      LookAtElements(b_.store.Row(d.row.b).Elements);
      return LookAtRow(b_.store.Row(d.row.b));
    case kRowType:
    case kRowLower:
    case kRowUpper:
      return LookAtRow(b_.store.Row(d.row.b));
    case kColumnCame:
      if (const auto why = NameObstacle(b_.store.Column(d.column.b).Name); !why.empty())
        AddOf("column", b_.store.Column(d.column.b).Name, why);
      LookAtElements(b_.store.Column(d.column.b).Elements);
      return LookAtColumn(b_.store.Column(d.column.b));
    case kColumnType:
    case kColumnLower:
    case kColumnUpper:
      return LookAtColumn(b_.store.Column(d.column.b));
    case kElementCame:
    case kElementValue:
      if (!std::isfinite(d.after)) Add("an element of B is not finite");
      return;
    default:
      return;
  }
}

void ObstacleSearch::LookAtText(std::string_view what, std::string_view text) {
  std::string_view rest = text;
  const auto has_odd_line_end = [&rest] {
    while (true) {
      const std::size_t end = rest.find_first_of("\r\n");
      if (end == std::string_view::npos) return false;
      if (rest.substr(end, 2) != "\r\n") return true;
      rest.remove_prefix(end + 2);
    }
  };
  const bool one_line = what == "name";
  if (!text::IsValidUtf8(text) || (!one_line && has_odd_line_end())) {
    Add("the " + std::string(what) + " of B is no text that a command can give");
  }
}

void ObstacleSearch::LookAtRow(const model::RowRecord& row) {
  if (row.Type == model::RowType::kNone) AddOf("row", row.Name, "has no type in B");
  if (!HaveWords(row)) {
    AddOf("row", row.Name, "has a limit in B that is no number");
  }
}

void ObstacleSearch::LookAtColumn(const model::ColumnRecord& column) {
  if (!model::TraitsOf(column.Type).settable) {
    AddOf("column", column.Name, "is of a type in B that edit cannot set");
  }
  if (!HaveWords(column)) {
    AddOf("column", column.Name, "has a bound in B that is no number");
  }
}

void ObstacleSearch::LookAtElements(const model::ElementList& elements) {
  const bool finite =
      std::all_of(elements.begin(), elements.end(),
                  [](const model::ElementEntry& entry) { return std::isfinite(entry.Value); });
  if (!finite) Add("an element of B is not finite");
}

// Where both models have the same several values, nothing is to be done.
void ObstacleSearch::LookAtRepeatedPairs() {
  if (repeated_in_b_.empty()) return;
  const auto tell = [this](std::int32_t row, std::int32_t column) {
    if (!repeated_in_b_.contains(Pair(row, column))) return;
    AddOf("element", b_.store.Row(row).Name,
          QuotedWord(b_.store.Column(column).Name) +
              " stands several times in B, and edit makes one of each");
    repeated_in_b_.erase(Pair(row, column));
  };
  inspect::Compare(a_.store, b_.store, tolerance_, [&](const Difference& d) {
    if (d.row.b != 0 && d.column.b != 0) tell(d.row.b, d.column.b);
    if (d.kind == kRowCame) {
      for (const auto& entry : b_.store.Row(d.row.b).Elements) tell(d.row.b, entry.Index);
    }
    if (d.kind == kColumnCame) {
      for (const auto& entry : b_.store.Column(d.column.b).Elements) tell(entry.Index, d.column.b);
    }
  });
}

// A row of type N is the objective of what edit writes, unless another one is.
void ObstacleSearch::LookAtObjective() {
  if (b_.facts == nullptr || !b_.facts->objective.empty()) return;
  for (std::int32_t r = 1; r <= b_.store.NumberOfRows(); ++r) {
    const model::RowRecord& row = b_.store.Row(r);
    if (row.Type != model::RowType::kFree) continue;
    return AddOf("row", row.Name, "is free in B, which has no objective, and edit makes it that");
  }
}

// The names of all records are looked at only where the models differ.
void ObstacleSearch::LookAtNameOfObjective() {
  if (a_.facts == nullptr || b_.facts == nullptr) return;
  const std::string& objective = b_.facts->objective;
  if (objective == a_.facts->objective || !IsTakenForANumber(objective)) return;
  AddOf("row", objective, "has a name that edit takes for a number");
}

}  // namespace

std::vector<std::string> ScriptObstacles(const ScriptSide& a, const ScriptSide& b,
                                         const inspect::Tolerance& tolerance) {
  return ObstacleSearch(a, b, tolerance).Run();
}

}  // namespace quarvel::hosts
