// What must hold of the viewer, its controls and its model whatever was done to them. Each gives what
// is wrong, an empty text when nothing is.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>

#include "component/lp_model.h"
#include "model/model_check.h"
#include "platform/grid.h"
#include "platform/input_controls.h"
#include "tests/support/naive_model.h"
#include "text/numbers.h"
#include "viewer/viewer_contents.h"

namespace quarvel::fuzz {

// What the edit operations look at of a model, for choosing the next one.
inline testing::NaiveModel Sketch(const model::ModelData& data) {
  testing::NaiveModel sketch;
  sketch.NumberOfRows = data.NumberOfRows;
  sketch.NumberOfColumns = data.NumberOfColumns;
  sketch.NumberOfElements = data.NumberOfElements;
  for (const model::RowRecord& row : data.Rows) {
    auto& elements = sketch.Rows.emplace_back().Elements;
    for (const model::ElementEntry& entry : row.Elements) {
      elements.push_back({entry.Index, entry.Value});
    }
  }
  return sketch;
}

inline bool HasPairTwice(const testing::NaiveModel& sketch) {
  return std::any_of(sketch.Rows.begin(), sketch.Rows.end(), [](const auto& row) {
    std::set<std::int32_t> columns;
    for (const auto& entry : row.Elements) columns.insert(entry.Index);
    return columns.size() != row.Elements.size();
  });
}

// A value is set in the first entry of each list alone, so that lists with a pair twice may differ.
inline std::string FaultOf(const model::ModelStore& store) {
  return HasPairTwice(Sketch(store.data())) ? "" : model::CheckModelData(store);
}

inline std::string FaultOf(const platform::Grid& grid) {
  // Every cell has a text, whatever has become of what it tells of.
  for (int row = 0; row < grid.rows(); ++row) {
    for (int column = 0; column < grid.columns(); ++column)
      static_cast<void>(grid.Text(row, column));
  }
  const bool inside = grid.current_row() >= -1 && grid.current_row() < std::max(grid.rows(), 1);
  return inside ? "" : "the current line is outside of " + grid.name();
}

inline std::string FaultOf(const platform::Control& control) {
  using namespace platform;
  if (control.kind() == ControlKind::kGrid) return FaultOf(static_cast<const Grid&>(control));
  if (control.kind() == ControlKind::kComboBox) {
    const auto& box = static_cast<const ComboBox&>(control);
    const bool inside = box.list_index() < static_cast<int>(box.items().size());
    return inside ? "" : "the entry is outside of " + box.name();
  }
  if (control.kind() == ControlKind::kTextBox) {
    const auto& box = static_cast<const TextBox&>(control);
    const bool torn = box.lines() == TextBox::Lines::kOne &&
                      box.text().find_first_of("\r\n") != std::string::npos;
    return torn ? "a line end in " + box.name() : "";
  }
  return "";
}

inline std::string FaultOf(const viewer::RecordPage& page) {
  if (page.filter.count() != page.fgrdList.rows()) return "another number of lines";
  for (int line = 1; line < page.filter.count(); ++line) {
    if (*page.filter.At(line - 1) >= *page.filter.At(line)) return "lines out of order";
  }
  return "";
}

// Of a page that shows all of that many records.
template <class NameOf>
std::string FaultOfFilled(const viewer::RecordPage& page, std::int32_t records,
                          const NameOf& name) {
  const std::int32_t lines = page.chkInvert.checked() ? 0 : records;
  if (page.fgrdList.rows() != lines) return "not all records are listed";
  const std::string& caption = page.fraList.caption();
  if (!caption.ends_with(" (" + text::IntegerText(records) + ")")) return "caption " + caption;
  for (std::int32_t line = 0; line < lines; ++line) {
    if (page.fgrdList.Text(line, 0) != name(line)) return "another name is listed";
  }
  return "";
}

// Of a window that was just filled from the model. One without rows or without columns lists
// nothing.
inline std::string FaultOfFilled(const viewer::ViewerContents& contents, const LPModel& model) {
  const std::string name = model.ModelName();
  const bool one_line = name.find_first_of("\r\n") == std::string::npos;
  if (one_line && contents.txtName.text() != name) return "another name of the model";
  const bool lists = model.NumberOfRows() >= 1 && model.NumberOfColumns() >= 1;
  std::string fault = FaultOfFilled(contents.rows, lists ? model.NumberOfRows() : 0,
                                    [&model](std::int32_t i) { return model.RowName(i); });
  if (!fault.empty()) return fault;
  return FaultOfFilled(contents.columns, lists ? model.NumberOfColumns() : 0,
                       [&model](std::int32_t j) { return model.ColName(j); });
}

}  // namespace quarvel::fuzz
