// Option buttons. The form knows which exclude each other; Qt only shows it.
#include <QKeyEvent>
#include <QRadioButton>
#include <algorithm>
#include <functional>
#include <vector>

#include "platform/basic_controls.h"
#include "platform/qt/control_view.h"
#include "platform/qt/qt_text.h"

namespace quarvel::platform::qt {
namespace {

// A radio button that leaves the arrow keys to its view.
class OptionWidget : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;
  std::function<void(int step)> on_arrow;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    switch (event->key()) {
      case Qt::Key_Up:
      case Qt::Key_Left:
        return on_arrow(-1);
      case Qt::Key_Down:
      case Qt::Key_Right:
        return on_arrow(1);
      default:
        return QRadioButton::keyPressEvent(event);
    }
  }
};

// The option that many steps further in the same group, past those that cannot be chosen.
OptionButton& Neighbour(OptionButton& option, int step) {
  std::vector<OptionButton*> group;
  for (Control* control : option.form().controls()) {
    if (control->kind() != ControlKind::kOptionButton) continue;
    auto* const other = static_cast<OptionButton*>(control);
    if (other->group() == option.group() && other->enabled() && other->visible()) {
      group.push_back(other);
    }
  }
  const auto here = std::find(group.begin(), group.end(), &option);
  if (here == group.end()) return option;
  const auto count = static_cast<std::ptrdiff_t>(group.size());
  const std::ptrdiff_t place = (here - group.begin() + step + count) % count;
  return *group[static_cast<std::size_t>(place)];
}

class OptionView : public ViewOf<OptionButton, OptionWidget> {
 public:
  OptionView(Stage& stage, Control& control, QWidget& parent)
      : ViewOf(stage, control, new OptionWidget(&parent)) {
    widget_.setAutoExclusive(false);
    QObject::connect(&widget_, &QRadioButton::clicked, [this] {
      if (ForUser([this] { kind().Click(); })) Show(Change::kValue);
    });
    widget_.on_arrow = [this](int step) {
      ForUser([this, step] {
        OptionButton& other = Neighbour(kind(), step);
        other.Focus();
        other.Click();
      });
    };
  }

 protected:
  void Show(Change change) override {
    if (change == Change::kCaption) widget_.setText(ToQt(MarkedCaption(kind(), '&')));
    if (change == Change::kValue) widget_.setChecked(kind().value());
  }
};

}  // namespace

std::unique_ptr<ControlView> MakeOptionView(Stage& stage, Control& control, QWidget& parent) {
  return std::make_unique<OptionView>(stage, control, parent);
}

}  // namespace quarvel::platform::qt
