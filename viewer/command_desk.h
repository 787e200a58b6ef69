// What the viewer's commands share: the model, what the window shows of it, the dialogs over the
// window, and the ways to tell and to ask.
//
// While a box is open, a host may change the model or close the window. So a command names what it
// is about before it asks (NamedRecord, NamedElement), and afterwards goes on only when the window
// is ready and what it named is still there; it ends in a refill of the lists.
#pragma once

#include <string>
#include <string_view>

#include "model/model_interface.h"
#include "platform/form.h"
#include "viewer/frm_add_elements_to_row.h"
#include "viewer/frm_set_col_bounds.h"
#include "viewer/frm_set_row_bounds.h"
#include "viewer/viewed_model.h"
#include "viewer/viewer_contents.h"

namespace quarvel::viewer {

class CommandDesk {
 public:
  // All three outlive the desk.
  CommandDesk(platform::Form& window, const ViewedModel& viewed, ViewerContents& contents);

  platform::Form& window() const { return window_; }
  platform::Desktop& desktop() const { return window_.desktop(); }
  ViewerContents& contents() const { return contents_; }
  // For commands, which run only while there is one.
  model::ModelInterface& model() const { return *viewed_.model; }
  bool IsReady() const { return viewed_.IsReady(); }
  bool editing() const { return viewed_.editing; }

  // One plain box.
  void Say(std::string_view text) const;
  // What a command was about is gone: says so and shows what there is now.
  void GiveUp(std::string_view text) const;
  // Asks whether to delete; false also when the window is not ready afterwards.
  bool ConfirmDeletion(const std::string& what) const;
  // Refills the lists unless the window is gone or the model is not to be asked.
  void Refill() const;
  // Warns of a name that no standard file can hold, once in each life of the window.
  void WarnOfLongName(std::string_view name);
  void BeginLife() { long_name_warned_ = false; }
  // The dialogs stand over the window and work on its model.
  void CloseDialogs();

  frmSetRowBounds row_bounds;
  frmSetColBounds col_bounds;
  frmAddElementsToRow add_elements;

 private:
  platform::Form& window_;
  const ViewedModel& viewed_;
  ViewerContents& contents_;
  bool long_name_warned_ = false;
};

}  // namespace quarvel::viewer
