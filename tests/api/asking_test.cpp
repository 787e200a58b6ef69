#include <deque>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/api/api_model.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

using testing::ErrorOf;
using testing::SmallApiModel;

// Answers boxes in turn, and as closing them when there are no more answers.
class NotedDesktop : public Desktop {
 public:
  Button ShowBox(const Box& box) override {
    boxes.push_back(box);
    if (on_box) on_box();
    if (answers.empty()) return box.when_closed;
    const Button answer = answers.front();
    answers.pop_front();
    return answer;
  }
  std::string ChooseFile(const FileQuestion& question) override {
    files.push_back(question);
    return file;
  }
  std::size_t Choose(const Choice& choice) override {
    choices.push_back(choice);
    return option;
  }
  bool ShowProgress(std::string_view words, double part) override {
    if (progress.empty() || part >= 0) progress.emplace_back(words);
    return goes_on;
  }

  std::function<void()> on_box;
  std::deque<Button> answers;
  std::string file;
  std::size_t option = 0;
  bool goes_on = true;
  std::vector<Box> boxes;
  std::vector<FileQuestion> files;
  std::vector<Choice> choices;
  std::vector<std::string> progress;
};

class ApiAsking : public ::testing::Test {
 protected:
  HostFolder folder_;
  NotedDesktop desktop_;
  Model model_;
};

TEST_F(ApiAsking, ReadsTheFileThatIsChosen) {
  desktop_.file = folder_.Write("a.mps", kSmallModel);
  desktop_.option = 1;
  EXPECT_EQ(AskAndRead(model_, desktop_), Asked::kDone);
  EXPECT_EQ(model_.row_count(), 2);
  EXPECT_EQ(model_.path(), desktop_.file);
  ASSERT_EQ(desktop_.files.size(), 1u);
  EXPECT_FALSE(desktop_.files[0].is_for_saving);
  EXPECT_EQ(desktop_.files[0].filter, "MPS files (*.MPS)|*.MPS|all files (*.*)|*.*");
  ASSERT_EQ(desktop_.choices.size(), 1u);
  EXPECT_EQ(desktop_.choices[0].title, "Set Default Bounds");
  EXPECT_EQ(desktop_.choices[0].options,
            (std::vector<std::string>{"0 to +1E10", "-1E10 to +1E10"}));
  EXPECT_EQ(desktop_.choices[0].selected, 0u);
  EXPECT_NE(desktop_.choices[0].text, "");
  EXPECT_FALSE(model_.BoundsOfColumn(1).has_lower());
  ASSERT_EQ(desktop_.boxes.size(), 1u);
  EXPECT_EQ(desktop_.boxes[0].kind, BoxKind::kOfferToSimplify);
}

TEST_F(ApiAsking, TakesTheSelectedOptionForANumberOfNone) {
  desktop_.file = folder_.Write("a.mps", kSmallModel);
  desktop_.option = 7;
  EXPECT_EQ(AskAndRead(model_, desktop_), Asked::kDone);
  EXPECT_EQ(model_.BoundsOfColumn(1).lower, 0);
}

TEST_F(ApiAsking, KeepsTheModelWhenNoFileIsChosen) {
  model_ = SmallApiModel();
  EXPECT_EQ(AskAndRead(model_, desktop_), Asked::kCancelled);
  EXPECT_EQ(AskAndSave(model_, desktop_), Asked::kCancelled);
  EXPECT_EQ(model_.row_count(), 3);
  EXPECT_TRUE(desktop_.boxes.empty());
}

TEST_F(ApiAsking, AsksAboutEachProblem) {
  const std::string bad = "ROWS\n N R1\n L R2\nCOLUMNS\n X R1 1 R9 2\n X R2 2\nENDATA\n";
  desktop_.file = folder_.Write("a.mps", bad);
  EXPECT_EQ(AskAndRead(model_, desktop_), Asked::kFailed);
  EXPECT_EQ(model_.row_count(), 0);
  ASSERT_EQ(desktop_.boxes.size(), 1u);
  const Box& box = desktop_.boxes[0];
  EXPECT_EQ(box.kind, BoxKind::kReadProblem);
  EXPECT_EQ(box.problem_name, "no-such-row");
  EXPECT_EQ(box.line, 5);
  EXPECT_EQ(box.item, "R9");
  EXPECT_EQ(box.buttons, (std::vector<Button>{Button::kYes, Button::kNo}));
  EXPECT_EQ(box.when_closed, Button::kNo);
  EXPECT_NE(box.text.find("continue reading"), std::string::npos);
  desktop_.answers = {Button::kYes};
  EXPECT_EQ(AskAndRead(model_, desktop_), Asked::kDone);
  EXPECT_EQ(model_.row_count(), 2);
  desktop_.answers = {Button::kCancel};  // it has no such button
  EXPECT_EQ(AskAndRead(model_, desktop_), Asked::kFailed);
}

TEST_F(ApiAsking, TellsThatAFileIsNotThere) {
  desktop_.file = folder_.Path("none.mps");
  EXPECT_EQ(AskAndRead(model_, desktop_), Asked::kFailed);
  EXPECT_FALSE(desktop_.boxes.empty());
}

