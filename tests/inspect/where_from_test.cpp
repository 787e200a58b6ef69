#include "inspect/where_from.h"

#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/test_paths.h"
#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

constexpr std::string_view kModel =
    "NAME EX\n"                // 1
    "ROWS\n"                   // 2
    " N COST\n"                // 3
    " L LIM1\n"                // 4
    " G LIM2\n"                // 5
    " E LIM1\n"                // 6: twice
    " L BOTH\n"                // 7
    "COLUMNS\n"                // 8
    " X COST 1 LIM1 1\n"       // 9
    " X LIM2 1 BOTH 0\n"       // 10
    " M 'MARKER' 'INTORG'\n"   // 11
    " Both LIM1 2 LIM9 3\n"    // 12: no such row
    " BOTH BOTH 4\n"           // 13
    " M 'MARKER' 'INTEND'\n"   // 14
    " Y COST 2 LIM1 1\n"       // 15
    " X LIM2 7\n"              // 16
    "RHS\n"                    // 17
    " LIM1 LIM1 4 LIM2 1.5\n"  // 18
    " LIM1 LIM1 9\n"           // 19: a set of that name
    "RANGES\n"                 // 20
    " RNG LIM1 2.5 LIM2 x\n"   // 21
    "BOUNDS\n"                 // 22
    " UP X X 4\n"              // 23
    " UP X X 4\n"              // 24
    " UP X X 9\n"              // 25
    " ZZ X BOTH 9\n"           // 26
    " LO X BOTH 12\n"          // 27
    " UP X BOTH 9\n"           // 28
    "ENDATA\n";

std::string TextOf(const History& history) {
  std::string text;
  for (const Setting& setting : history.last) {
    text += ' ' + (setting.type.empty() ? text::GeneralText(setting.value) : setting.type) + '@' +
            text::IntegerText(setting.line);
  }
  return text + " of " + text::IntegerText(history.count) + '\n';
}

std::string TextOf(const RecordOrigin& record) {
  std::string text = text::IntegerText(record.number);
  text += TextOf(record.type) + TextOf(record.lower) + TextOf(record.upper);
  for (const CoefficientOrigin& entry : record.coefficients) {
    text += entry.other + '=' + text::GeneralText(entry.value) + '@' +
            text::IntegerText(entry.line) + ' ';
  }
  text += "of " + text::IntegerText(record.coefficient_count) + "\nidle";
  for (const std::int64_t line : record.idle_lines) text += ' ' + text::IntegerText(line);
  text += "\nproblems";
  for (const mps::FileProblem& problem : record.problems) {
    text +=
        ' ' + std::string(mps::TraitsOf(problem.code).name) + '@' + text::IntegerText(problem.line);
  }
  return text + '\n';
}

RecordOrigin Wanted(bool is_row, std::string name) {
  RecordOrigin record;
  record.is_row = is_row;
  record.name = std::move(name);
  return record;
}

RecordOrigin Find(std::string_view bytes, bool is_row, std::string name, std::size_t kept = 10,
                  const mps::ReadOptions& options = {}) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("f"), bytes);
  model::ModelStore store;
  std::vector<RecordOrigin> records = {Wanted(is_row, std::move(name))};
  FindOrigins(folder.File("f"), options, store, records, kept);
  return records[0];
}

TEST(WhereFrom, TellsTheLinesThatMadeAColumn) {
  EXPECT_EQ(TextOf(Find(kModel, false, "X")),
            "1 R@9 of 1\n 0@0 of 1\n 10000000000@0 4@23 4@24 9@25 of 4\n"
            "COST=1@9 LIM1=1@9 LIM2=1@10 LIM2=7@16 of 4\nidle\n"
            "problems zero-coefficient@10 column-again@16 given-again@24 given-again@25\n");
}

