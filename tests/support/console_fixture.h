// A console desktop without a terminal, with answers and typed lines that the test gives.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

#include "platform/console/console_desktop.h"
#include "tests/support/any_box.h"
#include "tests/support/default_interrupt.h"

namespace quarvel::platform {

class FakeAnswers : public ConsoleAnswers {
 public:
  std::optional<MsgBoxResult> box;
  bool silent = false;
  std::optional<std::string> file;
  std::function<bool(Form&)> drive = [](Form&) { return false; };

  std::optional<MsgBoxResult> AnswerBox(const Box&, bool& print) override {
    if (silent) print = false;
    return box;
  }
  std::optional<std::string> AnswerFile(const FileDialog&) override { return file; }
  bool DriveForm(Form& form) override { return drive(form); }
};

// What standard error got while `action` ran.
inline std::string Printed(const std::function<void()>& action) {
  ::testing::internal::CaptureStderr();
  action();
  std::string printed = ::testing::internal::GetCapturedStderr();
  std::erase(printed, '\r');
  return printed;
}

class ConsoleDesktopTest : public ::testing::Test {
 protected:
  ConsoleDesktopTest() {
    desktop_.set_interactive(false);
    desktop_.set_shows_progress(false);
    desktop_.set_progress_delay(0);
    desktop_.set_line_source([this]() -> std::optional<std::string> {
      if (typed_.empty()) return std::nullopt;
      const std::string line = typed_.front();
      typed_.pop_front();
      return line;
    });
  }

  void Type(std::deque<std::string> lines) {
    desktop_.set_interactive(true);
    typed_ = std::move(lines);
  }

  MsgBoxResult Question(MsgBoxStyle style) {
    return desktop_.MsgBox(AnyBox("Go on?", style, "Confirm"));
  }

  const DefaultInterrupt interrupt_;
  FakeAnswers answers_;
  ConsoleDesktop desktop_{answers_};
  std::deque<std::string> typed_;
};

}  // namespace quarvel::platform
