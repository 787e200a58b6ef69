// Pass 1: which rows of one element become bounds, and how.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/simplify/simplify_helpers.h"

namespace quarvel::simplify {
namespace {

using platform::MsgBoxResult;
using platform::MsgBoxStyle;
using platform::ShownBox;
using Lines = std::vector<std::string>;

constexpr MsgBoxResult kYes = MsgBoxResult::kYes;
constexpr MsgBoxResult kNo = MsgBoxResult::kNo;
constexpr MsgBoxResult kCancel = MsgBoxResult::kCancel;

constexpr double kInf = model::BoundLimit;

// A row R of one element with coefficient `a` in a column X. An objective holds X and another
// column, so that nothing is left empty.
struct OneRow {
  char type;
  double lower, upper, a;
  double column_lower, column_upper;
};

void BuildOneRow(SimplifySession& session, const OneRow& row) {
  session.Build()
      .Row("OBJ", 'N')
      .RowWithin("R", row.type, row.lower, row.upper)
      .Column("X", row.column_lower, row.column_upper)
      .Column("Y")
      .Element("X", "OBJ", 1)
      .Element("Y", "OBJ", 1)
      .Element("X", "R", row.a);
}

struct RuleCase {
  const char* what;
  OneRow row;
  double new_lower, new_upper;
  const char* log;  // empty: the row is kept, nothing is said
};

const RuleCase kRuleCases[] = {
    {"G above", {'G', 6, kInf, 2, 0, kInf}, 3, kInf, "Converted row R into variable bound"},
    {"G equal", {'G', 0, kInf, 2, 0, kInf}, 0, kInf, "Converted row R into variable bound"},
    {"G below", {'G', -2, kInf, 2, 0, kInf}, 0, kInf, ""},
    {"G by a hair", {'G', 0, kInf, 1, 5e-324, kInf}, 5e-324, kInf, ""},
    {"G negative", {'G', 4, kInf, -1, 0, kInf}, 0, kInf, ""},
    {"G negative taken",
     {'G', -4, kInf, -1, 0, kInf},
     4,
     kInf,
     "Converted row R into variable bound"},
    {"G crossing", {'G', 9, kInf, 1, 0, 5}, 9, 5, "Converted row R into variable bound"},
    {"G ignores upper",
     {'G', 6, 1e10, 1e-300, 0, kInf},
     6e300,
     kInf,
     "Converted row R into variable bound"},
    {"L below", {'L', -kInf, 6, 2, 0, kInf}, 0, 3, "Converted row R into variable bound"},
    {"L equal", {'L', -kInf, 10, 2, 0, 5}, 0, 5, "Converted row R into variable bound"},
    {"L above", {'L', -kInf, 1e12, 1, 0, kInf}, 0, kInf, ""},
    {"L negative", {'L', -kInf, 6, -2, 0, kInf}, 0, -3, "Converted row R into variable bound"},
    {"L crossing", {'L', -kInf, -1, 1, 0, 5}, 0, -1, "Converted row R into variable bound"},
    {"E within", {'E', 4, 4, 2, 0, 5}, 2, 2, "Converted row R into variable bound"},
    {"E at both", {'E', 4, 4, 2, 2, 2}, 2, 2, "Converted row R into variable bound"},
    {"E of two limits", {'E', 2, 4, 2, 0, 5}, 1, 2, "Converted row R into variable bound"},
    {"R within", {'R', 2, 8, 2, 0, 5}, 1, 4, "Range R had both bounds converted to column bounds"},
    {"R touching below",
     {'R', 0, 8, 2, 0, 5},
     0,
     4,
     "Range R had both bounds converted to column bounds"},
    {"R touching above",
     {'R', 2, 10, 2, 0, 5},
     1,
     5,
     "Range R had both bounds converted to column bounds"},
    {"R lower tighter",
     {'R', 2, 20, 2, 0, 5},
     0,
     10,
     "Range R had upper bound converted to column bound"},
    {"R upper tighter",
     {'R', -2, 8, 2, 0, 5},
     -1,
     5,
     "Range R had lower bound converted to column bound"},
    {"R negative",
     {'R', 2, 8, -2, -9, 5},
     -1,
     -4,
     "Range R had both bounds converted to column bounds"},
    {"N", {'N', -kInf, kInf, 2, 0, 5}, 0, 5, ""},
    {"no type", {ModelBuilder::kNoType, 6, 6, 2, 0, kInf}, 0, kInf, ""},
};

TEST(ConvertSingletonRows, FollowsTheRulesOfEachType) {
  for (const RuleCase& c : kRuleCases) {
    SCOPED_TRACE(c.what);
    const bool converted = *c.log != '\0';
    SimplifySession session;
    BuildOneRow(session, c.row);
    session.Simplify();
    EXPECT_EQ(session.model.ColLowerBound(0), c.new_lower);
    EXPECT_EQ(session.model.ColUpperBound(0), c.new_upper);
    EXPECT_EQ(session.RowNames(), converted ? Lines{"OBJ"} : (Lines{"OBJ", "R"}));
    EXPECT_EQ(session.model.NumberOfElements(), converted ? 2 : 3);
    EXPECT_EQ(session.model.ColNumberElements(0), converted ? 1 : 2);
    EXPECT_EQ(session.LogLines(), converted ? Lines{c.log} : Lines{});
    EXPECT_EQ(session.change_questions(), converted ? 1 : 0);
    EXPECT_EQ(session.nothing_done_boxes(), converted ? 0 : 1);
    EXPECT_EQ(session.desktop.boxes().size(), 1u);
  }
}

const OneRow kClashingEquality = {'E', 5, 5, 1, 0, 3};
const OneRow kEnclosingRange = {'R', -2, 20, 2, 0, 5};

TEST(ConvertSingletonRows, AsksAboutAnEqualityThatViolatesBounds) {
  for (const OneRow& row :
       {kClashingEquality, OneRow{'E', -1, -1, 1, 0, 3}, OneRow{'E', 4, 4, -2, 0, 3}}) {
    SimplifySession session;
    BuildOneRow(session, row);
    session.answers = {kYes};
    session.Simplify();
    EXPECT_EQ(session.desktop.boxes().at(0),
              (ShownBox{"The equality R violates variable bounds.\r\n"
                        "If you want to remove the equality, click Yes\r\n"
                        "If you want to reset the variable bounds to this equality, click No\r\n"
                        "Click cancel to stop fixing this model",
                        MsgBoxStyle::kYesNoCancelExclamation, "Equality violates bounds"}));
  }
}

TEST(ConvertSingletonRows, AsksAboutARangeThatEnclosesTheBounds) {
  // Equal limits are enclosed as well, so the question comes before the conversion of both.
  for (const OneRow& row :
       {kEnclosingRange, OneRow{'R', 0, 10, 2, 0, 5}, OneRow{'R', -8, 8, 1, 0, 5}}) {
    SimplifySession session;
    BuildOneRow(session, row);
    session.answers = {kYes};
    session.Simplify();
    EXPECT_EQ(session.desktop.boxes().at(0),
              (ShownBox{"The range for row R violates bounds.\r\n"
                        "To remove the row, click Yes\r\n"
                        "To reset the column bounds to this range, click No\r\n"
                        "Click Cancel to stop fixing this model",
                        MsgBoxStyle::kYesNoCancelExclamation, "Range Violates Bounds"}));
  }
}

struct AnswerCase {
  OneRow row;
  MsgBoxResult answer;
  double new_lower, new_upper;
  const char* log;
  bool deleted;
  bool changed;
};

const AnswerCase kAnswerCases[] = {
    {kClashingEquality, kYes, 0, 3, "Removed equality:  R", true, false},
    {kClashingEquality, kNo, 5, 5, "Converted row R into variable bound", true, true},
    {kClashingEquality, kCancel, 0, 3, "Model fixing aborted on equality R", false, false},
    {kEnclosingRange, kYes, 0, 5, "Removed range:  R", true, true},
    {kEnclosingRange, kNo, -1, 10, "Converted row R into collumn bounds", true, true},
    {kEnclosingRange, kCancel, 0, 5, "Model fixing aborted on ranged row R", false, true},
};

TEST(ConvertSingletonRows, DoesWhatTheAnswerSays) {
  for (const AnswerCase& c : kAnswerCases) {
    SCOPED_TRACE(c.log);
    SimplifySession session;
    BuildOneRow(session, c.row);
    session.answers = {c.answer};
    session.Simplify();
    EXPECT_EQ(session.model.ColLowerBound(0), c.new_lower);
    EXPECT_EQ(session.model.ColUpperBound(0), c.new_upper);
    EXPECT_EQ(session.LogLines(), Lines{c.log});
    EXPECT_EQ(session.RowNames(), c.deleted ? Lines{"OBJ"} : (Lines{"OBJ", "R"}));
    EXPECT_EQ(session.change_questions(), c.changed ? 1 : 0);
    EXPECT_EQ(session.nothing_done_boxes(), c.changed ? 0 : 1);
  }
}

TEST(ConvertSingletonRows, CancelEndsOnlyThisPass) {
  for (const OneRow& row : {kClashingEquality, kEnclosingRange}) {
    SimplifySession session;
    BuildOneRow(session, row);
    session.Build().Row("LATER", 'L', 1).Element("Y", "LATER", 1).Column("EMPTY");
    session.answers = {kCancel};
    session.Simplify();
    EXPECT_EQ(session.RowNames(), (Lines{"OBJ", "R", "LATER"}));
    EXPECT_EQ(session.ColumnNames(), (Lines{"X", "Y"}));
    EXPECT_EQ(session.LogLines().back(), "Removed empty column:  EMPTY");
  }
}

TEST(ConvertSingletonRows, ExaminesARowThatMovesIntoPlace) {
  SimplifySession session;
  session.Build()
      .Row("OBJ", 'N')
      .Column("X")
      .Column("Y")
      .Element("X", "OBJ", 1)
      .Element("Y", "OBJ", 1);
  session.Build()
      .Row("A", 'G', 1)
      .Row("B", 'G', 2)
      .Row("TWO", 'L', 9)
      .Row("C", 'L', 3)
      .Element("X", "A", 1)
      .Element("X", "B", 1)
      .Element("X", "TWO", 1)
      .Element("Y", "TWO", 1)
      .Element("X", "C", 1);
  session.Simplify();
  EXPECT_EQ(session.RowNames(), (Lines{"OBJ", "TWO"}));
  EXPECT_EQ(session.LogLines(),
            (Lines{"Converted row A into variable bound", "Converted row B into variable bound",
                   "Converted row C into variable bound"}));
  EXPECT_EQ(session.model.ColLowerBound(0), 2);
  EXPECT_EQ(session.model.ColUpperBound(0), 3);
  EXPECT_EQ(session.model.RowElementCol(1, 0), 0);
  EXPECT_EQ(session.model.ColElementrow(0, 1), 1);
  EXPECT_EQ(session.model.NumBindingRows(), 1);
  EXPECT_EQ(session.model.BindingRowIndex(0), 1);
}

TEST(ConvertSingletonRows, EarlierConversionsCountForLaterRows) {
  SimplifySession session;
  BuildOneRow(session, {'L', -kInf, 4, 1, 0, kInf});
  session.Build().Row("SECOND", 'E', 5).Element("X", "SECOND", 1);
  session.answers = {kNo};
  session.Simplify();
  EXPECT_EQ(session.LogLines(), (Lines{"Converted row R into variable bound",
                                       "Converted row SECOND into variable bound"}));
  EXPECT_EQ(session.model.ColLowerBound(0), 5);
  EXPECT_EQ(session.model.ColUpperBound(0), 5);
}

TEST(ConvertSingletonRows, LeavesRowsOfSeveralElementsAlone) {
  SimplifySession session;
  session.Build()
      .Row("TWO", 'G', 1)
      .Column("X")
      .Column("Y")
      .Element("X", "TWO", 1)
      .Element("Y", "TWO", 1);
  session.Simplify();
  EXPECT_EQ(session.RowNames(), Lines{"TWO"});
  EXPECT_EQ(session.nothing_done_boxes(), 1);
}

TEST(ConvertSingletonRows, AnElementThatStandsTwiceIsNotASingleOne) {
  SimplifySession session;
  session.Build().Row("R", 'G', 1).Column("X").Element("X", "R", 1).Element("X", "R", 1);
  session.Simplify();
  EXPECT_EQ(session.RowNames(), Lines{"R"});
}

TEST(ConvertSingletonRows, TheOnlyRowCanGo) {
  SimplifySession session;
  session.Build().Row("R", 'G', 1).Column("X").Element("X", "R", 1);
  session.Simplify();
  EXPECT_EQ(session.model.NumberOfRows(), 0);
  EXPECT_TRUE(session.model.store().data().Rows.empty());
  EXPECT_TRUE(session.model.store().data().Columns.empty());
  EXPECT_EQ(session.model.NumberOfElements(), 0);
  EXPECT_EQ(session.LogLines(),
            (Lines{"Converted row R into variable bound", "Removed empty column:  X"}));
}

TEST(ConvertSingletonRows, ACoefficientOfZeroIsADivisionByZero) {
  for (const char type : {'G', 'L', 'E', 'R'}) {
    for (const double zero : {0.0, -0.0}) {
      SimplifySession session;
      BuildOneRow(session, {'G', 6, kInf, 2, 0, kInf});
      session.Build().RowWithin("ZERO", type, 0, 0).Element("X", "ZERO", zero);
      EXPECT_EQ(session.FailureOfSimplify(), 11) << type;
      EXPECT_EQ(session.RowNames(), (Lines{"OBJ", "ZERO"}));
      EXPECT_EQ(session.model.ColLowerBound(0), 3);
      EXPECT_EQ(session.model.ColUpperBound(0), kInf);
      EXPECT_TRUE(session.desktop.boxes().empty());
      EXPECT_EQ(ReadWholeFile(session.log_name), "Log file for simplification of " +
                                                     session.model.FileLocation() +
                                                     "\r\nConverted row R into variable bound\r\n");
    }
  }
}

TEST(ConvertSingletonRows, TypesWithoutARuleAreNotDivided) {
  for (const char type : {'N', ModelBuilder::kNoType}) {
    SimplifySession session;
    BuildOneRow(session, {type, 1, 1, 0, 0, kInf});
    session.Simplify();
    EXPECT_EQ(session.RowNames(), (Lines{"OBJ", "R"}));
  }
}

TEST(ConvertSingletonRows, AQuotientBeyondAllNumbersIsAnOverflow) {
  SimplifySession session;
  BuildOneRow(session, {'G', 1e300, kInf, 1e-300, 0, kInf});
  EXPECT_EQ(session.FailureOfSimplify(), 6);
  EXPECT_EQ(session.model.ColLowerBound(0), 0);
  EXPECT_EQ(session.RowNames(), (Lines{"OBJ", "R"}));
}

}  // namespace
}  // namespace quarvel::simplify
