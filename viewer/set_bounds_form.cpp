#include "viewer/set_bounds_form.h"

#include <cstddef>
#include <string>

#include "model/model_interface.h"
#include "platform/automation_error.h"
#include "platform/box.h"
#include "platform/desktop.h"

namespace quarvel::viewer {
namespace {

using platform::OptionButton;
using platform::Refusal;

// The frame of types grows with what it holds; all below it moves down.
constexpr int kFrameTop = 34;
constexpr int kOptionStep = 24;

constexpr int FrameHeight(std::size_t options) {
  return static_cast<int>(options) * kOptionStep + 32;
}
constexpr int BoxesTop(std::size_t options) { return kFrameTop + FrameHeight(options) + 8; }
constexpr int ButtonsTop(std::size_t options) { return BoxesTop(options) + 104; }

std::vector<std::unique_ptr<OptionButton>> MakeOptions(
    platform::Form& form, std::span<const SetBoundsForm::TypeOption> types) {
  std::vector<std::unique_ptr<OptionButton>> options;
  int top = kFrameTop + 22;
  for (const SetBoundsForm::TypeOption& type : types) {
    options.push_back(
        std::make_unique<OptionButton>(form, type.name, platform::Place{26, top, 248, 22, {}}));
    options.back()->set_caption(type.caption);
    options.back()->access_key = type.access_key;
    top += kOptionStep;
  }
  return options;
}

}  // namespace

SetBoundsForm::SetBoundsForm(platform::Desktop& desktop, const Design& design)
    : Form(desktop, design.form_name),
      lblRecord(*this, design.label_name, {12, 10, 276, 20, {}}),
      fraType(*this, "fraType", {12, kFrameTop, 276, FrameHeight(design.options.size()), {}}),
      options(MakeOptions(*this, design.options)),
      bounds(*this, BoxesTop(design.options.size())),
      cmdOK(*this, "cmdOK", {92, ButtonsTop(design.options.size()), 92, 28, {}}),
      cmdCancel(*this, "cmdCancel", {196, ButtonsTop(design.options.size()), 92, 28, {}}),
      design_(design) {
  SetSize(300, ButtonsTop(design.options.size()) + 40, false);
  SurviveFailures();
  set_caption("Set " + std::string(design.kind.title) + " Bounds");
  fraType.set_caption(design.type_caption);
  cmdOK.set_caption("OK");
  cmdOK.is_default = true;
  cmdOK.on_click = [this] { Accept(); };
  cmdCancel.set_caption("Cancel");
  cmdCancel.is_cancel = true;
  cmdCancel.on_click = [this] { Unload(); };
}

OptionButton* SetBoundsForm::Option(std::string_view type) const {
  for (std::size_t i = 0; i < options.size(); ++i) {
    if (design_.options[i].type == type) return options[i].get();
  }
  return nullptr;
}

void SetBoundsForm::ShowBounds(model::ModelInterface& model, std::int32_t number) {
  if (IsShowing()) RaiseRunTimeError(RunTimeError::kFormAlreadyDisplayed);
  const model::RecordKind& kind = design_.kind;
  OptionButton* const option = Option((model.*kind.type)(number));
  if (option == nullptr) {
    desktop().MsgBox(Refusal(design_.unknown_type));
    Unload();
    return;
  }
  model_ = &model;
  record_ = NamedRecord::Of(model, kind, number);
  lblRecord.set_caption(std::string(kind.title) + ' ' + record_.name);
  option->set_value(true);
  BoundBoxes::Put(bounds.txtLwrBnd, (model.*kind.lower)(number));
  BoundBoxes::Put(bounds.txtUprBnd, (model.*kind.upper)(number));
  ShowModal();
}

void SetBoundsForm::Accept() {
  if (model_ == nullptr) return;
  model::ModelInterface& model = *model_;
  if (!bounds.BothAreNumbers()) return;
  OrderBounds();
  if (!StoreType()) return;
  (model.*design_.kind.set_upper)(record_.number, BoundBoxes::Get(bounds.txtUprBnd));
  (model.*design_.kind.set_lower)(record_.number, BoundBoxes::Get(bounds.txtLwrBnd));
  Unload();
}

const SetBoundsForm::TypeOption& SetBoundsForm::Chosen() const {
  std::size_t chosen = 0;
  for (std::size_t i = 0; i < options.size(); ++i) {
    if (options[i]->value()) chosen = i;
  }
  return design_.options[chosen];
}

void SetBoundsForm::StoreChosenType() {
  const TypeOption& chosen = Chosen();
  (model_->*design_.kind.set_type)(record_.number, chosen.type);
  if (chosen.fit != nullptr) chosen.fit(bounds);
}

bool SetBoundsForm::HasRecord() {
  if (model_ == nullptr) return false;
  if (record_.IsIn(*model_)) return true;
  desktop().MsgBox(Refusal(NoneSelectedText(design_.kind)));
  Unload();
  return false;
}

}  // namespace quarvel::viewer
