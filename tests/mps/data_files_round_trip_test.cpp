// The real models written and read again.
//
// What a written file cannot hold, and what the comparison therefore expects:
//   - rows without elements are left out; their entries in RHS and RANGES are still written, and
//     reading them back asks about each of them;
//   - columns without elements likewise, with their records in BOUNDS;
//   - integer columns stand behind all others, each group in its old order;
//   - a lower bound of -1E+10 beside a finite upper bound is not written and comes back as 0;
//   - coefficients, row limits and ranges have 10 fraction digits, bounds 11, or 15 significant
//     digits where the field is too narrow; a ranged row comes back as its lower limit plus a
//     range;
//   - blank lines at the end of the description are dropped.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "mps/tokens.h"
#include "tests/mps/data_files.h"
#include "tests/mps/read_helpers.h"
#include "tests/support/naive_reader.h"
#include "tests/support/real_models.h"
#include "tests/support/test_paths.h"
#include "text/encoding.h"
#include "text/numbers.h"
#include "text/picture.h"

namespace quarvel::mps {
namespace {

double Reread(const std::string& number) { return text::ParseNumber(number).value(); }
double AsElement(double value) { return Reread(text::PictureText(value, text::Picture::kElement)); }

// The value of a LO or FX record.
double AsBound(const model::ColumnRecord& column, double value) {
  const std::string narrow = text::PictureText(value, text::Picture::kBound);
  const bool fits = text::CharacterCount(column.Name) <= 8 && narrow.size() <= 12;
  return Reread(fits ? narrow : text::GeneralText(value));
}

struct Limits {
  double lower, upper;
};

Limits LimitsWhenReadAgain(const model::ColumnRecord& column) {
  const double lower = column.LowerBound;
  const double upper = column.UpperBound;
  if (lower == upper) return {AsBound(column, upper), AsBound(column, upper)};
  if (lower == -model::BoundLimit && upper == model::BoundLimit) return {lower, upper};
  return {lower == -model::BoundLimit ? 0 : AsBound(column, lower),
          upper == model::BoundLimit ? upper
                                     : Reread(text::PictureText(upper, text::Picture::kWideBound))};
}

Limits LimitsWhenReadAgain(const model::RowRecord& row) {
  const double lower = AsElement(row.LowerBound);
  switch (row.Type) {
    case model::RowType::kGreater:
      return {lower, model::BoundLimit};
    case model::RowType::kLess:
      return {-model::BoundLimit, AsElement(row.UpperBound)};
    case model::RowType::kEqual:
      return {lower, lower};
    case model::RowType::kRanged:
      return {lower, lower + AsElement(row.UpperBound - row.LowerBound)};
    default:
      return {-model::BoundLimit, model::BoundLimit};
  }
}

std::vector<const model::RowRecord*> RowsWritten(const model::ModelData& data) {
  std::vector<const model::RowRecord*> rows;
  for (const model::RowRecord& row : data.Rows) {
    if (row.ElementCount() > 0) rows.push_back(&row);
  }
  return rows;
}

std::vector<const model::ColumnRecord*> ColumnsWritten(const model::ModelData& data) {
  std::vector<const model::ColumnRecord*> columns;
  for (const model::ColumnRecord& column : data.Columns) {
    if (column.ElementCount() > 0) columns.push_back(&column);
  }
  std::stable_partition(columns.begin(), columns.end(), [](const model::ColumnRecord* column) {
    return column->Type != model::ColumnType::kInteger;
  });
  return columns;
}

template <class Record>
void ExpectSameHead(const Record& before, const Record& again, const std::string& file) {
  const Limits limits = LimitsWhenReadAgain(before);
  EXPECT_EQ(again.Name, before.Name) << file;
  EXPECT_EQ(model::TypeText(again.Type), model::TypeText(before.Type))
      << file << " " << before.Name;
  EXPECT_EQ(again.LowerBound, limits.lower) << file << " " << before.Name;
  EXPECT_EQ(again.UpperBound, limits.upper) << file << " " << before.Name;
}

void ExpectSameRows(const model::ModelData& before, const model::ModelData& again,
                    const std::string& file) {
  const std::vector<const model::RowRecord*> rows = RowsWritten(before);
  ASSERT_EQ(static_cast<std::size_t>(again.NumberOfRows), rows.size()) << file;
  std::int32_t i = 0;
  for (const model::RowRecord* row : rows) ExpectSameHead(*row, again.Rows[++i], file);
}

// The lists of the rows follow from those of the columns: both agree in each model.
void ExpectSameColumns(const model::ModelData& before, const model::ModelData& again,
                       const std::string& file) {
  const std::vector<const model::ColumnRecord*> columns = ColumnsWritten(before);
  ASSERT_EQ(static_cast<std::size_t>(again.NumberOfColumns), columns.size()) << file;
  std::int32_t j = 0;
  for (const model::ColumnRecord* column : columns) {
    const model::ColumnRecord& other = again.Columns[++j];
    ExpectSameHead(*column, other, file);
    ASSERT_EQ(other.ElementCount(), column->ElementCount()) << file << " " << column->Name;
    for (std::int32_t k = 1; k <= other.ElementCount(); ++k) {
      const model::ElementEntry& element = column->Elements[k];
      EXPECT_EQ(again.Rows[other.Elements[k].Index].Name, before.Rows[element.Index].Name)
          << file << " " << column->Name;
      EXPECT_EQ(other.Elements[k].Value, AsElement(element.Value)) << file << " " << column->Name;
    }
  }
}

std::string WithoutBlankEnd(std::string text) {
  while (text.ends_with("\r\n")) text.resize(text.size() - 2);
  return text;
}

// The questions about entries in RHS, RANGES and BOUNDS of rows and columns that are left out, and
// about columns whose bounds a simplification has reversed.
Questions QuestionsWhenReadAgain(const model::ModelData& data) {
  Questions questions;
  for (const model::RowRecord& row : data.Rows) {
    if (row.ElementCount() > 0) continue;
    const double right_hand_side =
        row.Type == model::RowType::kLess ? row.UpperBound : row.LowerBound;
    if (row.Type != model::RowType::kFree && right_hand_side != 0) ++questions[kTextNoRow];
    if (row.Type == model::RowType::kRanged) ++questions[kTextNoRow];
  }
  for (const model::ColumnRecord& column : data.Columns) {
    if (column.ElementCount() > 0) {
      const Limits limits = LimitsWhenReadAgain(column);
      const bool reversed = limits.lower > limits.upper;
      if (reversed) ++questions["Quarvel.dll error: bounds reversed on variable " + column.Name];
      continue;
    }
    const Limits limits = {column.LowerBound, column.UpperBound};
    const bool fixed = limits.lower == limits.upper;
    const bool has_lower = limits.lower != 0 && limits.lower != -model::BoundLimit;
    const bool free = limits.lower == -model::BoundLimit && limits.upper == model::BoundLimit;
    if (has_lower && !fixed) ++questions[kTextNoColumn];
    if (fixed || free || limits.upper != model::BoundLimit) ++questions[kTextNoColumn];
  }
  return questions;
}

// Writes the session's model, reads the file again and compares.
void ExpectToComeBack(ReadSession& first, const std::string& file) {
  const std::string copy = first.folder.File("copy.mps");
  ASSERT_EQ(first.model.SaveMPSFile(copy), -1) << file;
  ReadSession second;
  ASSERT_EQ(second.ReadFile(copy), -1) << file;

  const model::ModelData& before = first.model.store().data();
  const model::ModelData& again = second.model.store().data();
  EXPECT_EQ(again.ModelName, before.ModelName) << file;
  EXPECT_EQ(again.ModelDescription, WithoutBlankEnd(before.ModelDescription)) << file;
  EXPECT_EQ(again.NumberOfElements, before.NumberOfElements) << file;
  ExpectSameRows(before, again, file);
  ExpectSameColumns(before, again, file);
  EXPECT_EQ(model::CheckModelData(second.model.store()), "") << file;
  EXPECT_EQ(KindsOf(second.Problems()), QuestionsWhenReadAgain(before)) << file;
}

class SimplifiedDataFiles : public OnRealModels {};
class WrittenDataFiles : public OnRealModels {};

TEST_F(WrittenDataFiles, ComeBackWhenReadAgain) {
  for (const std::string& file : DataFiles()) {
    ReadSession session;
    session.ReadFile(PathOf(file));
    ExpectToComeBack(session, file);
  }
}

// Simplified while it is read: each conflict is answered No, so that bounds become the row's.
TEST_F(SimplifiedDataFiles, ComeBackWhenReadAgain) {
  int simplified = 0;
  for (const std::string& file : DataFiles()) {
    ReadSession session;
    session.simplify = kYes;
    const auto answer = session.desktop.on_box;
    session.desktop.on_box = [&](const platform::ShownBox& box) {
      simplified += session.desktop.box_data().back().kind == platform::BoxKind::kOfferLog;
      return box.style == platform::MsgBoxStyle::kYesNoCancelExclamation ? kNo : answer(box);
    };
    session.Read(ReadWholeFile(PathOf(file)));  // a copy: the log goes beside it
    ASSERT_EQ(model::CheckModelData(session.model.store()), "") << file;
    ExpectToComeBack(session, file);
  }
  EXPECT_GT(simplified, 10);
}

// The lines of a file, but for those in RHS and RANGES of rows that the model does not have.
std::vector<std::string> LinesWithoutLeftOutRows(const std::string& written,
                                                 const model::ModelStore& store) {
  std::vector<std::string> lines;
  for (const testing::NaiveLine& line : testing::SplitIntoLines(written)) {
    const bool is_entry =
        line.text.starts_with("    RHS       ") || line.text.starts_with("    RANGE     ");
    if (is_entry && store.FindRow(SplitLine(line.text).at(1)) == 0) continue;
    lines.push_back(line.text);
  }
  return lines;
}

bool HasIntegerColumnsBeforeOthers(const model::ModelData& data) {
  return !std::is_partitioned(
      data.Columns.begin(), data.Columns.end(),
      [](const model::ColumnRecord& column) { return column.Type != model::ColumnType::kInteger; });
}

TEST_F(WrittenDataFiles, AreWrittenTheSameAgain) {
  for (const std::string& file : DataFiles()) {
    ReadSession session;
    session.ReadFile(PathOf(file));
    const bool bounds_change_order = HasIntegerColumnsBeforeOthers(session.model.store().data());
    const std::string copy = session.folder.File("copy.mps");
    std::string texts[3];
    for (std::string& text : texts) {
      ASSERT_EQ(session.model.SaveMPSFile(copy), -1) << file;
      text = ReadWholeFile(copy);
      session.ReadFile(copy);
    }
    std::vector<std::string> first = LinesWithoutLeftOutRows(texts[0], session.model.store());
    std::vector<std::string> second = LinesWithoutLeftOutRows(texts[1], session.model.store());
    if (bounds_change_order) {
      std::sort(first.begin(), first.end());
      std::sort(second.begin(), second.end());
    }
    EXPECT_TRUE(first == second) << file;
    // From then on the text stays the same, byte for byte.
    EXPECT_TRUE(texts[2] == texts[1]) << file;
  }
}

}  // namespace
}  // namespace quarvel::mps
