// The commands on single coefficients.
#include "tests/viewer/viewer_session.h"

namespace quarvel::viewer {
namespace {

const std::string kNoElementOfRow = "Please first click on a row and an element in that row";
const std::string kNoElementOfColumn = "Please first click on a column and a row that column is in";

class ElementCommandsTest : public ViewerTest {
 protected:
  void With(const std::function<void()>& steps) {
    BuildModel();
    View(steps);
  }
  // The element of the Columns tab: X in LIM, value 2.
  void ChooseElement() {
    SelectColumn("X");
    viewer().contents.columns.fgrdElements.Select(1);
  }
  // Runs the row command, which takes that element, from its own tab.
  void ChangeFromRows(std::string_view input) {
    ChooseElement();
    SelectRow("LIM");
    desktop_.inputs.emplace_back(input);
    Choose("mnuEditRowChangeEle");
  }
  void ChangeFromColumns(std::string_view input) {
    ChooseElement();
    desktop_.inputs.emplace_back(input);
    Choose("mnuEditColChangeEle");
  }
};

TEST_F(ElementCommandsTest, RowChangeTakesTheElementOfTheColumnsTab) {
  With([&] {
    ChangeFromRows("-7.5");
    EXPECT_EQ(model_.ElementValue(1, 0), -7.5);
    EXPECT_EQ(model_.ColElementvalue(0, 1), -7.5);
    EXPECT_EQ(viewer().contents.txtColsEqn.text(), "LIM:   - 7.5*X + 3*Y  <=  4");
    EXPECT_EQ(Column(viewer().contents.rows.fgrdElements, 1), (Texts{"-7.5", "3"}));
    EXPECT_EQ(Boxes(), Texts{});
  });
  EXPECT_EQ(desktop_.input_boxes()[0],
            (platform::ShownInput{"Enter a new value for element X in row LIM?  Entering 0 will "
                                  "delete this element from the row.",
                                  "Change Element Value", "2"}));
}

TEST_F(ElementCommandsTest, RowChangeStopsOnWhatIsNoNumber) {
  With([&] {
    ChangeFromRows("");
    EXPECT_EQ(Boxes(), Texts{});
    ChangeFromRows("abc");
    EXPECT_EQ(Boxes(), Texts{"Error: Please enter a numeric value"});
    EXPECT_EQ(model_.ElementValue(1, 0), 2);
  });
}

TEST_F(ElementCommandsTest, RowChangeToZeroDeletesAfterAsking) {
  With([&] {
    desktop_.answers = {kNo};
    ChangeFromRows("0");
    EXPECT_EQ(model_.NumberOfElements(), 6);
    desktop_.answers = {kYes};
    ChangeFromRows("-0.0");
    EXPECT_EQ(model_.NumberOfElements(), 5);
    EXPECT_EQ(model_.ElementValue(1, 0), 0);
    EXPECT_EQ(Boxes(), Texts(2, "Are you sure you want delete element LIM from column X?"));
  });
}

TEST_F(ElementCommandsTest, RowChangeWarnsOfLongValuesAndStoresThem) {
  const struct {
    const char* text;
    bool warned;
  } cases[] = {{"1.23456789012", false}, {"123.456789012", true}, {"-12.345678901", true},
               {"12345678901", false},   {"123456789012", true},  {"1E-15", false}};
  With([&] {
    for (const auto& c : cases) {
      desktop_.Clear();
      ChangeFromRows(c.text);
      EXPECT_EQ(Boxes(), c.warned ? Texts{kLongValueText} : Texts{}) << c.text;
      EXPECT_EQ(model_.ElementValue(1, 0), std::stod(c.text));
    }
  });
}

TEST_F(ElementCommandsTest, ColumnChangeStoresAValueWithinTheColumnsBounds) {
  With([&] {
    ChangeFromColumns("5");
    EXPECT_EQ(model_.ElementValue(1, 0), 5);
    EXPECT_EQ(viewer().contents.txtColsEqn.text(), "LIM:   + 5*X + 3*Y  <=  4");
    EXPECT_EQ(viewer().contents.columns.fgrdElements.current_row(), 1);
    EXPECT_EQ(Boxes(), Texts{});
  });
  EXPECT_EQ(desktop_.input_boxes()[0],
            (platform::ShownInput{"Enter a new value for element X in row LIM?",
                                  "Change Element Value", "2"}));
}

TEST_F(ElementCommandsTest, ColumnChangeRefusesWhatLiesOutsideTheColumnsBounds) {
  With([&] {
    model_.SetColLowerBound(0, 1.5);
    model_.SetColUpperBound(0, 8);
    for (const char* text : {"1", "8.5", "0", "abc"}) {
      desktop_.Clear();
      ChangeFromColumns(text);
      EXPECT_EQ(Boxes(), Texts{"Please enter a number between 1.5 and 8."}) << text;
      EXPECT_EQ(model_.ElementValue(1, 0), 2);
    }
    desktop_.Clear();
    ChangeFromColumns("");
    EXPECT_EQ(Boxes(), Texts{});
    ChangeFromColumns("1.5");
    EXPECT_EQ(model_.ElementValue(1, 0), 1.5);
    ChangeFromColumns("8");
    EXPECT_EQ(model_.ElementValue(1, 0), 8);
  });
}

TEST_F(ElementCommandsTest, ColumnChangeStoresZeroWithinTheBounds) {
  With([&] {
    ChangeFromColumns("0");
    EXPECT_EQ(model_.NumberOfElements(), 6);
    EXPECT_EQ(model_.ElementValue(1, 0), 0);
    EXPECT_EQ(Boxes(), Texts{});
  });
}

TEST_F(ElementCommandsTest, ColumnChangeIsSilentAboutLongValues) {
  With([&] {
    ChangeFromColumns("123.456789012");
    EXPECT_EQ(Boxes(), Texts{});
    EXPECT_EQ(model_.ElementValue(1, 0), 123.456789012);
  });
}

TEST_F(ElementCommandsTest, WithoutAnElementTheyRefuse) {
  With([&] {
    SelectRow("LIM");
    Choose("mnuEditRowChangeEle");
    Choose("mnuEditRowDelEle");
    SelectColumn("W");
    Choose("mnuEditColChangeEle");
    Choose("mnuEditColDelEle");
    viewer().contents.columns.fgrdList.set_current_row(-1);
    Choose("mnuEditColChangeEle");
    Choose("mnuEditColDelEle");
    EXPECT_EQ(Boxes(), (Texts{kNoElementOfRow, kNoElementOfRow, kNoElementOfRow, kNoElementOfColumn,
                              kNoElementOfRow, kNoElementOfColumn}));
    EXPECT_EQ(desktop_.input_boxes().size(), 0u);
  });
}

TEST_F(ElementCommandsTest, RowDeleteAsksAndKeepsThePlace) {
  With([&] {
    SelectRow("EQ");
    viewer().contents.rows.fgrdElements.Select(0);
    desktop_.answers = {kNo, kYes};
    Choose("mnuEditRowDelEle");
    EXPECT_EQ(model_.NumberOfElements(), 6);
    Choose("mnuEditRowDelEle");
    EXPECT_EQ(desktop_.boxes()[0],
              (platform::ShownBox{"Are you sure you want delete element Z from row EQ?",
                                  MsgBoxStyle::kYesNo, "Confirm Deletion"}));
    EXPECT_EQ(Column(viewer().contents.rows.fgrdElements, 0), Texts{"X"});
    EXPECT_EQ(viewer().contents.rows.fgrdElements.current_row(), 0);
    EXPECT_EQ(viewer().contents.rows.fgrdList.current_row(), 4);
    EXPECT_EQ(model_.ColNumberElements(2), 0);
  });
}

TEST_F(ElementCommandsTest, LastElementTakesItsRowAlong) {
  With([&] {
    SelectRow("LOW");
    viewer().contents.rows.fgrdElements.Select(0);
    desktop_.answers = {kYes};
    Choose("mnuEditRowDelEle");
    EXPECT_EQ(RowNames(), (Texts{"COST", "LIM", "RNG", "EQ"}));
  });
}

TEST_F(ElementCommandsTest, ColumnDeleteAsksAndKeepsThePlace) {
  With([&] {
    ChooseElement();
    desktop_.answers = {kNo, kYes};
    Choose("mnuEditColDelEle");
    EXPECT_EQ(model_.NumberOfElements(), 6);
    Choose("mnuEditColDelEle");
    EXPECT_EQ(desktop_.boxes()[0],
              (platform::ShownBox{"Are you sure you want delete element LIM from column X?",
                                  MsgBoxStyle::kYesNo, "Confirm Deletion"}));
    EXPECT_EQ(Column(viewer().contents.columns.fgrdElements, 0), (Texts{"COST", "EQ"}));
    EXPECT_EQ(viewer().contents.columns.fgrdElements.current_row(), 1);
    EXPECT_EQ(viewer().contents.txtColsEqn.text(), "EQ:   - 2.5*Z + 1*X  =  7");
  });
}

// In the row's list X stands at another place than LIM does in the column's.
TEST_F(ElementCommandsTest, ColumnCommandsFindTheElementInTheRowsList) {
  With([&] {
    SelectColumn("X");
    viewer().contents.columns.fgrdElements.Select(2);
    desktop_.inputs = {"9"};
    Choose("mnuEditColChangeEle");
    EXPECT_EQ(model_.RowElementValue(4, 1), 9);
    desktop_.answers = {kYes};
    Choose("mnuEditColDelEle");
    EXPECT_EQ(model_.RowNumberElements(4), 1);
    EXPECT_EQ(model_.RowElementCol(4, 0), 2);
  });
}

}  // namespace
}  // namespace quarvel::viewer
