// The desktop of tests: shows nothing, records everything, and is driven by the test.
//
// Every box, dialog, caption and window event is appended to `transcript()` in order. Answers come
// from `on_box` and friends, or from queues; an unexpected question is a std::logic_error, so a
// test cannot hang or pass by accident. Events of the user are played at DoEvents (`on_events`) and
// while a modal loop waits (`on_idle`): there a test presses buttons of a form, closes it, or calls
// the model back.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/box.h"
#include "platform/desktop.h"
#include "platform/file_dialog.h"
#include "platform/form.h"

namespace quarvel::platform {

// What the user sees of a box.
struct ShownBox {
  std::string text;
  MsgBoxStyle style;
  std::string title;
  bool operator==(const ShownBox&) const = default;
};

struct ShownInput {
  std::string prompt;
  std::string title;
  std::string default_text;
  bool operator==(const ShownInput&) const = default;
};

class ScriptedDesktop : public Desktop {
 public:
  // --- what the user answers ---
  // When set, answers every box; otherwise OK boxes answer kOk and a question takes the next of
  // `answers`. A question with no answer left is a std::logic_error naming the text.
  std::function<MsgBoxResult(const ShownBox&)> on_box;
  std::deque<MsgBoxResult> answers;
  // The next chosen paths of file dialogs ("" cancels) and texts of input boxes.
  std::deque<std::string> files;
  std::deque<std::string> inputs;
  // Called while a file dialog is up, before the next of `files` is taken.
  std::function<void(const FileDialog&)> on_file;
  // Called at every DoEvents with its number, 1 for the first.
  std::function<void(std::int64_t)> on_events;
  // Called for each turn of a waiting modal loop with the form on top. When it is not set, or has
  // been called `idle_limit` times by one loop, the loop is a std::logic_error naming the form.
  std::function<void(Form&)> on_idle;
  int idle_limit = 1000;
  bool editor_starts = true;

  // The form of that name that was shown last, on the screen or not any more; null before. Only for
  // as long as the form lives.
  Form* LastShown(const std::string& name) const;

  // --- what happened ---
  // One line an event: "box 0 [Quarvel] text", "file open [title] filter -> path",
  // "input [title] prompt -> text", "show frmX", "show modal frmX", "close frmX", "caption frmX:
  // ...", "frmX.control caption: ...", "frmX.bar range: 0 100", "frmX.bar value: 5", "frmX.optX
  // value: true", "frmX.control enabled: false", "frmX.control visible: false", "events", "beep",
  // "frmX.txtX value: text", "frmX.cboX items: 7", "frmX.cboX current: 0", "frmX.grdX rows: 12",
  // "frmX.grdX current: 3", "frmX.grdX widths: 128 72", "frmX.txtX focus", "pointer default",
  // "copy text", "editor path", "unexpected ...".
  const std::vector<std::string>& transcript() const { return transcript_; }
  const std::vector<ShownBox>& boxes() const { return boxes_; }
  // The same boxes as what they are and are about.
  const std::vector<Box>& box_data() const { return box_data_; }
  const std::vector<ShownInput>& input_boxes() const { return input_boxes_; }
  const std::string& clipboard() const { return clipboard_; }
  const std::vector<FileDialog>& file_dialogs() const { return file_dialogs_; }
  const std::vector<std::string>& opened_in_editor() const { return editor_; }
  std::int64_t event_count() const { return event_count_; }
  int beeps() const { return beeps_; }
  // Forms on the screen, the topmost last.
  const std::vector<Form*>& shown() const { return shown_; }
  void Clear();

  // --- Desktop ---
  MsgBoxResult MsgBox(const Box& box) override;
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view default_text) override;
  std::string ShowFileDialog(const FileDialog& dialog) override;
  void DoEvents() override;
  void CopyToClipboard(std::string_view text) override;
  void Beep() override;
  void SetMousePointer(MousePointer pointer) override;
  bool OpenInEditor(const std::string& path) override;
  std::unique_ptr<FormPeer> Draw(Form& form, bool modal) override;
  void PumpUntilClosed(const Showing& showing) override;

 private:
  friend class ScriptedPeer;
  void Record(std::string line) { transcript_.push_back(std::move(line)); }
  // Stands in the transcript as well, for a test whose form swallows what its handlers throw.
  [[noreturn]] void Unexpected(const std::string& what);

  std::vector<std::string> transcript_;
  std::vector<ShownBox> boxes_;
  std::vector<Box> box_data_;
  std::vector<FileDialog> file_dialogs_;
  std::vector<ShownInput> input_boxes_;
  std::string clipboard_;
  std::vector<std::string> editor_;
  std::vector<Form*> shown_;
  std::map<std::string, Form*> last_shown_;
  std::int64_t event_count_ = 0;
  int beeps_ = 0;
};

}  // namespace quarvel::platform
