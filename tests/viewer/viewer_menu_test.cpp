#include "viewer/viewer_menu.h"

#include <cctype>
#include <map>
#include <set>

#include "tests/viewer/viewer_session.h"

namespace quarvel::viewer {
namespace {

using platform::KeyPress;
using platform::MenuItem;

const Texts kRowElementItems = {"mnuEditRowChangeEle", "mnuEditRowDelEle"};
const Texts kEditing = {"mnuFileNew",    "mnuFileOpen",    "mnuFileSave",   "mnuFileSaveAs",
                        "mnuEdit",       "mnuEditRow",     "mnuEditRowAdd", "mnuEditCol",
                        "mnuEditColAdd", "mnuEditSimplify"};

Texts Joined(const std::vector<Texts>& lists) {
  Texts all;
  for (const Texts& list : lists) all.insert(all.end(), list.begin(), list.end());
  return all;
}

class ViewerMenuTest : public ViewerTest {
 protected:
  Texts Disabled() {
    Texts disabled;
    for (const auto& owned : viewer().menu.items()) {
      const MenuItem& item = *owned;
      if (!item.enabled()) disabled.push_back(item.name());
    }
    return disabled;
  }

  // The commands on the records of one page: all of its menu but the one that adds.
  Texts RowItems() { return ItemsOf("mnuEditRow", "mnuEditRowAdd"); }
  Texts ColumnItems() { return ItemsOf("mnuEditCol", "mnuEditColAdd"); }
  Texts ItemsOf(std::string_view menu, std::string_view adding) {
    Texts names;
    for (const MenuItem* item : Item(menu).children()) {
      if (!item->is_separator && item->name() != adding) names.push_back(item->name());
    }
    return names;
  }

  // Every item but those named is enabled.
  void ExpectDisabled(const Texts& names) {
    Item("mnuEdit").Open();
    const Texts disabled = Disabled();
    EXPECT_EQ(std::set<std::string>(disabled.begin(), disabled.end()),
              std::set<std::string>(names.begin(), names.end()));
  }

