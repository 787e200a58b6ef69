// The viewer as a window: where its keyboard begins and how small it gets.
#include "tests/viewer/viewer_session.h"
#include "viewer/frm_view_equations.h"

namespace quarvel::viewer {
namespace {

TEST_F(ViewerTest, KeyboardBeginsInTheListOfTheTab) {
  BuildModel();
  View([&] { EXPECT_EQ(viewer().focus(), &viewer().contents.columns.fgrdList); });
  ShowBy([&] { model_.ViewRow(1, true); },
         [&] { EXPECT_EQ(viewer().focus(), &viewer().contents.rows.fgrdList); });
}

TEST_F(ViewerTest, CountsNothingWhereRowsOrColumnsAreMissing) {
  model_.AddColumn("X");
  model_.AddColumn("Y");
  View([&] {
    EXPECT_EQ(viewer().contents.columns.fraList.caption(), "Columns (0)");
    EXPECT_EQ(viewer().contents.rows.fraList.caption(), "Rows (0)");
    EXPECT_EQ(ColumnNames(), Texts{});
  });
}

TEST_F(ViewerTest, ShrinksToItsSmallestSizeWithEveryControlInside) {
  View([&] {
    const frmViewEquations& form = viewer();
    EXPECT_LE(form.smallest_width(), 600);
    EXPECT_LE(form.smallest_height(), 440);
    for (const platform::Control* control : form.controls()) {
      if (control->kind() == platform::ControlKind::kMenuItem) continue;
      const platform::Place place = control->PlaceIn(form.smallest_width(), form.smallest_height());
      EXPECT_GE(place.width, 60) << control->name();
      EXPECT_GE(place.height, 18) << control->name();
      EXPECT_LE(place.x + place.width, form.smallest_width()) << control->name();
      EXPECT_LE(place.y + place.height, form.smallest_height()) << control->name();
    }
  });
}

}  // namespace
}  // namespace quarvel::viewer
