// A page of the viewer: a filtered list of the records of one kind on the left, what is known of
// its current one on the right. It is used twice; what differs stands in its design.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "platform/basic_controls.h"
#include "platform/grid.h"
#include "platform/input_controls.h"
#include "viewer/named_record.h"
#include "viewer/page_design.h"
#include "viewer/record_filter.h"
#include "viewer/viewed_model.h"

namespace quarvel::viewer {

class RecordPage {
 public:
  // `viewed` outlives the page.
  RecordPage(platform::Form& form, const PageDesign& design, const ViewedModel& viewed);
  void HoldBy(platform::TabStrip& strip);
  const PageDesign& design() const { return design_; }

  // What was selected or is shown of it may have changed.
  std::function<void()> on_change;
  // Another element is current in the details, or none.
  std::function<void()> on_element = [] {};
  // The user wants to see the record that the current element stands at.
  std::function<void(std::int32_t number)> on_go;

  // The filter's entries, none of them chosen, and the widths of every opening.
  void Prepare();
  // The list afresh, by its filter, with the details of the current record.
  void Fill();
  // After an edit. A model that came up empty has a list that keeps nothing; what the edit has
  // added must be seen.
  void Refill();
  void Empty();
  void ShowDetails();
  // The number is another record's from now on: its details begin at their first line.
  void ForgetDetails() { detail_ = -1; }
  // While off, the grids show what they showed.
  void SetRedraw(bool redraw);
  // The record, by its 1-based number, that is current whenever the window is filled; 0 for none. It
  // is taken for the place in the list, so the one that is meant is found where the filter keeps all.
  void Want(std::int32_t number) { wanted_ = number; }
  void SelectWanted();

  // What is selected and still in the model.
  std::optional<std::int32_t> Selected() const;
  std::optional<NamedRecord> SelectedRecord() const;
  std::optional<NamedElement> SelectedElement() const;

  platform::Label lblShowOnly;
  platform::ComboBox cboShowOnly;
  platform::CheckBox chkInvert;
  platform::Frame fraList;
  platform::Grid fgrdList;
  platform::Frame fraElements;
  platform::Grid fgrdElements;
  platform::Label lblBounds;
  platform::Grid fgrdBounds;
  RecordFilter filter;

 private:
  void Connect();
  void ShowList(std::int32_t count);
  void ClearDetails();
  void GoToOther();
  std::string ListCell(int line, int column) const;
  std::string DetailCell(const GridDesign& grid, int line, int column) const;

  const PageDesign& design_;
  const ViewedModel& viewed_;
  std::int32_t wanted_ = 0;
  std::int32_t detail_ = -1;  // the record that the details show, by public number; -1 for none
};

}  // namespace quarvel::viewer
