#include "simplify/simplifier.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "model/model_view.h"
#include "platform/box.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "simplify/simplification_log.h"
#include "text/picture.h"

namespace quarvel {
namespace {

using platform::MsgBoxResult;

constexpr std::string_view kCaption = "Progress: Simplifying MPS Model";
constexpr std::string_view kLogQuestion =
    "Model had simplifications.  Do you wish to see the log file?  If not, it can be viewed later "
    "in the same "
    "directory as the MPS file.";
constexpr std::string_view kNothingDone = "No simplifications were made.";

// The user's model must not be emptied for a log, whichever name it goes by.
bool IsModelFile(const ModelData& data, const std::string& path) {
  const std::array<const std::string*, 2> model_files = {&data.FileLocation, &data.strMPSFile};
  return std::any_of(model_files.begin(), model_files.end(), [&path](const std::string* file) {
    return !file->empty() && (*file == path || platform::IsSameFile(*file, path));
  });
}

}  // namespace

void LPModel::SimplifyMPSModel() { Simplifier(*this).Run(); }

Simplifier::Simplifier(LPModel& model) : model_(model), window_(ProgressWindow(model)) {}

void Simplifier::Run() {
  if (model_.raw_data().LogFileNumber != 0) RaiseRunTimeError(RunTimeError::kFileAlreadyOpen);
  const ViewPause pause(model_);
  try {
    RunInWindow();
  } catch (...) {
    if (owns_log_) model_.CloseLog();
    window_.Finish();
    throw;
  }
  window_.Finish();
}

void Simplifier::RunInWindow() {
  ShowWindow();
  OpenLog();
  ConvertSingletonRows();
  if (!window_.StopRequested) RemoveEmptyRowsAndColumns();
  CloseLog();
  TellOutcome();
}

void Simplifier::ShowWindow() {
  window_.Load();
  window_.set_caption(kCaption);
  steps_total_ = std::int64_t{3} * model_.NumberOfRows() + model_.NumberOfColumns();
  window_.bar.set_range(0, static_cast<float>(steps_total_));
  window_.Show();
}

void Simplifier::OpenLog() {
  file_location_ = model_.FileLocation();
  log_name_ = LogFileName(file_location_);
  if (IsModelFile(model_.raw_data(), log_name_)) {
    RaiseRunTimeError(RunTimeError::kPathFileAccessError);
  }
  model_.log_ = std::make_unique<platform::OutputFile>(log_name_);
  model_.raw_data().LogFileNumber = 1;
  owns_log_ = true;
  Log(LogHeading(file_location_));
}

void Simplifier::CloseLog() {
  owns_log_ = false;
  model_.raw_data().LogFileNumber = 0;
  const std::unique_ptr<platform::OutputFile> log = std::move(model_.log_);
  if (log) log->Close();
}

void Simplifier::Log(std::string_view line) {
  if (model_.raw_data().LogFileNumber != 0) model_.AppendToLog(line);
}

void Simplifier::TellOutcome() {
  if (changed_) {
    OfferLog();
  } else {
    model_.desktop().MsgBox(platform::Note(kNothingDone));
    DeleteLog();
  }
}

void Simplifier::OfferLog() {
  platform::Desktop& desktop = model_.desktop();
  const MsgBoxResult answer = desktop.MsgBox(Question(platform::BoxKind::kOfferLog, kLogQuestion));
  if (answer != MsgBoxResult::kYes) return;
  if (desktop.OpenInEditor(log_name_)) return;
  // Also for a model without a file, whose log stands elsewhere.
  desktop.MsgBox(
      platform::Refusal("Error loading log file in notepad.  The log file can be found at " +
                        BesideModel(file_location_)));
}

// A log that somebody has deleted already is what was wanted; one that cannot be deleted is raised
// like every other failure of the log. A host may have saved the model under the log's name
// meanwhile: that file stays.
void Simplifier::DeleteLog() {
  if (IsModelFile(model_.raw_data(), log_name_)) return;
  try {
    platform::RemoveFile(log_name_);
  } catch (const AutomationError& error) {
    if (error.number() != static_cast<std::int32_t>(RunTimeError::kFileNotFound)) throw;
  }
}

bool Simplifier::StoppedAfterSteps(std::int64_t steps, std::int64_t interval,
                                   std::string_view caption) {
  steps_done_ += steps;
  if (steps_done_ % interval != 0) return false;
  window_.bar.set_value(static_cast<float>(steps_done_));
  // A host may have filled a model that was empty when the steps were counted.
  const double ratio =
      steps_total_ == 0 ? 0 : static_cast<double>(steps_done_) / static_cast<double>(steps_total_);
  window_.set_caption(std::string(caption) + text::PercentText(ratio) + ")");
  model_.desktop().DoEvents();
  return window_.StopRequested;
}

// Pending removals of the other kind, which only a host that was called back leaves behind, make
// the element counts of this kind stale.
ModelData& Simplifier::Look(Kind kind) {
  ModelData& data = model_.raw_data();
  const bool other_kind = !data.removals.empty() && data.removals.kind() != kind;
  if (other_kind || data.row_lists_pending) Settle(data);
  return data;
}

RowRecord& Simplifier::RowAt(std::int32_t i) {
  ModelData& data = Look(Kind::kRows);
  return data.Rows[data.removals.Position(Kind::kRows, i)];
}

ColumnRecord& Simplifier::ColumnAt(std::int32_t j) {
  ModelData& data = Look(Kind::kColumns);
  return data.Columns[data.removals.Position(Kind::kColumns, j)];
}

}  // namespace quarvel
