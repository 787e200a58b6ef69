// What stands in files and paths never steers the terminal it is shown on, through whichever door
// of the console desktop it comes.

#include <string>

#include <gtest/gtest.h>

#include "platform/basic_controls.h"
#include "tests/support/console_fixture.h"

namespace quarvel::platform {
namespace {

// Sets the title of a terminal, starts colours the short way, and turns the direction round.
constexpr std::string_view kHostile =
    "\x1b]0;x\a\xC2\x9B"
    "31m\xE2\x80\xAE\xFF";
constexpr std::string_view kShown = "\\x1B]0;x\\x07\\u009B31m\\u202E\\xFF";

class frmHostile : public Form {
 public:
  explicit frmHostile(Desktop& desktop) : Form(desktop, "frmHostile") {
    set_caption(kHostile);
    lblWords.set_caption(kHostile);
    optFirst.set_caption(kHostile);
    cmdOK.on_click = [this] { Unload(); };
  }

  Label lblWords{*this, "lblWords", {}};
  OptionButton optFirst{*this, "optFirst", {}};
  ProgressBar bar{*this, "bar", {}};
  Button cmdOK{*this, "cmdOK", {}};
};

class ConsoleFilter : public ConsoleDesktopTest {
 protected:
  static Box HostileBox() {
    Box box = AnyBox(kHostile, MsgBoxStyle::kYesNo, kHostile);
    box.statement = kHostile;
    return box;
  }
};

TEST_F(ConsoleFilter, ShowsEscapesThroughEveryDoor) {
  const std::string shown(kShown);
  const struct {
    const char* door;
    std::function<void()> use;
    std::string printed;
  } cases[] = {
      {"box", [this] { desktop_.MsgBox(HostileBox()); },
       shown + '\n' + shown + '\n' + shown + "\n[yes/no/quit] "},
      {"input box", [this] { desktop_.InputBox(kHostile, kHostile, kHostile); },
       shown + '\n' + shown + "\n[" + shown + "] > "},
      {"file dialog",
       [this] {
         FileDialog dialog;
         dialog.title = kHostile;
         desktop_.ShowFileDialog(dialog);
       },
       shown + "\n> "},
      {"editor", [this] { desktop_.OpenInEditor(std::string(kHostile)); }, "See " + shown + '\n'},
      {"options",
       [this] {
         frmHostile form(desktop_);
         form.ShowModal();
       },
       shown + '\n' + shown + "\n  1. " + shown + "\n1-1, or Enter for the marked: "},
  };
  for (const auto& c : cases) {
    Type({"y"});
    if (c.door == std::string_view("options")) Type({"1"});
    EXPECT_EQ(Printed(c.use), c.printed) << c.door;
  }
}

TEST_F(ConsoleFilter, ShowsEscapesInABoxThatOnlyTells) {
  EXPECT_EQ(Printed([this] { desktop_.MsgBox(AnyBox(kHostile, MsgBoxStyle::kOk, kHostile)); }),
            std::string(kShown) + '\n' + std::string(kShown) + '\n');
}

TEST_F(ConsoleFilter, ShowsEscapesInTheCaptionOfProgress) {
  desktop_.set_shows_progress(true);
  frmHostile form(desktop_);
  form.Show();
  EXPECT_EQ(Printed([this] { desktop_.DoEvents(); }),
            (std::string(kShown) + " [" + std::string(30, '.') + "]").substr(0, 79));
  Printed([&form] { form.Unload(); });
}

TEST_F(ConsoleFilter, KeepsTheLineEndsOfABoxAndNotThoseOfAName) {
  Box box = AnyBox("Row A\r\nAnswer: Yes is empty.\r\nSee A\r\nAnswer: Yes.", MsgBoxStyle::kOk,
                   kDefaultTitle);
  box.item = "A\r\nAnswer: Yes";
  EXPECT_EQ(Printed([&] { desktop_.MsgBox(box); }),
            "Row A\\x0D\\x0AAnswer: Yes is empty.\nSee A\\x0D\\x0AAnswer: Yes.\n");
}

}  // namespace
}  // namespace quarvel::platform
