// Which command of the viewer runs when, and what they share.

#include "model/long_name.h"
#include "viewer/frm_view_equations.h"

namespace quarvel {

using platform::MsgBoxResult;
using platform::MsgBoxStyle;

std::span<const frmViewEquations::Command> frmViewEquations::Commands() {
  using Viewer = frmViewEquations;
  static constexpr Command kCommands[] = {
      {MenuId::kFileNew, true, &Viewer::FileNew},
      {MenuId::kFileOpen, true, &Viewer::FileOpen},
      {MenuId::kFileSave, true, &Viewer::FileSave},
      {MenuId::kFileSaveAs, true, &Viewer::FileSaveAs},
      {MenuId::kFileExit, false, &Viewer::FileExit},
      {MenuId::kEditRowAdd, true, &Viewer::RowAdd},
      {MenuId::kEditRowRename, true, &Viewer::RowRename},
      {MenuId::kEditRowDel, true, &Viewer::RowDel},
      {MenuId::kEditRowAddEle, true, &Viewer::RowAddEle},
      {MenuId::kEditRowChangeEle, true, &Viewer::RowChangeEle},
      {MenuId::kEditRowDelEle, true, &Viewer::RowDelEle},
      {MenuId::kEditRowChangeBnd, true, &Viewer::RowChangeBnd},
      {MenuId::kEditColAdd, true, &Viewer::ColAdd},
      {MenuId::kEditColRename, true, &Viewer::ColRename},
      {MenuId::kEditColDel, true, &Viewer::ColDel},
      {MenuId::kEditColChangeEle, true, &Viewer::ColChangeEle},
      {MenuId::kEditColDelEle, true, &Viewer::ColDelEle},
      {MenuId::kEditColChangeTypeBnd, true, &Viewer::ColChangeTypeBnd},
      {MenuId::kEditSimplify, true, &Viewer::Simplify},
      {MenuId::kHelpHelp, false, &Viewer::HelpHelp},
      {MenuId::kHelpAbout, false, &Viewer::HelpAbout},
  };
  return kCommands;
}

void frmViewEquations::ConnectCommands() {
  menu[MenuId::kEdit].on_open = [this] {
    ShowEditPart();
    UpdateMenus();
  };
  for (const Command& command : Commands()) {
    const std::function<void()> run = [this, &command] { Run(command); };
    menu[command.id].on_click = run;
    if (command.id == MenuId::kEditRowDel) rows.list.grid.on_delete = run;
    if (command.id == MenuId::kEditColDel) columns.list.grid.on_delete = run;
  }
}

void frmViewEquations::Run(const Command& command) {
  if (!IsReady() || (command.edits && !editing_)) return;
  try {
    (this->*command.run)();
  } catch (...) {
    // What a failed command has changed before is to be seen.
    if (IsReady()) Refill();
    throw;
  }
}

void frmViewEquations::Say(std::string_view text) { desktop().MsgBox(text, MsgBoxStyle::kOk); }

void frmViewEquations::GiveUp(std::string_view text) {
  Say(text);
  if (IsReady()) Refill();
}

bool frmViewEquations::ConfirmDeletion(const std::string& what) {
  const MsgBoxResult answer = desktop().MsgBox("Are you sure you want delete " + what + "?",
                                               MsgBoxStyle::kYesNo, "Confirm Deletion");
  return answer == MsgBoxResult::kYes && IsReady();
}

std::string frmViewEquations::AskName(std::string_view prompt, std::string_view refusal) {
  while (true) {
    std::string name = desktop().InputBox(prompt, platform::kDefaultTitle, "");
    if (name.find(' ') == std::string::npos) return name;
    Say(refusal);
  }
}

void frmViewEquations::WarnOfLongName(std::string_view name) {
  if (long_name_warned_ || !IsLongName(name)) return;
  long_name_warned_ = true;
  Say(kLongNameWarning);
}

}  // namespace quarvel
