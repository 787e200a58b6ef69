// A user who costs nothing: draws no window, keeps no record, and accepts what a read or a
// simplification asks, except that a read with an error ends, and that nothing is simplified or
// opened unless the job does it.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/desktop.h"
#include "platform/form.h"

namespace quarvel::bench {

class BenchDesktop : public platform::Desktop {
 public:
  // The path that every file dialog answers.
  std::string file;

  // How many boxes were shown that ask something.
  int questions() const { return questions_; }

  platform::MsgBoxResult MsgBox(const platform::Box& box) override;
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view default_text) override;
  std::string ShowFileDialog(const platform::FileDialog& dialog) override;
  void DoEvents() override {}
  void CopyToClipboard(std::string_view) override {}
  void Beep() override {}
  void SetMousePointer(platform::MousePointer) override {}
  bool OpenInEditor(const std::string&) override { return false; }
  std::unique_ptr<platform::FormPeer> Draw(platform::Form& form, bool modal) override;
  // Closes the window as a user would, which keeps what it offered; a window that stays open is a
  // std::logic_error.
  void PumpUntilClosed(const platform::Showing& showing) override;

 private:
  int questions_ = 0;
};

}  // namespace quarvel::bench
