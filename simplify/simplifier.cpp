#include "simplify/simplifier.h"

#include <algorithm>
#include <array>

#include "platform/box.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "text/picture.h"

namespace quarvel::simplify {
namespace {

using platform::MsgBoxResult;

constexpr std::string_view kCaption = "Progress: Simplifying MPS Model";
constexpr std::string_view kLogQuestion =
    "Model had simplifications.  Do you wish to see the log file?  If not, it can be viewed later "
    "in the same "
    "directory as the MPS file.";
constexpr std::string_view kNothingDone = "No simplifications were made.";

// The user's model must not be emptied for a log, whichever name it goes by.
bool IsModelFile(const model::ModelSettings& settings, const std::string& path) {
  const std::array<const std::string*, 2> model_files = {&settings.FileLocation,
                                                         &settings.strMPSFile};
  return std::any_of(model_files.begin(), model_files.end(), [&path](const std::string* file) {
    return !file->empty() && (*file == path || platform::IsSameFile(*file, path));
  });
}

}  // namespace

Simplifier::Simplifier(const SimplifyJob& job)
    : store_(job.store),
      desktop_(job.desktop),
      view_(job.view),
      log_(job.log),
      window_(job.window) {}

void Simplifier::Run() {
  if (log_.is_open()) RaiseRunTimeError(RunTimeError::kFileAlreadyOpen);
  const model::ViewPause pause(view_);
  try {
    RunInWindow();
  } catch (...) {
    if (owns_log_) log_.Abandon();
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
  steps_total_ = std::int64_t{3} * store_.NumberOfRows() + store_.NumberOfColumns();
  window_.bar.set_range(0, static_cast<float>(steps_total_));
  window_.Show();
}

void Simplifier::OpenLog() {
  file_location_ = store_.settings().FileLocation;
  log_name_ = log_.has_file() ? LogFileName(file_location_) : std::string();
  if (IsModelFile(store_.settings(), log_name_)) {
    RaiseRunTimeError(RunTimeError::kPathFileAccessError);
  }
  log_.Open(log_name_, file_location_);
  owns_log_ = true;
  log_.Append(LogHeading(file_location_));
}

void Simplifier::CloseLog() {
  owns_log_ = false;
  log_.Close();
}

// A host that keeps the log itself hears of every row that went.
void Simplifier::TellOutcome() {
  if (changed_ || (removed_ && !log_.has_file())) {
    OfferLog();
  } else {
    desktop_.MsgBox(platform::Note(kNothingDone));
    DeleteLog();
  }
}

void Simplifier::OfferLog() {
  const MsgBoxResult answer = desktop_.MsgBox(Question(platform::BoxKind::kOfferLog, kLogQuestion));
  if (answer != MsgBoxResult::kYes || !log_.has_file()) return;
  if (desktop_.OpenInEditor(log_name_)) return;
  // Also for a model without a file, whose log stands elsewhere.
  desktop_.MsgBox(
      platform::Refusal("Error loading log file in notepad.  The log file can be found at " +
                        BesideModel(file_location_)));
}

// A log that somebody has deleted already is what was wanted; one that cannot be deleted is raised
// like every other failure of the log. A host may have saved the model under the log's name
// meanwhile: that file stays.
void Simplifier::DeleteLog() {
  if (!log_.has_file()) return log_.DropKept();
  if (IsModelFile(store_.settings(), log_name_)) return;
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
  desktop_.DoEvents();
  return window_.StopRequested;
}

}  // namespace quarvel::simplify
