#include "viewer/command_desk.h"

#include "model/long_name.h"
#include "platform/box.h"
#include "platform/desktop.h"

namespace quarvel::viewer {

using platform::MsgBoxResult;
using platform::MsgBoxStyle;

CommandDesk::CommandDesk(platform::Form& window, const ViewedModel& viewed,
                         ViewerContents& contents)
    : row_bounds(window.desktop()),
      col_bounds(window.desktop()),
      add_elements(window.desktop()),
      window_(window),
      viewed_(viewed),
      contents_(contents) {}

void CommandDesk::Say(std::string_view text) const { desktop().MsgBox(platform::Refusal(text)); }

void CommandDesk::GiveUp(std::string_view text) const {
  Say(text);
  Refill();
}

bool CommandDesk::ConfirmDeletion(const std::string& what) const {
  const MsgBoxResult answer = desktop().MsgBox(
      Question(platform::BoxKind::kConfirmDeletion, "Are you sure you want delete " + what + "?",
               MsgBoxStyle::kYesNo, "Confirm Deletion"));
  return answer == MsgBoxResult::kYes && IsReady();
}

void CommandDesk::Refill() const {
  if (IsReady()) contents_.Refill();
}

void CommandDesk::WarnOfLongName(std::string_view name) {
  if (long_name_warned_ || !model::IsLongName(name)) return;
  long_name_warned_ = true;
  desktop().MsgBox(platform::Note(model::kLongNameWarning));
}

void CommandDesk::CloseDialogs() {
  row_bounds.Unload();
  col_bounds.Unload();
  add_elements.Unload();
}

}  // namespace quarvel::viewer
