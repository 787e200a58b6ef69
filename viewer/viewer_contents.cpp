#include "viewer/viewer_contents.h"

#include <string>

#include "platform/desktop.h"

namespace quarvel::viewer {

using platform::TextBox;

ViewerContents::ViewerContents(platform::Form& form, const ViewedModel& viewed)
    : lblName(form, "lblName", {12, 16, 84, 20, {}}),
      txtName(form, "txtName", {100, 12, 648, 24, {0, 0, 100, 0}}),
      lblDescription(form, "lblDescription", {12, 46, 84, 20, {}}),
      txtDescription(form, "txtDescription", {100, 42, 648, 48, {0, 0, 100, 0}},
                     TextBox::Lines::kMany),
      sstViewEqns(form, "sstViewEqns", {12, 98, 736, 430, {0, 0, 100, 100}}, {"Columns", "Rows"}),
      columns(form, kColumnsPage, viewed),
      lblColsEqn(form, "lblColsEqn", {376, 402, 360, 18, {50, 60, 100, 60}}),
      txtColsEqn(form, "txtColsEqn", {376, 424, 360, 92, {50, 60, 100, 100}},
                 TextBox::Lines::kMany),
      rows(form, kRowsPage, viewed),
      form_(form),
      viewed_(viewed) {
  lblName.set_caption("Name:");
  lblName.access_key = 'N';
  lblDescription.set_caption("Description:");
  lblDescription.access_key = 'D';
  lblColsEqn.set_caption("Equation:");
  lblColsEqn.access_key = 'q';
  txtColsEqn.read_only = true;
  Connect();
}

void ViewerContents::Connect() {
  columns.HoldBy(sstViewEqns);
  sstViewEqns.Hold(columns.design().number, lblColsEqn);
  sstViewEqns.Hold(columns.design().number, txtColsEqn);
  rows.HoldBy(sstViewEqns);
  sstViewEqns.on_change = viewed_.WhenReady([this] { Turn(); });
  columns.on_element = [this] { ShowEquation(); };
  for (RecordPage* page : {&rows, &columns}) {
    RecordPage& other = PageOf(page->design().kind.other);
    page->on_change = [this] { on_change(); };
    page->on_go = [this, &other](std::int32_t number) { GoTo(other, number); };
  }
}

void ViewerContents::Load() {
  if (!viewed_.IsReady()) {
    refresh_wanted_ = true;
    return;
  }
  const model::ModelInterface& model = *viewed_.model;
  rows.Prepare();
  columns.Prepare();
  if (model.NumberOfRows() >= 1 && model.NumberOfColumns() > 0) {
    rows.cboShowOnly.set_list_index(kShowAll);
    columns.cboShowOnly.set_list_index(kShowAll);
    columns.SelectWanted();
    rows.SelectWanted();
  } else {
    rows.Fill();
    columns.Fill();
    rows.Empty();
    columns.Empty();
  }
  turned_to_ = sstViewEqns.current();
  on_turn();
  txtName.set_text(model.ModelName());
  txtDescription.set_text(model.ModelDescription());
  boxes_filled_ = true;
}

void ViewerContents::Empty() {
  boxes_filled_ = false;
  txtName.set_text("");
  txtDescription.set_text("");
  rows.Empty();
  columns.Empty();
  on_change();
}

void ViewerContents::Refresh() {
  refresh_wanted_ = !viewed_.IsReady();
  if (refresh_wanted_) return;
  Empty();
  Load();
}

void ViewerContents::Refill() {
  rows.Refill();
  columns.Refill();
}

void ViewerContents::ShowEquation() {
  const auto element = columns.SelectedElement();
  if (!element) return txtColsEqn.set_text("");
  txtColsEqn.set_text(element->row.name + ":  " + viewed_.model->RowEquation(element->row.number));
}

void ViewerContents::SetRedraw(bool redraw) {
  rows.SetRedraw(redraw);
  columns.SetRedraw(redraw);
}

void ViewerContents::Turn() {
  turned_to_ = sstViewEqns.current();
  on_turn();
  RecordPage& page = current_page();
  if (page.fgrdList.current_row() >= 0) page.ShowDetails();
  on_change();
}

void ViewerContents::TurnTo(RecordPage& page, int line) {
  sstViewEqns.set_current(page.design().number);
  page.fgrdList.set_current_row(line);
  page.fgrdList.Focus();
  form_.desktop().DoEvents();
}

void ViewerContents::GoTo(RecordPage& page, std::int32_t number) {
  const auto line = page.filter.PlaceOf(number);
  if (!line) return;
  TurnTo(page, *line);
  if (viewed_.IsReady()) page.ShowDetails();
}

}  // namespace quarvel::viewer
