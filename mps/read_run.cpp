#include "mps/read_run.h"

#include <string>

#include "mps/frm_progress.h"
#include "platform/desktop.h"
#include "text/picture.h"

namespace quarvel::mps {
ReadRun::ReadRun(model::ModelStore& store, platform::Desktop& desktop, ReadHost& host,
                 frmProgress* window)
    : settings_(store.settings()),
      desktop_(desktop),
      window_(window),
      source_(store.fill()),
      sink_(store.fill(), source_),
      questions_(desktop, sink_),
      sections_(sink_, AskUser{questions_}),
      ending_(store, desktop, host, window, questions_) {}

void ReadRun::Run() {
  settings_.ReadMPSFileErr = -1;
  settings_.EndLineMissing = false;
  settings_.LinesRead = 0;
  sink_.DropRecords();
  try {
    ReadAll();
  } catch (...) {
    ending_.GiveUp();
    throw;
  }
}

void ReadRun::ReadAll() {
  // Answered Yes, a file that cannot be opened is read as an empty one.
  questions_.Guarded([this] { source_.Open(settings_.strMPSFile); });
  if (IsReading()) Begin();
  while (IsReading()) questions_.Guarded([this] { ReadLines(); });
  source_.Close();  // the file is free from here on, whatever the questions at the end lead to
  ending_.Run();
}

void ReadRun::Begin() {
  if (window_ != nullptr) {
    window_->set_caption(kReadingCaption);
    window_->bar.set_range(0, static_cast<float>(source_.file_size()));
  }
  sink_.DropTexts();
}

void ReadRun::ReadLines() {
  SourceLine& line = source_.line();
  while (source_.Next(sections_.section())) {
    if (line.number() == next_event_) {
      next_event_ += kLinesBetweenEvents;
      questions_.Guarded([this] { ReportProgress(); });  // the line is not lost by it
      if (!IsReading()) return;
    }
    if (!sections_.Use(line)) break;
  }
  if (!IsReading()) return;
  settings_.EndLineMissing = !sections_.has_ended();
  settings_.LinesRead = line.number();
  questions_.set_state(ReadState::kDone);
}

void ReadRun::ReportProgress() {
  if (window_ != nullptr) {
    const auto read = static_cast<double>(source_.characters_read());
    const auto all = static_cast<double>(source_.file_size());
    window_->bar.set_value(static_cast<float>(source_.characters_read()));
    window_->set_caption("Progress:  Reading MPS File (" +
                         text::PercentText(all == 0 ? 0 : read / all) + ")");
  }
  desktop_.DoEvents();
  sink_.AfterCallback();
  if (window_ != nullptr && window_->StopRequested) questions_.set_state(ReadState::kStopped);
}

}  // namespace quarvel::mps
