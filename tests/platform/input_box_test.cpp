// The box that asks for one line of text, on the scripted desktop.
#include "platform/input_box.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "platform/scripted/scripted_desktop.h"

namespace quarvel::platform {
namespace {

constexpr int kLetter = 7;
constexpr int kLine = 15;

// Letters of one width, in lines that may end anywhere.
int HeightOfLetters(std::string_view words, int width) {
  const int letters = width / kLetter;
  return (static_cast<int>(words.size()) + letters - 1) / letters * kLine;
}

class InputBox : public ::testing::Test {
 protected:
  // Asks with the user doing that in the box.
  std::string Ask(std::function<void(frmInputBox&)> user) {
    desktop_.on_idle = [user](Form& form) { user(static_cast<frmInputBox&>(form)); };
    return AskLine(desktop_, screen_, "How many?", "Count", "12");
  }

  WordsOnScreen screen_{1200, 800, HeightOfLetters};
  ScriptedDesktop desktop_;
};

TEST_F(InputBox, ShowsItsQuestionTheTitleAndTheTextThatIsOffered) {
  Ask([](frmInputBox& box) {
    EXPECT_EQ(box.caption(), "Count");
    EXPECT_EQ(box.lblPrompt.caption(), "How many?");
    EXPECT_EQ(box.txtInput.text(), "12");
    EXPECT_EQ(box.focus(), &box.txtInput);
    box.RequestClose();
  });
  EXPECT_EQ(desktop_.transcript(),
            (std::vector<std::string>{"show modal frmInputBox", "close frmInputBox"}));
}

TEST_F(InputBox, GivesWhatWasEnteredWithOkOrEnter) {
  EXPECT_EQ(Ask([](frmInputBox& box) {
              box.txtInput.Type("7");
              box.cmdOK.Click();
            }),
            "7");
  EXPECT_EQ(Ask([](frmInputBox& box) { box.PressDefaultButton(); }), "12");
}

TEST_F(InputBox, GivesNothingWhenItIsClosedWithoutOk) {
  const std::function<void(frmInputBox&)> ways[] = {
      [](frmInputBox& box) { box.cmdCancel.Click(); },
      [](frmInputBox& box) { box.PressCancelButton(); },
      [](frmInputBox& box) { box.RequestClose(); },
  };
  for (const auto& way : ways) {
    EXPECT_EQ(Ask([&way](frmInputBox& box) {
                box.txtInput.Type("7");
                way(box);
              }),
              "");
  }
}

bool IsInside(const Control& control) {
  const Place& place = control.place();
  return place.x >= 0 && place.y >= 0 && place.x + place.width <= control.form().width() &&
         place.y + place.height <= control.form().height();
}

TEST_F(InputBox, IsAsLargeAsItsQuestionWantsAndNeverLargerThanTheScreen) {
  const struct {
    std::size_t letters;
    bool higher;
    bool wider;
    bool whole;
  } cases[] = {{9, false, false, true},
               {500, true, false, true},
               {2000, true, true, true},
               {100000, true, true, false}};
  const frmInputBox least(desktop_, screen_, "?", "", "");
  for (const auto& c : cases) {
    const std::string question(c.letters, 'N');
    const frmInputBox box(desktop_, screen_, question, "", "");
    EXPECT_EQ(box.height() > least.height(), c.higher) << c.letters;
    EXPECT_EQ(box.width() > least.width(), c.wider) << c.letters;
    EXPECT_LE(box.width(), screen_.width) << c.letters;
    EXPECT_LE(box.height(), screen_.height) << c.letters;
    const Place& room = box.lblPrompt.place();
    EXPECT_EQ(HeightOfLetters(question, room.width) <= room.height, c.whole) << c.letters;
    EXPECT_LE(room.y + room.height, box.txtInput.place().y) << c.letters;
    EXPECT_LT(room.x + room.width, box.cmdOK.place().x) << c.letters;
    EXPECT_TRUE(std::ranges::all_of(box.controls(), [](auto* part) { return IsInside(*part); }));
  }
}

TEST_F(InputBox, KeepsItsLeastSizeOnAScreenThatIsTooSmall) {
  screen_.width = 100;
  screen_.height = 100;
  const frmInputBox least(desktop_, {1200, 800, HeightOfLetters}, "?", "", "");
  const frmInputBox box(desktop_, screen_, std::string(5000, 'N'), "", "");
  EXPECT_EQ(box.width(), least.width());
  EXPECT_EQ(box.height(), least.height());
}

}  // namespace
}  // namespace quarvel::platform
