#include "tests/win32/every_control.h"

namespace quarvel::platform::win32 {

frmEveryControl::frmEveryControl(Desktop& desktop) : Form(desktop, "frmEveryControl") {
  SetSize(500, 390, true);
  mnuFile.on_open = [this] { Note("mnuFile opens"); };
  mnuFileNew.on_click = [this] { Note("mnuFileNew"); };
  mnuFileNew.shortcut = Ctrl('N');
  mnuFileNew.access_key = 'N';
  mnuFile.access_key = 'F';
  mnuFileLine.is_separator = true;
  mnuFileExit.on_click = [this] { Unload(); };
  mnuFileExit.access_key = 'x';
  lblName.access_key = 'a';
  lblNote.access_key = 'o';
  chkInvert.access_key = 'I';
  cmdGo.access_key = 'G';
  txtName.on_change = [this] { Note("txtName " + txtName.text()); };
  txtNote.on_change = [this] { Note("txtNote " + txtNote.text()); };
  tabs.on_change = [this] { Note("tabs " + std::to_string(tabs.current())); };
  cboKind.on_click = [this] { Note("cboKind " + std::to_string(cboKind.list_index())); };
  chkInvert.on_click = [this] { Note(chkInvert.checked() ? "chkInvert on" : "chkInvert off"); };
  cmdGo.on_click = [this] { Note("cmdGo"); };
  cmdStop.on_click = [this] { Note("cmdStop"); };
  cmdGo.is_default = true;
  cmdStop.is_cancel = true;
  grdList.cell = [](int row, int column) {
    return column == 0 ? "ROW" + std::to_string(row) : std::string("less than");
  };
  grdList.on_row_change = [this] { Note("grdList " + std::to_string(grdList.current_row())); };
  grdList.on_double_click = [this] { Note("grdList double"); };
  grdList.on_delete = [this] { Note("grdList delete"); };
  grdList.popup = &mnuFile;
  grdMore.cell = [](int row, int column) {
    if (row == 0) return std::string(column == 0 ? "i.d." : "name");
    return (column == 0 ? "" : "COL") + std::to_string(row);
  };
  grdMore.on_row_change = [this] { Note("grdMore " + std::to_string(grdMore.current_row())); };
}

void frmEveryControl::OnLoad() {
  set_caption("Every control");
  mnuFile.set_caption("File");
  mnuFileNew.set_caption("New");
  mnuFileHidden.set_caption("Hidden");
  mnuFileHidden.set_visible(false);
  mnuFileExit.set_caption("Exit");
  lblName.set_caption("Name:");
  lblNote.set_caption("Note:");
  txtName.set_text("diet & more");
  txtNote.set_text("first line\r\nsecond line");
  fraList.set_caption("Rows (12)");
  fraMore.set_caption("R&D in ROW1 (3):");
  lblKind.set_caption("Show:");
  cboKind.set_items({"show all", "less than", "greater than"});
  chkInvert.set_caption("Invert");
  optOne.set_caption("One");
  optTwo.set_caption("Two");
  optOne.set_value(true);
  cmdGo.set_caption("Go");
  cmdStop.set_caption("Stop");
  barWork.set_range(0, 200);
  barWork.set_value(50);
  grdList.set_rows(12);
  grdMore.set_rows(4);
}

}  // namespace quarvel::platform::win32
