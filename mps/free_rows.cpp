#include "mps/free_rows.h"

#include <utility>

#include "model/record_types.h"
#include "text/numbers.h"

namespace quarvel::mps {
namespace {

using enum FileProblemCode;

double ConstantOf(double right_hand_side) { return right_hand_side == 0 ? 0 : -right_hand_side; }

}  // namespace

void FreeRows::Note(const SourceLine& line, std::string_view name) {
  if (count_++ == 0) first_ = name;
  Keep(line, name, sink_.RowCount() + 1, false, 0);
}

void FreeRows::NoteRhs(const SourceLine& line, std::string_view word, std::int32_t row,
                       double value) {
  Keep(line, word, row, true, value);
}

void FreeRows::NameObjective(const SourceLine& line, std::string_view name) {
  if (!named_.empty()) {
    naming_.made = "passed over: a later line names the objective";
    hear_(std::move(naming_));
  }
  named_ = name;
  naming_ = ProblemOf(kObjectiveName, line, name, named_);
}

void FreeRows::Keep(const SourceLine& line, std::string_view word, std::int32_t row, bool is_rhs,
                    double value) {
  FileProblem place = ProblemOf(kFurtherFreeRow, line, word);
  mentions_.push_back({line.number(), place.column, place.length, row, is_rhs, value});
  if (shown_.size() < kMostShown) shown_.push_back(std::move(place));
}

void FreeRows::Finish() {
  const std::int32_t objective = FindObjective();
  if (objective != 0) facts_.objective = sink_.RowName(objective);
  std::size_t constant = mentions_.size();  // the mention that gives it
  for (std::size_t place = 0; place < mentions_.size(); ++place) {
    if (mentions_[place].is_rhs && mentions_[place].row == objective) constant = place;
  }
  for (std::size_t place = 0; place < mentions_.size(); ++place) {
    TellMention(place, objective, place == constant);
  }
}

std::int32_t FreeRows::FindObjective() {
  const std::string& asked = options_.objective.empty() ? named_ : options_.objective;
  std::int32_t row = asked.empty() ? 0 : sink_.FindRow(asked);
  if (row != 0 && sink_.Row(row).Type != model::RowType::kFree) row = 0;
  TellName(row != 0);
  return row == 0 && count_ > 0 ? sink_.FindRow(first_) : row;
}

void FreeRows::TellName(bool is_found) {
  const bool is_asked_for = !options_.objective.empty();
  if (!named_.empty() && (is_asked_for || is_found)) {
    naming_.made = is_asked_for ? "passed over: another is asked for"
                                : "the row of this name is the objective";
    hear_(naming_);
  }
  if (is_found || (!is_asked_for && named_.empty())) return;
  FileProblem problem{.code = kNoSuchObjective};
  if (!is_asked_for) problem = naming_;
  problem.code = kNoSuchObjective;
  problem.item = is_asked_for ? options_.objective : named_;
  problem.made = count_ > 0 ? "the first N row is the objective" : "there is no objective";
  hear_(std::move(problem));
}

void FreeRows::TellMention(std::size_t place, std::int32_t objective, bool counts) {
  const Mention& mention = mentions_[place];
  const bool is_of_objective = mention.row == objective;
  if (is_of_objective && !counts) return;
  FileProblem problem{.code = kFurtherFreeRow, .line = mention.line};
  if (place < shown_.size()) problem = std::move(shown_[place]);
  problem.column = mention.column;
  problem.length = mention.length;
  problem.item = sink_.RowName(mention.row);
  if (is_of_objective) {
    facts_.objective_constant = ConstantOf(mention.value);
    problem.code = kObjectiveConstant;
    problem.made = text::GeneralText(facts_.objective_constant) + " is added to the objective";
  } else {
    problem.code = mention.is_rhs ? kFreeRowRhs : kFurtherFreeRow;
    problem.made = mention.is_rhs ? "passed over" : "it stays as a free row";
  }
  hear_(std::move(problem));
}

}  // namespace quarvel::mps
