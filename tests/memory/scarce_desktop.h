// A scripted desktop that takes memory as a real one does: each call may fail for the lack of it,
// before anything has happened. What it notes for the test, and what the test does when it is called
// back, always finds memory. Taking a window off the screen never fails.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/scripted/scripted_desktop.h"

namespace quarvel::testing {

class ScarceDesktop : public platform::ScriptedDesktop {
 public:
  platform::MsgBoxResult MsgBox(const platform::Box& box) override;
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view default_text) override;
  std::string ShowFileDialog(const platform::FileDialog& dialog) override;
  void DoEvents() override;
  void CopyToClipboard(std::string_view text) override;
  void Beep() override;  // takes none
  void SetMousePointer(platform::MousePointer pointer) override;
  bool OpenInEditor(const std::string& path) override;
  std::unique_ptr<platform::FormPeer> Draw(platform::Form& form, bool modal) override;

  // Whether a box has told of a lack of memory, or a beep where there was none for a box.
  bool told_of_shortage() const;
};

}  // namespace quarvel::testing
