// A model's sink that also hears which values the lines give (given_values.h), and how they spell the names
// of rows and columns (name_spellings.h).
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/bounds.h"
#include "mps/file_facts.h"
#include "mps/given_values.h"
#include "mps/model_sink.h"
#include "mps/name_spellings.h"
#include "mps/section.h"

namespace quarvel::mps {

class WatchedSink : public ModelSink {
 public:
  using ModelSink::ModelSink;

  // Both must outlive this. Without them nothing is watched.
  void Watch(GivenValues& values, NameSpellings& spellings) {
    values_ = &values;
    spellings_ = &spellings;
  }
  // Must outlive this, and hears of upper bounds without being watched.
  void TellUppers(FileFacts& facts) { facts_ = &facts; }

  void AddRow(const SourceLine& line, std::size_t token, model::RowType type) {
    ModelSink::AddRow(line, token, type);
    if (spellings_ != nullptr) spellings_->AddRow(line, line[token], RowCount());
  }

  // --- what sections tell such a sink ---

  // A coefficient of 0 was read out of that token.
  void HearZero(const SourceLine& line, std::size_t token) const {
    if (values_ != nullptr) values_->NoteZero(line, line[token], line[token - 1]);
  }
  // A right-hand side of the row that is the token, which its value follows.
  void HearRhs(const SourceLine& line, std::size_t token, std::int32_t row, double value) const {
    if (values_ == nullptr) return;
    spellings_->UseRow(line, line[token], row);
    values_->CheckNumber(line, line[token + 1], value);
    values_->NoteRhs(line, line[token], row, value);
  }
  void HearBound(const SourceLine& line, std::int32_t column, const model::BoundsChange& change,
                 double value) const {
    const bool says_upper = change.upper != model::BoundChange::kKept;
    if (says_upper && facts_ != nullptr) facts_->SayUpper(column);
    if (values_ == nullptr) return;
    const BoundsGiven given = {.lower = change.lower != model::BoundChange::kKept,
                               .upper = says_upper};
    const bool has_value =
        change.lower == model::BoundChange::kGiven || change.upper == model::BoundChange::kGiven;
    if (has_value) values_->CheckNumber(line, line[4], value);
    values_->NoteBounds(line, line[3], column, given);
    spellings_->UseColumn(line, line[3], column);
  }

 private:
  GivenValues* values_ = nullptr;
  NameSpellings* spellings_ = nullptr;
  FileFacts* facts_ = nullptr;
};

}  // namespace quarvel::mps