TEST_F(ApiAsking, SimplifiesWhatWasReadAndWhatThereIs) {
  desktop_.file = folder_.Write("a.mps", kSmallModel);
  desktop_.answers = {Button::kYes};
  EXPECT_EQ(AskAndRead(model_, desktop_), Asked::kDone);
  EXPECT_EQ(model_.row_count(), 1);
  desktop_.boxes.clear();
  std::string log = "old";
  EXPECT_EQ(AskAndSimplify(model_, desktop_, &log), Asked::kDone);
  EXPECT_EQ(log, "");
  ASSERT_EQ(desktop_.boxes.size(), 1u);
  EXPECT_EQ(desktop_.boxes[0].kind, BoxKind::kNote);
  EXPECT_EQ(desktop_.boxes[0].buttons, std::vector<Button>{Button::kOk});
}

TEST_F(ApiAsking, AsksAboutConflicts) {
  ReadText(kConflictModel, model_);
  desktop_.answers = {Button::kNo};
  std::string log;
  EXPECT_EQ(AskAndSimplify(model_, desktop_, &log), Asked::kDone);
  ASSERT_EQ(desktop_.boxes.size(), 1u);
  EXPECT_EQ(desktop_.boxes[0].kind, BoxKind::kConflict);
  EXPECT_EQ(desktop_.boxes[0].item, "R2");
  EXPECT_EQ(desktop_.boxes[0].when_closed, Button::kCancel);
  EXPECT_EQ(model_.BoundsOfColumn(0), (Bounds{4, 4}));
  EXPECT_NE(log.find("R2"), std::string::npos);
  EXPECT_EQ(AskAndSimplify(model_, desktop_), Asked::kDone);
}

TEST_F(ApiAsking, SavesAsTheComponentDoes) {
  model_ = SmallApiModel();
  desktop_.file = folder_.Path("out.mps");
  EXPECT_EQ(AskAndSave(model_, desktop_), Asked::kDone);
  EXPECT_TRUE(desktop_.files[0].is_for_saving);
  EXPECT_EQ(desktop_.files[0].default_extension, ".mps");
  EXPECT_TRUE(folder_.Has("out.mps"));
  EXPECT_EQ(model_.path(), desktop_.file);
  desktop_.file = folder_.Path("none/out.mps");
  EXPECT_EQ(AskAndSave(model_, desktop_), Asked::kFailed);
  EXPECT_EQ(desktop_.boxes.back().kind, BoxKind::kFailure);
  Model empty;
  desktop_.file = folder_.Path("empty.mps");
  EXPECT_EQ(AskAndSave(empty, desktop_), Asked::kDone);
  EXPECT_EQ(desktop_.boxes.back().kind, BoxKind::kRefusal);
}

TEST_F(ApiAsking, ShowsProgressAndStops) {
  std::string large = "ROWS\n N R1\n L R2\nCOLUMNS\n";
  for (int i = 0; i < 500; ++i) large += " X" + std::to_string(i) + " R1 1 R2 1\n";
  desktop_.file = folder_.Write("a.mps", large + "ENDATA\n");
  EXPECT_EQ(AskAndRead(model_, desktop_), Asked::kDone);
  EXPECT_GE(desktop_.progress.size(), 4u);
  EXPECT_NE(desktop_.progress[0], "");
  desktop_.goes_on = false;
  desktop_.boxes.clear();
  EXPECT_EQ(AskAndRead(model_, desktop_), Asked::kFailed);
  EXPECT_EQ(model_.row_count(), 0);
}

TEST_F(ApiAsking, ThrowsWhatTheDesktopThrewOnceItHasEnded) {
  desktop_.file = folder_.Write("a.mps", "ROWS\n N R1\nCOLUMNS\n X R9 1\n X R1 1\nENDATA\n");
  desktop_.on_box = [] { throw std::logic_error("mine"); };
  EXPECT_THROW(AskAndRead(model_, desktop_), std::logic_error);
  EXPECT_EQ(desktop_.boxes.size(), 1u);
  EXPECT_EQ(model_.row_count(), 0);
  desktop_.on_box = [&] { model_.AddRow("NEW"); };
  EXPECT_EQ(ErrorOf([&] { AskAndRead(model_, desktop_); }), ErrorCode::kBusy);
  EXPECT_EQ(model_.AddRow("NEW"), 0);
}

// A desktop of no more than it has to have.
class PlainDesktop : public Desktop {
  Button ShowBox(const Box& box) override { return box.when_closed; }
  std::string ChooseFile(const FileQuestion&) override { return file; }

 public:
  std::string file;
};

TEST_F(ApiAsking, NeedsNoMoreThanBoxesAndFiles) {
  PlainDesktop plain;
  plain.file = folder_.Write("a.mps", kSmallModel);
  EXPECT_EQ(AskAndRead(model_, plain), Asked::kDone);
  EXPECT_EQ(model_.BoundsOfColumn(1).lower, 0);
}

}  // namespace
}  // namespace quarvel
