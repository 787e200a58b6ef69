// A desktop that knows the file to open already: its first dialog for opening a file is answered
// without asking, everything else is left to the desktop behind it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/desktop.h"
#include "platform/form.h"

namespace quarvel::hosts {

class OpeningDesktop : public platform::Desktop {
 public:
  // `desktop` must outlive this one.
  OpeningDesktop(platform::Desktop& desktop, std::string file);

  platform::MsgBoxResult MsgBox(const platform::Box& box) override { return desktop_.MsgBox(box); }
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view default_text) override;
  std::string ShowFileDialog(const platform::FileDialog& dialog) override;
  void DoEvents() override { desktop_.DoEvents(); }
  void CopyToClipboard(std::string_view text) override { desktop_.CopyToClipboard(text); }
  void Beep() override { desktop_.Beep(); }
  void SetMousePointer(platform::MousePointer pointer) override;
  bool OpenInEditor(const std::string& path) override { return desktop_.OpenInEditor(path); }
  std::unique_ptr<platform::FormPeer> Draw(platform::Form& form, bool modal) override;
  void PumpUntilClosed(const platform::Showing& showing) override;

 private:
  platform::Desktop& desktop_;
  std::optional<std::string> file_;  // until it has been the answer
};

}  // namespace quarvel::hosts
