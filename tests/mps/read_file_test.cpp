#include "mps/read_file.h"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "tests/support/test_paths.h"

namespace quarvel::mps {
namespace {

constexpr std::string_view kGood =
    "NAME          small\nROWS\n N  cost\n L  lim\nCOLUMNS\n    x  cost  1  lim  2\n"
    "    y  lim  3\nRHS\n    RHS  lim  4\nBOUNDS\n UP BND  x  9\nENDATA\n";

class ReadFileTest : public ::testing::Test {
 protected:
  FileRead Read(std::string_view text, const ReadOptions& options = {}) {
    path_ = folder_.File("m.mps");
    WriteWholeFile(path_, text);
    return ReadFile(path_, options, store_);
  }

  TemporaryFolder folder_;
  std::string path_;
  model::ModelStore store_;
};

TEST_F(ReadFileTest, ReadsAModelAndWhatTheFileSaysBesideIt) {
  const FileRead read = Read(kGood);
  EXPECT_EQ(read.outcome, ReadOutcome::kRead);
  EXPECT_EQ(read.problems.kept().size(), 0U);
  EXPECT_EQ(read.facts.objective, "COST");
  EXPECT_TRUE(read.facts.has_endata);
  EXPECT_EQ(read.facts.lines, 12);
  ASSERT_EQ(store_.NumberOfRows(), 2);
  EXPECT_EQ(store_.Row(2).Type, model::RowType::kLess);
  EXPECT_EQ(store_.Row(2).UpperBound, 4);
  ASSERT_EQ(store_.NumberOfColumns(), 2);
  EXPECT_EQ(store_.Column(1).UpperBound, 9);
  EXPECT_EQ(store_.Column(2).LowerBound, 0);
  EXPECT_EQ(store_.settings().ModelName, "SMALL");
  EXPECT_EQ(store_.settings().ReadMPSFileErr, -1);
  EXPECT_EQ(store_.data().NumberOfBindingRows, 1);
}

TEST_F(ReadFileTest, LeavesRowListsDeferredWhereItLooksAtNoRecord) {
  constexpr std::string_view kText =
      "ROWS\n N cost\n L lim\n G idle\nCOLUMNS\n x cost 1 lim 2\n y lim 3\nRHS\n r lim 1e30\n"
      "BOUNDS\n LO b x 9\n UP b x 8\nENDATA\n";
  EXPECT_EQ(Read(kText).problems.kept().size(), 3U);
  EXPECT_FALSE(store_.has_deferred_work());
  const FileRead read = Read(kText, {.looks_at_records = false});
  EXPECT_EQ(read.outcome, ReadOutcome::kRead);
  EXPECT_EQ(read.problems.kept().size(), 0U);
  EXPECT_TRUE(store_.has_deferred_work());
  EXPECT_EQ(store_.looks().DataWithoutRowLists().Rows[2].Type, model::RowType::kFree);
  EXPECT_EQ(store_.looks().DataWithoutRowLists().Columns[1].ElementCount(), 2);
  EXPECT_TRUE(store_.has_deferred_work());
  EXPECT_EQ(store_.Row(2).ElementCount(), 2);
  EXPECT_EQ(model::CheckModelData(store_), "");
}

// Of ASCII.
std::string InUtf16(std::string_view text, bool big_endian) {
  std::string bytes;
  for (const char c : text) {
    bytes += big_endian ? '\0' : c;
    bytes += big_endian ? c : '\0';
  }
  return bytes;
}

TEST_F(ReadFileTest, SaysThatUtf16IsNotRead) {
  for (const std::string& text :
       {"\xFF\xFE" + InUtf16(kGood, false), "\xFE\xFF" + InUtf16(kGood, true),
        InUtf16(kGood, false), InUtf16(kGood, true),
        // A letter above ASCII first, which alone is no UTF-8.
        std::string("\xE9\0", 2) + InUtf16(kGood, false)}) {
    const FileRead read = Read(text);
    EXPECT_EQ(read.outcome, ReadOutcome::kFailed);
    ASSERT_EQ(read.problems.kept().size(), 1U);
    EXPECT_EQ(read.problems.kept()[0].code, FileProblemCode::kFailure);
    EXPECT_EQ(read.problems.kept()[0].failure->description(),
              "The text is in UTF-16; UTF-8 and ASCII are read.");
  }
  EXPECT_EQ(Read("\xEF\xBB\xBF" + std::string(kGood)).outcome, ReadOutcome::kRead);
}

TEST_F(ReadFileTest, GivesColumnsNoLowerBoundWhenToldSo) {
  Read(kGood, {.infinite_default_bounds = true});
  EXPECT_EQ(store_.Column(2).LowerBound, -model::BoundLimit);
}

TEST_F(ReadFileTest, NamesEachProblemWithItsPlaceAndGoesOn) {
  const FileRead read = Read(
      "ROWS\n N  cost\n L  lim\n Q  odd\nCOLUMNS\n    x  cost  1  lmi  2\n    y  lim  1,5\n"
      "    y  cost  2\n");
  EXPECT_EQ(read.outcome, ReadOutcome::kRead);
  const auto& kept = read.problems.kept();
  ASSERT_EQ(kept.size(), 5U);
  EXPECT_EQ(kept[0].code, FileProblemCode::kRowType);
  EXPECT_EQ(kept[0].line, 4);
  EXPECT_EQ(kept[0].column, 2);
  EXPECT_EQ(kept[0].text, " Q  odd");
  EXPECT_EQ(kept[1].code, FileProblemCode::kNoSuchRow);
  EXPECT_EQ(kept[1].item, "LMI");
  EXPECT_EQ(kept[1].read, "lmi");
  EXPECT_EQ(kept[1].column, 17);
  EXPECT_EQ(kept[1].length, 3);
  EXPECT_EQ(kept[2].code, FileProblemCode::kNotNumeric);
  EXPECT_EQ(kept[2].read, "1,5");
  EXPECT_EQ(kept[2].column, 13);
  EXPECT_EQ(kept[3].code, FileProblemCode::kMissingEndata);
  EXPECT_EQ(kept[3].line, 8);
  EXPECT_EQ(kept[4].code, FileProblemCode::kEmptyRow);
  EXPECT_EQ(kept[4].item, "LIM");
  EXPECT_TRUE(read.problems.HasErrors());
  EXPECT_EQ(store_.NumberOfElements(), 2);
}

TEST_F(ReadFileTest, TellsWhatIsWrongWithTheModelAsAWhole) {
  EXPECT_EQ(Read("ENDATA\n").problems.CountOf(ProblemWeight::kError), 3);
  const FileRead read =
      Read("ROWS\n N  c\nCOLUMNS\n  x c 1\n  e c 0\nBOUNDS\n LO B x 5\n UP B x 4\nENDATA\n");
  EXPECT_EQ(read.problems.CountOf(FileProblemCode::kColumnBoundsReversed), 1);
  EXPECT_EQ(read.problems.CountOf(FileProblemCode::kEmptyColumn), 1);
}

TEST_F(ReadFileTest, TakesNoBoundForReversedThatHasNoOther) {
  constexpr std::string_view kLarge =
      "ROWS\n N  c\n G  g\nCOLUMNS\n  x c 1 g 1\n  y g 1\nRHS\n  R g 3e10\nBOUNDS\n LO B x 2e10\n"
      " MI B y\n UP B y -2e10\nENDATA\n";
  EXPECT_FALSE(Read(kLarge).problems.HasErrors());
  const FileRead read = Read(kLarge, {.dialect = FileDialect::kComponent});
  EXPECT_EQ(read.problems.CountOf(FileProblemCode::kColumnBoundsReversed), 2);
  EXPECT_EQ(read.problems.CountOf(FileProblemCode::kRowBoundsReversed), 1);
}

TEST_F(ReadFileTest, EndsWhereItIsToldTo) {
  std::vector<std::int64_t> heard;
  const FileRead refused =
      Read("ROWS\n Q  a\n Q  b\nENDATA\n", {.on_problem = [&heard](const FileProblem& problem) {
             heard.push_back(problem.line);
             return false;
           }});
  EXPECT_EQ(refused.outcome, ReadOutcome::kRefused);
  EXPECT_EQ(heard, std::vector<std::int64_t>{2});
  EXPECT_EQ(store_.NumberOfRows(), 0);

  std::string many = "ROWS\n N  c\n";
  for (int i = 0; i < 5000; ++i) many += " L  r" + std::to_string(i) + "\n";
  int calls = 0;
  const FileRead stopped = Read(many, {.on_progress = [&calls](std::uint64_t, std::uint64_t all) {
                                  ++calls;
                                  return all == 0;
                                }});
  EXPECT_EQ(stopped.outcome, ReadOutcome::kStopped);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(store_.NumberOfRows(), 0);
  EXPECT_EQ(store_.settings().ReadMPSFileErr, 0);
}

TEST_F(ReadFileTest, TellsOfEachLineWhatItMade) {
  std::string heard;
  ReadOptions options;
  options.on_line = [&](const SourceLine& line, Section section, Section next) {
    const model::ModelData& data = store_.fill().data();
    for (const std::int64_t number :
         {line.number(), static_cast<std::int64_t>(section), static_cast<std::int64_t>(next),
          std::int64_t{data.NumberOfRows}, std::int64_t{data.NumberOfElements}}) {
      heard += std::to_string(number) + ' ';
    }
    heard += line.is_split() ? std::string(line[1]) + '\n' : "\n";
  };
  Read("* text\nROWS\n N  cost\nCOLUMNS\n x  cost  1\n x  nope  1\nBOUNDS\n UP B x 4\nENDATA\n",
       options);
  EXPECT_EQ(heard,
            "1 0 0 0 0 \n2 0 1 0 0 ROWS\n3 1 1 1 0 N\n4 1 2 1 0 COLUMNS\n5 2 2 1 1 X\n6 2 2 1 1 X\n"
            "7 2 5 1 1 BOUNDS\n8 5 5 1 1 UP\n9 5 5 1 1 ENDATA\n");
}

TEST_F(ReadFileTest, TellsAFileThatCannotBeReadAsAProblem) {
  Read(kGood);
  const FileRead read = ReadFile(folder_.File("none.mps"), {}, store_);
  EXPECT_EQ(read.outcome, ReadOutcome::kFailed);
  ASSERT_EQ(read.problems.kept().size(), 1U);
  EXPECT_EQ(read.problems.kept()[0].code, FileProblemCode::kFailure);
  EXPECT_EQ(read.problems.kept()[0].failure->number(), 53);
  EXPECT_EQ(store_.NumberOfRows(), 0);
}

TEST_F(ReadFileTest, KeepsFewOfManyProblems) {
  std::string text = "ROWS\n N  c\n";
  for (int i = 0; i < 3000; ++i) text += " Q  r\n";
  const FileRead read = Read(text, {.kept_of_each = 7});
  EXPECT_EQ(read.problems.CountOf(FileProblemCode::kRowType), 3000);
  EXPECT_EQ(read.problems.kept().size(), 7U + 4U);
}

}  // namespace
}  // namespace quarvel::mps
