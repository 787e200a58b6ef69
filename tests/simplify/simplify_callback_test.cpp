// Hosts that call the model back while it is simplified: at event points and while a box is shown.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "platform/files.h"
#include "tests/simplify/simplify_helpers.h"
#include "tests/support/shown_form.h"

namespace quarvel::simplify {
namespace {

using platform::MsgBoxResult;
using platform::ShownBox;
using Lines = std::vector<std::string>;

// Rows S1, S2, ... of one element, each of which becomes an upper bound of X, between columns X and
// Y that an objective holds.
void BuildBounds(SimplifySession& session, int rows) {
  session.Build().Row("OBJ", 'N').Column("X").Column("Y");
  session.Build().Element("X", "OBJ", 1).Element("Y", "OBJ", 1);
  for (int i = 1; i <= rows; ++i) {
    const std::string name = "S" + std::to_string(i);
    session.Build().Row(name, 'L', 1000 - i).Element("X", name, 1);
  }
}

// An equality ASKED that clashes with the bounds of X, before a row LAST that nothing simplifies.
void BuildClash(SimplifySession& session) {
  session.Build()
      .Row("OBJ", 'N')
      .Row("ASKED", 'E', 9)
      .Row("LAST", 'G', -7)
      .Column("X", 0, 3)
      .Column("Y")
      .Element("X", "OBJ", 1)
      .Element("Y", "OBJ", 1)
      .Element("X", "ASKED", 1)
      .Element("X", "LAST", 1);
}

TEST(SimplifyCallbacks, SeeTheModelAsItIsAtThatPoint) {
  SimplifySession session;
  BuildBounds(session, 60);
  session.desktop.on_events = [&](std::int64_t number) {
    if (number != 1) return;
    // OBJ and S1 to S48 have been examined; S49 comes next, with step 100.
    EXPECT_EQ(session.model.NumberOfRows(), 13);
    EXPECT_EQ(session.model.RowName(1), "S49");
    EXPECT_EQ(session.model.NumberOfElements(), 14);
    EXPECT_EQ(session.model.ColNumberElements(0), 13);
    EXPECT_EQ(session.model.ColElementrow(0, 1), 1);
    EXPECT_EQ(session.model.NumBindingRows(), 12);
    EXPECT_EQ(session.model.BindingRowIndex(11), 12);
    EXPECT_EQ(session.model.ColUpperBound(0), 1000 - 48);
    EXPECT_EQ(model::CheckModelData(session.model.store()), "");
  };
  session.Simplify();
  EXPECT_EQ(session.desktop.event_count(), 1);
  EXPECT_EQ(session.RowNames(), Lines{"OBJ"});
  EXPECT_EQ(session.model.ColUpperBound(0), 1000 - 60);
}

TEST(SimplifyCallbacks, EditsCountFromThereOn) {
  SimplifySession session;
  BuildBounds(session, 60);
  session.desktop.on_events = [&](std::int64_t) {
    session.model.SetRowUpperBound(1, 1.5);
    session.model.AddElement(2, 1, 1);  // S50 has two elements now
  };
  session.Simplify();
  EXPECT_EQ(session.RowNames(), (Lines{"OBJ", "S50", "S51", "S52", "S53", "S54", "S55", "S56",
                                       "S57", "S58", "S59", "S60"}));
  EXPECT_EQ(session.model.ColUpperBound(0), 1.5);
}

TEST(SimplifyCallbacks, DeletedRowsEndThePassEarly) {
  SimplifySession session;
  session.Build().Column("X").Column("Y").Column("EMPTY");
  for (int i = 1; i <= 60; ++i) {
    const std::string name = "R" + std::to_string(i);
    session.Build().Row(name, 'L', 1).Element("X", name, 1).Element("Y", name, 1);
  }
  session.desktop.on_events = [&](std::int64_t) {
    for (int i = 0; i < 40; ++i) session.model.DeleteRow(0);
  };
  session.Simplify();
  EXPECT_EQ(session.model.NumberOfRows(), 20);
  EXPECT_EQ(session.LogLines(), Lines{"Removed empty column:  EMPTY"});
}

// Rows R1 to R60 of columns GONE and X; without GONE they have one element.
void BuildPairs(SimplifySession& session) {
  session.Build().Column("GONE").Column("X").Column("Y").Row("OBJ", 'N');
  session.Build().Element("X", "OBJ", 1).Element("Y", "OBJ", 1);
  for (int i = 1; i <= 60; ++i) {
    const std::string name = "R" + std::to_string(i);
    session.Build().Row(name, 'L', 100 - i).Element("GONE", name, 1).Element("X", name, 1);
  }
}

TEST(SimplifyCallbacks, ADeletedColumnChangesTheCountsOfRows) {
  SimplifySession session;
  BuildPairs(session);
  session.desktop.on_events = [&](std::int64_t) { session.model.DeleteColumn(0); };
  session.Simplify();
  // R49 comes next with step 100.
  EXPECT_EQ(session.LogLines().size(), 12u);
  EXPECT_EQ(session.LogLines().front(), "Converted row R49 into variable bound");
  EXPECT_EQ(session.model.NumberOfRows(), 49);
  EXPECT_EQ(session.model.ColUpperBound(0), 40);
}

TEST(SimplifyCallbacks, TheLogHearsOfRowsThatADeletedColumnEmpties) {
  SimplifySession session;
  BuildPairs(session);
  session.Build().Row("EMPTIED", 'L', 1).Element("GONE", "EMPTIED", 1);
  session.desktop.on_events = [&](std::int64_t) { session.model.DeleteColumn(0); };
  session.Simplify();
  EXPECT_EQ(session.LogLines().at(0), "Removed empty row:  L EMPTIED");
  EXPECT_EQ(session.LogLines().at(1), "Converted row R49 into variable bound");
}

TEST(SimplifyCallbacks, AddedRowsAreNotExaminedBeyondTheLimit) {
  SimplifySession session;
  BuildBounds(session, 60);
  session.desktop.on_events = [&](std::int64_t) {
    for (int i = 0; i < 70; ++i) session.model.AddRow("NEW" + std::to_string(i));
  };
  session.Simplify();
  EXPECT_EQ(session.desktop.event_count(), 2);
  // Pass 2 takes its own limit and removes them all.
  EXPECT_EQ(session.RowNames(), Lines{"OBJ"});
  EXPECT_EQ(session.LogLines().back(), "Removed empty row:   NEW69");
}

TEST(SimplifyCallbacks, ANewModelEndsTheLogWithoutHarm) {
  SimplifySession session;
  BuildBounds(session, 60);
  session.desktop.on_events = [&](std::int64_t) {
    session.model.MakeNewModel();
    // Nothing holds the file any more.
    platform::RemoveFile(session.log_name);
  };
  session.see_log = MsgBoxResult::kYes;
  session.Simplify();
  EXPECT_EQ(session.model.NumberOfRows(), 0);
  EXPECT_EQ(session.change_questions(), 1);
  EXPECT_EQ(session.desktop.opened_in_editor(), Lines{session.log_name});
}

TEST(SimplifyCallbacks, LinesAfterANewModelGoNowhere) {
  SimplifySession session;
  BuildBounds(session, 60);
  session.desktop.on_events = [&](std::int64_t) {
    session.model.MakeNewModel();
    session.model.AddRow("FRESH");
    session.model.AddColumn("FRESH");
  };
  session.Simplify();
  EXPECT_EQ(session.model.NumberOfRows(), 0);
  EXPECT_EQ(session.model.NumberOfColumns(), 0);
  EXPECT_EQ(session.LogLines().size(), 48u);
  EXPECT_EQ(session.LogLines().back(), "Converted row S48 into variable bound");
}

TEST(SimplifyCallbacks, ASecondSimplificationIsRefusedWhileOneRuns) {
  SimplifySession session;
  BuildBounds(session, 60);
  std::int32_t number = 0;
  session.desktop.on_events = [&](std::int64_t) {
    try {
      session.model.SimplifyMPSModel();
    } catch (const AutomationError& error) {
      number = error.number();
    }
    EXPECT_TRUE(ShownForm<mps::frmProgress>(session.desktop).IsShowing());
    EXPECT_FALSE(ShownForm<mps::frmProgress>(session.desktop).StopRequested);
  };
  session.Simplify();
  EXPECT_EQ(number, 55);
  EXPECT_EQ(session.LogLines().size(), 60u);
}

TEST(SimplifyCallbacks, ASimplificationMayStartWhileTheOutcomeIsTold) {
  SimplifySession session;
  BuildBounds(session, 3);
  int depth = 0;
  session.on_shown = [&](const ShownBox& box) {
    if (box.text == kLogQuestion && depth++ == 0) session.model.SimplifyMPSModel();
  };
  session.Simplify();
  EXPECT_EQ(session.change_questions(), 1);
  EXPECT_EQ(session.nothing_done_boxes(), 1);
}

TEST(SimplifyCallbacks, AnAnswerAboutADeletedRowTouchesNoOther) {
  for (const MsgBoxResult answer : {MsgBoxResult::kYes, MsgBoxResult::kNo}) {
    SimplifySession session;
    BuildClash(session);
    session.answers = {answer};
    session.on_shown = [&](const ShownBox& box) {
      if (box.title == "Equality violates bounds") session.model.DeleteRow(1);
    };
    session.Simplify();
    EXPECT_EQ(session.RowNames(), (Lines{"OBJ", "LAST"}));
    EXPECT_EQ(session.model.ColLowerBound(0), 0);
    EXPECT_EQ(session.model.ColUpperBound(0), 3);
    EXPECT_TRUE(session.LogLines().empty());
  }
}

TEST(SimplifyCallbacks, AnAnswerHoldsForARowThatGotAnotherNameOrElementMeanwhile) {
  for (const bool rename : {true, false}) {
    SimplifySession session;
    BuildClash(session);
    session.answers = {MsgBoxResult::kYes};
    session.on_shown = [&](const ShownBox& box) {
      if (box.title != "Equality violates bounds") return;
      if (rename) {
        session.model.SetRowName(1, "RENAMED");
      } else {
        session.model.AddElement(1, 1, 5);
      }
    };
    const std::string name = session.RowNames().at(1);
    session.Simplify();
    EXPECT_EQ(session.RowNames(), (Lines{"OBJ", "LAST"}));
    EXPECT_EQ(session.LogLines(),
              Lines{"Removed equality:  " + std::string(rename ? "RENAMED" : name)});
  }
}

TEST(SimplifyCallbacks, AModelSavedUnderTheLogsNameIsNotDeletedWithTheLog) {
  SimplifySession session;
  session.Build()
      .Column("X")
      .Column("Y")
      .Row("R", 'L', 5)
      .Element("X", "R", 1)
      .Element("Y", "R", 1);
  session.on_shown = [&](const ShownBox& box) {
    if (box.text == kNothingDone) session.model.SaveMPSFile(session.log_name);
  };
  session.Simplify();
  EXPECT_EQ(session.model.FileLocation(), session.log_name);
  EXPECT_TRUE(platform::FileExists(session.log_name));
}

TEST(SimplifyCallbacks, AnAnswerFollowsItsRowToAnotherColumnNumber) {
  SimplifySession session;
  session.Build().Column("FIRST").Row("HOLDS", 'N').Element("FIRST", "HOLDS", 1);
  BuildClash(session);
  session.Build().Element("Y", "HOLDS", 1);
  session.answers = {MsgBoxResult::kNo};
  session.on_shown = [&](const ShownBox& box) {
    if (box.title == "Equality violates bounds") session.model.DeleteColumn(0);
  };
  session.Simplify();
  EXPECT_EQ(session.ColumnNames(), (Lines{"X", "Y"}));
  EXPECT_EQ(session.model.ColLowerBound(0), 9);
  EXPECT_EQ(session.model.ColUpperBound(0), 9);
}

}  // namespace
}  // namespace quarvel::simplify
