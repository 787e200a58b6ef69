#include "platform/scripted/scripted_desktop.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "platform/scripted/scripted_words.h"

namespace quarvel::platform {
namespace {

template <typename Value>
Value TakeFront(std::deque<Value>& queue) {
  Value value = std::move(queue.front());
  queue.pop_front();
  return value;
}

}  // namespace

class ScriptedPeer : public FormPeer {
 public:
  ScriptedPeer(ScriptedDesktop& desktop, Form& form, bool modal) : desktop_(desktop), form_(form) {
    desktop_.Record((modal ? "show modal " : "show ") + form.name());
    desktop_.shown_.push_back(&form);
  }

  ~ScriptedPeer() override {
    desktop_.Record("close " + form_.name());
    std::erase(desktop_.shown_, &form_);
  }

  void CaptionChanged() override {
    desktop_.Record("caption " + form_.name() + ": " + form_.caption());
  }

  void ControlChanged(const Control& control, Change change) override {
    desktop_.Record(form_.name() + '.' + control.name() + ScriptedWords(control, change));
  }

  void BringToFront() override {
    auto& shown = desktop_.shown_;
    const auto place = std::find(shown.begin(), shown.end(), &form_);
    std::rotate(place, place + 1, shown.end());
  }

 private:
  ScriptedDesktop& desktop_;
  Form& form_;
};

void ScriptedDesktop::Unexpected(const std::string& what) {
  Record("unexpected " + what);
  throw std::logic_error("unexpected " + what);
}

void ScriptedDesktop::Clear() {
  transcript_.clear();
  boxes_.clear();
  box_data_.clear();
  file_dialogs_.clear();
  editor_.clear();
  input_boxes_.clear();
  event_count_ = 0;
  beeps_ = 0;
}

MsgBoxResult ScriptedDesktop::MsgBox(const Box& box) {
  const ShownBox shown{box.text(), box.style, box.title};
  boxes_.push_back(shown);
  box_data_.push_back(box);
  Record("box " + std::to_string(static_cast<int>(box.style)) + " [" + box.title + "] " +
         shown.text);
  if (const auto answer = on_box) return answer(shown);
  if (!box.look().asks()) return MsgBoxResult::kOk;
  if (answers.empty()) Unexpected("question: " + shown.text);
  return TakeFront(answers);
}

std::string ScriptedDesktop::InputBox(std::string_view prompt, std::string_view title,
                                      std::string_view default_text) {
  input_boxes_.push_back({std::string(prompt), std::string(title), std::string(default_text)});
  const std::string asked = "input [" + std::string(title) + "] " + std::string(prompt);
  if (inputs.empty()) Unexpected(asked);
  std::string text = TakeFront(inputs);
  Record(asked + " -> " + text);
  return text;
}

std::string ScriptedDesktop::ShowFileDialog(const FileDialog& dialog) {
  file_dialogs_.push_back(dialog);
  const char* const kind = dialog.kind == FileDialog::Kind::kOpen ? "open" : "save";
  const std::string asked =
      std::string("file ") + kind + " [" + dialog.title + "] " + dialog.filter;
  if (const auto hook = on_file) hook(dialog);
  if (files.empty()) Unexpected(asked);
  std::string path = TakeFront(files);
  Record(asked + " -> " + path);
  return path;
}

void ScriptedDesktop::DoEvents() {
  const std::int64_t number = ++event_count_;
  Record("events");
  if (const auto events = on_events) events(number);
}

void ScriptedDesktop::CopyToClipboard(std::string_view text) {
  clipboard_ = text;
  Record("copy " + clipboard_);
}

void ScriptedDesktop::Beep() {
  ++beeps_;
  Record("beep");
}

void ScriptedDesktop::SetMousePointer(MousePointer pointer) {
  Record(pointer == MousePointer::kWait ? "pointer wait" : "pointer default");
}

bool ScriptedDesktop::OpenInEditor(const std::string& path) {
  editor_.push_back(path);
  Record("editor " + path);
  return editor_starts;
}

Form* ScriptedDesktop::LastShown(const std::string& name) const {
  const auto found = last_shown_.find(name);
  return found == last_shown_.end() ? nullptr : found->second;
}

std::unique_ptr<FormPeer> ScriptedDesktop::Draw(Form& form, bool modal) {
  last_shown_[form.name()] = &form;
  return std::make_unique<ScriptedPeer>(*this, form, modal);
}

void ScriptedDesktop::PumpUntilClosed(const Showing& showing) {
  for (int turn = 0; !showing.closed; ++turn) {
    // A copy: the test may set another one from inside.
    const auto idle = on_idle;
    if (!idle || turn == idle_limit) Unexpected("modal loop of " + showing.form->name());
    idle(*shown_.back());
  }
}

}  // namespace quarvel::platform
