// A user's way through the viewer from an empty model to a file and back.
#include "model/model_check.h"
#include "mps/frm_set_default_bounds.h"
#include "tests/viewer/viewer_session.h"

namespace quarvel::viewer {
namespace {

class JourneyTest : public ViewerTest {
 protected:
  void AddColumn(const std::string& name, std::string_view lower, std::string_view upper) {
    TurnTo(kColumnsPage.number);
    desktop_.inputs.push_back(name);
    dialogs_.push_back([&](auto&) {
      viewer().desk.col_bounds.bounds.txtLwrBnd.Type(lower);
      viewer().desk.col_bounds.bounds.txtUprBnd.Type(upper);
      viewer().desk.col_bounds.cmdOK.Click();
    });
    Choose("mnuEditColAdd");
  }
  void AddRow(const std::string& name, platform::OptionButton& type, std::string_view lower,
              std::string_view upper) {
    TurnTo(kRowsPage.number);
    desktop_.inputs.push_back(name);
    dialogs_.push_back([&](auto&) {
      type.Click();
      viewer().desk.row_bounds.bounds.txtLwrBnd.Type(lower);
      viewer().desk.row_bounds.bounds.txtUprBnd.Type(upper);
      viewer().desk.row_bounds.cmdOK.Click();
    });
    Choose("mnuEditRowAdd");
  }
  void AddElement(std::string_view row, std::string_view column, const std::string& value) {
    SelectRow(row);
    desktop_.inputs.push_back(value);
    dialogs_.push_back([&](auto&) {
      platform::Grid& grid = viewer().desk.add_elements.fgrdCols;
      for (int line = 1; line < grid.rows(); ++line) {
        if (grid.Text(line, 1) == column) grid.Select(line);
      }
      viewer().desk.add_elements.cmdOK.Click();
    });
    Choose("mnuEditRowAddEle");
  }
  void BuildByHand() {
    AddColumn("X", "0", "4");
    AddColumn("Y", "-1E10", "1E10");
    AddRow("COST", *viewer().desk.row_bounds.Option("N"), "-1E10", "1E10");
    AddRow("LIM", *viewer().desk.row_bounds.Option("R"), "8", "2");
    AddElement("COST", "X", "1");
    AddElement("COST", "Y", "-2.5");
    AddElement("LIM", "Y", "3");
    AddElement("LIM", "X", "7");
  }
};

TEST_F(JourneyTest, ModelBuiltByHandIsSavedAndReadAgain) {
  const std::string path = folder_.File("hand.mps");
  ShowBy([&] { model_.NewMPSModel(); },
         [&] {
           BuildByHand();
           EXPECT_EQ(Boxes(), Texts{"Bounds were reversed"});
           viewer().contents.txtName.Type("HAND");
           viewer().contents.txtDescription.Type("made\nby hand");
           desktop_.answers = {kNo, kNo, kNo};
           desktop_.files = {path, path};
           dialogs_.push_back([](platform::Form& form) {
             dynamic_cast<mps::frmSetDefaultBounds&>(form).cmdOK.Click();
           });
           Choose("mnuFileSave");
           Choose("mnuFileOpen");
           EXPECT_EQ(viewer().contents.txtName.text(), "HAND");
           EXPECT_EQ(viewer().contents.txtDescription.text(), "made\r\nby hand");
           EXPECT_EQ(RowText(0), "COST N -10000000000 10000000000");
           EXPECT_EQ(RowText(1), "LIM R 2 8");
           EXPECT_EQ(ColumnText(0), "X R 0 4");
           EXPECT_EQ(ColumnText(1), "Y R -10000000000 10000000000");
           EXPECT_EQ(model_.ElementValue(0, 1), -2.5);
           EXPECT_EQ(model_.NumberOfElements(), 4);
           SelectRow("LIM");
           EXPECT_EQ(viewer().contents.rows.fgrdBounds.Text(0, 0), "2 <= LIM <= 8");
         });
  EXPECT_EQ(model::CheckModelData(model_.store()), "");
}

}  // namespace
}  // namespace quarvel::viewer
