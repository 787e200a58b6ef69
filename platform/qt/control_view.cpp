#include "platform/qt/control_view.h"

#include "platform/qt/qt_text.h"

namespace quarvel::platform::qt {
namespace {

// Words of its own are what a reader of the screen says; other controls go by their name.
bool HasOwnWords(ControlKind kind) {
  switch (kind) {
    case ControlKind::kLabel:
    case ControlKind::kButton:
    case ControlKind::kOptionButton:
    case ControlKind::kCheckBox:
    case ControlKind::kFrame:
      return true;
    default:
      return false;
  }
}

}  // namespace

ControlView::ControlView(Stage& stage, Control& control, QWidget& widget)
    : stage_(stage), control_(&control), widget_(widget) {
  widget_.setObjectName(ToQt(control.name()));
  if (!HasOwnWords(control.kind())) widget_.setAccessibleName(ToQt(control.name()));
}

void ControlView::MirrorAll() {
  for (const Change change : {Change::kCaption, Change::kContents, Change::kRange, Change::kValue,
                              Change::kSelection, Change::kEnabled, Change::kVisible}) {
    Mirror(change);
  }
}

void ControlView::Mirror(Change change) {
  if (control_ == nullptr) return;
  switch (change) {
    case Change::kEnabled:
      return widget_.setEnabled(control_->enabled());
    case Change::kVisible:
      return widget_.setVisible(control_->visible());
    case Change::kFocus:
      return TakeFocus();
    default:
      return Show(change);
  }
}

void ControlView::PlaceIn(int width, int height) {
  if (control_ == nullptr) return;
  const Place place = control_->PlaceIn(width, height);
  widget_.setGeometry(place.x, place.y, place.width, place.height);
}

std::unique_ptr<ControlView> MakeView(Stage& stage, Control& control, QWidget& parent) {
  switch (control.kind()) {
    case ControlKind::kLabel:
    case ControlKind::kFrame:
    case ControlKind::kButton:
    case ControlKind::kCheckBox:
    case ControlKind::kProgressBar:
      return MakeBasicView(stage, control, parent);
    case ControlKind::kOptionButton:
      return MakeOptionView(stage, control, parent);
    case ControlKind::kTextBox:
      return MakeTextView(stage, control, parent);
    case ControlKind::kComboBox:
    case ControlKind::kTabStrip:
      return MakeChoiceView(stage, control, parent);
    case ControlKind::kGrid:
      return MakeGridView(stage, control, parent);
    case ControlKind::kMenuItem:
      break;
  }
  return nullptr;
}

}  // namespace quarvel::platform::qt
