#include "component/lp_model.h"

#include <utility>

#include "component/model_windows.h"
#include "model/about.h"
#include "platform/box.h"
#include "platform/desktop.h"

namespace quarvel {

LPModel::LPModel(platform::Desktop& desktop)
    : desktop_(desktop),
      windows_(Guarded([&] { return std::make_unique<ModelWindows>(desktop, view_); })) {}

LPModel::~LPModel() = default;

void LPModel::MakeNewModel() {
  Guarded([&] {
    // The hidden records that the add operations take over; with both counts at 0 no query sees them.
    // The row's type and bounds do not fit each other, and hosts have come to rely on what the first
    // added row starts with.
    model::ColumnRecord column;
    column.Name = "COL1";
    column.Type = model::ColumnType::kContinuous;
    column.UpperBound = model::BoundLimit;
    model::RowRecord row;
    row.Name = "ROW1";
    row.Type = model::RowType::kLess;
    row.UpperBound = model::BoundLimit;
    store_.StartAnew(std::move(row), std::move(column));
    log_.Abandon();
  });
}

void LPModel::DisplayAuthor() const {
  Guarded([&] {
    desktop_.MsgBox({.kind = platform::BoxKind::kAbout,
                     .statement = model::AboutText(),
                     .question = {},
                     .title = std::string(model::kAboutTitle)});
  });
}

void LPModel::Refuse(std::string_view text) const { desktop_.MsgBox(platform::Refusal(text)); }

}  // namespace quarvel
