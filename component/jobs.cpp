// The jobs: each gets what it works on for the time of one call.

#include "component/lp_model.h"
#include "component/model_windows.h"
#include "component/results.h"
#include "mps/read_driver.h"
#include "mps/save_driver.h"
#include "simplify/simplifier.h"

namespace quarvel {
namespace {

// The model of a read, whose open viewer pauses until the model is complete.
class ModelOfRead : public mps::ReadHost {
 public:
  ModelOfRead(LPModel& model, simplify::SimplificationLog& log, model::ViewLink& view)
      : model_(model), log_(log), view_(view), pause_(view) {}

  void DropModel() override {
    model_.store().Clear();
    log_.Abandon();
  }
  void SimplifyModel() override { model_.SimplifyMPSModel(); }
  // A host may have set the flag without a window.
  void ShowModel() override {
    pause_.End();
    model::ModelView* const view = view_.open();
    if (model_.frmViewEquationsIsShowing() && view != nullptr) view->RefreshForm();
  }

 private:
  LPModel& model_;
  simplify::SimplificationLog& log_;
  model::ViewLink& view_;
  model::ViewPause pause_;
};

}  // namespace

std::int16_t LPModel::ReadMPSFile() {
  return Guarded([&] {
    const mps::ReadWindows windows = {windows_->file_open(), windows_->default_bounds(),
                                      windows_->progress()};
    return Number(mps::ChooseAndRead(store_, windows, [this] { StartFileReding(); }));
  });
}

std::int16_t LPModel::StartFileReding() {
  return Guarded([&] {
    ModelOfRead owner(*this, log_, view_);
    return Number(mps::ReadInto(store_, desktop_, owner, windows_->progress()));
  });
}

std::int16_t LPModel::SaveMPSFile(const std::string& FileLoc) {
  return Guarded([&] {
    // A host that is called back from a box may change its own text.
    const std::string path = FileLoc;  // NOLINT(performance-unnecessary-copy-initialization)
    return Number(mps::SaveModel(store_, desktop_, path));
  });
}

std::int16_t LPModel::SaveAsMPSFile() {
  return Guarded([&] {
    const std::string path = mps::ChoosePathToSave(store_, windows_->file_open());
    return path.empty() ? Number(mps::SaveResult::kCancelled) : SaveMPSFile(path);
  });
}

void LPModel::SimplifyMPSModel() {
  Guarded([&] {
    simplify::Simplifier({store_, desktop_, view_, log_, windows_->progress()}).Run();
  });
}

}  // namespace quarvel
