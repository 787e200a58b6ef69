#include "viewer/page_design.h"

#include "model/record_types.h"
#include "text/numbers.h"

namespace quarvel::viewer {
namespace {

using platform::Follow;
using platform::Place;
using text::IntegerText;
using text::RoundTripText;

// The list takes one half of what a wider window offers, the details the other.
constexpr Follow kLeftFull{0, 0, 50, 100};
constexpr Follow kRightFull{50, 0, 100, 100};
constexpr Follow kRightBottom{50, 100, 100, 100};
// On the page of columns rows and equation share what a higher window offers.
constexpr Follow kRightUpper{50, 0, 100, 60};
constexpr Follow kRightMiddle{50, 60, 100, 60};

constexpr Place kListGrid{34, 186, 320, 320, kLeftFull};

std::string RowTypeWord(const model::ModelQueries& model, std::int32_t row, std::int32_t) {
  return std::string(model::TraitsOf(model::RowTypeOf(model.RowType(row))).word);
}

std::string ColumnTypeWord(const model::ModelQueries& model, std::int32_t column, std::int32_t) {
  return std::string(model::TraitsOf(model::ColumnTypeOf(model.ColType(column))).word);
}

std::string RelationText(const model::ModelQueries& model, std::int32_t row, std::int32_t) {
  const model::RowType type = model::RowTypeOf(model.RowType(row));
  const model::RowTypeTraits& traits = model::TraitsOf(type);
  const std::string lower = RoundTripText(model.RowLowerBound(row));
  const std::string upper = RoundTripText(model.RowUpperBound(row));
  if (type == model::RowType::kFree) return "Objective";
  if (type == model::RowType::kRanged) return lower + " <= " + model.RowName(row) + " <= " + upper;
  if (traits.sign.empty()) return "";
  return std::string(traits.sign) + "  " + (traits.has_upper ? upper : lower);
}

constexpr GridColumn kRowList[] = {
    {128, [](const model::ModelQueries& model, std::int32_t i,
             std::int32_t) { return model.RowName(i); }},
    {72, RowTypeWord},
};
constexpr GridColumn kRowElements[] = {
    {120, [](const model::ModelQueries& model, std::int32_t i,
             std::int32_t k) { return model.ColName(model.RowElementCol(i, k)); }},
    {88, [](const model::ModelQueries& model, std::int32_t i,
            std::int32_t k) { return RoundTripText(model.RowElementValue(i, k)); }},
};
constexpr GridColumn kRowBounds[] = {{340, RelationText}};

constexpr GridColumn kColumnList[] = {
    {190, [](const model::ModelQueries& model, std::int32_t j,
             std::int32_t) { return model.ColName(j); }},
    {64, ColumnTypeWord},
};
constexpr GridColumn kColumnElements[] = {
    {152, [](const model::ModelQueries& model, std::int32_t j,
             std::int32_t k) { return model.RowName(model.ColElementrow(j, k)); }},
};
constexpr GridColumn kColumnBounds[] = {
    {104, [](const model::ModelQueries& model, std::int32_t j,
             std::int32_t) { return RoundTripText(model.ColLowerBound(j)); }},
    {88, [](const model::ModelQueries& model, std::int32_t j,
            std::int32_t) { return "<= " + model.ColName(j) + " <="; }},
    {148, [](const model::ModelQueries& model, std::int32_t j,
             std::int32_t) { return RoundTripText(model.ColUpperBound(j)); }},
};

std::string VariablesCaption(const std::string& row, std::int32_t elements) {
  if (elements == 0) return "Variables:  " + row;
  return "Variables in " + row + " (" + IntegerText(elements) + "):";
}

std::string AppearancesCaption(const std::string& column, std::int32_t elements) {
  return "Rows that " + column + " appears in (" + IntegerText(elements) + "):";
}

}  // namespace

const PageDesign kRowsPage = {
    .kind = model::kRowKind,
    .number = 1,
    .controls = "Rows",
    .menu = "mnuEditRow",
    .deletion = "mnuEditRowDel",
    .filters = kRowFilters,
    .list = {"fgrdRows", kListGrid, kRowList},
    .frame = "fraVars",
    .frame_place = {376, 134, 360, 314, kRightFull},
    .frame_caption = VariablesCaption,
    .elements = {"fgrdRowsVars", {386, 156, 340, 282, kRightFull}, kRowElements},
    .bounds_label = "lblRowsType",
    .bounds_label_place = {376, 458, 360, 18, kRightBottom},
    .bounds_caption = "Type and bounds:",
    .bounds_key = 'T',
    .bounds = {"fgrdRowsType", {376, 480, 360, 36, kRightBottom}, kRowBounds},
};

const PageDesign kColumnsPage = {
    .kind = model::kColumnKind,
    .number = 0,
    .controls = "Cols",
    .menu = "mnuEditCol",
    .deletion = "mnuEditColDel",
    .filters = kColumnFilters,
    .list = {"fgrdCols", kListGrid, kColumnList},
    .frame = "fraEqns",
    .frame_place = {376, 134, 360, 190, kRightUpper},
    .frame_caption = AppearancesCaption,
    .elements = {"fgrdColsEqns", {386, 156, 340, 158, kRightUpper}, kColumnElements},
    .bounds_label = "lblColsBounds",
    .bounds_label_place = {376, 334, 360, 18, kRightMiddle},
    .bounds_caption = "Bounds:",
    .bounds_key = 'B',
    .bounds = {"fgrdColsBounds", {376, 356, 360, 36, kRightMiddle}, kColumnBounds},
};

}  // namespace quarvel::viewer
