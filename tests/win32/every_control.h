// A form with every kind of control, for the tests of this drawer.
#pragma once

#include <string>
#include <vector>

#include "platform/basic_controls.h"
#include "platform/grid.h"
#include "platform/input_controls.h"
#include "platform/menu.h"

namespace quarvel::platform::win32 {

class frmEveryControl : public Form {
 public:
  explicit frmEveryControl(Desktop& desktop);

  // What the user did, by control name.
  std::vector<std::string> events;
  bool may_close = true;

  MenuItem mnuFile{*this, "mnuFile", nullptr};
  MenuItem mnuFileNew{*this, "mnuFileNew", &mnuFile};
  MenuItem mnuFileLine{*this, "mnuFileLine", &mnuFile};
  MenuItem mnuFileHidden{*this, "mnuFileHidden", &mnuFile};
  MenuItem mnuFileExit{*this, "mnuFileExit", &mnuFile};
  Label lblName{*this, "lblName", {12, 14, 60, 20}};
  TextBox txtName{*this, "txtName", {76, 11, 200, 23, {0, 0, 100, 0}}};
  Label lblNote{*this, "lblNote", {12, 44, 60, 20}};
  TextBox txtNote{*this, "txtNote", {76, 41, 200, 60, {0, 0, 100, 0}}, TextBox::Lines::kMany};
  Label lblLong{*this, "lblLong", {12, 64, 60, 44}};
  TabStrip tabs{*this, "tabs", {12, 110, 476, 26, {0, 0, 100, 0}}, {"Columns", "Rows"}};
  Frame fraList{*this, "fraList", {12, 140, 230, 210, {0, 0, 50, 100}}};
  Grid grdList{*this, "grdList", {20, 160, 214, 182, {0, 0, 50, 100}}, {128, 72}};
  Frame fraMore{*this, "fraMore", {250, 140, 238, 210, {50, 0, 100, 100}}};
  Grid grdMore{*this, "grdMore", {258, 160, 222, 182, {50, 0, 100, 100}}, {60, 120}, 1};
  Label lblKind{*this, "lblKind", {300, 14, 60, 20, {100, 0, 100, 0}}};
  ComboBox cboKind{*this, "cboKind", {360, 11, 128, 23, {100, 0, 100, 0}}};
  CheckBox chkInvert{*this, "chkInvert", {300, 41, 90, 20, {100, 0, 100, 0}}};
  OptionButton optOne{*this, "optOne", {300, 62, 90, 20, {100, 0, 100, 0}}};
  OptionButton optTwo{*this, "optTwo", {300, 82, 90, 20, {100, 0, 100, 0}}};
  ProgressBar barWork{*this, "barWork", {12, 358, 280, 20, {0, 100, 100, 100}}};
  Button cmdGo{*this, "cmdGo", {304, 355, 88, 26, {100, 100, 100, 100}}};
  Button cmdStop{*this, "cmdStop", {400, 355, 88, 26, {100, 100, 100, 100}}};

 protected:
  void OnLoad() override;
  bool OnQueryUnload(UnloadReason) override { return may_close; }

 private:
  void Note(const std::string& event) { events.push_back(event); }
};

}  // namespace quarvel::platform::win32
