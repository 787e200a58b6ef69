#include <cstdint>
#include <new>
#include <string_view>

#include "component/lp_model.h"
#include "component/results.h"
#include "model/long_name.h"
#include "model/name_key.h"
#include "platform/box.h"
#include "platform/desktop.h"

namespace quarvel {
namespace {

struct NameRefusals {
  std::string_view spaces;
  std::string_view empty;
  std::string_view in_use;
};

constexpr NameRefusals kRowRefusals = {
    "Row not added:  spaces are not allowed in row names",
    "Row not added:  empty name given",
    "Row not added:  that name is already in use",
};

constexpr NameRefusals kColumnRefusals = {
    "Column not added:  spaces are not allowed in column names",
    "Column not added:  empty name given",
    "Column not added:  that name is already in use",
};

// The text of the first rule that refuses the name; empty when it may be added.
std::string_view RefusalOf(std::string_view name, const NameRefusals& refusals, bool in_use) {
  if (name.find(' ') != std::string_view::npos) return refusals.spaces;
  if (name.empty()) return refusals.empty;
  return in_use ? refusals.in_use : std::string_view();
}

}  // namespace

// The record stands: a warning that there is no memory for is given with the next long name.
void LPModel::WarnOfLongName() {
  try {
    desktop_.MsgBox(platform::Note(model::kLongNameWarning));
  } catch (const std::bad_alloc&) {
    return;
  }
  store_.settings().LongNameWarningShown = true;
}

void LPModel::AddElement(std::int32_t row, std::int32_t col, double val) {
  Guarded([&] {
    if (!model::InRange(row, NumberOfRows()) || !model::InRange(col, NumberOfColumns())) {
      Refuse("Invalid row or column given when attempting to AddElement()");
      return;
    }
    store_.AddElement(model::Stored(row), model::Stored(col), val);
  });
}

std::int16_t LPModel::AddRow(std::string_view RowName) {
  return Guarded([&] {
    const model::NameKey key = model::NameKey::Of(RowName);
    const bool in_use = store_.FindRow(key, RowName) != 0;
    if (const auto refusal = RefusalOf(RowName, kRowRefusals, in_use); !refusal.empty()) {
      Refuse(refusal);
      return Number(EditResult::kRefused);
    }
    store_.AddRow(key, RowName);
    WarnOnceOfLongName(RowName);
    return Number(EditResult::kDone);
  });
}

std::int16_t LPModel::AddColumn(std::string_view ColName) {
  return Guarded([&] {
    const model::NameKey key = model::NameKey::Of(ColName);
    const bool in_use = store_.FindColumn(key, ColName) != 0;
    if (const auto refusal = RefusalOf(ColName, kColumnRefusals, in_use); !refusal.empty()) {
      Refuse(refusal);
      return Number(EditResult::kRefused);
    }
    const std::int32_t c = store_.AddColumn(key, ColName);
    store_.ColumnBounds(c).UpperBound = model::BoundLimit;
    store_.SetColumnType(c, model::ColumnType::kContinuous);
    WarnOnceOfLongName(ColName);
    return Number(EditResult::kDone);
  });
}

}  // namespace quarvel
