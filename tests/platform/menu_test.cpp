#include "platform/menu.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/basic_controls.h"
#include "platform/scripted/scripted_desktop.h"

namespace quarvel::platform {
namespace {

class MenuTest : public ::testing::Test {
 protected:
  MenuTest() {
    open_.on_click = [this] { happened_.push_back("open"); };
    add_.on_click = [this] { happened_.push_back("add"); };
    file_.on_open = [this] { happened_.push_back("file menu"); };
    edit_.on_open = [this] { happened_.push_back("edit menu"); };
    row_.on_open = [this] { happened_.push_back("row menu"); };
  }

  ScriptedDesktop desktop_;
  Form form_{desktop_, "frmTest"};
  MenuItem file_{form_, "mnuFile", nullptr};
  MenuItem open_{form_, "mnuFileOpen", &file_};
  Button button_{form_, "cmdGo", {}};
  MenuItem edit_{form_, "mnuEdit", nullptr};
  MenuItem row_{form_, "mnuEditRow", &edit_};
  MenuItem add_{form_, "mnuEditRowAdd", &row_};
  std::vector<std::string> happened_;
};

using Texts = std::vector<std::string>;

TEST_F(MenuTest, BarHasTheItemsWithoutParentInOrder) {
  EXPECT_EQ(MenuBar(form_), (std::vector<MenuItem*>{&file_, &edit_}));
  EXPECT_EQ(edit_.children(), std::vector<MenuItem*>{&row_});
  EXPECT_EQ(row_.children(), std::vector<MenuItem*>{&add_});
  Form empty(desktop_, "frmEmpty");
  EXPECT_EQ(MenuBar(empty).size(), 0u);
}

TEST_F(MenuTest, ItemIsAvailableWithAllItsParents) {
  EXPECT_TRUE(add_.Available());
  for (MenuItem* item : {&edit_, &row_, &add_}) {
    item->set_enabled(false);
    EXPECT_FALSE(add_.Available()) << item->name();
    item->set_enabled(true);
    item->set_visible(false);
    EXPECT_FALSE(add_.Available()) << item->name();
    item->set_visible(true);
  }
}

TEST_F(MenuTest, ClickRunsAnAvailableItemOnly) {
  add_.Click();
  edit_.set_enabled(false);
  add_.Click();
  EXPECT_EQ(happened_, Texts{"add"});
}

TEST_F(MenuTest, OpeningOpensTheMenusAboveFirst) {
  row_.Open();
  EXPECT_EQ(happened_, (Texts{"edit menu", "row menu"}));
}

TEST_F(MenuTest, ShortcutClicksTheFirstAvailableItem) {
  open_.shortcut = Ctrl('O');
  add_.shortcut = Ctrl('O');
  EXPECT_TRUE(PressShortcut(form_, Ctrl('O')));
  open_.set_visible(false);
  EXPECT_TRUE(PressShortcut(form_, Ctrl('O')));
  EXPECT_EQ(happened_, (Texts{"file menu", "open", "file menu", "edit menu", "row menu", "add"}));
}

TEST_F(MenuTest, ShortcutSeesTheStateThatOpeningSets) {
  add_.shortcut = {Key::kF2};
  row_.on_open = [this] { add_.set_enabled(false); };
  EXPECT_FALSE(PressShortcut(form_, {Key::kF2}));
  EXPECT_EQ(happened_, Texts{"edit menu"});
}

TEST_F(MenuTest, KeyThatIsOnlyALabelPressesNothing) {
  add_.shortcut = {Key::kDelete};
  add_.shortcut_is_label = true;
  EXPECT_FALSE(PressShortcut(form_, {Key::kDelete}));
  EXPECT_FALSE(PressShortcut(form_, KeyPress{}));
  EXPECT_FALSE(PressShortcut(form_, Ctrl('O')));
  EXPECT_EQ(happened_, Texts{});
}

TEST_F(MenuTest, TextHasTheMarkedCaptionAndTheKeyBehindATab) {
  open_.set_caption("Open R&D");
  open_.access_key = 'O';
  EXPECT_EQ(MenuText(open_, '&'), "&Open R&&D");
  open_.shortcut = Ctrl('O');
  EXPECT_EQ(MenuText(open_, '&'), "&Open R&&D\tCtrl+O");
}

TEST(KeyText, IsWhatMenusPrint) {
  const struct {
    KeyPress press;
    const char* text;
  } cases[] = {
      {Ctrl('S'), "Ctrl+S"},
      {CtrlShift('S'), "Ctrl+Shift+S"},
      {{Key::kDelete}, "Del"},
      {{Key::kF1}, "F1"},
      {{Key::kF2, 0, false, true}, "Shift+F2"},
      {{}, ""},
      {{Key::kNone, 0, true}, ""},
  };
  for (const auto& c : cases) EXPECT_EQ(KeyText(c.press), c.text);
}

}  // namespace
}  // namespace quarvel::platform
