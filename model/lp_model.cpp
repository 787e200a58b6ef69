#include "model/lp_model.h"

#include <utility>

#include "model/about.h"
#include "platform/box.h"
#include "platform/desktop.h"

namespace quarvel {

namespace {

// Settles the model when anything but deletions of that kind is put off.
std::int32_t StoredPosition(ModelData& data, PendingRemovals::Kind kind, std::int32_t number) {
  if (data.row_lists_pending || data.removals.kind() != kind) Settle(data);
  return data.removals.Position(kind, number);
}

}  // namespace

LPModel::LPModel(platform::Desktop& desktop) : desktop_(desktop) {}

LPModel::~LPModel() = default;

const RowRecord& LPModel::RowBehindGaps(std::int32_t i) const {
  const std::int32_t r = CheckRow(data_, i);
  return data_.Rows[StoredPosition(data_, PendingRemovals::Kind::kRows, r)];
}

const ColumnRecord& LPModel::ColumnBehindGaps(std::int32_t j) const {
  const std::int32_t c = CheckColumn(data_, j);
  return data_.Columns[StoredPosition(data_, PendingRemovals::Kind::kColumns, c)];
}

void LPModel::MakeNewModel() {
  data_.ModelName.clear();
  data_.ModelDescription.clear();
  data_.FileLocation.clear();
  ReleaseRowsAndColumns(data_);
  // The hidden records that the add operations take over; with both counts at 0 no query sees them.
  // The row's type and bounds do not fit each other, and hosts have come to rely on what the first
  // added row starts with.
  ColumnRecord column;
  column.Name = "COL1";
  column.Type = ColumnType::kContinuous;
  column.UpperBound = BoundLimit;
  data_.Columns.Append(std::move(column));
  RowRecord row;
  row.Name = "ROW1";
  row.Type = quarvel::RowType::kLess;
  row.UpperBound = BoundLimit;
  data_.Rows.Append(std::move(row));
  data_.strMPSFile.clear();
  CloseLog();
}

void LPModel::ClearModel() {
  data_.ModelName.clear();
  data_.ModelDescription.clear();
  data_.FileLocation.clear();
  ReleaseRowsAndColumns(data_);
  data_.strMPSFile.clear();
  CloseLog();
}

void LPModel::DisplayAuthor() const {
  desktop_.MsgBox({.kind = platform::BoxKind::kAbout,
                   .statement = AboutText(),
                   .question = {},
                   .title = std::string(kAboutTitle)});
}

void LPModel::Refuse(std::string_view text) const { desktop_.MsgBox(platform::Refusal(text)); }

void LPModel::AppendToLog(std::string_view line) {
  log_->Write(line);
  log_->Write("\r\n");
}

void LPModel::CloseLog() {
  data_.LogFileNumber = 0;
  log_.reset();
}

}  // namespace quarvel