TEST(WhereFrom, TellsTheLinesThatMadeARow) {
  EXPECT_EQ(
      TextOf(Find(kModel, true, "LIM1")),
      "2 L@4 R@0 of 2\n -10000000000@0 6.5@21 of 2\n 0@0 4@18 9@19 of 3\n"
      "X=1@9 BOTH=2@12 Y=1@15 of 3\nidle 6\nproblems row-twice@6 given-again@19 not-numeric@21\n");
}

TEST(WhereFrom, TellsTheMarkerOfAColumnAndTheProblemsOfItsLines) {
  const RecordOrigin column = Find(kModel, false, "BOTH");
  EXPECT_EQ(
      TextOf(column),
      "2 I@12 of 1\n 0@0 12@27 of 2\n 10000000000@0 9@28 of 2\nLIM1=2@12 BOTH=4@13 of 2\n"
      "idle 26\nproblems no-such-row@12 other-letters@13 bound-code@26 column-bounds-reversed@0\n");
  EXPECT_EQ(column.marker_line, 11);
  EXPECT_EQ(Find(kModel, false, "Y").marker_line, 14);
  EXPECT_EQ(Find(kModel, false, "X").marker_line, 0);
}

TEST(WhereFrom, TellsARowAndAColumnOfOneNameApart) {
  EXPECT_EQ(TextOf(Find(kModel, true, "BOTH")),
            "4 L@7 of 1\n -10000000000@0 of 1\n 0@0 of 1\nBOTH=4@13 of 1\nidle\n"
            "problems zero-coefficient@10 other-letters@13\n");
}

TEST(WhereFrom, TellsWhichLineGivesACoefficientOfZero) {
  const RecordOrigin row = Find(kModel, true, "BOTH");
  ASSERT_EQ(row.zeros.size(), 1U);
  EXPECT_EQ(row.zero_count, 1);
  EXPECT_EQ(row.zeros[0].line, 10);
  EXPECT_EQ(row.zeros[0].other, "X");
  const RecordOrigin column = Find(kModel, false, "X", 0);
  EXPECT_EQ(column.zero_count, 1);
  EXPECT_TRUE(column.zeros.empty());
  EXPECT_EQ(Find(kModel, false, "X").zeros[0].other, "BOTH");
  EXPECT_EQ(Find(kModel, true, "LIM2").zero_count, 0);
}

TEST(WhereFrom, TellsWhatNamesARecordThatTheFileDoesNotMake) {
  EXPECT_EQ(TextOf(Find(kModel, true, "LIM9")),
            "0 of 0\n of 0\n of 0\nof 0\nidle 12\nproblems no-such-row@12\n");
  EXPECT_EQ(TextOf(Find(kModel, false, "NOBODY")), "0 of 0\n of 0\n of 0\nof 0\nidle\nproblems\n");
}

// Which of them is the objective is known at the end.
TEST(WhereFrom, TellsOfNRowsWhatIsKnownAtTheEnd) {
  constexpr std::string_view kFreeRows =
      "ROWS\n N COST\n N ELSE\nCOLUMNS\n X COST 1\n ELSE ELSE 1\nRHS\n R COST 1 ELSE 2\n"
      "OBJNAME ELSE\nENDATA\n";
  EXPECT_EQ(TextOf(Find(kFreeRows, true, "COST")),
            "1 N@2 of 1\n -10000000000@0 of 1\n 10000000000@0 of 1\nX=1@5 of 1\nidle 8\n"
            "problems further-free-row@2 free-row-rhs@8\n");
  EXPECT_TRUE(TextOf(Find(kFreeRows, true, "ELSE"))
                  .ends_with("problems objective-name@9 objective-constant@8\n"));
  EXPECT_TRUE(TextOf(Find(kFreeRows, false, "ELSE")).ends_with("problems\n"));
}

