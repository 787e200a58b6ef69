// Boxes and dialogs of the system, answered by the user.
#include <filesystem>
#include <fstream>
#include <string>

#include "platform/file_dialog.h"
#include "platform/win32/clipboard.h"
#include "platform/win32/file_dialogs.h"
#include "platform/win32/fitted_words.h"
#include "tests/support/any_box.h"
#include "tests/win32/picture.h"
#include "tests/win32/win32_fixture.h"

namespace quarvel::platform::win32 {
namespace {

using BoxesTest = Win32Test;

constexpr int kTextOfBox = 0xFFFF;
constexpr int kFileNameBox = 0x480;   // edt1, of an older look
constexpr int kFileNameList = 0x47C;  // cmb13, of the newer one

struct Case {
  MsgBoxStyle style;
  int pressed;  // 0: the box is closed by its close box
  MsgBoxResult result;
};

TEST_F(BoxesTest, GiveTheAnswerOfTheButtonOrTheOneForNone) {
  using enum MsgBoxStyle;
  const Case cases[] = {
      {kOk, IDOK, MsgBoxResult::kOk},
      {kOk, IDCANCEL, MsgBoxResult::kOk},
      {kYesNo, IDYES, MsgBoxResult::kYes},
      {kYesNo, IDNO, MsgBoxResult::kNo},
      {kYesNoExclamation, IDYES, MsgBoxResult::kYes},
      {kYesNoExclamation, IDNO, MsgBoxResult::kNo},
      {kYesNoCancelExclamation, IDYES, MsgBoxResult::kYes},
      {kYesNoCancelExclamation, IDNO, MsgBoxResult::kNo},
      {kYesNoCancelExclamation, IDCANCEL, MsgBoxResult::kCancel},
      {kYesNoCancelExclamation, 0, MsgBoxResult::kCancel},
  };
  for (const Case& c : cases) {
    On(L"Confirm", [&](HWND box) {
      if (c.pressed == 0) {
        PostMessageW(box, WM_CLOSE, 0, 0);
      } else {
        PressBoxButton(box, c.pressed);
      }
    });
    EXPECT_EQ(desktop().MsgBox(AnyBox("Are you sure?", c.style, "Confirm")), c.result)
        << static_cast<int>(c.style) << ' ' << c.pressed;
  }
}

TEST_F(BoxesTest, ShowTextAndTitleAsTheyAre) {
  On(L"Fin & Bj\x00F8rn", [](HWND box) {
    EXPECT_EQ(TextOf(GetDlgItem(box, kTextOfBox)), L"two  blanks\r\n& \x20AC");
    EXPECT_NE(GetDlgItem(box, IDYES), nullptr);
    EXPECT_EQ(GetDlgItem(box, IDCANCEL), nullptr);
    PressBoxButton(box, IDNO);
  });
  desktop().MsgBox(
      AnyBox("two  blanks\r\n& \xE2\x82\xAC", MsgBoxStyle::kYesNo, "Fin & Bj\xC3\xB8rn"));
}

TEST_F(BoxesTest, CarryTheNameOfTheProductWithoutAnother) {
  On(L"Quarvel", [](HWND box) { PressBoxButton(box, IDOK); });
  Desktop& any = desktop();
  EXPECT_EQ(any.MsgBox(AnyBox("Invalid Input", MsgBoxStyle::kOk)), MsgBoxResult::kOk);
}

TEST_F(BoxesTest, InputBoxGivesWhatWasEntered) {
  On(L"Change Element Value", [](HWND box) {
    EXPECT_EQ(TextOf(FindControl(box, L"lblPrompt")), L"Enter a new value for R&&D?");
    const HWND text = FindControl(box, L"txtInput");
    EXPECT_EQ(GetFocus(), text);
    EXPECT_EQ(TextOf(text), L"12.5");
    // The offered text is selected: typing replaces it.
    SendMessageW(text, WM_CHAR, L'7', 1);
    PressKey(text, VK_RETURN);
  });
  EXPECT_EQ(desktop().InputBox("Enter a new value for R&D?", "Change Element Value", "12.5"), "7");
}

TEST_F(BoxesTest, InputBoxThatIsCancelledGivesNothing) {
  On(L"Name", [](HWND box) { PressKey(FindControl(box, L"txtInput"), VK_ESCAPE); });
  EXPECT_EQ(desktop().InputBox("Enter a name", "Name", "old"), "");
  On(L"Name", [](HWND box) { PostMessageW(box, WM_CLOSE, 0, 0); });
  EXPECT_EQ(desktop().InputBox("Enter a name", "Name", "old"), "");
  On(L"Name", [](HWND box) { SendMessageW(FindControl(box, L"cmdCancel"), BM_CLICK, 0, 0); });
  EXPECT_EQ(desktop().InputBox("Enter a name", "Name", "old"), "");
}

TEST_F(BoxesTest, InputBoxIsAsLargeAsItsQuestionWants) {
  const struct {
    std::size_t letters;
    bool wider;
  } cases[] = {{10, false}, {800, false}, {4000, true}};
  RECT work;
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  RECT least = {};
  for (const auto& c : cases) {
    On(L"Value", [&](HWND box) {
      const HWND question = FindControl(box, L"lblPrompt");
      RECT place;
      RECT window;
      RECT text;
      GetWindowRect(box, &window);
      GetWindowRect(question, &place);
      GetWindowRect(FindControl(box, L"txtInput"), &text);
      if (c.letters == 10) least = place;
      const int width = place.right - place.left;
      const TextMeasure measure(reinterpret_cast<HFONT>(SendMessageW(question, WM_GETFONT, 0, 0)));
      const int height = measure.HeightOf(TextOf(question), width);
      EXPECT_LE(height, place.bottom - place.top) << c.letters;
      EXPECT_LE(place.bottom, text.top) << c.letters;
      EXPECT_EQ(width > least.right - least.left, c.wider) << c.letters;
      EXPECT_LE(window.right - window.left, work.right - work.left) << c.letters;
      EXPECT_LE(window.bottom - window.top, work.bottom - work.top) << c.letters;
      // All of it is painted, down to the last line.
      const int line = measure.HeightOf(L"X", width);
      EXPECT_GT(PictureOf(question).InkHeight(GetSysColor(COLOR_BTNFACE)), height - line);
      PressBoxButton(box, IDCANCEL);
    });
    desktop().InputBox("Enter a coefficient for column " + std::string(c.letters, 'N'), "Value",
                       "");
  }
}

TEST_F(BoxesTest, InputBoxStaysOnTheScreenWithAQuestionOfAnyLength) {
  On(L"Value", [&](HWND box) {
    RECT work;
    RECT window;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    GetWindowRect(box, &window);
    EXPECT_LE(window.right - window.left, work.right - work.left);
    EXPECT_LE(window.bottom - window.top, work.bottom - work.top);
    PressBoxButton(box, IDCANCEL);
  });
  desktop().InputBox(std::string(100000, 'N'), "Value", "");
}

TEST(FileDialogWords, AreWhatTheSystemWants) {
  // Of the zero at its end the text has one, the literal brings the other.
  constexpr wchar_t kWanted[] = L"MPS files (*.MPS)\0*.MPS\0all files (*.*)\0*.*\0";
  EXPECT_EQ(SystemFilter("MPS files (*.MPS)|*.MPS|all files (*.*)|*.*"),
            std::wstring(kWanted, std::size(kWanted) - 1));
  EXPECT_EQ(SystemFilter(""), L"");
  EXPECT_EQ(SystemExtension(".mps"), L"mps");
  EXPECT_EQ(SystemExtension("mps"), L"mps");
  EXPECT_EQ(SystemExtension(""), L"");
}

class FileDialogTest : public BoxesTest {
 protected:
  FileDialogTest() {
    std::filesystem::create_directories(folder_);
    dialog_.title = "Identify the file";
    dialog_.filter = "MPS files (*.MPS)|*.MPS|all files (*.*)|*.*";
    dialog_.default_extension = ".mps";
  }
  ~FileDialogTest() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  std::string Utf8(const std::filesystem::path& path) const {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
  }
  // Enters a name and presses OK, or Cancel for an empty name.
  void Answer(const std::wstring& name) {
    On(L"Identify the file", [name](HWND box) {
      if (name.empty()) return PressBoxButton(box, IDCANCEL);
      HWND words = GetDlgItem(box, kFileNameBox);
      if (words == nullptr) words = GetDlgItem(box, kFileNameList);
      ASSERT_NE(words, nullptr);
      SendMessageW(words, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
      PressBoxButton(box, IDOK);
    });
  }

  std::filesystem::path folder_ = std::filesystem::temp_directory_path() / L"quarvel \x00E4\x0416";
  FileDialog dialog_;
};

TEST_F(FileDialogTest, GivesTheChosenPathAndKeepsTheCurrentFolder) {
  const std::filesystem::path file = folder_ / L"m\x00F6\x0434\x0435l.mps";
  std::ofstream(file) << "NAME\n";
  const auto before = std::filesystem::current_path();
  Answer(file.wstring());
  EXPECT_EQ(desktop().ShowFileDialog(dialog_), Utf8(file));
  EXPECT_EQ(std::filesystem::current_path(), before);
}

TEST_F(FileDialogTest, BeginsInTheFolderThatIsAskedFor) {
  std::ofstream(folder_ / L"here.mps") << "NAME\n";
  dialog_.folder = Utf8(folder_);
  Answer(L"here.mps");
  EXPECT_EQ(desktop().ShowFileDialog(dialog_), Utf8(folder_ / L"here.mps"));
}

TEST_F(FileDialogTest, CancelledGivesNothing) {
  dialog_.file_name = "offered.mps";
  Answer(L"");
  EXPECT_EQ(desktop().ShowFileDialog(dialog_), "");
}

TEST_F(FileDialogTest, AppendsTheExtensionOnceWhenSaving) {
  dialog_.kind = FileDialog::Kind::kSave;
  Answer((folder_ / L"new").wstring());
  EXPECT_EQ(desktop().ShowFileDialog(dialog_), Utf8(folder_ / L"new.mps"));
  Answer((folder_ / L"other.txt").wstring());
  EXPECT_EQ(desktop().ShowFileDialog(dialog_), Utf8(folder_ / L"other.txt"));
}

TEST_F(BoxesTest, ClipboardHoldsWhatWasCopiedLast) {
  desktop().CopyToClipboard("first");
  desktop().CopyToClipboard("\xC3\x84\tb\r\nc");
  EXPECT_EQ(ClipboardText(), L"\x00C4\tb\r\nc");
}

}  // namespace
}  // namespace quarvel::platform::win32
