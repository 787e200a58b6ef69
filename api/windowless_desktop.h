// A desktop without windows: a form is put as a question, or is never seen, and the progress of work is
// words and a number. Who derives from it decides what is asked of whom.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/box.h"
#include "platform/desktop.h"
#include "platform/form.h"

namespace quarvel::api {

class WindowlessDesktop : public platform::Desktop {
 public:
  // The work was stopped by ShowPart.
  bool is_stopped() const { return is_stopped_; }

  // A confirmation that the work is to be stopped is a Yes.
  platform::MsgBoxResult MsgBox(const platform::Box& box) final;
  std::string InputBox(std::string_view, std::string_view, std::string_view) override { return {}; }
  std::string ShowFileDialog(const platform::FileDialog&) override { return {}; }
  void DoEvents() final;
  void CopyToClipboard(std::string_view) final {}
  void Beep() final {}
  void SetMousePointer(platform::MousePointer) final {}
  bool OpenInEditor(const std::string&) final { return false; }
  std::unique_ptr<platform::FormPeer> Draw(platform::Form& form, bool modal) final;
  void PumpUntilClosed(const platform::Showing& showing) final;

 protected:
  struct Options {
    std::string title;
    std::string text;
    std::vector<std::string> words;
    std::size_t selected = 0;
  };

  virtual platform::MsgBoxResult Answer(const platform::Box& box) = 0;
  // The number of the option, from 0; that of none takes the one that is selected.
  virtual std::size_t ChooseOption(const Options& options) { return options.selected; }
  // False stops the work.
  virtual bool ShowPart(std::string_view words, double part) = 0;

 private:
  class Peer;
  void Stop(platform::Form& form);
  void AskForm(platform::Form& form);

  std::vector<platform::Form*> shown_;  // the topmost last
  bool is_stopped_ = false;
};

}  // namespace quarvel::api