TEST(WhereFrom, TellsEachLineThatGaveASideOfARangedRow) {
  const std::string rows = "ROWS\n L LOW\n G HIGH\n E SAME\nCOLUMNS\n X LOW 1 HIGH 1\n X SAME 1\n";
  const std::string rhs = "RHS\n R LOW 4 HIGH 4\n R SAME 4\n";  // 8 to 10
  const std::string ranges = "RANGES\n G LOW 0 HIGH 0\n G SAME 0\n G SAME 2\n G LOW 0 LOW 1\n";
  const std::string text = rows + rhs + ranges + "ENDATA\n";
  EXPECT_NE(TextOf(Find(text, true, "LOW"))
                .find("\n -10000000000@0 4@12 4@15 3@15 of 4\n 0@0 4@9 of 2\n"),
            std::string::npos);
  EXPECT_NE(TextOf(Find(text, true, "HIGH")).find("\n 0@0 4@9 of 2\n 10000000000@0 4@12 of 2\n"),
            std::string::npos);
  EXPECT_NE(
      TextOf(Find(text, true, "SAME")).find("\n 0@0 4@10 4@13 4@14 of 4\n 0@0 4@10 6@14 of 3\n"),
      std::string::npos);
}

TEST(WhereFrom, TellsOfTheObjectiveEachLineOfItsSenseAndConstant) {
  constexpr std::string_view kObjective =
      "OBJSENSE MAX\nROWS\n N COST\n N ELSE\n L LIM\nOBJSENSE\n max\nCOLUMNS\n X COST 1 LIM 1\n"
      "OBJSENSEMIN\nRHS\n R COST 3 LIM 4\n R ELSE 1\n R COST 5 COST 0\n R ELSE 2\nENDATA\n";
  const RecordOrigin cost = Find(kObjective, true, "COST");
  EXPECT_EQ(TextOf(cost.sense), " maximize@1 maximize@7 minimize@10 of 3\n");
  EXPECT_EQ(TextOf(cost.constant), " -3@12 -5@14 0@14 of 3\n");
  EXPECT_EQ(cost.idle_count, 0);
  const RecordOrigin other = Find(kObjective, true, "ELSE", 1);
  EXPECT_EQ(TextOf(other.sense) + TextOf(other.constant), " of 0\n of 0\n");
  EXPECT_EQ(other.idle_lines, std::vector<std::int64_t>{13});
  EXPECT_EQ(other.idle_count, 2);
  EXPECT_EQ(TextOf(Find(kObjective, true, "COST", 0).constant), " 0@14 of 3\n");
  EXPECT_EQ(TextOf(Find(kObjective, true, "LIM").sense), " of 0\n");
}

TEST(WhereFrom, TellsOfASecondSetThatItIsPassedOver) {
  EXPECT_EQ(
      TextOf(Find("ROWS\n L R\nCOLUMNS\n X R 1\nBOUNDS\n UP A X 4\n UP B X 9\n UP A X 5\nENDATA\n",
                  false, "X")),
      "1 R@4 of 1\n 0@0 of 1\n 10000000000@0 4@6 5@8 of 3\nR=1@4 of 1\nidle 7\n"
      "problems second-set@7 given-again@8\n");
}

TEST(WhereFrom, TakesDefaultBoundsOfTheReadForDefaults) {
  mps::ReadOptions options;
  options.infinite_default_bounds = true;
  EXPECT_EQ(
      TextOf(Find(kModel, false, "Y", 10, options)),
      "3 R@15 of 1\n -10000000000@0 of 1\n 10000000000@0 of 1\nCOST=2@15 LIM1=1@15 of 2\nidle\n"
      "problems\n");
}

TEST(WhereFrom, KeepsAFewOfMany) {
  std::string text = "ROWS\n L R\nCOLUMNS\n X R 1\n";
  for (int i = 0; i < 50; ++i) text += " X R 2\n";
  text += "BOUNDS\n";
  for (int i = 1; i <= 50; ++i) {
    text += " UP B X " + std::to_string(i) + "\n UP B X " + std::to_string(i) + "\n ?? B X\n";
  }
  text += "ENDATA\n";
  const RecordOrigin column = Find(text, false, "X", 2);
  EXPECT_EQ(TextOf(column),
            "1 R@4 of 1\n 0@0 of 1\n 50@203 50@204 of 101\nR=1@4 R=2@5 of 51\nidle 58 61\n"
            "problems given-again@57 bound-code@58\n");
  EXPECT_EQ(column.idle_count, 50);
  EXPECT_EQ(column.problem_count, 149);
  EXPECT_EQ(TextOf(Find(text, false, "X", 0)),
            "1 R@4 of 1\n 0@0 of 1\n 50@204 of 101\nof 51\nidle\nproblems\n");
}

