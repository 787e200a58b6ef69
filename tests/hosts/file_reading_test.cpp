#include "hosts/file_reading.h"

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel::hosts {
namespace {

using platform::MsgBoxResult;

// What a user who can be asked is asked, with one answer for everything.
class AskedUser : public Answers {
 public:
  AskedUser(const Arguments& arguments, MsgBoxResult answer) : Answers(arguments), answer_(answer) {
    on_note = [this](std::string_view text) { notes.emplace_back(text); };
  }
  std::optional<MsgBoxResult> AnswerBox(const platform::Box& box, bool& print) override {
    print = false;
    asked.push_back(box.text());
    return box.kind == platform::BoxKind::kReadProblem ? answer_ : MsgBoxResult::kNo;
  }
  std::vector<std::string> asked;
  std::vector<std::string> notes;

 private:
  MsgBoxResult answer_;
};

constexpr std::string_view kOneMistake =
    "ROWS\n L R1\n L R2\nCOLUMNS\n X R1 1\n Y R1 1,5\nENDATA\n";

// A model that is read with that answer to every problem.
struct Reader {
  explicit Reader(MsgBoxResult answer) : user(arguments, answer) {}

  const Arguments arguments;
  AskedUser user;
  platform::ConsoleDesktop desktop{user};
  std::ostringstream text;
  const Streams streams{[] { return std::nullopt; }, text, text};
  LPModel model{desktop};
  FileReading reading{arguments, streams, user, desktop, model};
};

TEST(FileReading, AsksAboutErrorsAndOffersToSimplify) {
  const HostFolder folder;
  Reader reader(MsgBoxResult::kYes);
  const std::string path = folder.Write("a.mps", std::string(kOneMistake));
  EXPECT_EQ(reader.reading.Read(path), mps::ReadOutcome::kRead);
  ASSERT_EQ(reader.user.asked.size(), 2U);
  EXPECT_EQ(
      reader.user.asked[0],
      "line 6: not a number: 1,5\r\n     Y R1 1,5\r\n          ^^^\r\nGo on reading the file?");
  ASSERT_EQ(reader.user.notes.size(), 2U);
  EXPECT_EQ(reader.user.notes[0], path + ": the column has no coefficients: Y");
  EXPECT_EQ(reader.user.notes[1], path + ": the row has no coefficients: R2");
  EXPECT_EQ(reader.model.NumberOfRows(), 2);
  EXPECT_EQ(reader.model.FileLocation(), path);
  EXPECT_EQ(reader.reading.facts().lines, 7);
}

TEST(FileReading, LeavesNoModelAfterNo) {
  const HostFolder folder;
  Reader reader(MsgBoxResult::kNo);
  EXPECT_EQ(reader.reading.Read(folder.Write("a.mps", std::string(kOneMistake))),
            mps::ReadOutcome::kRefused);
  EXPECT_EQ(reader.user.asked.size(), 1U);
  EXPECT_EQ(reader.model.NumberOfRows(), 0);
  EXPECT_EQ(reader.model.FileLocation(), "");
}

}  // namespace
}  // namespace quarvel::hosts
