#include "inspect/receipt.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <memory>
#include <utility>

#include "inspect/compare.h"
#include "mps/exact_limits.h"
#include "mps/exact_losses.h"
#include "mps/read_file.h"
#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

using enum mps::LossKind;
using model::ModelStore;
using mps::LossKind;

using Kinds = std::initializer_list<LossKind>;

// The losses that make such a difference.
constexpr Kinds kNames = {kNameCase, kCommentName};
constexpr Kinds kGoneRecords = {kNameCase, kCommentName, kEmptyRow, kEmptyColumn, kLimitOfEmpty};
constexpr Kinds kLimits = {kRowLimits, kReversed, kDigits, kFreeRowLimits, kCommentName};
constexpr Kinds kBounds = {kColumnBounds, kReversed, kDigits, kCommentName};
constexpr Kinds kTypes = {kRowLimits, kReversed, kRowType, kFreeRowLimits, kDigits, kCommentName};
constexpr Kinds kOrders = {kColumnOrder, kElementOrder, kNameCase, kCommentName};
constexpr Kinds kGoneElements = {kVanishes, kEmptied, kCommentName};

struct Explanation {
  DifferenceKind kind;
  Kinds losses;
};

constexpr std::array<Explanation, kDifferenceKinds> kExplanations = {{
    {DifferenceKind::kModelName, {kModelName}},
    {DifferenceKind::kDescription, {kDescription}},
    {DifferenceKind::kObjectiveSense, {kSense}},
    {DifferenceKind::kObjective, {kObjective}},
    {DifferenceKind::kObjectiveConstant, {kConstant}},
    {DifferenceKind::kRowWent, kGoneRecords},
    {DifferenceKind::kRowCame, kNames},
    {DifferenceKind::kRowType, kTypes},
    {DifferenceKind::kRowLower, kLimits},
    {DifferenceKind::kRowUpper, kLimits},
    {DifferenceKind::kColumnWent, kGoneRecords},
    {DifferenceKind::kColumnCame, kNames},
    {DifferenceKind::kColumnType, {kColumnType}},
    {DifferenceKind::kColumnLower, kBounds},
    {DifferenceKind::kColumnUpper, kBounds},
    {DifferenceKind::kElementWent, kGoneElements},
    {DifferenceKind::kElementCame, {kCommentName}},
    {DifferenceKind::kElementValue, {kDigits}},
    {DifferenceKind::kRowOrder, kOrders},
    {DifferenceKind::kColumnOrder, kOrders},
    {DifferenceKind::kElementOrder, kOrders},
}};

// A kind is the place of its line.
constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < kExplanations.size(); ++i) {
    if (static_cast<std::size_t>(kExplanations[i].kind) != i) return false;
  }
  return true;
}
static_assert(IsInOrder());

const Kinds& LossesThatMake(DifferenceKind kind) {
  return kExplanations[static_cast<std::size_t>(kind)].losses;
}

// Gathers what Compare visits.
class Findings {
 public:
  Findings(const ModelStore& written, const ModelStore& read, Receipt& receipt)
      : written_(written), read_(read), receipt_(receipt), differences_(1) {}

  void Hear(const Difference& difference) {
    differences_.Add(difference);
    if (IsNote(difference.kind)) return;
    const std::int32_t row = difference.row.a;
    const std::int32_t column = difference.column.a;
    if (row != 0 && column != 0) {
      if (difference.kind != DifferenceKind::kElementCame) --receipt_.equal_coefficients;
    } else if (row != 0) {
      if (row != last_row_) --receipt_.equal_rows;
      last_row_ = row;
    } else if (column != 0) {
      if (column != last_column_) --receipt_.equal_columns;
      last_column_ = column;
    }
  }

  // Coefficients that went with their row or column are not differences of their own.
  void CountGone() {
    const model::ModelData& data = written_.data();
    for (std::int32_t j = 1; j <= data.NumberOfColumns; ++j) {
      const model::ColumnRecord& column = data.Columns[j];
      if (read_.FindColumn(column.Name) == 0) {
        receipt_.equal_coefficients -= column.ElementCount();
        continue;
      }
      for (const model::ElementEntry& element : column.Elements) {
        if (read_.FindRow(data.Rows[element.Index].Name) == 0) --receipt_.equal_coefficients;
      }
    }
  }
  bool has_gone() const {
    return differences_.CountOf(DifferenceKind::kRowWent) != 0 ||
           differences_.CountOf(DifferenceKind::kColumnWent) != 0;
  }

