// Text boxes of one line and of many.
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

#include "platform/input_controls.h"
#include "platform/qt/control_view.h"
#include "platform/qt/form_window.h"
#include "platform/qt/key_press.h"
#include "platform/qt/lines_box.h"
#include "platform/qt/qt_text.h"

namespace quarvel::platform::qt {
namespace {

QString TextOf(const QLineEdit& box) { return box.text(); }
QString TextOf(const LinesBox& box) { return box.Text(); }
bool HasSelection(const QLineEdit& box) { return box.hasSelectedText(); }
bool HasSelection(const LinesBox& box) { return box.textCursor().hasSelection(); }
void SetText(QLineEdit& box, const QString& text) { box.setText(text); }
void SetText(LinesBox& box, const QString& text) { box.SetText(text); }

class LineBox : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;
  // Sees the keys before the text box does: true takes one away.
  std::function<bool(const QKeyEvent&)> on_key;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (!on_key(*event)) QLineEdit::keyPressEvent(event);
  }
};

template <typename Box>
class TextView : public ViewOf<TextBox, Box> {
 public:
  TextView(FormWindow& owner, Control& control)
      : ViewOf<TextBox, Box>(owner, control, new Box(&owner.inner())) {
    this->widget_.setReadOnly(this->Own().read_only);
    this->widget_.on_key = [this](const QKeyEvent& event) { return Copies(event); };
  }

 protected:
  void Show(Change change) override {
    const QString text = ToQtLines(this->Own().text());
    if (change != Change::kValue || TextOf(this->widget_) == text) return;
    const QSignalBlocker quiet(this->widget_);
    SetText(this->widget_, text);
  }

  void Typed() {
    const bool stays = this->ForUser([this] { this->Own().Type(FromQt(TextOf(this->widget_))); });
    // The box may have put it otherwise: no line ends in one line.
    if (stays) Show(Change::kValue);
  }

 private:
  // True when the key copied the whole text of a box that is only to be read.
  bool Copies(const QKeyEvent& event) {
    if (ToKeyPress(event) != Ctrl('C') || HasSelection(this->widget_)) return false;
    if (!this->alive() || !this->Own().read_only) return false;
    this->ForUser([this] { this->Own().form().desktop().CopyToClipboard(this->Own().text()); });
    return true;
  }
};

class LineView : public TextView<LineBox> {
 public:
  LineView(FormWindow& owner, Control& control) : TextView(owner, control) {
    QObject::connect(&widget_, &QLineEdit::textEdited, [this] { Typed(); });
  }
  void TakeFocus() override {
    TextView::TakeFocus();
    widget_.selectAll();
  }
};

class LinesView : public TextView<LinesBox> {
 public:
  LinesView(FormWindow& owner, Control& control) : TextView(owner, control) {
    widget_.setTabChangesFocus(true);
    QObject::connect(&widget_, &QPlainTextEdit::textChanged, [this] { Typed(); });
  }
};

}  // namespace

std::unique_ptr<ControlView> MakeTextView(FormWindow& owner, Control& control) {
  if (static_cast<TextBox&>(control).lines() == TextBox::Lines::kOne) {
    return std::make_unique<LineView>(owner, control);
  }
  return std::make_unique<LinesView>(owner, control);
}

}  // namespace quarvel::platform::qt
