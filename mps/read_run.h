// Reads an MPS file into a model: takes line after line from a LineSource to the Sections, which
// tell a ModelSink what the model gets, and lets the user follow and stop it.
//
// At every box and every hundredth line a host may call back into the model and change it. The read
// goes on with numbers that are true then.
//
// Cost: one pass over the bytes; names are looked up in constant time.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/model_store.h"
#include "mps/line_source.h"
#include "mps/model_sink.h"
#include "mps/read_ending.h"
#include "mps/read_questions.h"
#include "mps/sections.h"

namespace quarvel::mps {

inline constexpr std::string_view kReadingCaption = "Progress: Reading MPS File";

class ReadRun {
 public:
  // All must outlive the run. `window`: the progress window that this read reports to and takes
  // Stop from; null for none.
  ReadRun(model::ModelStore& store, platform::Desktop& desktop, ReadHost& host,
          frmProgress* window);

  // Reads the file strMPSFile. Raises nothing that the file causes; the outcome is ReadMPSFileErr.
  // What could not even be asked about, for lack of memory, is raised: the read has failed then, and
  // the model is empty.
  void Run();

 private:
  static constexpr std::int64_t kLinesBetweenEvents = 100;

  struct AskUser {
    ReadQuestions& questions;
    bool operator()(const ReadProblem& problem) const { return questions.GoesOnAfter(problem); }
  };

  bool IsReading() const { return questions_.state() == ReadState::kReading; }
  void ReadAll();
  void Begin();
  void ReadLines();
  void ReportProgress();

  model::ModelSettings& settings_;
  platform::Desktop& desktop_;
  frmProgress* window_;
  std::int64_t next_event_ = kLinesBetweenEvents;  // the line before which events run
  LineSource source_;
  ModelSink sink_;
  ReadQuestions questions_;
  Sections<ModelSink, AskUser> sections_;
  ReadEnding ending_;
};

}  // namespace quarvel::mps