  void HideAll(RecordPage& list) { list.chkInvert.Click(); }
};

TEST_F(ViewerMenuTest, AllIsEnabledForARowWithElements) {
  BuildModel();
  View([&] {
    ExpectDisabled({});
    SelectRow("LIM");
    ExpectDisabled({});
  });
}

TEST_F(ViewerMenuTest, WithoutEditingOnlyExitAndHelpAreLeft) {
  BuildModel();
  View(
      [&] {
        ExpectDisabled(Joined({kEditing, RowItems(), ColumnItems()}));
        SelectRow("LIM");
        ExpectDisabled(Joined({kEditing, RowItems(), ColumnItems()}));
        EXPECT_FALSE(viewer().contents.txtName.enabled());
        EXPECT_FALSE(viewer().contents.txtDescription.enabled());
      },
      false);
  View([&] {
    ExpectDisabled({});
    EXPECT_TRUE(viewer().contents.txtName.enabled());
    EXPECT_TRUE(viewer().contents.txtDescription.enabled());
  });
}

TEST_F(ViewerMenuTest, ARowWithoutElementsOffersNoneToChange) {
  BuildModel();
  View([&] {
    SelectRow("RNG");
    ExpectDisabled(kRowElementItems);
    TurnTo(kColumnsPage.number);
    ExpectDisabled(kRowElementItems);
    SelectRow("EQ");
    ExpectDisabled({});
  });
}

TEST_F(ViewerMenuTest, AColumnWithoutElementsKeepsItsCommands) {
  BuildModel();
  View([&] {
    SelectColumn("W");
    ExpectDisabled({});
  });
}

TEST_F(ViewerMenuTest, AFilterThatKeepsNothingLeavesAdding) {
  BuildModel();
  View([&] {
    TurnTo(kRowsPage.number);
    HideAll(viewer().contents.rows);
    ExpectDisabled(RowItems());
    TurnTo(kColumnsPage.number);
    HideAll(viewer().contents.columns);
    ExpectDisabled(Joined({RowItems(), ColumnItems()}));
    HideAll(viewer().contents.columns);
    ExpectDisabled(RowItems());
  });
}

TEST_F(ViewerMenuTest, AnEmptyModelOffersAddingOnly) {
  model_.MakeNewModel();
  View([&] { ExpectDisabled(Joined({RowItems(), ColumnItems(), {"mnuEditSimplify"}})); });
}

TEST_F(ViewerMenuTest, AModelWithRowsOnlyOffersAddingOnly) {
  ModelBuilder(model_).Row("A", 'L', 1);
  View([&] {
    EXPECT_FALSE(Item("mnuEditRowDel").enabled()) << "its key needs no menu that was opened before";
    ExpectDisabled(Joined({RowItems(), ColumnItems(), {"mnuEditSimplify"}}));
  });
}

TEST_F(ViewerMenuTest, AModelWithoutElementsHasNothingToSimplify) {
  ModelBuilder(model_).Row("A", 'L', 1).Column("X");
  View([&] { ExpectDisabled(Joined({kRowElementItems, {"mnuEditSimplify"}})); });
}

TEST_F(ViewerMenuTest, OpeningTheMenuSeesElementsThatAHostAdded) {
  ModelBuilder(model_).Row("A", 'L', 1).Column("X");
  View([&] {
    model_.AddElement(0, 0, 1);
    ExpectDisabled({});
  });
}

TEST_F(ViewerMenuTest, ShowsThePartOfTheCurrentTab) {
  BuildModel();
  View([&] {
    EXPECT_FALSE(Item("mnuEditRow").visible());
    EXPECT_TRUE(Item("mnuEditCol").visible());
    TurnTo(kRowsPage.number);
    EXPECT_TRUE(Item("mnuEditRow").visible());
    EXPECT_FALSE(Item("mnuEditCol").visible());
    Item("mnuEditRow").set_visible(false);
    Item("mnuEdit").Open();
    EXPECT_TRUE(Item("mnuEditRow").visible());
  });
}

TEST_F(ViewerMenuTest, HasTheUsualKeys) {
  BuildModel();
  View([&] {
    std::map<std::string, std::string> keys;
    for (const auto& owned : viewer().menu.items()) {
      const MenuItem& item = *owned;
      const std::string text = KeyText(item.shortcut);
      if (!text.empty()) keys[item.name()] = text + (item.shortcut_is_label ? " (label)" : "");
    }
    EXPECT_EQ(keys, (std::map<std::string, std::string>{{"mnuFileNew", "Ctrl+N"},
                                                        {"mnuFileOpen", "Ctrl+O"},
                                                        {"mnuFileSave", "Ctrl+S"},
                                                        {"mnuFileSaveAs", "Ctrl+Shift+S"},
                                                        {"mnuEditRowRename", "F2"},
                                                        {"mnuEditColRename", "F2"},
                                                        {"mnuEditRowDel", "Del (label)"},
                                                        {"mnuEditColDel", "Del (label)"},
                                                        {"mnuHelpHelp", "F1"}}));
  });
}

TEST_F(ViewerMenuTest, RenameKeyTakesTheTabThatIsShown) {
  BuildModel();
  View([&] {
    desktop_.inputs = {"A", "B"};
    EXPECT_TRUE(PressShortcut(viewer(), KeyPress{platform::Key::kF2}));
    EXPECT_EQ(desktop_.input_boxes().back().prompt, "Enter a name for this column");
    TurnTo(kRowsPage.number);
    EXPECT_TRUE(PressShortcut(viewer(), KeyPress{platform::Key::kF2}));
    EXPECT_EQ(desktop_.input_boxes().back().prompt, "Enter a name for this row");
  });
}

TEST_F(ViewerMenuTest, EveryItemHasAnAccessKeyOfItsOwnInItsMenu) {
  BuildModel();
  View([&] {
    std::map<const MenuItem*, std::set<char>> keys;
    for (const auto& owned : viewer().menu.items()) {
      const MenuItem& item = *owned;
      if (item.is_separator) continue;
      EXPECT_FALSE(item.caption().empty()) << item.name();
      const std::string letters = {static_cast<char>(std::tolower(item.access_key)),
                                   static_cast<char>(std::toupper(item.access_key))};
      EXPECT_NE(item.caption().find_first_of(letters), std::string::npos) << item.name();
      EXPECT_TRUE(keys[item.parent()].insert(letters[0]).second) << item.name();
    }
  });
}

TEST_F(ViewerMenuTest, NoTwoControlsOfAPageShareAnAccessKey) {
  BuildModel();
  View([&] {
    for (const int page : {kRowsPage.number, kColumnsPage.number}) {
      TurnTo(page);
      std::set<char> keys;
      for (const platform::Control* control : viewer().controls()) {
        const auto* item = dynamic_cast<const MenuItem*>(control);
        if (!control->visible() || control->access_key == 0) continue;
        if (item != nullptr && item->parent() != nullptr) continue;
        const char key = static_cast<char>(std::toupper(control->access_key));
        EXPECT_TRUE(keys.insert(key).second) << control->name();
      }
      EXPECT_GE(keys.size(), 8u);
    }
  });
}

TEST_F(ViewerMenuTest, ListsOfferTheCommandsOfTheirTab) {
  BuildModel();
  View([&] {
    frmViewEquations& v = viewer();
    EXPECT_EQ(v.contents.rows.fgrdList.popup, &Item("mnuEditRow"));
    EXPECT_EQ(v.contents.rows.fgrdElements.popup, &Item("mnuEditRow"));
    EXPECT_EQ(v.contents.columns.fgrdList.popup, &Item("mnuEditCol"));
    EXPECT_EQ(v.contents.columns.fgrdElements.popup, &Item("mnuEditCol"));
  });
}

// Also the ways past the menu do nothing.
TEST_F(ViewerMenuTest, WithoutEditingNoCommandChangesOrAsksAnything) {
  BuildModel();
  View(
      [&] {
        for (const int page : {kRowsPage.number, kColumnsPage.number}) {
          TurnTo(page);
          for (const std::string& name : Joined({kEditing, RowItems(), ColumnItems()})) {
            Item(name).Click();
            const auto click = Item(name).on_click;
            if (click) click();
          }
          viewer().contents.rows.fgrdList.Press({platform::Key::kDelete});
          viewer().contents.columns.fgrdList.Press({platform::Key::kDelete});
        }
        EXPECT_EQ(Boxes(), Texts{});
        EXPECT_EQ(desktop_.input_boxes().size(), 0u);
        EXPECT_EQ(model_.NumberOfRows(), 5);
        EXPECT_EQ(model_.NumberOfColumns(), 4);
        EXPECT_EQ(model_.NumberOfElements(), 6);
      },
      false);
}

}  // namespace
}  // namespace quarvel::viewer
