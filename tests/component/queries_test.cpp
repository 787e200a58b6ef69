// Every query by index: what it gives, and what it raises for a bad number.

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/error_reports.h"
#include "tests/component/edge_numbers.h"
#include "tests/component/query_model.h"
#include "tests/support/model_builder.h"

namespace quarvel {
namespace {

const char kColumnSource[] = "LPModel.PropertyGetColumn()";
const char kRowSource[] = "LPModel.PropertyGetRow()";

std::string ColumnText(const std::string& j, const std::string& last) {
  return "Quarvel.dll error: column " + j + " is out of range.  \r\nColumns range from 0 to " +
         last + ".";
}
std::string RowText(const std::string& i, const std::string& last) {
  return "Quarvel.dll error: row " + i + " is out of range.  \r\nRows range from 0 to " + last +
         ".";
}
std::string ElementText(const std::string& k, const std::string& last) {
  return "Quarvel.dll error: element " + k +
         " is out of range.  \r\nElements in this row range from 0 to " + last + ".";
}

struct ByIndex {
  const char* name;
  std::function<void(const LPModel&, std::int32_t)> call;
};

const std::vector<ByIndex>& ColumnQueries() {
  static const std::vector<ByIndex> queries = {
      {"ColNumberElements", [](const LPModel& m, std::int32_t j) { m.ColNumberElements(j); }},
      {"ColUpperBound", [](const LPModel& m, std::int32_t j) { m.ColUpperBound(j); }},
      {"ColLowerBound", [](const LPModel& m, std::int32_t j) { m.ColLowerBound(j); }},
      {"ColName", [](const LPModel& m, std::int32_t j) { m.ColName(j); }},
      {"ColType", [](const LPModel& m, std::int32_t j) { m.ColType(j); }},
      {"ColElementrow", [](const LPModel& m, std::int32_t j) { m.ColElementrow(j, 99); }},
      {"ColElementvalue", [](const LPModel& m, std::int32_t j) { m.ColElementvalue(j, 99); }},
  };
  return queries;
}

const std::vector<ByIndex>& RowQueries() {
  static const std::vector<ByIndex> queries = {
      {"RowEquation", [](const LPModel& m, std::int32_t i) { m.RowEquation(i); }},
      {"RowName", [](const LPModel& m, std::int32_t i) { m.RowName(i); }},
      {"RowNumberElements", [](const LPModel& m, std::int32_t i) { m.RowNumberElements(i); }},
      {"RowType", [](const LPModel& m, std::int32_t i) { m.RowType(i); }},
      {"RowLowerBound", [](const LPModel& m, std::int32_t i) { m.RowLowerBound(i); }},
      {"RowUpperBound", [](const LPModel& m, std::int32_t i) { m.RowUpperBound(i); }},
      {"RowElementCol", [](const LPModel& m, std::int32_t i) { m.RowElementCol(i, 99); }},
      {"RowElementValue", [](const LPModel& m, std::int32_t i) { m.RowElementValue(i, 99); }},
  };
  return queries;
}

TEST(ColumnQueries, RaiseTheColumnTextWithTheCallersNumber) {
  const QueryModel q;
  for (const ByIndex& query : ColumnQueries()) {
    for (const std::int32_t j : {-1, 5, kGreatest, kLeast}) {
      EXPECT_EQ(RaisedBy([&] { query.call(q.model, j); }),
                Raised(-2147220974, kColumnSource, ColumnText(std::to_string(j), "4")))
          << query.name;
    }
  }
}

TEST(RowQueries, RaiseTheRowTextWithTheCallersNumber) {
  const QueryModel q;
  for (const ByIndex& query : RowQueries()) {
    for (const std::int32_t i : {-1, 4, kGreatest, kLeast}) {
      EXPECT_EQ(RaisedBy([&] { query.call(q.model, i); }),
                Raised(-2147220972, kRowSource, RowText(std::to_string(i), "3")))
          << query.name;
    }
  }
}

TEST(IndexedQueries, EndTheirRangeAtMinusOneInAnEmptyModel) {
  platform::ScriptedDesktop desktop;
  for (const bool after_new : {false, true}) {
    LPModel model(desktop);
    if (after_new) model.MakeNewModel();
    for (const ByIndex& query : RowQueries()) {
      EXPECT_EQ(RaisedBy([&] { query.call(model, 0); }).description, RowText("0", "-1"));
    }
    for (const ByIndex& query : ColumnQueries()) {
      EXPECT_EQ(RaisedBy([&] { query.call(model, 0); }).description, ColumnText("0", "-1"));
    }
  }
}

TEST(ElementQueries, RaiseForABadElementWithTheWordsOfARow) {
  const QueryModel q;
  for (const std::int32_t k : {-1, 2, kGreatest}) {
    const std::string text = ElementText(std::to_string(k), "1");
    EXPECT_EQ(RaisedBy([&] { q.model.ColElementrow(0, k); }),
              Raised(-2147220973, kColumnSource, text));
    EXPECT_EQ(RaisedBy([&] { q.model.ColElementvalue(0, k); }),
              Raised(-2147220973, kColumnSource, text));
    EXPECT_EQ(RaisedBy([&] { q.model.RowElementCol(0, k); }),
              Raised(-2147220971, kRowSource, text));
    EXPECT_EQ(RaisedBy([&] { q.model.RowElementValue(0, k); }),
              Raised(-2147220971, kRowSource, text));
  }
}

TEST(ElementQueries, EndTheirRangeAtMinusOneInAnEmptyList) {
  const QueryModel q;
  EXPECT_EQ(RaisedBy([&] { q.model.ColElementrow(3, 0); }).description, ElementText("0", "-1"));
  EXPECT_EQ(RaisedBy([&] { q.model.RowElementCol(3, 0); }).description, ElementText("0", "-1"));
}

TEST(ColumnQueries, GiveWhatIsStored) {
  QueryModel q;
  q.model.SetColLowerBound(1, -2.5);
  q.model.SetColUpperBound(1, 8);
  EXPECT_EQ(q.model.ColName(1), "X2");
  EXPECT_EQ(q.model.ColType(1), "R");
  EXPECT_EQ(q.model.ColType(4), "I");
  EXPECT_EQ(q.model.ColLowerBound(1), -2.5);
  EXPECT_EQ(q.model.ColUpperBound(1), 8);
  EXPECT_EQ(q.model.ColNumberElements(0), 2);
  EXPECT_EQ(q.model.ColElementrow(0, 1), 2);
  EXPECT_EQ(q.model.ColElementvalue(0, 1), 4);
}

TEST(RowQueries, GiveWhatIsStored) {
  QueryModel q;
  q.SetRow(3, model::RowType::kRanged, -1, 6);
  EXPECT_EQ(q.model.RowName(2), "R3");
  EXPECT_EQ(q.model.RowType(2), "R");
  EXPECT_EQ(q.model.RowLowerBound(2), -1);
  EXPECT_EQ(q.model.RowUpperBound(2), 6);
  EXPECT_EQ(q.model.RowNumberElements(2), 2);
  EXPECT_EQ(q.model.RowElementCol(2, 1), 4);
  EXPECT_EQ(q.model.RowElementValue(2, 1), 5);
}

TEST(RowQueries, GiveAnEmptyTypeForARowThatNeverGotOne) {
  QueryModel q;
  q.model.AddRow("NEW");
  EXPECT_EQ(q.model.RowType(4), "");
}

TEST(ElementValue, FindsAPairOrGivesZero) {
  const QueryModel q;
  EXPECT_EQ(q.model.ElementValue(0, 1), -3.5);
  EXPECT_EQ(q.model.ElementValue(0, 2), 0);
}

TEST(ElementValue, GivesTheFirstOfARepeatedPair) {
  QueryModel q;
  q.model.AddElement(0, 1, 8);
  EXPECT_EQ(q.model.ElementValue(0, 1), -3.5);
}

TEST(ElementValue, LooksIntoTheRowsListOnly) {
  QueryModel q;
  ChangeFields(q.model, [&](model::ModelData& data) { data.Columns[2].Elements.Release(); });
  EXPECT_EQ(q.model.ElementValue(0, 1), -3.5);
}

TEST(ElementValue, RaisesItsShortTextsRowFirst) {
  const QueryModel q;
  EXPECT_EQ(RaisedBy([&] { q.model.ElementValue(4, 99); }),
            Raised(-2147220972, kRowSource, "Quarvel.dll error: row out of range."));
  EXPECT_EQ(RaisedBy([&] { q.model.ElementValue(3, 5); }),
            Raised(-2147220974, kColumnSource, "Quarvel.dll error: column out of range."));
  EXPECT_EQ(RaisedBy([&] { q.model.ElementValue(kGreatest, 0); }).number, -2147220972);
  EXPECT_EQ(RaisedBy([&] { q.model.ElementValue(0, kLeast); }).number, -2147220974);
}

// --- row indexes ---

TEST(RowIndexes, SayWhenThereAreNoRowsOfTheirKind) {
  platform::ScriptedDesktop desktop;
  const LPModel model(desktop);
  for (const std::int32_t i : {0, -1, 7}) {
    EXPECT_EQ(RaisedBy([&] { model.BindingRowIndex(i); }),
              Raised(-2147220974, "LPModel.BindingRowIndex()",
                     "Quarvel.dll error: There are no Binding Rows"));
    EXPECT_EQ(RaisedBy([&] { model.NonBindingRowIndex(i); }),
              Raised(-2147220974, "LPModel.NonBindingRowIndex()",
                     "Quarvel.dll error: There are no Non-Binding Rows"));
  }
}

TEST(RowIndexes, RaiseWithTheWordColumnAndTheirMisspeltNames) {
  QueryModel q;
  q.model.SetRowType(1, "N");
  EXPECT_EQ(RaisedBy([&] { q.model.BindingRowIndex(3); }),
            Raised(-2147220974, "LPModel.BindingRowIndex()",
                   "Quarvel.dll error: column 3 is out of range.  \r\nThe valid range for "
                   "BindnigRowIndex is from 0 to 2."));
  EXPECT_EQ(RaisedBy([&] { q.model.NonBindingRowIndex(-1); }),
            Raised(-2147220974, "LPModel.NonBindingRowIndex()",
                   "Quarvel.dll error: column -1 is out of range.  \r\nThe valid range for "
                   "NonBindnigRowIndex is from 0 to 0."));
  EXPECT_EQ(RaisedBy([&] { q.model.BindingRowIndex(kGreatest); }).number, -2147220974);
}

TEST(RowIndexes, ListTheRowsOfTheirKindInOrder) {
  QueryModel q;
  q.model.SetRowType(1, "N");
  EXPECT_EQ(q.model.NumberOfBindingRows(), 3);
  EXPECT_EQ(q.model.NumBindingRows(), 3);
  EXPECT_EQ(q.model.NumberOfNonBindingRows(), 1);
  EXPECT_EQ(q.model.NumNonBindingRows(), 1);
  EXPECT_EQ(q.model.BindingRowIndex(0), 0);
  EXPECT_EQ(q.model.BindingRowIndex(1), 2);
  EXPECT_EQ(q.model.BindingRowIndex(2), 3);
  EXPECT_EQ(q.model.NonBindingRowIndex(0), 1);
}

TEST(DisplayAuthor, ShowsOneBoxWithItsTitle) {
  QueryModel q;
  q.model.DisplayAuthor();
  ASSERT_EQ(q.desktop.boxes().size(), 1u);
  EXPECT_EQ(q.desktop.boxes()[0].title, "Authors of Quarvel Object");
  EXPECT_EQ(q.desktop.boxes()[0].style, platform::MsgBoxStyle::kOk);
  EXPECT_NE(q.desktop.boxes()[0].text.find("1.00.0001"), std::string::npos);
}

TEST(ViewEquationsWindowIsShowing, GivesWhatTheHostStored) {
  QueryModel q;
  EXPECT_FALSE(q.model.ViewEquationsWindowIsShowing());
  q.model.frmViewEquationsIsShowing(true);
  EXPECT_TRUE(q.model.ViewEquationsWindowIsShowing());
}

}  // namespace
}  // namespace quarvel
