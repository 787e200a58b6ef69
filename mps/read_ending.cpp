#include "mps/read_ending.h"

#include "model/simplify_offer.h"
#include "mps/frm_progress.h"
#include "platform/box.h"
#include "platform/desktop.h"

namespace quarvel::mps {

void ReadEnding::Run() {
  if (IsDone()) questions_.Guarded([this] { CheckModel(); });
  if (IsDone()) questions_.Guarded([this] { Finish(); });
  if (questions_.state() == ReadState::kStopped) {
    store_.settings().ReadMPSFileErr = 0;
    host_.DropModel();
    CloseWindow();
  }
  if (questions_.state() == ReadState::kFailed) EndAsFailed();
}

void ReadEnding::Check(bool good, ReadProblemCode code) {
  if (IsDone() && !good) questions_.GoesOnAfter({code});
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
    const bool is_empty = record.ElementCount() == 0;
    const bool is_reversed = record.LowerBound > record.UpperBound;
    if (!is_empty && !is_reversed) continue;
    const std::string name = record.Name;
    if (is_reversed && !questions_.GoesOnAfter({.code = reversed, .item = name})) break;
    if (is_empty && !AcceptsEmpty(what, name)) break;
    accepted_empty = accepted_empty || is_empty;
    store_.data();  // settles what a host has deferred
  }
  return accepted_empty;
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
  store_.DeriveRowTypes();
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
