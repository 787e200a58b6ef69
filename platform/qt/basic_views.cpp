// Labels, frames, buttons, option buttons, check boxes and progress bars.
#include <QCheckBox>
#include <QKeyEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

#include "platform/basic_controls.h"
#include "platform/focus_order.h"
#include "platform/qt/control_view.h"
#include "platform/qt/fitted_words.h"
#include "platform/qt/form_window.h"
#include "platform/qt/qt_text.h"

namespace quarvel::platform::qt {
namespace {

QString Marked(const Control& control) { return ToQt(MarkedCaption(control, '&')); }

class LabelView : public ViewOf<Label, FittedLabel> {
 public:
  LabelView(FormWindow& owner, Control& control)
      : ViewOf(owner, control, new FittedLabel(owner.inner())) {}

 protected:
  // Qt reads ampersands in a label only when the label leads somewhere.
  void Show(Change change) override {
    if (change != Change::kCaption) return;
    const QString words = ToQtLines(Own().caption());
    widget_.SetWords(Own().access_key != 0 ? Marked(Own()) : words, words);
  }
};

class FrameView : public ViewOf<Frame, FittedFrame> {
 public:
  FrameView(FormWindow& owner, Control& control)
      : ViewOf(owner, control, new FittedFrame(owner.inner())) {}

 protected:
  void Show(Change change) override {
    if (change == Change::kCaption) widget_.SetWords(Marked(Own()), ToQt(Own().caption()));
  }
};

class ButtonView : public ViewOf<Button, QPushButton> {
 public:
  ButtonView(FormWindow& owner, Control& control)
      : ViewOf(owner, control, new QPushButton(&owner.inner())) {
    widget_.setDefault(Own().is_default);
    // Enter presses the button that has the keyboard.
    widget_.setAutoDefault(true);
    QObject::connect(&widget_, &QPushButton::clicked,
                     [this] { ForUser([this] { Own().Click(); }); });
  }

 protected:
  void Show(Change change) override {
    if (change == Change::kCaption) widget_.setText(Marked(Own()));
  }
};

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

class OptionView : public ViewOf<OptionButton, OptionWidget> {
 public:
  OptionView(FormWindow& owner, Control& control)
      : ViewOf(owner, control, new OptionWidget(&owner.inner())) {
    widget_.setAutoExclusive(false);
    QObject::connect(&widget_, &QRadioButton::clicked, [this] {
      if (ForUser([this] { Own().Click(); })) Show(Change::kValue);
    });
    widget_.on_arrow = [this](int step) { ForUser([this, step] { GoInGroup(Own(), step); }); };
  }

 protected:
  void Show(Change change) override {
    if (change == Change::kCaption) widget_.setText(Marked(Own()));
    if (change == Change::kValue) widget_.setChecked(Own().value());
  }
};

class CheckView : public ViewOf<CheckBox, QCheckBox> {
 public:
  CheckView(FormWindow& owner, Control& control)
      : ViewOf(owner, control, new QCheckBox(&owner.inner())) {
    QObject::connect(&widget_, &QCheckBox::clicked, [this] {
      if (ForUser([this] { Own().Click(); })) Show(Change::kValue);
    });
  }

 protected:
  // Setting it does not come back: only the user's clicks are listened to.
  void Show(Change change) override {
    if (change == Change::kCaption) widget_.setText(Marked(Own()));
    if (change == Change::kValue) widget_.setChecked(Own().checked());
  }
};

class ProgressView : public ViewOf<ProgressBar, QProgressBar> {
 public:
  ProgressView(FormWindow& owner, Control& control)
      : ViewOf(owner, control, new QProgressBar(&owner.inner())) {
    widget_.setRange(0, kSteps);
    widget_.setTextVisible(false);
  }

 protected:
  void Show(Change change) override {
    if (change != Change::kRange && change != Change::kValue) return;
    const int step = static_cast<int>(Own().Done() * kSteps);
    if (step == widget_.value()) return;
    // A bar would paint itself at every step; this way it waits for the next turn of the events.
    widget_.setUpdatesEnabled(false);
    widget_.setValue(step);
    widget_.setUpdatesEnabled(true);
  }

 private:
  static constexpr int kSteps = 1000;
};

}  // namespace

std::unique_ptr<ControlView> MakeBasicView(FormWindow& owner, Control& control) {
  switch (control.kind()) {
    case ControlKind::kLabel:
      return std::make_unique<LabelView>(owner, control);
    case ControlKind::kFrame:
      return std::make_unique<FrameView>(owner, control);
    case ControlKind::kButton:
      return std::make_unique<ButtonView>(owner, control);
    case ControlKind::kOptionButton:
      return std::make_unique<OptionView>(owner, control);
    case ControlKind::kCheckBox:
      return std::make_unique<CheckView>(owner, control);
    default:
      return std::make_unique<ProgressView>(owner, control);
  }
}

}  // namespace quarvel::platform::qt
