// The progress window while a read goes on.

#include "mps/frm_progress.h"

#include <gtest/gtest.h>

#include "mps/frm_mps_file_open.h"
#include "mps/frm_set_default_bounds.h"
#include "tests/mps/read_helpers.h"

namespace quarvel::mps {
namespace {

using platform::Form;
using platform::MsgBoxStyle;
using platform::ShownBox;

TEST(ReadProgress, TellsCaptionRangeAndPercentage) {
  ReadSession session;
  const std::string text = ManyColumns(200);
  std::vector<std::string> captions;
  session.desktop.on_events = [&](std::int64_t) {
    frmProgress& window = Progress(session);
    captions.push_back(window.caption());
    EXPECT_EQ(window.bar.min(), 0);
    EXPECT_EQ(window.bar.max(), static_cast<float>(text.size()));
    EXPECT_EQ(window.cmdStop.caption(), "Stop");
  };
  session.Read(text);
  // Characters without line ends: the first 100 lines are 5 before the columns and 95 columns.
  std::size_t read = 0;
  std::size_t from = 0;
  for (int i = 0; i < 100; ++i) {
    const std::size_t end = text.find('\n', from);
    read += end - from;
    from = end + 1;
  }
  const double percent = 100.0 * static_cast<double>(read) / static_cast<double>(text.size());
  char expected[80];
  std::snprintf(expected, sizeof expected, "Progress:  Reading MPS File (%.2f%%)", percent);
  ASSERT_EQ(captions.size(), 2u);
  EXPECT_EQ(captions[0], expected);
}

TEST(ReadProgress, HasOneBlankInItsFirstCaption) {
  ReadSession session;
  session.desktop.on_box = [&](const ShownBox& box) {
    if (box.text.starts_with("MPS file read error")) {
      EXPECT_EQ(Progress(session).caption(), "Progress: Reading MPS File");
    }
    return kYes;
  };
  session.Read("ROWS\n bad\n");
  EXPECT_GT(session.desktop.boxes().size(), 1u);
}

TEST(ReadProgress, PrintsThePointOfAWholePercentage) {
  // 100 lines of 1 character with CR LF: a hundred characters of 400 bytes, 25 %.
  std::string text;
  for (int i = 0; i < 99; ++i) text += "*\r\n";
  text += "*\r\n";
  text.append(100, '\n');
  ReadSession session;
  std::vector<std::string> captions;
  session.desktop.on_events = [&](std::int64_t) {
    captions.push_back(Progress(session).caption());
  };
  session.Read(text);
  ASSERT_EQ(captions.size(), 2u);
  EXPECT_EQ(captions[0], "Progress:  Reading MPS File (25.%)");
}

TEST(ReadProgress, AsksBeforeStoppingAndGoesOnAfterNo) {
  ReadSession session;
  session.problem_answers = {kNo};
  session.desktop.on_events = [&](std::int64_t number) {
    if (number == 1) Progress(session).cmdStop.Click();
  };
  EXPECT_EQ(session.Read(ManyColumns(500)), -1);
  const ShownBox expected = {"Are you sure you wish to stop?", MsgBoxStyle::kYesNo, "Confirm"};
  EXPECT_EQ(session.desktop.boxes().at(0), expected);
  EXPECT_EQ(session.model.NumberOfColumns(), 500);
}

TEST(ReadProgress, StopsAtTheVeryPointWhereStopIsConfirmed) {
  ReadSession session;
  session.desktop.on_events = [&](std::int64_t number) {
    if (number != 2) return;
    Progress(session).cmdStop.Click();
    EXPECT_EQ(Progress(session).cmdStop.caption(), "Stopping...");
    EXPECT_TRUE(Progress(session).StopRequested);
  };
  EXPECT_EQ(session.Read(ManyColumns(1000)), 0);
  EXPECT_EQ(session.desktop.event_count(), 2);
  EXPECT_EQ(session.desktop.boxes().size(), 1u);  // the confirmation alone
  EXPECT_EQ(session.model.NumberOfRows(), 0);
  EXPECT_EQ(session.model.NumberOfColumns(), 0);
  EXPECT_EQ(session.model.NumberOfElements(), 0);
  EXPECT_EQ(session.model.ModelName(), "");
  EXPECT_EQ(session.model.FileLocation(), "");
  EXPECT_TRUE(session.desktop.shown().empty());
}

TEST(ReadProgress, IgnoresAStopAfterTheLastPoint) {
  // The user confirms Stop under a question that comes after the last hundredth line.
  ReadSession session;
  session.desktop.on_box = [&](const ShownBox& box) {
    if (box.text.starts_with("MPS file read error")) Progress(session).cmdStop.Click();
    const platform::BoxKind kind = session.desktop.box_data().back().kind;
    return kind == platform::BoxKind::kOfferToSimplify ? kNo : kYes;
  };
  EXPECT_EQ(session.Read("ROWS\n L R\nCOLUMNS\n X R 1\n X Q 1\nENDATA\n"), -1);
  EXPECT_EQ(session.model.NumberOfElements(), 1);
}

TEST(ReadProgress, RefusesToCloseWhileReading) {
  ReadSession session;
  session.desktop.on_events = [&](std::int64_t) {
    Progress(session).RequestClose();
    EXPECT_TRUE(Progress(session).IsShowing());
  };
  EXPECT_EQ(session.Read(ManyColumns(300)), -1);
  EXPECT_EQ(session.model.NumberOfColumns(), 300);
}

TEST(ReadProgress, StartsFreshAfterAStop) {
  ReadSession session;
  session.desktop.on_events = [&](std::int64_t number) {
    if (number == 1) Progress(session).cmdStop.Click();
  };
  EXPECT_EQ(session.Read(ManyColumns(300)), 0);
  session.desktop.on_events = [&](std::int64_t) {
    EXPECT_FALSE(Progress(session).StopRequested);
    EXPECT_EQ(Progress(session).cmdStop.caption(), "Stop");
  };
  EXPECT_EQ(session.Read(ManyColumns(300)), -1);
}

TEST(ReadProgress, ClosesBeforeTheOfferToSimplify) {
  ReadSession session;
  session.desktop.on_box = [&](const ShownBox&) {
    EXPECT_TRUE(session.desktop.shown().empty());
    return kNo;
  };
  EXPECT_EQ(session.Read(ManyColumns(1)), -1);
  EXPECT_EQ(session.desktop.boxes().size(), 1u);
}

TEST(ReadProgress, StartsNothingWhenShownWithNothingToStart) {
  ReadSession session;
  frmProgress window(session.desktop);
  window.Show();
  EXPECT_TRUE(window.IsShowing());
  EXPECT_TRUE(session.desktop.boxes().empty());
  window.Finish();
  EXPECT_FALSE(window.IsShowing());
}

TEST(ReadProgress, BeginsWithAnEmptyRangeEachTime) {
  ReadSession session;
  frmProgress window(session.desktop);
  window.Show();
  EXPECT_EQ(window.bar.max(), 0);
  window.bar.set_range(0, 100);
  window.bar.set_value(70);
  window.Finish();
  window.Show();
  EXPECT_EQ(window.bar.min(), 0);
  EXPECT_EQ(window.bar.max(), 0);
  EXPECT_EQ(window.bar.value(), 0);
  window.Finish();
}

TEST(ReadProgress, DropsItsModelWhenItUnloads) {
  ReadSession session;
  session.Read(ManyColumns(1));
  session.desktop.Clear();
  Progress(session).Show();  // nothing is read again
  EXPECT_TRUE(session.desktop.boxes().empty());
  EXPECT_EQ(session.model.NumberOfColumns(), 1);
  Progress(session).Finish();
}

TEST(EmptyItemAnsweredNo, LeavesTheWindowUntilTheUserStopsAndClosesIt) {
  ReadSession session;
  const std::string text = "ROWS\n L R\n L EMPTY\nCOLUMNS\n X R 1\nENDATA\n";
  int turns = 0;
  session.problem_answers = {kNo};
  const auto drive_dialog = session.desktop.on_idle;
  session.desktop.on_idle = [&](Form& form) {
    auto* window = dynamic_cast<frmProgress*>(&form);
    if (window == nullptr) return drive_dialog(form);
    ++turns;
    EXPECT_EQ(session.model.ReadMPSFileErr(), 0);
    EXPECT_FALSE(window->StopRequested);
    window->RequestClose();
    EXPECT_TRUE(window->IsShowing());
    window->cmdStop.Click();
    EXPECT_TRUE(window->StopRequested);
    window->RequestClose();
  };
  EXPECT_EQ(session.Read(text), 0);
  EXPECT_EQ(turns, 1);
  EXPECT_EQ(session.model.NumberOfRows(), 2);  // what was read stays
  EXPECT_EQ(session.model.NumberOfBindingRows(), 0);
  EXPECT_EQ(session.desktop.boxes().size(), 2u);  // the warning and the confirmation
}

}  // namespace
}  // namespace quarvel::mps
