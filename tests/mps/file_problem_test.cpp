#include "mps/file_problem.h"

#include <set>
#include <string_view>

#include <gtest/gtest.h>

namespace quarvel::mps {
namespace {

TEST(FileProblem, HasAnIdAndANameOfItsOwnForEachCode) {
  std::set<std::string_view> seen;
  for (const FileProblemTraits& traits : FileProblemTable()) {
    EXPECT_EQ(traits.id.size(), 4U) << traits.name;
    EXPECT_TRUE(seen.insert(traits.id).second) << traits.id;
    EXPECT_TRUE(seen.insert(traits.name).second) << traits.name;
    EXPECT_FALSE(traits.words.empty()) << traits.id;
    EXPECT_EQ(&TraitsOf(traits.code), &traits);
    EXPECT_EQ(FindFileProblem(traits.id), &traits);
    EXPECT_EQ(FindFileProblem(traits.name), &traits);
  }
  EXPECT_EQ(FindFileProblem("E000"), nullptr);
}

TEST(FileProblem, WeighsWhatItsIdSays) {
  EXPECT_EQ(TraitsOf(FileProblemCode::kNoSuchRow).weight(), ProblemWeight::kError);
  EXPECT_EQ(TraitsOf(FileProblemCode::kMissingEndata).weight(), ProblemWeight::kWarning);
}

TEST(FileProblem, HasTheCodeOfEachQuestionOfTheReader) {
  for (int code = 0; code <= static_cast<int>(ReadProblemCode::kFailure); ++code) {
    const auto asked = static_cast<ReadProblemCode>(code);
    if (asked == ReadProblemCode::kEmptyItems) continue;
    EXPECT_EQ(TraitsOf(CodeOf(asked)).name, NameOf(asked));
  }
}

TEST(FileProblem, IsASentence) {
  EXPECT_EQ(SentenceOf({.code = FileProblemCode::kNoSuchRow, .line = 7, .item = "PROTIEN"}),
            "no row of this name: PROTIEN");
  EXPECT_EQ(SentenceOf({.code = FileProblemCode::kNotNumeric, .read = "1,5"}), "not a number: 1,5");
  EXPECT_EQ(SentenceOf({.code = FileProblemCode::kNoRows}), "the model has no rows");
  const std::string long_text(400000, 'X');
  const std::string sentence = SentenceOf(
      {.code = FileProblemCode::kNotKept, .item = long_text, .made = "the row " + long_text});
  EXPECT_LT(sentence.size(), 600U);
  EXPECT_EQ(SentenceOf({.code = FileProblemCode::kFailure,
                        .item = "a.mps",
                        .failure = AutomationError(53, "", "File not found")}),
            "the file cannot be read: File not found");
  EXPECT_EQ(SentenceOf({.code = FileProblemCode::kEmptyRow, .item = "R", .made = "kept"}),
            "the row has no coefficients: R; kept");
}

TEST(FileProblems, CountAllAndKeepTheFirstOfEachCode) {
  FileProblems problems(2);
  for (int line = 1; line <= 5; ++line) {
    problems.Add({.code = FileProblemCode::kNoSuchRow, .line = line});
  }
  problems.Add({.code = FileProblemCode::kEmptyRow});
  ASSERT_EQ(problems.kept().size(), 3U);
  EXPECT_EQ(problems.kept()[1].line, 2);
  EXPECT_EQ(problems.CountOf(FileProblemCode::kNoSuchRow), 5);
  EXPECT_EQ(problems.CountOf(ProblemWeight::kError), 5);
  EXPECT_EQ(problems.CountOf(ProblemWeight::kWarning), 1);
  EXPECT_TRUE(problems.HasErrors());
}

}  // namespace
}  // namespace quarvel::mps
