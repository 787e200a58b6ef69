// The desktop of a model in Python: boxes, dialogs and progress are put to an object of the caller's
// (quarvel.component.Desktop), which answers them. There are no windows: a form that only shows is put
// as one call and closed behind it, as by its user.
//
// What the caller's object throws is kept until the work has ended, whose Stop is pressed; nobody is
// asked anything more until then. Ctrl-C is the same.
//
// The component calls it with or without the interpreter lock.
#pragma once

#include <chrono>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <pybind11/pybind11.h>

#include "platform/box.h"
#include "platform/desktop.h"
#include "platform/file_dialog.h"
#include "platform/form.h"

namespace quarvel::python {

namespace py = pybind11;

class PythonDesktop final : public platform::Desktop {
 public:
  explicit PythonDesktop(py::object user) : user_(std::move(user)) {}

  // The object that answers. It may be changed between two questions.
  const py::object& user() const { return user_; }
  void set_user(py::object user) { user_ = std::move(user); }

  // One call of the component, which may be called back into by another one: what is thrown within a
  // call leaves that call.
  class Call {
   public:
    explicit Call(PythonDesktop& desktop);
    ~Call();
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    // Throws what was thrown within this call.
    void Rethrow();

   private:
    PythonDesktop& desktop_;
    std::exception_ptr outer_thrown_;
    bool outer_stopped_;
  };

  platform::MsgBoxResult MsgBox(const platform::Box& box) override;
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view default_text) override;
  std::string ShowFileDialog(const platform::FileDialog& dialog) override;
  void DoEvents() override;
  void CopyToClipboard(std::string_view text) override;
  void Beep() override;
  void SetMousePointer(platform::MousePointer) override {}
  bool OpenInEditor(const std::string& path) override;
  std::unique_ptr<platform::FormPeer> Draw(platform::Form& form, bool modal) override;
  void PumpUntilClosed(const platform::Showing& showing) override;

 private:
  class Peer;
  // What `question`, which runs with the interpreter lock, answers; `closed` once something was thrown.
  template <class Answer, class Question>
  Answer Ask(Answer closed, const Question& question);
  bool ShowProgress();
  void PressStop();
  void AskForm(platform::Form& form);
  void ShowWindow(platform::Form& form);

  py::object user_;
  std::vector<platform::Form*> shown_;  // the topmost last
  std::chrono::steady_clock::time_point last_events_;
  std::exception_ptr thrown_;
  bool is_stopped_ = false;
  bool gives_up_saving_ = false;  // a window that has asked once closes
};

}  // namespace quarvel::python
