// One run of SimplifyMPSModel: the progress window, the log, two passes over the model, and the
// questions at the end.
//
// Pass 1 turns rows of one element into bounds of their column, pass 2 removes empty columns and
// then empty rows. Both delete while they walk, one record at a time, yet the whole run costs one
// pass over the model for each kind of record: while only records of one kind are looked at, the store
// defers closing the gaps. Boxes and event points may call back into the model, so no reference
// into the store is kept across them.
//
// A failure closes the log, closes the window and is raised. What was changed before stays changed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/model_store.h"
#include "model/model_view.h"
#include "mps/frm_progress.h"
#include "platform/desktop.h"
#include "simplify/simplification_log.h"

namespace quarvel::simplify {

struct ConversionRule;

// What a simplification works on. Everything outlives it.
struct SimplifyJob {
  model::ModelStore& store;
  platform::Desktop& desktop;
  model::ViewLink& view;
  SimplificationLog& log;
  mps::frmProgress& window;
};

class Simplifier {
 public:
  explicit Simplifier(const SimplifyJob& job);

  // Raises 55 when a simplification of this model is going on, before anything is touched.
  void Run();

 private:
  enum class RowFate { kKept, kDeleted, kPassEnded };

  // --- the driver (simplifier.cpp) ---
  void RunInWindow();
  void ShowWindow();
  void OpenLog();
  void CloseLog();
  void TellOutcome();
  void OfferLog();
  void DeleteLog();
  // Counts steps. At each multiple of `interval` shows the progress, lets events run and gives true
  // when the user has stopped.
  bool StoppedAfterSteps(std::int64_t steps, std::int64_t interval, std::string_view caption);

  // --- pass 1 (convert_singleton_rows.cpp) ---
  void ConvertSingletonRows();
  RowFate ConvertRow(std::int32_t i);
  RowFate AskAboutRow(std::int32_t i, const ConversionRule& rule, double lower, double upper);
  // A row that becomes other bounds than it is.
  void NoteAltered(const model::RowRecord& row, const ConversionRule& rule);
  // Applies a conversion to row i, whose single element is at hand, and deletes the row.
  void ConvertAndDelete(std::int32_t i, unsigned taken_bounds, double lower, double upper);

  // --- pass 2 (remove_empty_rows_and_columns.cpp) ---
  void RemoveEmptyRowsAndColumns();
  // False when the user has stopped.
  bool RemoveEmptyColumns();
  bool RemoveEmptyRows();

  model::ModelStore& store_;
  platform::Desktop& desktop_;
  model::ViewLink& view_;
  SimplificationLog& log_;  // closed by a host that makes a new model meanwhile
  mps::frmProgress& window_;
  std::string file_location_;  // as it was when the log was opened
  std::string log_name_;
  bool owns_log_ = false;
  bool changed_ = false;
  bool removed_ = false;  // a row, which the component's sentence may not count as a change
  std::int64_t steps_done_ = 0;
  std::int64_t steps_total_ = 0;
};

}  // namespace quarvel::simplify
