// What follows the last line of a read: the checks of the whole model, the types of rows from their
// bounds, the closing of the progress window, the offer to simplify and the viewer's refresh; or,
// after Stop and after No, what is left of the model.
#pragma once

#include <string>
#include <string_view>

#include "model/model_store.h"
#include "mps/read_questions.h"

namespace quarvel::mps {

class frmProgress;

// What a read asks of the component that owns the model.
class ReadHost {
 public:
  virtual ~ReadHost() = default;
  // Empties the model, with its texts and its log.
  virtual void DropModel() = 0;
  virtual void SimplifyModel() = 0;
  // The model is complete: an open viewer shows it again.
  virtual void ShowModel() = 0;
};

class ReadEnding {
 public:
  // All must outlive the ending. `window`: the progress window, null for none.
  ReadEnding(model::ModelStore& store, platform::Desktop& desktop, ReadHost& host,
             frmProgress* window, ReadQuestions& questions)
      : store_(store), desktop_(desktop), host_(host), window_(window), questions_(questions) {}

  // Ends a read that is done, stopped or failed. Raises nothing that the model causes.
  void Run();
  // Ends a read that cannot go on: the model is empty unless it is whole already. Cannot fail.
  void GiveUp();

 private:
  bool IsDone() const { return questions_.state() == ReadState::kDone; }
  // Takes a step that the model is not whole without: a failure is asked about until it succeeds.
  template <class Step>
  void Insist(const Step& step);
  void Check(bool good, ReadProblemCode code);
  void CheckModel();
  // Each record for bounds and elements; true when a record without elements was accepted.
  template <class Records>
  bool CheckRecords(const Records& records, const std::int32_t& count, std::string_view what,
                    ReadProblemCode reversed);
  // Asks about a record that has no elements or whose bounds are reversed; true when it has none and
  // was accepted.
  template <class Record>
  bool AsksAndAcceptsEmpty(const Record& record, std::string_view what, ReadProblemCode reversed);
  bool AcceptsEmpty(std::string_view what, const std::string& name);
  void Finish();
  void OfferToSimplify();
  void EndAsFailed();
  void CloseWindow();

  model::ModelStore& store_;
  platform::Desktop& desktop_;
  ReadHost& host_;
  frmProgress* window_;
  ReadQuestions& questions_;
  bool is_whole_ = false;  // the model, but for what the user wants to do with it next
};

}  // namespace quarvel::mps
