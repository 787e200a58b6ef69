// The component's windows inside a process that loads it, frees it and loads it again.

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>
#include <gtest/gtest.h>

#include "automation/bstr.h"
#include "tests/automation/component_file.h"
#include "tests/automation/host_process.h"
#include "tests/support/test_paths.h"
#include "text/encoding.h"

namespace quarvel::automation {
namespace {

BOOL CALLBACK AddVisible(HWND window, LPARAM list) {
  if (IsWindowVisible(window) && IsWindowEnabled(window)) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  }
  return TRUE;
}

// A user on this thread: a timer looks at the windows that take input and closes them. Chooses
// `file` in file dialogs, and answers No but to the first question of a read.
class User {
 public:
  User() : timer_(SetTimer(nullptr, 0, 20, OnTimer)) {
    titles_.clear();
    at_first_window = nullptr;
    at_question = nullptr;
  }
  ~User() { KillTimer(nullptr, timer_); }
  User(const User&) = delete;
  User& operator=(const User&) = delete;

  // Run once, at the first window.
  static inline std::function<void()> at_first_window;
  // Run once, at the first question, which is then answered with Yes.
  static inline std::function<void()> at_question;
  static inline std::wstring file;
  static inline std::vector<std::string> titles_;  // of the windows, in the order they were closed

 private:
  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), AddVisible, reinterpret_cast<LPARAM>(&windows));
    if (windows.empty()) return;
    Attend(windows.front());
  }
  static void Attend(HWND window) {
    const std::string title = ControlText(window);
    const bool asks = GetDlgItem(window, IDNO) != nullptr;
    titles_.push_back(title);
    if (at_first_window) std::exchange(at_first_window, nullptr)();
    if (title == "Identify the MPS file to open") {
      ChooseFile(window, file);
    } else if (title == "Model Viewer") {
      PostMessageW(window, WM_CLOSE, 0, 0);
    } else if (asks && at_question) {
      std::exchange(at_question, nullptr)();
      PressButton(window, IDYES);
    } else {
      PostMessageW(window, WM_COMMAND, asks ? IDNO : IDOK, 0);
    }
  }

  UINT_PTR timer_;
};

void FillModel(_LPModel& model) {
  SHORT added = 0;
  EXPECT_EQ(model.MakeNewModel(), S_OK);
  EXPECT_EQ(model.AddRow(Bstr("R1").get(), &added), S_OK);
  EXPECT_EQ(model.AddColumn(Bstr("C1").get(), &added), S_OK);
  EXPECT_EQ(model.AddElement(0, 0, 2.5), S_OK);
}

TEST(ComponentWindows, AreShownAfterEachLoadAndLeaveNothingBehind) {
  for (int round = 0; round < 4; ++round) {
    {
      const User user;
      const LoadedComponent component;
      ComPtr<_LPModel> model = component.MakeModel();
      FillModel(*model.get());
      VARIANT_BOOL editing = VARIANT_TRUE;
      EXPECT_EQ(model->ViewEquations(&editing), S_OK);
      EXPECT_EQ(model->DisplayAuthor(), S_OK);
      ASSERT_GE(User::titles_.size(), 2u);
      EXPECT_EQ(User::titles_.front(), "Model Viewer");
      EXPECT_EQ(User::titles_.back(), "Authors of Quarvel Object");
      EXPECT_FALSE(component.CanUnloadNow());
      model = ComPtr<_LPModel>();
      EXPECT_TRUE(component.CanUnloadNow());
    }
    EXPECT_EQ(GetModuleHandleW(L"Quarvel.dll"), nullptr);
  }
}

TEST(ComponentWindows, KeepTheirObjectUntilTheyAreClosedAndNoLonger) {
  const LoadedComponent component;
  {
    const User user;
    ComPtr<_LPModel> model = component.MakeModel();
    FillModel(*model.get());
    _LPModel* const raw = model.get();
    User::at_first_window = [&] {
      model = ComPtr<_LPModel>();
      EXPECT_FALSE(component.CanUnloadNow());
    };
    VARIANT_BOOL editing = VARIANT_FALSE;
    EXPECT_EQ(raw->ViewEquations(&editing), S_OK);
    EXPECT_EQ(User::titles_.front(), "Model Viewer");
  }
  EXPECT_TRUE(component.CanUnloadNow());
}

TEST(ComponentWindows, TakeANewModelWhileTheyAreOpen) {
  const LoadedComponent component;
  const User user;
  const ComPtr<_LPModel> model = component.MakeModel();
  FillModel(*model.get());
  User::at_first_window = [&] { EXPECT_EQ(model->MakeNewModel(), S_OK); };
  VARIANT_BOOL editing = VARIANT_FALSE;
  EXPECT_EQ(model->ViewRow(0, &editing), S_OK);
  LONG rows = -1;
  EXPECT_EQ(model->get_NumberOfRows(&rows), S_OK);
  EXPECT_EQ(rows, 0);
}

// A read that asks a question in its middle.
class ComponentRead : public ::testing::Test {
 protected:
  ComponentRead() {
    const std::string path = folder_.File("asks.mps");
    WriteWholeFile(
        path,
        "NAME ASKS\r\nROWS\r\n N COST\r\nCOLUMNS\r\n X COST 1\r\n X NOROW 1\r\n Y COST 1\r\n"
        "ENDATA\r\n");
    const std::u16string units = text::Utf8ToUtf16(path);
    User::file.assign(units.begin(), units.end());
    for (wchar_t& c : User::file) c = c == L'/' ? L'\\' : c;
  }

  TemporaryFolder folder_;
  LoadedComponent component_;
};

TEST_F(ComponentRead, OutlivesAHostThatReleasesItsLastReference) {
  const User user;
  ComPtr<_LPModel> model = component_.MakeModel();
  bool released = false;
  User::at_question = [&] {
    model.Detach()->Release();
    released = true;
    EXPECT_FALSE(component_.CanUnloadNow());
  };
  SHORT result = 5;
  EXPECT_EQ(model->ReadMPSFile(&result), S_OK);
  EXPECT_TRUE(released);
  EXPECT_EQ(result, -1);
  EXPECT_TRUE(component_.CanUnloadNow());
}

TEST_F(ComponentRead, OutlivesAHostThatMakesANewModel) {
  const User user;
  ComPtr<_LPModel> model = component_.MakeModel();
  bool made = false;
  User::at_question = [&] {
    EXPECT_EQ(model->MakeNewModel(), S_OK);
    made = true;
  };
  SHORT result = 5;
  EXPECT_EQ(model->ReadMPSFile(&result), S_OK);
  EXPECT_TRUE(made);
  model = ComPtr<_LPModel>();
  EXPECT_TRUE(component_.CanUnloadNow());
}

}  // namespace
}  // namespace quarvel::automation
