#include "tests/qt/user.h"

#include <QAbstractButton>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace quarvel::platform {
namespace {

constexpr int kLookEveryMilliseconds = 1;

constexpr std::chrono::seconds kPatience{60};

// Nobody else would end the loop that waits for the user.
[[noreturn]] void GiveUp(std::size_t left) {
  std::fprintf(stderr, "The user waits in vain, with %zu doings left, in front of:\n", left);
  for (const QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->isVisible()) {
      std::fprintf(stderr, "  %s \"%s\"\n", qPrintable(widget->objectName()),
                   qPrintable(widget->windowTitle()));
    }
  }
  std::abort();
}

void ExpectWithinReach(QWidget& widget) {
  const QWidget* const modal = QApplication::activeModalWidget();
  const bool kept_away = modal != nullptr && modal != widget.window() &&
                         QApplication::activePopupWidget() != widget.window();
  EXPECT_FALSE(kept_away) << widget.objectName().toStdString() << " under "
                          << modal->objectName().toStdString();
}

}  // namespace

QWidget* WindowNamed(std::string_view name) {
  QWidget* found = nullptr;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->isVisible() && widget->objectName().toStdString() == name) found = widget;
  }
  return found;
}

User::User() : patience_(std::chrono::steady_clock::now() + kPatience) { LookSoon(); }

void User::LookSoon() {
  QTimer::singleShot(kLookEveryMilliseconds, &context_, [this] { Look(); });
}

// The next look is due before anything is done, so that the user goes on inside of what it starts.
void User::Look() {
  LookSoon();
  if (doings_.empty()) return;
  if (!doings_.front().ready()) {
    if (std::chrono::steady_clock::now() > patience_) GiveUp(doings_.size());
    return;
  }
  const auto act = std::move(doings_.front().act);
  doings_.pop_front();
  patience_ = std::chrono::steady_clock::now() + kPatience;
  act();
}

void User::When(std::function<bool()> ready, std::function<void()> act) {
  doings_.push_back({std::move(ready), std::move(act)});
}

void User::Next(std::function<void()> act) {
  When([] { return true; }, std::move(act));
}

void User::In(const std::string& window, std::function<void(QWidget&)> act) {
  When([window] { return WindowNamed(window) != nullptr; },
       [window, act = std::move(act)] { act(*WindowNamed(window)); });
}

void User::AnswerBox(QMessageBox::StandardButton button) {
  In("msgbox", [this, button](QWidget& window) {
    auto& box = static_cast<QMessageBox&>(window);
    boxes_.push_back({box.windowTitle().toStdString(), box.text().toStdString()});
    ASSERT_NE(box.button(button), nullptr);
    ClickIn(*box.button(button));
  });
}

void ClickIn(QWidget& widget, const QPoint& place) {
  ExpectWithinReach(widget);
  QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, place);
}

void ClickIn(QWidget& widget) { ClickIn(widget, widget.rect().center()); }

void DoubleClickIn(QWidget& widget, const QPoint& place) {
  ExpectWithinReach(widget);
  QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, place);
  QTest::mouseDClick(&widget, Qt::LeftButton, Qt::NoModifier, place);
}

void TryToClickIn(QWidget& widget) {
  QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                    widget.mapTo(widget.window(), widget.rect().center()));
}

void PressKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers) {
  widget.setFocus();
  QTest::keyClick(&widget, static_cast<Qt::Key>(key), modifiers);
}

void TypeInto(QWidget& widget, const QString& text) {
  widget.setFocus();
  for (const QChar character : text) QTest::keyClick(&widget, character.toLatin1());
}

}  // namespace quarvel::platform
