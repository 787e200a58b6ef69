#include "viewer/named_record.h"

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/model_builder.h"

namespace quarvel::viewer {
namespace {

class NamedRecordTest : public testing::Test {
 protected:
  NamedRecordTest() {
    ModelBuilder(model_)
        .Row("A", 'L', 1)
        .Row("B", 'L', 1)
        .Column("X")
        .Column("Y")
        .Element("X", "B", 1)
        .Element("Y", "B", 2)
        .Element("Y", "A", 3);
  }

  platform::ScriptedDesktop desktop_;
  LPModel model_{desktop_};
};

TEST_F(NamedRecordTest, IsThereUnderItsNumberAndNameOnly) {
  const NamedRecord row = NamedRecord::Of(model_, model::kRowKind, 1);
  EXPECT_EQ(row.name, "B");
  EXPECT_TRUE(row.IsIn(model_));
  model_.SetRowName(1, "C");
  EXPECT_FALSE(row.IsIn(model_));
  model_.SetRowName(1, "B");
  EXPECT_TRUE(row.IsIn(model_));
  model_.DeleteRow(0);
  EXPECT_FALSE(row.IsIn(model_));
}

TEST_F(NamedRecordTest, ElementIsTheSameFromItsRowAndFromItsColumn) {
  const auto of_row = NamedElement::At(model_, model::kRowKind, 1, 1);
  const auto of_column = NamedElement::At(model_, model::kColumnKind, 1, 0);
  for (const auto& element : {of_row, of_column}) {
    ASSERT_TRUE(element);
    EXPECT_EQ(element->row.name, "B");
    EXPECT_EQ(element->column.name, "Y");
    EXPECT_EQ(element->place, 1);
    EXPECT_EQ(element->Of(model::kRowKind).name, "B");
    EXPECT_EQ(element->Of(model::kColumnKind).name, "Y");
    EXPECT_TRUE(element->IsIn(model_));
  }
  EXPECT_FALSE(NamedElement::At(model_, model::kRowKind, 1, 2));
  EXPECT_FALSE(NamedElement::At(model_, model::kRowKind, 1, -1));
}

TEST_F(NamedRecordTest, ElementIsGoneWhenItsPlaceHoldsAnother) {
  const auto first = NamedElement::At(model_, model::kRowKind, 1, 0);
  const auto last = NamedElement::At(model_, model::kRowKind, 1, 1);
  model_.DeleteElement(1, 0);
  EXPECT_FALSE(first->IsIn(model_));
  EXPECT_FALSE(last->IsIn(model_));
}

TEST_F(NamedRecordTest, FindsTheFirstElementAtAColumn) {
  model_.AddElement(1, 0, 9);
  EXPECT_EQ(PlaceInRow(model_, 1, 0), 0);
  EXPECT_EQ(PlaceInRow(model_, 0, 1), 0);
  EXPECT_EQ(PlaceInRow(model_, 0, 0), std::nullopt);
}

}  // namespace
}  // namespace quarvel::viewer
