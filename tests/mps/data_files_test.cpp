// The real models of the data folder: the questions their content calls for, the counts of another
// reader, and every field as the plain reader has it.

#include "tests/mps/data_files.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "tests/mps/read_helpers.h"
#include "tests/support/read_comparison.h"
#include "tests/support/real_models.h"
#include "tests/support/test_paths.h"

namespace quarvel::mps {
namespace {

// What CoinUtils 2.11 (CoinMpsIO::readMps) tells about a file. Its conventions: the first free row
// is the objective and not one of the rows, and the coefficients of the objective are not among the
// elements (they are counted here on their own).
struct Published {
  const char* file;
  std::int32_t rows, columns, elements, objective, integer, ranged;
};

constexpr Published kFiles[] = {
    {"miplib/egout", 98, 141, 282, 110, 55, 0},
    {"miplib/flugpl", 18, 18, 46, 18, 11, 0},
    {"miplib/gesa2", 1392, 1224, 5064, 936, 408, 0},
    {"miplib/p0548", 176, 548, 1711, 416, 548, 0},
    {"netlib/25fv47", 821, 1571, 10400, 727, 0, 0},
    {"netlib/80bau3b", 2262, 9799, 21002, 8061, 0, 0},
    {"netlib/adlittle", 56, 97, 383, 82, 0, 0},
    {"netlib/afiro", 27, 32, 83, 5, 0, 0},
    {"netlib/blend", 74, 83, 491, 30, 0, 0},
    {"netlib/boeing1", 351, 384, 3485, 380, 0, 89},
    {"netlib/boeing2", 166, 143, 1196, 143, 0, 19},
    {"netlib/brandy", 220, 249, 2148, 2, 0, 0},
    {"netlib/capri", 271, 353, 1767, 19, 0, 0},
    {"netlib/d2q06c", 2171, 5167, 32417, 3257, 0, 0},
    {"netlib/e226", 223, 282, 2578, 189, 0, 0},
    {"netlib/etamacro", 400, 688, 2409, 80, 0, 0},
    {"netlib/finnis", 497, 614, 2310, 404, 0, 0},
    {"netlib/fit2d", 25, 10500, 129018, 9000, 0, 0},
    {"netlib/forplan", 161, 421, 4563, 353, 0, 1},
    {"netlib/gfrd-pnc", 616, 1092, 2377, 1090, 0, 0},
    {"netlib/greenbea", 2392, 5405, 30877, 622, 0, 0},
    {"netlib/grow7", 140, 301, 2612, 21, 0, 0},
    {"netlib/israel", 174, 142, 2269, 89, 0, 0},
    {"netlib/kb2", 43, 41, 286, 5, 0, 0},
    {"netlib/maros", 846, 1443, 9614, 392, 0, 0},
    {"netlib/pilot4", 410, 1000, 5141, 4, 0, 0},
    {"netlib/recipe", 91, 180, 663, 89, 0, 0},
    {"netlib/sc50a", 50, 48, 130, 1, 0, 0},
    {"netlib/scagr7", 129, 140, 420, 133, 0, 0},
    {"netlib/share2b", 96, 79, 694, 36, 0, 0},
    {"netlib/stair", 356, 467, 3856, 1, 0, 0},
    {"netlib/standata", 359, 1075, 3031, 7, 0, 0},
    {"netlib/vtpbase", 198, 203, 908, 6, 0, 0},
};

// The one file that is a different model here: nearly all its names hold blanks ("DEDO3 1R"), which
// fields at fixed columns allow and tokens between blanks do not. What is left are the names and
// lines without a blank.
constexpr Published kForplan = {"netlib/forplan", 38, 41, 24, 6, 0, 0};

const std::map<std::string, Questions> kQuestions = {
    // Integer columns by the bound codes BV (240) and UI (168), which are not codes of this
    // dialect.
    {"miplib/gesa2", {{"MPS file read error: improper bounds code (line ", 408}}},
    // Rows that are declared and never used.
    {"netlib/25fv47", {{kTextEmptyRow, 1}, {kTextEmptyItems, 1}}},
    {"netlib/80bau3b", {{kTextEmptyRow, 25}, {kTextEmptyItems, 1}}},
    {"netlib/boeing1", {{kTextEmptyRow, 3}, {kTextEmptyItems, 1}}},
    {"netlib/boeing2", {{kTextEmptyRow, 26}, {kTextEmptyItems, 1}}},
    {"netlib/brandy", {{kTextEmptyRow, 38}, {kTextEmptyItems, 1}}},
    {"netlib/greenbea", {{kTextEmptyRow, 3}, {kTextEmptyItems, 1}}},
    {"netlib/maros", {{kTextEmptyRow, 1}, {kTextEmptyItems, 1}}},
    {"netlib/sc50a", {{kTextEmptyRow, 1}, {kTextEmptyItems, 1}}},
    // The set names of RHS and BOUNDS are left blank: each line has a token too few.
    {"netlib/blend", {{kTextWrongTokens, 4}}},
    {"netlib/gfrd-pnc", {{kTextWrongTokens, 34}, {kTextTooFew, 260}}},
    // Names with blanks in them.
    {"netlib/forplan",
     {{"MPS file read error: insufficent tokens in line ", 123},
      {kTextWrongTokens, 2418},
      {"MPS file read error: needs numeric value (line ", 116},
      {kTextNoRow, 116},
      {kTextTooFew, 18},
      {kTextEmptyColumn, 17},
      {kTextEmptyRow, 20},
      {kTextEmptyItems, 1}}},
};

template <class Records, class Type>
std::int32_t CountType(const Records& records, Type type) {
  return static_cast<std::int32_t>(std::count_if(
      records.begin(), records.end(), [type](const auto& record) { return record.Type == type; }));
}

class ReadDataFiles : public OnRealModels {};

TEST_F(ReadDataFiles, AreAllKnownToTheseTests) {
  std::vector<std::string> known;
  for (const Published& file : kFiles) known.push_back(file.file);
  EXPECT_EQ(DataFiles(), known);
}

TEST_F(ReadDataFiles, AskTheQuestionsTheirContentCallsFor) {
  for (const Published& file : kFiles) {
    ReadSession session;
    EXPECT_EQ(session.ReadFile(PathOf(file.file)), -1) << file.file;
    const auto expected = kQuestions.find(file.file);
    EXPECT_EQ(KindsOf(session.Problems()),
              expected == kQuestions.end() ? Questions() : expected->second)
        << file.file;
  }
}

TEST_F(ReadDataFiles, HaveTheCountsOfAnIndependentReader) {
  for (const Published& published : kFiles) {
    const std::string name = published.file;
    const Published& file = name == kForplan.file ? kForplan : published;
    ReadSession session;
    session.ReadFile(PathOf(file.file));
    const model::ModelData& data = session.model.store().data();
    // Here the objective is a row and its coefficients are elements like any others.
    EXPECT_EQ(data.NumberOfRows, file.rows + 1) << name;
    EXPECT_EQ(data.NumberOfBindingRows, file.rows) << name;
    EXPECT_EQ(data.NumberOfNonBindingRows, 1) << name;
    EXPECT_EQ(data.NumberOfColumns, file.columns) << name;
    EXPECT_EQ(data.NumberOfElements, file.elements + file.objective) << name;
    EXPECT_EQ(data.Rows[data.NonBindingRows[1]].ElementCount(), file.objective) << name;
    EXPECT_EQ(CountType(data.Rows, model::RowType::kRanged), file.ranged) << name;
    // The codes BV and UI, which make a column integer there, are refused here.
    EXPECT_EQ(CountType(data.Columns, model::ColumnType::kInteger),
              name == "miplib/gesa2" ? 0 : file.integer)
        << name;
    EXPECT_EQ(model::CheckModelData(session.model.store()), "") << name;
  }
}

TEST_F(ReadDataFiles, AreReadAsThePlainReaderReadsThem) {
  const TemporaryFolder folder;
  testing::ReadComparison readers(folder.File("model.mps"));
  for (const Published& file : kFiles) {
    EXPECT_EQ(readers.Read(ReadWholeFile(PathOf(file.file)), testing::ReadPlan()), "") << file.file;
  }
}

}  // namespace
}  // namespace quarvel::mps