TEST(WhereFrom, WatchesSeveralRecordsInOneRead) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("f"), kModel);
  model::ModelStore store;
  std::vector<RecordOrigin> records = {Wanted(true, "LIM2"), Wanted(false, "Y"),
                                       Wanted(true, "LIM1")};
  const mps::FileRead read = FindOrigins(folder.File("f"), {}, store, records);
  EXPECT_EQ(read.outcome, mps::ReadOutcome::kRead);
  EXPECT_EQ(store.NumberOfRows(), 4);
  for (const RecordOrigin& record : records) {
    EXPECT_EQ(TextOf(record), TextOf(Find(kModel, record.is_row, record.name)));
  }
}

TEST(WhereFrom, CallsTheCallbacksOfItsCaller) {
  const TemporaryFolder folder;
  WriteWholeFile(folder.File("f"), kModel);
  model::ModelStore store;
  std::vector<RecordOrigin> records = {Wanted(true, "LIM1")};
  mps::ReadOptions options;
  int heard = 0;
  options.on_problem = [&heard](const mps::FileProblem&) { return ++heard < 2; };
  EXPECT_EQ(FindOrigins(folder.File("f"), options, store, records).outcome,
            mps::ReadOutcome::kRefused);
  EXPECT_EQ(heard, 2);
  records = {Wanted(true, "LIM1")};
  EXPECT_EQ(FindOrigins(folder.File("missing"), {}, store, records).outcome,
            mps::ReadOutcome::kFailed);
  EXPECT_EQ(records[0].number, 0);
}

// What is told last is what the model holds, of every record.
void ExpectAgreement(const std::string& path) {
  SCOPED_TRACE(path);
  model::ModelStore plain;
  mps::ReadFile(path, {}, plain);
  std::vector<RecordOrigin> records;
  for (std::int32_t r = 1; r <= plain.NumberOfRows(); ++r) {
    records.push_back(Wanted(true, plain.Row(r).Name));
  }
  for (std::int32_t c = 1; c <= plain.NumberOfColumns(); ++c) {
    records.push_back(Wanted(false, plain.Column(c).Name));
  }
  model::ModelStore store;
  FindOrigins(path, {}, store, records);
  ASSERT_FALSE(records.empty());
  for (const RecordOrigin& origin : records) {
    SCOPED_TRACE(origin.name);
    const model::ModelRecord& record =
        origin.is_row ? static_cast<const model::ModelRecord&>(plain.Row(origin.number))
                      : static_cast<const model::ModelRecord&>(plain.Column(origin.number));
    ASSERT_EQ(origin.name, record.Name);
    EXPECT_EQ(origin.lower.last.back().value, record.LowerBound);
    EXPECT_EQ(origin.upper.last.back().value, record.UpperBound);
    EXPECT_EQ(origin.type.last.back().type,
              origin.is_row ? model::TypeText(plain.Row(origin.number).Type)
                            : model::TypeText(plain.Column(origin.number).Type));
    EXPECT_EQ(origin.coefficient_count, record.ElementCount());
  }
}

TEST(WhereFrom, TellsOfEveryRecordWhatTheModelHolds) {
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(SourceFolder() + "/examples")) {
    if (entry.path().extension() != ".mps") continue;
    ExpectAgreement(entry.path().string());
    ++files;
  }
  EXPECT_GE(files, 5);
}

}  // namespace
}  // namespace quarvel::inspect
