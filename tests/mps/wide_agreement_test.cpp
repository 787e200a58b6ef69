// The reader of the wide dialect against a plain one: random files, files with bytes changed, real files.

#include <cstdint>
#include <random>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "mps/read_file.h"
#include "tests/mps/data_files.h"
#include "tests/mps/mps_file_generator.h"
#include "tests/support/real_models.h"
#include "tests/support/test_length.h"
#include "tests/support/test_paths.h"
#include "tests/support/wide_comparison.h"
#include "tests/support/wide_file.h"

namespace quarvel::mps {
namespace {

using testing::CompareWideReads;
using testing::MakeWideFile;
using testing::ReadWideBytes;

class WideChoices {
 public:
  explicit WideChoices(std::uint32_t seed) : random_(seed) {}
  std::uint32_t operator()(std::uint32_t bound) {
    return static_cast<std::uint32_t>(random_() % bound);
  }

  ReadOptions Options() {
    ReadOptions options;
    const std::uint32_t kind = (*this)(12);
    if (kind == 0) options.columns = FileColumns::kFixed;
    if (kind == 1) options.columns = FileColumns::kFree;
    if ((*this)(8) == 0) options.objective = (*this)(2) == 0 ? "other" : "LIM";
    options.negative_upper_frees_lower = (*this)(4) == 0;
    options.infinite_default_bounds = (*this)(8) == 0;
    return options;
  }

 private:
  std::mt19937 random_;
};

std::string ShownWide(const std::string& file) {
  std::string text;
  for (const char c : file) {
    const bool is_control = static_cast<unsigned char>(c) < 32 && c != '\n';
    text += is_control ? "\\" + std::to_string(c) : std::string(1, c);
  }
  return text;
}

TEST(WideAgreement, HoldsForModelFactsAndProblems) {
  WideChoices choose(20240603);
  const int files = TestLength(3000);
  for (int i = 0; i < files; ++i) {
    const std::string file = MakeWideFile(std::ref(choose));
    ASSERT_EQ(CompareWideReads(file, choose.Options()), "") << "file " << i << ":\n"
                                                            << ShownWide(file);
  }
}

TEST(WideAgreement, HoldsForFilesOfThePlainDialectWithMistakes) {
  MpsFileGenerator generator(5);
  const int files = TestLength(600);
  for (int i = 0; i < files; ++i) {
    const std::string file = generator.Make(static_cast<int>(generator.Below(20)),
                                            static_cast<int>(generator.Below(4) * 5));
    ASSERT_EQ(CompareWideReads(file), "") << "file " << i << ":\n" << ShownWide(file);
  }
}

TEST(WideAgreement, HoldsForFilesWithSingleBytesChanged) {
  WideChoices choose(7);
  static const std::string kBytes = std::string("\n\r \t*'$.-01EXN", 14) + '\0' + "\xC3\xE4";
  const int files = TestLength(1500);
  for (int i = 0; i < files; ++i) {
    std::string file = MakeWideFile(std::ref(choose));
    for (std::uint32_t k = choose(6); k > 0; --k) {
      const std::size_t at = choose(static_cast<std::uint32_t>(file.size()));
      file[at] = kBytes[choose(static_cast<std::uint32_t>(kBytes.size()))];
    }
    ASSERT_EQ(CompareWideReads(file), "") << "file " << i << ":\n" << ShownWide(file);
  }
}

TEST(WideAgreement, HoldsForLinesThatAreTooLong) {
  const std::string line(1048577, ' ');
  EXPECT_EQ(
      CompareWideReads(line + "\nROWS\n N C\n" + line + "\nSOS1\n" + line + "\nENDATA\n" + line),
      "");
}

TEST(WideAgreement, HoldsForLimitsThatAreTooLarge) {
  const std::string rows =
      "ROWS\n N C\n L LOW\n G HIGH\n E SAME\nCOLUMNS\n X LOW 1 HIGH 1\n X SAME 1\n";
  const std::string rhs = "RHS\n R LOW -1e308 HIGH 1e308\n R SAME 1e308\n";
  const std::string ranges = "RANGES\n G LOW 1e308 HIGH 1e308\n G SAME 1e308\n";
  EXPECT_EQ(CompareWideReads(rows + rhs + ranges + "ENDATA\n"), "");
  EXPECT_EQ(CompareWideReads(rows + ranges + rhs + "ENDATA\n"), "");
}

// What the tests above rest on: each code that a line can have is met.
TEST(WideFile, HoldsProblemsOfEveryCode) {
  WideChoices choose(3);
  std::set<std::string> met;
  for (int i = 0; i < 5000; ++i) {
    model::ModelStore store;
    const std::string file = MakeWideFile(std::ref(choose));
    const FileRead read = ReadWideBytes(file, choose.Options(), store);
    for (const FileProblem& problem : read.problems.kept()) {
      met.insert(std::string(TraitsOf(problem.code).id));
    }
  }
  for (const FileProblemTraits& traits : FileProblemTable()) {
    const std::string id(traits.id);
    // Ranges by sign cannot reverse limits.
    const bool is_rare =
        id == "E101" || id == "E111" || id == "E106" || id == "E205" || id == "A318";
    const bool is_of_lint = (id >= "W503" && id != "W504") || id == "A316";
    if (is_rare || is_of_lint || id == "E901") continue;
    EXPECT_TRUE(met.count(id) > 0) << id;
  }
}

class WideAgreementOfRealFiles : public OnRealModels {};

TEST_F(WideAgreementOfRealFiles, HoldsForEach) {
  for (const std::string& file : DataFiles()) {
    EXPECT_EQ(CompareWideReads(ReadWholeFile(PathOf(file))), "") << file;
  }
}

}  // namespace
}  // namespace quarvel::mps
