#include "mps/read_ending.h"

#include "model/simplify_offer.h"
#include "mps/frm_progress.h"
#include "platform/box.h"
#include "platform/desktop.h"

namespace quarvel::mps {

void ReadEnding::Run() {
  Insist([this] { store_.data(); });
  if (IsDone()) questions_.Guarded([this] { CheckModel(); });
  if (IsDone()) questions_.Guarded([this] { Finish(); });
  if (questions_.state() == ReadState::kStopped) {
    store_.settings().ReadMPSFileErr = 0;
    host_.DropModel();
    CloseWindow();
  }
  if (questions_.state() == ReadState::kFailed) EndAsFailed();
}

void ReadEnding::GiveUp() {
  if (!is_whole_) {
    store_.settings().ReadMPSFileErr = 0;
    store_.fill().Begin();  // with what a host has deferred, which takes memory to carry out
    host_.DropModel();
  }
  CloseWindow();
}

template <class Step>
void ReadEnding::Insist(const Step& step) {
  for (bool taken = false; IsDone() && !taken;) {
    questions_.Guarded([&] {
      step();
      taken = true;
    });
  }
}

void ReadEnding::Check(bool good, ReadProblemCode code) {
  if (!IsDone() || good) return;
  questions_.Guarded([&] { questions_.GoesOnAfter({code}); });
}

void ReadEnding::CheckModel() {
  const model::ModelData& data = store_.data();
  Check(data.NumberOfRows >= 1, ReadProblemCode::kNoRows);
  Check(data.NumberOfColumns >= 1, ReadProblemCode::kNoColumns);
  Check(data.NumberOfElements >= 1, ReadProblemCode::kNoElements);
  const bool empty_columns = IsDone() && CheckRecords(data.Columns, data.NumberOfColumns, "column ",
                                                      ReadProblemCode::kColumnBoundsReversed);
  const bool empty_rows = IsDone() && CheckRecords(data.Rows, data.NumberOfRows, "row ",
                                                   ReadProblemCode::kRowBoundsReversed);
  Check(!empty_columns && !empty_rows, ReadProblemCode::kEmptyItems);
}

// Each box may let a host change the model, so the record is looked up anew after it.
template <class Records>
bool ReadEnding::CheckRecords(const Records& records, const std::int32_t& count,
                              std::string_view what, ReadProblemCode reversed) {
  bool accepted_empty = false;
  for (std::int32_t number = 1; number <= count; ++number) {
    const auto& record = records[number];
    if (record.ElementCount() != 0 && !(record.LowerBound > record.UpperBound)) continue;
    questions_.Guarded([&] {
      if (AsksAndAcceptsEmpty(record, what, reversed)) accepted_empty = true;
    });
    if (!IsDone()) break;
    Insist([this] { store_.data(); });  // settles what a host has deferred
  }
  return accepted_empty;
}

template <class Record>
bool ReadEnding::AsksAndAcceptsEmpty(const Record& record, std::string_view what,
                                     ReadProblemCode reversed) {
  const bool is_empty = record.ElementCount() == 0;
  const std::string name = record.Name;
  if (record.LowerBound > record.UpperBound &&
      !questions_.GoesOnAfter({.code = reversed, .item = name})) {
    return false;
  }
  return is_empty && AcceptsEmpty(what, name);
}

// No ends the read, and alone of all endings leaves the progress window on the screen.
bool ReadEnding::AcceptsEmpty(std::string_view what, const std::string& name) {
  const platform::MsgBoxResult answer =
      desktop_.MsgBox({.kind = platform::BoxKind::kEmptyItem,
                       .statement = "Warning: no elements for " + std::string(what) + name,
                       .question = "Continue reading MPS file?",
                       .style = platform::MsgBoxStyle::kYesNoExclamation,
                       .title = "LPModel: reading MPS file...",
                       .item = name});
  if (answer == platform::MsgBoxResult::kYes) return true;
  store_.settings().ReadMPSFileErr = 0;
  desktop_.SetMousePointer(platform::MousePointer::kDefault);
  questions_.set_state(ReadState::kLeftOpen);
  return false;
}

void ReadEnding::Finish() {
  Insist([this] { store_.DeriveRowTypes(); });
  if (!IsDone()) return;
  is_whole_ = true;
  CloseWindow();
  questions_.Guarded([this] { OfferToSimplify(); });
  if (IsDone()) questions_.Guarded([this] { host_.ShowModel(); });
  if (IsDone()) desktop_.SetMousePointer(platform::MousePointer::kDefault);
}

void ReadEnding::OfferToSimplify() {
  const platform::MsgBoxResult answer = desktop_.MsgBox(model::SimplifyOffer());
  if (answer == platform::MsgBoxResult::kYes) host_.SimplifyModel();
}

void ReadEnding::EndAsFailed() {
  store_.settings().ReadMPSFileErr = 0;
  desktop_.SetMousePointer(platform::MousePointer::kDefault);
  CloseWindow();
}

void ReadEnding::CloseWindow() {
  if (window_ != nullptr) window_->Finish();
}

}  // namespace quarvel::mps
