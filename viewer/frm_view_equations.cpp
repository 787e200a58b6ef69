#include "viewer/frm_view_equations.h"

#include <utility>

namespace quarvel::viewer {

frmViewEquations::frmViewEquations(platform::Desktop& desktop)
    : model::ModelView(desktop, "frmViewEquations"),
      menu(*this),
      contents(*this, viewed_),
      desk(*this, viewed_, contents),
      commands_(desk) {
  SetSize(760, 540, true);
  SetSmallestSize(600, 440);
  SurviveFailures();
  set_caption("Model Viewer");
  Connect();
}

void frmViewEquations::Connect() {
  contents.on_change = [this] { menu.Update(desk); };
  contents.on_turn = [this] { menu.ShowPart(contents.turned_to()); };
  menu["mnuEdit"].on_open = [this] {
    menu.ShowPart(contents.turned_to());
    menu.Update(desk);
  };
  menu.Connect(commands_);
  Connect(contents.rows);
  Connect(contents.columns);
}

void frmViewEquations::Connect(RecordPage& page) {
  page.fgrdList.on_delete = menu[page.design().deletion].on_click;
  page.fgrdList.popup = &menu[page.design().menu];
  page.fgrdElements.popup = &menu[page.design().menu];
}

void frmViewEquations::EditMode(bool editing) {
  viewed_.editing = editing;
  contents.txtName.set_enabled(editing);
  contents.txtDescription.set_enabled(editing);
  menu.Update(desk);
}

void frmViewEquations::ShowWindow() {
  if (IsShowing()) {
    Show();
  } else {
    ShowModal();
  }
}

void frmViewEquations::ShowRecord(RecordPage& page, std::int32_t number) {
  page.Want(number);
  Load();
  contents.TurnTo(page, number - 1);
  if (IsLoaded()) ShowWindow();  // unless an event has closed it
}

void frmViewEquations::Pause() {
  if (viewed_.pauses++ == 0) contents.SetRedraw(false);
}

// Called where a failure has nobody to go to; what could not be shown then is shown at the next
// refresh.
void frmViewEquations::Resume() {
  if (--viewed_.pauses > 0) return;
  try {
    contents.SetRedraw(true);
    if (contents.TakeWantedRefresh() && IsLoaded()) RefreshForm();
  } catch (...) {
    contents.TakeWantedRefresh();
  }
}

void frmViewEquations::OnLoad() {
  desk.BeginLife();
  contents.rows.chkInvert.set_checked(false);
  contents.columns.chkInvert.set_checked(false);
  contents.Load();
}

// The keyboard begins in the list, where typing goes to a name.
void frmViewEquations::OnActivate() { contents.current_page().fgrdList.Focus(); }

bool frmViewEquations::OnQueryUnload(platform::UnloadReason) {
  if (viewed_.pauses > 0) return false;
  if (viewed_.model != nullptr && viewed_.editing && !commands_.file.OfferToSave()) return false;
  desk.CloseDialogs();
  return true;
}

void frmViewEquations::OnUnload() {
  model::ModelInterface* const model = std::exchange(viewed_.model, nullptr);
  if (model != nullptr) model->frmViewEquationsIsShowing(false);  // whatever the rest comes to
  desk.CloseDialogs();
  contents.Empty();
}

}  // namespace quarvel::viewer
