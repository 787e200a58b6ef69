#include "platform/qt/control_view.h"

#include "platform/qt/form_window.h"
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

ControlView::ControlView(FormWindow& owner, Control& control, QWidget& widget)
    : owner_(owner), control_(control), widget_(widget) {
  widget_.setObjectName(ToQt(control.name()));
  if (!HasOwnWords(control.kind())) widget_.setAccessibleName(ToQt(control.name()));
}

bool ControlView::alive() const { return owner_.alive(); }

bool ControlView::ForUser(const std::function<void()>& action) {
  if (alive()) owner_.ForUser(action);
  return alive();
}

void ControlView::MirrorAll() {
  for (const Change change : {Change::kCaption, Change::kContents, Change::kRange, Change::kValue,
                              Change::kSelection, Change::kEnabled, Change::kVisible}) {
    Mirror(change);
  }
}

void ControlView::Mirror(Change change) {
  if (!alive()) return;
  switch (change) {
    case Change::kEnabled:
      return widget_.setEnabled(control_.enabled());
    case Change::kVisible:
      return widget_.setVisible(control_.visible());
    default:
      return Show(change);
  }
}

void ControlView::PlaceIn(int width, int height) {
  if (!alive()) return;
  const Place place = control_.PlaceIn(width, height);
  widget_.setGeometry(place.x, place.y, place.width, place.height);
}

std::unique_ptr<ControlView> MakeView(FormWindow& owner, Control& control) {
  switch (control.kind()) {
    case ControlKind::kLabel:
    case ControlKind::kFrame:
    case ControlKind::kButton:
    case ControlKind::kOptionButton:
    case ControlKind::kCheckBox:
    case ControlKind::kProgressBar:
      return MakeBasicView(owner, control);
    case ControlKind::kTextBox:
      return MakeTextView(owner, control);
    case ControlKind::kComboBox:
    case ControlKind::kTabStrip:
      return MakeChoiceView(owner, control);
    case ControlKind::kGrid:
      return MakeGridView(owner, control);
    case ControlKind::kMenuItem:
      break;
  }
  return nullptr;
}

}  // namespace quarvel::platform::qt
