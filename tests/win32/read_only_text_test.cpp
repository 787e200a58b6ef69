// Text of many lines that is only to be read, such as the equation of a row.
#include <chrono>

#include "platform/form.h"
#include "platform/input_controls.h"
#include "tests/win32/win32_fixture.h"

namespace quarvel::platform::win32 {
namespace {

class frmText : public Form {
 public:
  explicit frmText(Desktop& desktop) : Form(desktop, "frmText") {
    set_caption("A text");
    SetSize(380, 120, false);
    txtAll.read_only = true;
  }
  TextBox txtAll{*this, "txtAll", {10, 10, 360, 92}, TextBox::Lines::kMany};
};

std::wstring Equation(int terms) {
  std::wstring text;
  for (int i = 0; i < terms; ++i) text += L" + 2 C" + std::to_wstring(1000000 + i);
  return text + L" <= 7";
}

class ReadOnlyTextTest : public Win32Test {
 protected:
  void ShowText(const std::wstring& text) {
    form_.txtAll.set_text(std::string(text.begin(), text.end()));
    form_.Show();
    box_ = FindControl(FindTopWindow(L"A text"), L"txtAll");
    ASSERT_NE(box_, nullptr);
    desktop().CopyToClipboard("nothing yet");
  }
  std::wstring CopyOf(int begin, int end) {
    SendMessageW(box_, EM_SETSEL, static_cast<WPARAM>(begin), end);
    SendMessageW(box_, WM_COPY, 0, 0);
    return ClipboardText();
  }
  void PressWithControl(WPARAM key) {
    BYTE keys[256];
    GetKeyboardState(keys);
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    SetFocus(box_);
    PressKey(box_, key);
    Sleep(kUntilEventsRunMs);
    desktop().DoEvents();
    keys[VK_CONTROL] = 0;
    SetKeyboardState(keys);
  }

  frmText form_{desktop()};
  HWND box_ = nullptr;
};

TEST_F(ReadOnlyTextTest, GivesAllOfItToTheClipboardWhenNothingIsSelected) {
  ShowText(L"one\r\ntwo");
  PressWithControl('C');
  EXPECT_EQ(ClipboardText(), L"one\r\ntwo");
}

TEST_F(ReadOnlyTextTest, IsCopiedAsItIsSelected) {
  ShowText(L"one\r\n\r\ntwo");
  EXPECT_EQ(CopyOf(1, 3), L"ne");
  EXPECT_EQ(CopyOf(1, 5), L"ne\r\n");
  EXPECT_EQ(CopyOf(0, -1), L"one\r\n\r\ntwo");
}

TEST_F(ReadOnlyTextTest, HasNoBreakInTheCopyOfALongLine) {
  const std::wstring equation = Equation(1000);
  ShowText(equation);
  EXPECT_TRUE(CopyOf(0, -1) == equation);
  EXPECT_EQ(CopyOf(490, 512), equation.substr(490, 20));
  PressWithControl('A');
  desktop().CopyToClipboard("nothing yet");
  PressWithControl('C');
  EXPECT_TRUE(ClipboardText() == equation);
}

// Shown as one paragraph it takes a hundred times as long.
TEST_F(ReadOnlyTextTest, ShowsAnEquationOfTenThousandTermsAtOnce) {
  ShowText(L"");
  const std::wstring equation = Equation(10000);
  const auto start = std::chrono::steady_clock::now();
  form_.txtAll.set_text(std::string(equation.begin(), equation.end()));
  UpdateWindow(box_);
  const auto taken = std::chrono::steady_clock::now() - start;
  RecordProperty("milliseconds", std::to_string(taken / std::chrono::milliseconds(1)));
  EXPECT_LT(taken, std::chrono::seconds(5));
  EXPECT_EQ(TextOf(box_).substr(0, 24), equation.substr(0, 24));
}

}  // namespace
}  // namespace quarvel::platform::win32
