// The seam: everything the component says to its user, and every window it shows, goes through one
// Desktop. A drawer (scripted, console, Qt, Win32) implements it; nothing else names a toolkit.
//
// One thread. A call that shows a box, a dialog or lets events run may come back into the component
// through a host's or a window's events, so no caller keeps pointers into model arrays across it.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace quarvel::platform {

class Form;
class FormPeer;
struct Box;
struct FileDialog;
struct Showing;
enum class MsgBoxResult : int;

enum class MousePointer { kDefault, kWait };

class Desktop {
 public:
  virtual ~Desktop() = default;

  // Shows a modal box and waits for its answer.
  virtual MsgBoxResult MsgBox(const Box& box) = 0;

  // Asks for one line of text; empty when cancelled.
  virtual std::string InputBox(std::string_view prompt, std::string_view title,
                               std::string_view default_text) = 0;

  // Shows the platform's file dialog and gives the chosen path; empty when cancelled.
  virtual std::string ShowFileDialog(const FileDialog& dialog) = 0;

  // Lets events that are pending run. A drawer may skip a call that comes too soon after the last,
  // so that calling it often costs nothing; it never waits.
  virtual void DoEvents() = 0;

  // Replaces what the clipboard holds; lines are separated by CR LF. A clipboard that cannot be had
  // is left alone.
  virtual void CopyToClipboard(std::string_view text) = 0;

  virtual void Beep() = 0;
  virtual void SetMousePointer(MousePointer pointer) = 0;

  // Opens a text file in the user's text viewer without waiting; false when it cannot be started.
  virtual bool OpenInEditor(const std::string& path) = 0;

  // Draws `form` on the screen and returns what keeps it there. With `modal`, this thread's other
  // windows are disabled while it is there; without, only the component's other forms are: a window
  // that tells of long work lets a host's windows live and keeps the user from editing what the
  // work is changing. The window is visible and painted when this returns. For Form only.
  virtual std::unique_ptr<FormPeer> Draw(Form& form, bool modal) = 0;

  // Runs events until `showing.closed`. Ends on that flag alone. For Form only.
  virtual void PumpUntilClosed(const Showing& showing) = 0;
};

}  // namespace quarvel::platform
