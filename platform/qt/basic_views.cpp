// Labels, frames, buttons, check boxes and progress bars.
#include <QCheckBox>
#include <QProgressBar>
#include <QPushButton>

#include "platform/basic_controls.h"
#include "platform/qt/control_view.h"
#include "platform/qt/fitted_words.h"
#include "platform/qt/qt_text.h"

namespace quarvel::platform::qt {
namespace {

QString Marked(const Control& control) { return ToQt(MarkedCaption(control, '&')); }

class LabelView : public ViewOf<Label, FittedLabel> {
 public:
  LabelView(Stage& stage, Control& control, QWidget& parent)
      : ViewOf(stage, control, new FittedLabel(parent)) {}

 protected:
  // Qt reads ampersands in a label only when the label leads somewhere.
  void Show(Change change) override {
    if (change != Change::kCaption) return;
    const QString words = ToQtLines(kind().caption());
    widget_.SetWords(kind().access_key != 0 ? Marked(kind()) : words, words);
  }
};

class FrameView : public ViewOf<Frame, FittedBox> {
 public:
  FrameView(Stage& stage, Control& control, QWidget& parent)
      : ViewOf(stage, control, new FittedBox(parent)) {}

 protected:
  void Show(Change change) override {
    if (change == Change::kCaption) widget_.SetWords(Marked(kind()), ToQt(kind().caption()));
  }
};

class ButtonView : public ViewOf<Button, QPushButton> {
 public:
  ButtonView(Stage& stage, Control& control, QWidget& parent)
      : ViewOf(stage, control, new QPushButton(&parent)) {
    widget_.setDefault(kind().is_default);
    // Enter presses the button that has the keyboard.
    widget_.setAutoDefault(true);
    QObject::connect(&widget_, &QPushButton::clicked,
                     [this] { ForUser([this] { kind().Click(); }); });
  }

 protected:
  void Show(Change change) override {
    if (change == Change::kCaption) widget_.setText(Marked(kind()));
  }
};

class CheckView : public ViewOf<CheckBox, QCheckBox> {
 public:
  CheckView(Stage& stage, Control& control, QWidget& parent)
      : ViewOf(stage, control, new QCheckBox(&parent)) {
    QObject::connect(&widget_, &QCheckBox::clicked, [this] {
      if (ForUser([this] { kind().Click(); })) Show(Change::kValue);
    });
  }

 protected:
  // Setting it does not come back: only the user's clicks are listened to.
  void Show(Change change) override {
    if (change == Change::kCaption) widget_.setText(Marked(kind()));
    if (change == Change::kValue) widget_.setChecked(kind().checked());
  }
};

class ProgressView : public ViewOf<ProgressBar, QProgressBar> {
 public:
  ProgressView(Stage& stage, Control& control, QWidget& parent)
      : ViewOf(stage, control, new QProgressBar(&parent)) {
    widget_.setRange(0, kSteps);
    widget_.setTextVisible(false);
  }

 protected:
  void Show(Change change) override {
    if (change != Change::kRange && change != Change::kValue) return;
    const float range = kind().max() - kind().min();
    const float done = range > 0 ? (kind().value() - kind().min()) / range : 0;
    const int step = static_cast<int>(done * static_cast<float>(kSteps));
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

std::unique_ptr<ControlView> MakeBasicView(Stage& stage, Control& control, QWidget& parent) {
  switch (control.kind()) {
    case ControlKind::kLabel:
      return std::make_unique<LabelView>(stage, control, parent);
    case ControlKind::kFrame:
      return std::make_unique<FrameView>(stage, control, parent);
    case ControlKind::kButton:
      return std::make_unique<ButtonView>(stage, control, parent);
    case ControlKind::kCheckBox:
      return std::make_unique<CheckView>(stage, control, parent);
    default:
      return std::make_unique<ProgressView>(stage, control, parent);
  }
}

}  // namespace quarvel::platform::qt
