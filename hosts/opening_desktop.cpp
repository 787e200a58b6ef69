#include "hosts/opening_desktop.h"

#include <utility>

#include "platform/file_dialog.h"

namespace quarvel::hosts {

using platform::FileDialog;

OpeningDesktop::OpeningDesktop(platform::Desktop& desktop, std::string file)
    : desktop_(desktop), file_(std::move(file)) {}

std::string OpeningDesktop::InputBox(std::string_view prompt, std::string_view title,
                                     std::string_view default_text) {
  return desktop_.InputBox(prompt, title, default_text);
}

std::string OpeningDesktop::ShowFileDialog(const FileDialog& dialog) {
  if (dialog.kind == FileDialog::Kind::kOpen && file_) return *std::exchange(file_, std::nullopt);
  return desktop_.ShowFileDialog(dialog);
}

void OpeningDesktop::SetMousePointer(platform::MousePointer pointer) {
  desktop_.SetMousePointer(pointer);
}

std::unique_ptr<platform::FormPeer> OpeningDesktop::Draw(platform::Form& form, bool modal) {
  return desktop_.Draw(form, modal);
}

void OpeningDesktop::PumpUntilClosed(const platform::Showing& showing) {
  desktop_.PumpUntilClosed(showing);
}

}  // namespace quarvel::hosts
