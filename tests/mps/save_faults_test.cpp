// A fault at every single call to the system, in every way of saving: the file is whole, old or
// new, and the user is told which.
#include <algorithm>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "tests/mps/save_ways.h"
#include "tests/mps/saving.h"
#include "tests/support/file_faults.h"
#include "tests/support/test_length.h"

namespace quarvel::mps {
namespace {

bool IsFailureText(std::string_view text) {
  const std::string_view first = text.substr(0, text.find("\r\n"));
  const auto table = RunTimeErrorTable();
  return std::any_of(table.begin(), table.end(),
                     [first](const auto& entry) { return entry.description == first; });
}

// The names of the folder's files that a text speaks of.
bool NamesAll(const std::string& text, const std::vector<std::string>& files) {
  return std::any_of(files.begin(), files.end(),
                     [&](const auto& file) { return text.find(file) != text.npos; });
}

// What a save may leave, given the fault.
class Outcome {
 public:
  Outcome(const SaveWay& way, SaveCase& save, int result, bool ended)
      : way_(way), save_(save), result_(result), ended_(ended), text_(save.Text()) {}

  void Check() const {
    CheckContents();
    if (!ended_) CheckWords();
    // Whatever had the name of the backup before is there still.
    if (way_.has_backup) {
      EXPECT_FALSE(save_.OthersWith(std::string(SaveCase::kOldBackup)).empty());
    }
  }

 private:
  bool is_old() const { return text_ == save_.old_text(); }
  bool is_new() const { return text_ == save_.new_text(); }

  void CheckContents() const {
    if (is_old() || is_new()) return;
    // Only what cannot be replaced is ever in between; then another file is whole.
    EXPECT_TRUE(way_.has_two_names);
    const auto news = save_.OthersWith(save_.new_text());
    const auto olds = save_.OthersWith(save_.old_text().value_or(""));
    EXPECT_FALSE(news.empty() && olds.empty());
    const bool is_told = NamesAll(LastBox(), news) || NamesAll(LastBox(), olds);
    EXPECT_TRUE(ended_ || is_told) << LastBox();
  }

  void CheckWords() const {
    const bool should_fail = way_.host_fails;
    if (result_ == kSaved) {
      EXPECT_TRUE(is_new());
      EXPECT_FALSE(should_fail);
      EXPECT_EQ(save_.desktop.boxes().size(), way_.is_empty ? 1u : 0u);
      EXPECT_EQ(save_.model.FileLocation(), way_.is_own || !way_.is_empty ? save_.path() : "");
      return;
    }
    EXPECT_EQ(result_, kNotSaved);
    EXPECT_TRUE(IsFailureText(LastBox())) << LastBox();
    EXPECT_EQ(save_.model.FileLocation(), way_.is_own ? save_.path() : "");
    const bool told = LastBox().find("\r\n") != std::string::npos;
    EXPECT_TRUE(!way_.is_own || is_old() || told) << LastBox();
  }

  std::string LastBox() const {
    return save_.desktop.boxes().empty() ? "no box" : save_.desktop.boxes().back().text;
  }

  const SaveWay& way_;
  SaveCase& save_;
  int result_;
  bool ended_;
  std::optional<std::string> text_;
};

void CheckNextSave(const SaveWay& way, SaveCase& save) {
  EXPECT_EQ(save.SaveAgain(), kSaved);
  EXPECT_EQ(save.Text(), save.new_text());
  for (const std::string& name : save.Names()) {
    EXPECT_EQ(name.find(".quarvel-"), name.npos) << name;
  }
  const bool backup_stays = way.is_empty && way.is_own;
  if (way.is_own && !backup_stays && std::string_view(way.file) != "model.bkp") {
    const auto names = save.Names();
    EXPECT_EQ(std::count(names.begin(), names.end(), "model.bkp"), 0);
  }
#ifndef _WIN32
  if (!way.is_private) return;
  EXPECT_EQ(std::filesystem::status(ToPath(save.path())).permissions(),
            std::filesystem::perms(0600));
#endif
}

#ifndef _WIN32
// Nobody else may read any file of the folder, at no time.
void CheckPrivacy(const SaveCase& save) {
  const auto folder = ToPath(save.path()).parent_path();
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    EXPECT_EQ(entry.status().permissions() & std::filesystem::perms(0077),
              std::filesystem::perms::none)
        << entry.path();
  }
}
#endif

// False when the save makes fewer calls than that.
bool RunWithFault(const SaveWay& way, FaultKind kind, int call) {
  SCOPED_TRACE(std::string(way.name) + ", fault " + std::to_string(static_cast<int>(kind)) +
               " at call " + std::to_string(call));
  SaveCase save(way);
  bool happened = false;
  {
    FileFaults faults(kind, call);
    const int result = save.Save();
    happened = faults.happened();
    const bool ended = faults.ended();
    platform::SetFileWatch(nullptr);
    Outcome(way, save, result, ended).Check();
  }
#ifndef _WIN32
  if (way.is_private) CheckPrivacy(save);
#endif
  CheckNextSave(way, save);
  return happened;
}

class SavingWithFaults : public ::testing::TestWithParam<FaultKind> {};

TEST_P(SavingWithFaults, LeavesOneWholeFileAndTellsTheTruth) {
  // A run of a part of the usual length passes over calls, others in each way.
  const int step = std::max(1, 4 / TestLength(4));
  int first = 1;
  int cases = 0;
  for (const SaveWay& way : SaveWays()) {
    int call = first;
    for (; RunWithFault(way, GetParam(), call) && !HasFailure(); call += step) ++cases;
    EXPECT_GT(call, 5) << way.name;
    if (HasFailure()) return;
    first = first % step + 1;
  }
  RecordProperty("cases", cases);
  EXPECT_GT(cases, 200 / step);
}

INSTANTIATE_TEST_SUITE_P(EachKind, SavingWithFaults,
                         ::testing::Values(FaultKind::kDeviceError, FaultKind::kDiskFull,
                                           FaultKind::kNotPermitted, FaultKind::kCutShort,
                                           FaultKind::kEnds, FaultKind::kEndsInside));

}  // namespace
}  // namespace quarvel::mps
