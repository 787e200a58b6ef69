// The viewer: one window on a model, with a list of rows and a list of columns, what is known of
// the current one, and, when editing is enabled, the commands that change the model. It reads and
// changes the model through public operations only and fills its lists again after each of its own
// changes.
//
// A model has one such object; it is loaded afresh at every opening and lets go of the model when
// it closes. Everything that follows a box looks anew at what is selected: a host may have changed
// the model, or closed the window, meanwhile.
//
// Sources: frm_view_equations.cpp (life, filling), viewer_rows.cpp and viewer_columns.cpp (lists
// and details), viewer_commands.cpp (which command runs when), viewer_file_commands.cpp,
// viewer_row_commands.cpp, viewer_column_commands.cpp, viewer_element_commands.cpp.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "model/model_interface.h"
#include "model/model_view.h"
#include "viewer/frm_add_elements_to_row.h"
#include "viewer/frm_set_col_bounds.h"
#include "viewer/frm_set_row_bounds.h"
#include "viewer/viewer_menu.h"
#include "viewer/viewer_tabs.h"

namespace quarvel {

class frmViewEquations : public ModelView {
 public:
  explicit frmViewEquations(platform::Desktop& desktop);

  // The model that is shown and changed; to be set before the window is.
  void Parent(ModelInterface& model) { parent_ = &model; }
  // Whether the commands that change the model are there.
  void EditMode(bool editing);
  // Each shows the window modally, or brings it to the front when it is open.
  void ShowWindow();
  // Turn to a row or column, by its 1-based number, first. They take it for the place in the list,
  // so they find the one that is meant where the filter keeps all.
  void ShowRow(std::int32_t number);
  void ShowCol(std::int32_t number);

  void RefreshForm() override;
  void Pause() override;
  void Resume() override;

  static constexpr int kColumnsPage = 0;
  static constexpr int kRowsPage = 1;

  ViewerMenu menu;
  platform::Label lblName;
  platform::TextBox txtName;
  platform::Label lblDescription;
  platform::TextBox txtDescription;
  platform::TabStrip sstViewEqns;
  ColumnsTab columns;
  RowsTab rows;
  // The dialogs, shown over this window.
  frmSetRowBounds row_bounds;
  frmSetColBounds col_bounds;
  frmAddElementsToRow add_elements;

 protected:
  void OnLoad() override;
  void OnActivate() override;
  bool OnQueryUnload(platform::UnloadReason reason) override;
  void OnUnload() override;

 private:
  struct Command {
    MenuId id;
    bool edits;  // does nothing without editing, however it was reached
    void (frmViewEquations::*run)();
  };
  // A row or column that a command has named to the user.
  struct Named {
    std::int32_t number;
    std::string name;
  };
  // A coefficient: its row and column, and its place in the row's list.
  struct Element {
    Named row;
    Named column;
    std::int32_t place;
  };

  // --- life and filling (frm_view_equations.cpp) ---
  void ConnectControls();
  // A handler that does nothing while the model is not to be asked.
  std::function<void()> Handler(void (frmViewEquations::*handler)());
  bool IsReady() const { return parent_ != nullptr && pauses_ == 0; }
  void LoadSequence();
  void Empty();
  void CloseDialogs();
  // After an edit: both lists, rows first.
  void Refill();
  void TurnPage();
  void ShowEditPart();
  void UpdateMenus();
  void SetRedraw(bool redraw);

  // --- lists and details (viewer_rows.cpp, viewer_columns.cpp) ---
  void ConnectRows();
  void ConnectColumns();
  void FillRows();
  void FillColumns();
  void EmptyRows();
  void EmptyColumns();
  void ShowRowDetail();
  void ShowColumnDetail();
  void ClearRowDetail();
  void ClearColumnDetail();
  void ShowEquation();
  void GoToColumn();
  void GoToRow();
  std::string RowsCell(int line, int column) const;
  std::string RowsVarsCell(int line, int column) const;
  std::string RowsTypeCell() const;
  std::string ColsCell(int line, int column) const;
  std::string ColsEqnsCell(int line) const;
  std::string ColsBoundsCell(int column) const;
  // What is selected and still in the model. Elements: on the Rows tab, on the Columns tab.
  std::optional<std::int32_t> SelectedRow() const;
  std::optional<std::int32_t> SelectedColumn() const;
  std::optional<Named> NamedRow() const;
  std::optional<Named> NamedColumn() const;
  std::optional<Element> SelectedElementOfRow() const;
  std::optional<Element> SelectedElementOfColumn() const;
  // A host may have changed the model, or closed the window, under a box: only what was named is
  // acted on.
  bool IsStillRow(const Named& row) const;
  bool IsStillColumn(const Named& column) const;
  bool IsStillThere(const Element& element) const;

  // --- commands ---
  static std::span<const Command> Commands();
  void ConnectCommands();
  void Run(const Command& command);
  void Say(std::string_view text);
  // What a command was about is gone: says so and shows what there is now.
  void GiveUp(std::string_view text);
  bool ConfirmDeletion(const std::string& what);
  std::string AskName(std::string_view prompt, std::string_view refusal);
  void WarnOfLongName(std::string_view name);

  void FileNew();
  void FileOpen();
  void FileSave();
  void FileSaveAs();
  void FileExit();
  void HelpHelp();
  void HelpAbout();
  void Simplify();
  // Asks whether to save what there is; false when the model is to stay as it is.
  bool OfferToSave();
  // True when the model has been written.
  bool Save();
  bool HasElementsToSave();

  void RowAdd();
  void RowRename();
  void RowDel();
  void RowAddEle();
  void RowChangeBnd();
  void ColAdd();
  void ColRename();
  void ColDel();
  void ColChangeTypeBnd();
  void RowDelEle();
  void RowChangeEle();
  void ColDelEle();
  void ColChangeEle();
  void StoreValue(const Element& element, double value);

  ModelInterface* parent_ = nullptr;
  bool editing_ = false;
  int pauses_ = 0;
  bool refresh_wanted_ = false;  // a refresh that came during a pause
  bool long_name_warned_ = false;
  bool boxes_filled_ = false;     // name and description show the model's
  std::int32_t current_row_ = 0;  // 1-based, as last shown; 0 before
  std::int32_t current_column_ = 0;
  std::string tab_caption_;
  // What the details show: public numbers, -1 for nothing.
  std::int32_t detail_row_ = -1;
  std::int32_t detail_column_ = -1;
};

}  // namespace quarvel
