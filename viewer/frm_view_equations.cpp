#include "viewer/frm_view_equations.h"

#include <array>
#include <utility>
#include <vector>

namespace quarvel {

using platform::MsgBoxStyle;
using platform::TextBox;

frmViewEquations::frmViewEquations(platform::Desktop& desktop)
    : ModelView(desktop, "frmViewEquations"),
      menu(*this),
      lblName(*this, "lblName", {12, 16, 84, 20, {}}),
      txtName(*this, "txtName", {100, 12, 648, 24, {0, 0, 100, 0}}),
      lblDescription(*this, "lblDescription", {12, 46, 84, 20, {}}),
      txtDescription(*this, "txtDescription", {100, 42, 648, 48, {0, 0, 100, 0}},
                     TextBox::Lines::kMany),
      sstViewEqns(*this, "sstViewEqns", {12, 98, 736, 430, {0, 0, 100, 100}}, {"Columns", "Rows"}),
      columns(*this),
      rows(*this),
      row_bounds(desktop),
      col_bounds(desktop),
      add_elements(desktop) {
  SetSize(760, 540, true);
  SetSmallestSize(600, 440);
  SurviveFailures();
  set_caption("Model Viewer");
  lblName.set_caption("Name:");
  lblName.access_key = 'N';
  lblDescription.set_caption("Description:");
  lblDescription.access_key = 'D';
  ConnectControls();
}

std::function<void()> frmViewEquations::Handler(void (frmViewEquations::*handler)()) {
  return [this, handler] {
    if (IsReady()) (this->*handler)();
  };
}

void frmViewEquations::ConnectControls() {
  columns.HoldBy(sstViewEqns, kColumnsPage);
  rows.HoldBy(sstViewEqns, kRowsPage);
  sstViewEqns.on_change = Handler(&frmViewEquations::TurnPage);
  ConnectRows();
  ConnectColumns();
  ConnectCommands();
}

void frmViewEquations::EditMode(bool editing) {
  editing_ = editing;
  txtName.set_enabled(editing);
  txtDescription.set_enabled(editing);
  for (const MenuId id :
       {MenuId::kFileNew, MenuId::kFileOpen, MenuId::kFileSave, MenuId::kFileSaveAs}) {
    menu[id].set_enabled(editing);
  }
  UpdateMenus();
}

void frmViewEquations::ShowWindow() {
  if (IsShowing()) {
    Show();
  } else {
    ShowModal();
  }
}

void frmViewEquations::ShowRow(std::int32_t number) {
  current_row_ = number;
  Load();
  sstViewEqns.set_current(kRowsPage);
  rows.list.grid.set_current_row(number - 1);
  rows.list.grid.Focus();
  desktop().DoEvents();
  if (IsLoaded()) ShowWindow();  // unless an event has closed it
}

void frmViewEquations::ShowCol(std::int32_t number) {
  current_column_ = number;
  Load();
  sstViewEqns.set_current(kColumnsPage);
  columns.list.grid.set_current_row(number - 1);
  columns.list.grid.Focus();
  desktop().DoEvents();
  if (IsLoaded()) ShowWindow();
}

void frmViewEquations::RefreshForm() {
  refresh_wanted_ = !IsReady();
  if (refresh_wanted_) return;
  Empty();
  LoadSequence();
}

void frmViewEquations::Pause() {
  if (pauses_++ == 0) SetRedraw(false);
}

// Called where a failure has nobody to go to; what could not be shown then is shown at the next
// refresh.
void frmViewEquations::Resume() {
  if (--pauses_ > 0) return;
  try {
    SetRedraw(true);
    if (std::exchange(refresh_wanted_, false) && IsLoaded()) RefreshForm();
  } catch (...) {
    refresh_wanted_ = false;
  }
}

void frmViewEquations::SetRedraw(bool redraw) {
  for (platform::Grid* grid :
       {&rows.list.grid, &rows.fgrdRowsVars, &rows.fgrdRowsType, &columns.list.grid,
        &columns.fgrdColsEqns, &columns.fgrdColsBounds}) {
    grid->set_redraw(redraw);
  }
}

void frmViewEquations::OnLoad() {
  long_name_warned_ = false;
  rows.list.chkInvert.set_checked(false);
  columns.list.chkInvert.set_checked(false);
  LoadSequence();
}

// The keyboard begins in the list, where typing goes to a name.
void frmViewEquations::OnActivate() {
  (sstViewEqns.current() == kRowsPage ? rows.list : columns.list).grid.Focus();
}

bool frmViewEquations::OnQueryUnload(platform::UnloadReason) {
  if (pauses_ > 0) return false;
  if (parent_ != nullptr && editing_ && !OfferToSave()) return false;
  CloseDialogs();
  return true;
}

// They stand over this window and work on its model.
void frmViewEquations::CloseDialogs() {
  row_bounds.Unload();
  col_bounds.Unload();
  add_elements.Unload();
}

void frmViewEquations::OnUnload() {
  ModelInterface* const parent = std::exchange(parent_, nullptr);
  refresh_wanted_ = false;
  CloseDialogs();
  Empty();
  if (parent != nullptr) parent->frmViewEquationsIsShowing(false);
}

void frmViewEquations::LoadSequence() {
  if (!IsReady()) {
    refresh_wanted_ = true;
    return;
  }
  rows.list.cboShowOnly.set_items({"show all", "non-binding/objectives", "constraints", "less than",
                                   "greater than", "ranges", "equalities"});
  columns.list.cboShowOnly.set_items({"show all", "real", "integer"});
  rows.SetWidths();
  columns.SetWidths();
  if (parent_->NumberOfRows() >= 1 && parent_->NumberOfColumns() > 0) {
    rows.list.cboShowOnly.set_list_index(kShowAll);
    columns.list.cboShowOnly.set_list_index(kShowAll);
    if (current_column_ > 0) columns.list.grid.set_current_row(current_column_ - 1);
    if (current_row_ > 0) rows.list.grid.set_current_row(current_row_ - 1);
  } else {
    FillRows();
    FillColumns();
    EmptyRows();
    EmptyColumns();
  }
  tab_caption_ = sstViewEqns.captions()[static_cast<std::size_t>(sstViewEqns.current())];
  ShowEditPart();
  UpdateMenus();
  txtName.set_text(parent_->ModelName());
  txtDescription.set_text(parent_->ModelDescription());
  boxes_filled_ = true;
}

void frmViewEquations::Empty() {
  boxes_filled_ = false;
  txtName.set_text("");
  txtDescription.set_text("");
  EmptyRows();
  EmptyColumns();
  UpdateMenus();
}

// A model that came up empty has lists that keep nothing; what the edit has added must be seen.
void frmViewEquations::Refill() {
  const auto fill = [this](LinePane& list, void (frmViewEquations::*fill_list)()) {
    if (list.cboShowOnly.list_index() < 0) {
      list.cboShowOnly.set_list_index(kShowAll);
    } else {
      (this->*fill_list)();
    }
  };
  fill(rows.list, &frmViewEquations::FillRows);
  fill(columns.list, &frmViewEquations::FillColumns);
}

void frmViewEquations::TurnPage() {
  tab_caption_ = sstViewEqns.captions()[static_cast<std::size_t>(sstViewEqns.current())];
  ShowEditPart();
  if (sstViewEqns.current() == kRowsPage) {
    if (rows.list.grid.current_row() >= 0) ShowRowDetail();
  } else {
    if (columns.list.grid.current_row() >= 0) ShowColumnDetail();
  }
  UpdateMenus();
}

void frmViewEquations::ShowEditPart() {
  menu[MenuId::kEditRow].set_visible(tab_caption_ == "Rows");
  menu[MenuId::kEditCol].set_visible(tab_caption_ == "Columns");
}

void frmViewEquations::UpdateMenus() {
  const bool row_shown = editing_ && rows.list.filter.count() > 0;
  const bool element_shown =
      row_shown && IsReady() && SelectedRow() && parent_->RowNumberElements(*SelectedRow()) > 0;
  const bool column_shown = editing_ && columns.list.filter.count() > 0;
  const struct {
    MenuId id;
    bool enabled;
  } states[] = {
      {MenuId::kEdit, editing_},
      {MenuId::kEditRow, editing_},
      {MenuId::kEditRowAdd, editing_},
      {MenuId::kEditRowRename, row_shown},
      {MenuId::kEditRowDel, row_shown},
      {MenuId::kEditRowAddEle, row_shown},
      {MenuId::kEditRowChangeEle, element_shown},
      {MenuId::kEditRowDelEle, element_shown},
      {MenuId::kEditRowChangeBnd, row_shown},
      {MenuId::kEditCol, editing_},
      {MenuId::kEditColAdd, editing_},
      {MenuId::kEditColRename, column_shown},
      {MenuId::kEditColDel, column_shown},
      {MenuId::kEditColChangeEle, column_shown},
      {MenuId::kEditColDelEle, column_shown},
      {MenuId::kEditColChangeTypeBnd, column_shown},
      {MenuId::kEditSimplify, editing_ && IsReady() && parent_->NumberOfElements() > 0},
  };
  for (const auto& state : states) menu[state.id].set_enabled(state.enabled);
}

}  // namespace quarvel
