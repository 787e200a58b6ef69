// What the tests of the viewer share: a model, its window and the user in front of it.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/model_builder.h"
#include "tests/support/test_paths.h"
#include "viewer/frm_view_equations.h"

namespace quarvel::viewer {

using platform::MsgBoxResult;
using platform::MsgBoxStyle;
using Texts = std::vector<std::string>;

inline constexpr MsgBoxResult kYes = MsgBoxResult::kYes;
inline constexpr MsgBoxResult kNo = MsgBoxResult::kNo;
inline constexpr MsgBoxResult kCancel = MsgBoxResult::kCancel;

inline constexpr std::string_view kSaveQuestion = "Do you want to save the current model?";
extern const std::string kSimplifyQuestionText;

class ViewerTest : public ::testing::Test {
 protected:
  ViewerTest();

  // Five rows, one of each type (COST N, LIM L, LOW G, RNG R, EQ E), and columns X, Y (integer), Z
  // and W. RNG and W have no elements.
  void BuildModel();
  // Shows the viewer with ViewEquations and does `steps` in it; closed afterwards without saving,
  // when they have not closed it.
  void View(const std::function<void()>& steps, bool editing = true);
  // The same with another operation that shows it.
  void ShowBy(const std::function<void()>& operation, const std::function<void()>& steps);

  frmViewEquations& viewer();
  platform::MenuItem& Item(std::string_view name);
  // Chooses a menu item as the user does: menus are opened first.
  void Choose(std::string_view name);
  void TurnTo(int page) { viewer().contents.sstViewEqns.Select(page); }
  // Selects the line of that name.
  void SelectRow(std::string_view name);
  void SelectColumn(std::string_view name);

  static Texts Column(const platform::Grid& grid, int column);
  Texts RowNames() { return Column(viewer().contents.rows.fgrdList, 0); }
  Texts ColumnNames() { return Column(viewer().contents.columns.fgrdList, 0); }
  // The texts of the boxes and the questions, without the last one that lets the window close.
  Texts Boxes() const;
  // The model's rows as "NAME TYPE lower upper".
  std::string RowText(std::int32_t row) const;
  std::string ColumnText(std::int32_t column) const;

  TemporaryFolder folder_;
  platform::ScriptedDesktop desktop_;
  LPModel model_{desktop_};
  // Who drives a dialog that is shown over the viewer, in order.
  std::deque<std::function<void(platform::Form&)>> dialogs_;
  // Called before a box is answered.
  std::function<void(const platform::ShownBox&)> on_shown_;

 private:
  MsgBoxResult Answer(const platform::ShownBox& box);
  void Idle(platform::Form& top);

  std::function<void()> steps_;
  bool leaving_ = false;
};

// The warning of a value that does not fit into its field.
inline const std::string kLongValueText =
    "The value entered is longer than is allowed in a standard MPS file.\r\nThis model can still "
    "be saved, but other programs which read MPS files may not be able to read it.";

}  // namespace quarvel::viewer