  void TellUnexpected() {
    for (std::size_t i = 0; i < kDifferenceKinds; ++i) {
      const auto kind = static_cast<DifferenceKind>(i);
      if (differences_.CountOf(kind) == 0) continue;
      const Kinds& known = LossesThatMake(kind);
      const bool is_known = std::any_of(known.begin(), known.end(), [this](LossKind loss) {
        return receipt_.losses.CountOf(loss) != 0;
      });
      if (!is_known) receipt_.unexpected.push_back(Words(kind));
    }
  }

 private:
  std::string Words(DifferenceKind kind) const {
    const std::int64_t count = differences_.CountOf(kind);
    std::string words =
        text::IntegerText(count) + (count == 1 ? " difference: " : " differences: ");
    words += NameOf(kind);
    const Difference& first = differences_.FirstOf(kind).front();
    if (first.row.a != 0) words += ", row " + written_.Row(first.row.a).Name;
    if (first.column.a != 0) words += ", column " + written_.Column(first.column.a).Name;
    return words;
  }

  const ModelStore& written_;
  const ModelStore& read_;
  Receipt& receipt_;
  Differences differences_;
  std::int32_t last_row_ = 0;
  std::int32_t last_column_ = 0;
};

std::string ObjectiveName(const ModelStore& store, const mps::FileFacts& facts) {
  const std::int32_t row = mps::ObjectiveOf(store.data(), facts);
  return row == 0 ? std::string() : store.Row(row).Name;
}

// What the file was to say beside the model. A minimum need not be said.
void CompareFacts(const ModelStore& store, const mps::FileFacts& facts, const mps::FileFacts& read,
                  Receipt& receipt) {
  using mps::ObjectiveSense;
  const mps::Losses& losses = receipt.losses;
  const bool maximizes = facts.sense == ObjectiveSense::kMaximize;
  if (maximizes != (read.sense == ObjectiveSense::kMaximize) && losses.CountOf(kSense) == 0) {
    receipt.unexpected.emplace_back("another sense of the objective");
  }
  if (facts.objective_constant != read.objective_constant && losses.CountOf(kConstant) == 0) {
    receipt.unexpected.emplace_back("another constant of the objective");
  }
  const bool may_be_another = losses.CountOf(kObjective) != 0 || losses.CountOf(kNameCase) != 0 ||
                              losses.CountOf(kEmptyRow) != 0;
  // A free row with a number for a limit is no N row in the file, and no objective if nobody made it that.
  const std::string objective = ObjectiveName(store, facts);
  const bool is_none = read.objective.empty() && objective != facts.objective;
  if (!may_be_another && !is_none && objective != read.objective) {
    receipt.unexpected.emplace_back("another objective");
  }
}

}  // namespace

Receipt ReceiptOf(const ModelStore& store, const mps::FileFacts& facts, mps::FileLayout layout) {
  Receipt receipt;
  receipt.losses = mps::LossesOf(store, facts, layout);
  receipt.rows = store.NumberOfRows();
  receipt.columns = store.NumberOfColumns();
  receipt.coefficients = store.NumberOfElements();
  return receipt;
}

void CompareWithFile(
    const ModelStore& store, const mps::FileFacts& facts,
    std::unique_ptr<platform::ByteSource> file, Receipt& receipt,
    const std::function<bool(std::uint64_t done, std::uint64_t all)>& on_progress) {
  mps::ReadOptions options;
  options.kept_of_each = 0;
  options.looks_at_records = false;
  options.open = [&file] { return std::move(file); };
  options.on_progress = on_progress;
  ModelStore back;
  const mps::FileRead read = mps::ReadFile({}, options, back);
  receipt.is_read_again = true;
  if (read.outcome != mps::ReadOutcome::kRead) {
    receipt.unexpected.emplace_back("it cannot be read again");
    return;
  }
  receipt.equal_rows = receipt.rows;
  receipt.equal_columns = receipt.columns;
  receipt.equal_coefficients = receipt.coefficients;
  Findings findings(store, back, receipt);
  Compare(store, back, {},
          [&findings](const Difference& difference) { findings.Hear(difference); });
  if (findings.has_gone()) findings.CountGone();
  findings.TellUnexpected();
  CompareFacts(store, facts, read.facts, receipt);
}

}  // namespace quarvel::inspect
