// What the viewer shows of its model: name and description, and a page for either kind of record.
// It fills all that; the window above it lives and closes, and the commands change the model.
#pragma once

#include <functional>
#include <utility>

#include "platform/basic_controls.h"
#include "platform/input_controls.h"
#include "viewer/record_page.h"
#include "viewer/viewed_model.h"

namespace quarvel::viewer {

class ViewerContents {
 public:
  // `viewed` outlives it.
  ViewerContents(platform::Form& form, const ViewedModel& viewed);

  // What is selected or shown may have changed.
  std::function<void()> on_change;
  // Another page is shown.
  std::function<void()> on_turn;

  // Fills the window from the model, as at every opening. What cannot be shown now, while the model
  // is not to be asked, is shown at the next refresh.
  void Load();
  void Empty();
  // Both.
  void Refresh();
  // Whether a refresh was wanted in vain; it is not any more.
  bool TakeWantedRefresh() { return std::exchange(refresh_wanted_, false); }
  // After an edit: both lists, rows first.
  void Refill();
  void ShowEquation();
  // While off, the grids show what they showed.
  void SetRedraw(bool redraw);
  // Turns to a page and a line of its list, lets events run.
  void TurnTo(RecordPage& page, int line);

  RecordPage& PageOf(const model::RecordKind& kind) {
    return &kind == &model::kRowKind ? rows : columns;
  }
  // The page that the tab strip shows now.
  RecordPage& current_page() {
    return sstViewEqns.current() == rows.design().number ? rows : columns;
  }
  // The number of the page that was turned to last; it is not when the model was not to be asked.
  int turned_to() const { return turned_to_; }
  // Name and description are the model's, so that they may be stored in it.
  bool boxes_filled() const { return boxes_filled_; }

  platform::Label lblName;
  platform::TextBox txtName;
  platform::Label lblDescription;
  platform::TextBox txtDescription;
  platform::TabStrip sstViewEqns;
  RecordPage columns;
  // The equation of the row in which the current column appears.
  platform::Label lblColsEqn;
  platform::TextBox txtColsEqn;
  RecordPage rows;

 private:
  void Connect();
  void Turn();
  void GoTo(RecordPage& page, std::int32_t number);

  platform::Form& form_;
  const ViewedModel& viewed_;
  bool refresh_wanted_ = false;
  bool boxes_filled_ = false;
  int turned_to_ = -1;
};

}  // namespace quarvel::viewer
