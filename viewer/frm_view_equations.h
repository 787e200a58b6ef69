// The viewer: one window on a model, with a list of rows and a list of columns, what is known of
// the current one, and, when editing is enabled, the commands that change the model. It reads and
// changes the model through its public operations only.
//
// A model has one such object; it is loaded afresh at every opening and lets go of the model when
// it closes. This class is its life; what it shows is ViewerContents, what it does ViewerCommands.
#pragma once

#include <cstdint>

#include "model/model_view.h"
#include "viewer/viewed_model.h"
#include "viewer/viewer_commands.h"
#include "viewer/viewer_contents.h"
#include "viewer/viewer_menu.h"

namespace quarvel::viewer {

class frmViewEquations : public model::ModelView {
 public:
  explicit frmViewEquations(platform::Desktop& desktop);

  // The model that is shown and changed; to be set before the window is.
  void Parent(model::ModelInterface& model) { viewed_.model = &model; }
  // Whether the commands that change the model are there.
  void EditMode(bool editing);
  // Shows the window modally, or brings it to the front when it is open.
  void ShowWindow();
  // Turn to a row or column, by its 1-based number, first. They take it for the place in the list,
  // so they find the one that is meant where the filter keeps all.
  void ShowRow(std::int32_t number) { ShowRecord(contents.rows, number); }
  void ShowCol(std::int32_t number) { ShowRecord(contents.columns, number); }

  void RefreshForm() override { contents.Refresh(); }
  void Pause() override;
  void Resume() override;

 private:
  ViewedModel viewed_;

 public:
  ViewerMenu menu;
  ViewerContents contents;
  CommandDesk desk;

 protected:
  void OnLoad() override;
  void OnActivate() override;
  bool OnQueryUnload(platform::UnloadReason reason) override;
  void OnUnload() override;

 private:
  void Connect();
  void Connect(RecordPage& page);
  void ShowRecord(RecordPage& page, std::int32_t number);

  ViewerCommands commands_;
};

}  // namespace quarvel::viewer
