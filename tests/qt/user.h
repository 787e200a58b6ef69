// A user who does things in real windows, one after the other.
#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QObject>
#include <QWidget>
#include <chrono>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace quarvel::platform {

// The visible top window of that object name, the latest if there are many; null when there is
// none.
QWidget* WindowNamed(std::string_view name);

// The widget of that object name in it. Fails the test, and gives null, when there is none.
template <typename Widget>
Widget* Part(QWidget* window, std::string_view name) {
  Widget* const part = window == nullptr ? nullptr
                                         : window->findChild<Widget*>(QString::fromUtf8(
                                               name.data(), static_cast<qsizetype>(name.size())));
  EXPECT_NE(part, nullptr) << name;
  return part;
}

class User {
 public:
  struct SeenBox {
    std::string title;
    std::string text;
    bool operator==(const SeenBox&) const = default;
  };

  User();

  // The user's next doing, once `ready`. Whatever it starts (a box, a form) may run the doings
  // after it.
  void When(std::function<bool()> ready, std::function<void()> act);
  // As soon as events run.
  void Next(std::function<void()> act);
  // When a window of that name is there.
  void In(const std::string& window, std::function<void(QWidget&)> act);
  // Presses a button of the next box and writes down what the box said.
  void AnswerBox(QMessageBox::StandardButton button);

  const std::vector<SeenBox>& boxes() const { return boxes_; }
  std::size_t LeftToDo() const { return doings_.size(); }

 private:
  struct Doing {
    std::function<bool()> ready;
    std::function<void()> act;
  };
  void LookSoon();
  void Look();

  std::vector<SeenBox> boxes_;
  std::deque<Doing> doings_;
  std::chrono::steady_clock::time_point patience_;  // until when the next doing may wait
  QObject context_;
};

// Each fails the test when a modal window keeps the user away from the widget. No other events run
// before the click has been handled.
void ClickIn(QWidget& widget, const QPoint& place);
void ClickIn(QWidget& widget);
void DoubleClickIn(QWidget& widget, const QPoint& place);
// A click as the window system hands it in: it does not arrive in a window that a modal one keeps
// away. Other events run before it returns.
void TryToClickIn(QWidget& widget);
void PressKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void TypeInto(QWidget& widget, const QString& text);

}  // namespace quarvel::platform
