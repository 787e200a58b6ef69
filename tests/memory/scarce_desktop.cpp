#include "tests/memory/scarce_desktop.h"

#include <algorithm>
#include <new>
#include <utility>

#include "tests/memory/failing_allocations.h"

namespace quarvel::testing {
namespace {

void TakeMemory() { ::operator delete(::operator new(1)); }

class ScarcePeer : public platform::FormPeer {
 public:
  explicit ScarcePeer(std::unique_ptr<platform::FormPeer> peer) : peer_(std::move(peer)) {}
  ScarcePeer(const ScarcePeer&) = delete;
  ScarcePeer& operator=(const ScarcePeer&) = delete;
  ~ScarcePeer() override {
    const EnoughMemory enough;
    peer_.reset();
  }

  void CaptionChanged() override {
    TakeMemory();
    const EnoughMemory enough;
    peer_->CaptionChanged();
  }
  void ControlChanged(const platform::Control& control, platform::Change change) override {
    TakeMemory();
    const EnoughMemory enough;
    peer_->ControlChanged(control, change);
  }
  void BringToFront() override {
    TakeMemory();
    const EnoughMemory enough;
    peer_->BringToFront();
  }

 private:
  std::unique_ptr<platform::FormPeer> peer_;
};

}  // namespace

platform::MsgBoxResult ScarceDesktop::MsgBox(const platform::Box& box) {
  TakeMemory();
  const EnoughMemory enough;
  return ScriptedDesktop::MsgBox(box);
}

std::string ScarceDesktop::InputBox(std::string_view prompt, std::string_view title,
                                    std::string_view default_text) {
  TakeMemory();
  const EnoughMemory enough;
  return ScriptedDesktop::InputBox(prompt, title, default_text);
}

std::string ScarceDesktop::ShowFileDialog(const platform::FileDialog& dialog) {
  TakeMemory();
  const EnoughMemory enough;
  return ScriptedDesktop::ShowFileDialog(dialog);
}

void ScarceDesktop::DoEvents() {
  TakeMemory();
  const EnoughMemory enough;
  ScriptedDesktop::DoEvents();
}

void ScarceDesktop::CopyToClipboard(std::string_view text) {
  TakeMemory();
  const EnoughMemory enough;
  ScriptedDesktop::CopyToClipboard(text);
}

void ScarceDesktop::Beep() {
  const EnoughMemory enough;
  ScriptedDesktop::Beep();
}

void ScarceDesktop::SetMousePointer(platform::MousePointer pointer) {
  TakeMemory();
  const EnoughMemory enough;
  ScriptedDesktop::SetMousePointer(pointer);
}

bool ScarceDesktop::OpenInEditor(const std::string& path) {
  TakeMemory();
  const EnoughMemory enough;
  return ScriptedDesktop::OpenInEditor(path);
}

std::unique_ptr<platform::FormPeer> ScarceDesktop::Draw(platform::Form& form, bool modal) {
  TakeMemory();
  const EnoughMemory enough;
  return std::make_unique<ScarcePeer>(ScriptedDesktop::Draw(form, modal));
}

bool ScarceDesktop::told_of_shortage() const {
  return beeps() > 0 || std::any_of(box_data().begin(), box_data().end(), [](const auto& box) {
           return box.failure == RunTimeError::kOutOfMemory;
         });
}

}  // namespace quarvel::testing
