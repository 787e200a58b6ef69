// A form that writes down its life, on the scripted desktop, for the tests of forms.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/automation_error.h"
#include "platform/basic_controls.h"
#include "platform/form.h"
#include "platform/scripted/scripted_desktop.h"

namespace quarvel::platform {

using Lines = std::vector<std::string>;

// A form that writes down its life and does what the test wants at each step of it.
class frmTest : public Form {
 public:
  explicit frmTest(Desktop& desktop, std::string name = "frmTest")
      : Form(desktop, std::move(name)), cmdGo(*this, "cmdGo", {10, 10, 80, 26}) {}

  Button cmdGo;
  Lines life;
  std::function<void()> on_load = [] {};
  std::function<void()> on_activate = [] {};
  std::function<bool(UnloadReason)> on_query = [](UnloadReason) { return true; };
  std::function<void()> on_unload = [] {};

 protected:
  void OnLoad() override {
    life.push_back("load");
    on_load();
  }
  void OnActivate() override {
    life.push_back("activate");
    on_activate();
  }
  bool OnQueryUnload(UnloadReason reason) override {
    life.push_back(reason == UnloadReason::kUser ? "query user" : "query code");
    return on_query(reason);
  }
  void OnUnload() override {
    life.push_back("unload");
    on_unload();
  }
};

inline int FailureOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const AutomationError& error) {
    return error.number();
  }
  return 0;
}

inline void Fail() { RaiseRunTimeError(RunTimeError::kDivisionByZero); }

class FormTest : public ::testing::Test {
 protected:
  ScriptedDesktop desktop_;
  frmTest form_{desktop_};
};

}  // namespace quarvel::platform
