// The reader against a plain one, on generated files.

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/mps/mps_file_generator.h"
#include "tests/support/read_comparison.h"
#include "tests/support/test_length.h"
#include "tests/support/test_paths.h"

namespace quarvel::mps {
namespace {

using testing::ReadComparison;
using testing::ReadPlan;

// Mistakes of a hundred items, chosen anew for every file.
int SomeRate(MpsFileGenerator& generator) {
  static constexpr int kRates[] = {0, 0, 1, 3, 10, 30};
  return kRates[generator.Below(6)];
}

// Always Yes, Yes up to some box, or No now and then; the same for both readers.
std::function<bool(std::int64_t)> SomeAnswers(MpsFileGenerator& generator) {
  const std::uint32_t kind = generator.Below(4);
  if (kind < 2) return [](std::int64_t) { return true; };
  const std::int64_t no = 1 + generator.Below(kind == 2 ? 3 : 30);
  return [no](std::int64_t box) { return box % no != 0; };
}

// A file that fails a test, so that it can be read in the report.
std::string Shown(const std::string& file) {
  std::string text;
  for (const char c : file) {
    if (c == '\r') {
      text += "\\r";
    } else if (c != '\n' && static_cast<unsigned char>(c) < 32) {
      text += "\\x" + std::to_string(c);
    } else {
      text += c;
    }
  }
  return text.substr(0, 4000);
}

// The message without the names and numbers in it.
std::string KindOf(const std::string& problem) {
  const std::size_t end = problem.find("\r\n");
  std::string text = problem.substr(0, end);
  for (const std::string before :
       {" (", " in line ", " for column ", " for row ", " on variable ", " on row "}) {
    const std::size_t at = text.find(before);
    if (at != std::string::npos && !text.starts_with("MPS file read error: no match")) {
      text.resize(at + before.size());
    }
  }
  return text.substr(0, text.find(" (line"));
}

TEST(ReaderAgreement, HoldsForEveryFieldBoxAndResult) {
  const TemporaryFolder folder;
  ReadComparison readers(folder.File("model.mps"));
  MpsFileGenerator generator(20240601);
  const int files = TestLength(3000);
  for (int i = 0; i < files; ++i) {
    const std::string file =
        generator.Make(static_cast<int>(generator.Below(20)), SomeRate(generator));
    ReadPlan plan;
    plan.lower_bounds_absent = generator.Chance(30);
    plan.says_yes = SomeAnswers(generator);
    ASSERT_EQ(readers.Read(file, plan), "") << "file " << i << ":\n" << Shown(file);
  }
}

TEST(ReaderAgreement, HoldsThroughTheDialogsWithStop) {
  const TemporaryFolder folder;
  ReadComparison readers(folder.File("model.mps"));
  MpsFileGenerator generator(7);
  const int files = TestLength(400);
  for (int i = 0; i < files; ++i) {
    const std::string file =
        generator.Make(static_cast<int>(generator.Below(200)), SomeRate(generator));
    ReadPlan plan;
    plan.through_dialogs = true;
    plan.lower_bounds_absent = generator.Chance(30);
    plan.says_yes = SomeAnswers(generator);
    plan.stop_point = generator.Below(4);
    ASSERT_EQ(readers.Read(file, plan), "") << "file " << i << ":\n" << Shown(file);
  }
}

TEST(ReaderAgreement, HoldsInTheMiddleForAHostThatLooks) {
  const TemporaryFolder folder;
  ReadComparison readers(folder.File("model.mps"));
  MpsFileGenerator generator(11);
  const int files = TestLength(250);
  for (int i = 0; i < files; ++i) {
    const std::string file =
        generator.Make(static_cast<int>(100 + generator.Below(200)), SomeRate(generator));
    ReadPlan plan;
    plan.says_yes = [](std::int64_t) { return true; };
    const std::uint32_t every = 1 + generator.Below(3);
    plan.looks = [every](std::int64_t point) { return point % every == 0; };
    ASSERT_EQ(readers.Read(file, plan), "") << "file " << i << ":\n" << Shown(file);
  }
}

TEST(ReaderAgreement, HoldsForFilesWithSingleBytesChanged) {
  const TemporaryFolder folder;
  ReadComparison readers(folder.File("model.mps"));
  MpsFileGenerator generator(13);
  std::string original;
  const int files = TestLength(2000);
  for (int i = 0; i < files; ++i) {
    if (i % 20 == 0) original = generator.Make(8, 0);
    std::string file = original;
    for (std::uint32_t k = generator.Below(4) + 1; k > 0; --k) {
      const std::size_t at = generator.Below(static_cast<std::uint32_t>(file.size()));
      static const std::string kBytes = std::string("\n\r \t*'.-01EX", 12) + '\0' + "\xC3\xE4";
      file[at] = generator.Chance(70) ? kBytes[generator.Below(15)]
                                      : static_cast<char>(generator.Below(256));
    }
    ReadPlan plan;
    plan.says_yes = SomeAnswers(generator);
    ASSERT_EQ(readers.Read(file, plan), "") << "file " << i << ":\n" << Shown(file);
  }
}

// What the tests above rest on.
TEST(MpsFileGenerator, MakesEveryKindOfProblem) {
  const TemporaryFolder folder;
  ReadComparison readers(folder.File("model.mps"));
  MpsFileGenerator generator(17);
  std::set<std::string> kinds;
  for (int i = 0; i < 600; ++i) {
    ASSERT_EQ(readers.Read(generator.Make(10, 8), ReadPlan()), "");
    for (const std::string& problem : readers.Problems()) kinds.insert(KindOf(problem));
  }
  // All but the overlong line.
  EXPECT_EQ(kinds.size(), 21u) << ::testing::PrintToString(kinds);
}

TEST(MpsFileGenerator, MakesFilesWithoutProblemsWhenToldSo) {
  const TemporaryFolder folder;
  ReadComparison readers(folder.File("model.mps"));
  MpsFileGenerator generator(19);
  int clean = 0;
  for (int i = 0; i < 200; ++i) {
    ASSERT_EQ(readers.Read(generator.Make(20, 0), ReadPlan()), "");
    if (readers.Problems().empty()) ++clean;
  }
  EXPECT_GT(clean, 150);
}

}  // namespace
}  // namespace quarvel::mps
