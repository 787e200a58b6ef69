#include "api/simplifying.h"

#include "api/windowless_desktop.h"
#include "model/model_view.h"
#include "mps/frm_progress.h"
#include "quarvel/simplify.h"
#include "simplify/simplification_log.h"
#include "simplify/simplifier.h"

namespace quarvel {
namespace {

using platform::MsgBoxResult;

// Answers as the options say; what is only told is not heard.
class OptionsDesktop : public api::WindowlessDesktop {
 public:
  explicit OptionsDesktop(const SimplifyOptions& options) : options_(options) {}

  std::int32_t conflicts() const { return conflicts_; }

 protected:
  MsgBoxResult Answer(const platform::Box& box) override {
    if (box.kind != platform::BoxKind::kConflict) return box.look().when_closed;
    ++conflicts_;
    if (options_.on_conflict == OnConflict::kRemoveRow) return MsgBoxResult::kYes;
    return options_.on_conflict == OnConflict::kResetBounds ? MsgBoxResult::kNo
                                                            : MsgBoxResult::kCancel;
  }
  bool ShowPart(std::string_view, double part) override {
    return !options_.on_progress || options_.on_progress(part);
  }

 private:
  const SimplifyOptions& options_;
  std::int32_t conflicts_ = 0;
};

}  // namespace

void api::RunSimplifier(ModelParts& parts, platform::Desktop& desktop, std::string& log,
                        std::vector<std::string>* altered) {
  log.clear();
  simplify::SimplificationLog kept(parts.store);
  kept.KeepIn(&log, altered);
  model::ViewLink view;
  mps::frmProgress window(desktop);
  simplify::Simplifier({parts.store, desktop, view, kept, window}).Run();
  DropLostObjective(parts);
}

SimplifyResult Simplify(Model& model, const SimplifyOptions& options) {
  ModelParts& parts = ModelAccess::Of(model);
  const api::Work work(parts);
  return api::Translated([&] {
    OptionsDesktop desktop(options);
    SimplifyResult result;
    const std::int32_t rows = parts.store.NumberOfRows();
    const std::int32_t columns = parts.store.NumberOfColumns();
    api::RunSimplifier(parts, desktop, result.log, &result.altered);
    result.is_stopped = desktop.is_stopped();
    result.conflicts = desktop.conflicts();
    result.removed_rows = rows - parts.store.NumberOfRows();
    result.removed_columns = columns - parts.store.NumberOfColumns();
    return result;
  });
}

}  // namespace quarvel
