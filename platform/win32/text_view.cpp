#include "platform/win32/text_view.h"

#include <string>

#include "platform/form.h"
#include "platform/win32/form_window.h"
#include "platform/win32/wide_text.h"
#include "text/encoding.h"

namespace quarvel::platform::win32 {
namespace {

constexpr WPARAM kLongestText = 0x7FFFFFFE;

}  // namespace

ControlView::Style TextView::WindowStyle() const {
  DWORD style = WS_TABSTOP | ES_LEFT;
  style |= many_lines() ? ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL : ES_AUTOHSCROLL;
  if (Own().read_only) style |= ES_READONLY;
  return {WC_EDITW, style, WS_EX_CLIENTEDGE};
}

void TextView::Fill() {
  // Of itself an edit window takes no more than some thirty thousand characters.
  Send(EM_SETLIMITTEXT, kLongestText);
  if (Own().read_only) {
    SetWindowSubclass(handle(), Receive, 1, reinterpret_cast<DWORD_PTR>(this));
  }
  ShowText();
}

void TextView::ShowText() {
  if (!Own().read_only || !many_lines()) return SetWindowTextTo(handle(), Own().text());
  // The window's time for a line grows with the square of its length.
  lines_ = text::LongLines(text::Utf8ToUtf16(Own().text()), u"\r\n");
  SetWindowTextTo(handle(), text::Utf16ToUtf8(lines_.broken()));
}

void TextView::Show(Change change) {
  if (change == Change::kValue) ShowText();
}

void TextView::TakeFocus() {
  ControlView::TakeFocus();
  if (!many_lines()) Send(EM_SETSEL, 0, -1);
}

TextView::Selection TextView::Selected() const {
  Selection selection;
  Send(EM_GETSEL, reinterpret_cast<WPARAM>(&selection.begin),
       reinterpret_cast<LPARAM>(&selection.end));
  return selection;
}

bool TextView::Copies() {
  if (!Own().read_only) return false;
  const auto [begin, end] = Selected();
  if (begin != end && !many_lines()) return false;
  owner().form().desktop().CopyToClipboard(
      begin == end ? Own().text() : text::Utf16ToUtf8(lines_.Between(begin, end)));
  return true;
}

LRESULT CALLBACK TextView::Receive(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                   DWORD_PTR self) noexcept {
  auto& box = *reinterpret_cast<TextView*>(self);
  bool taken = false;
  if (message == WM_COPY) {
    box.owner().ForUser([&] { taken = box.alive() && box.Copies(); });
  }
  return taken ? 0 : DefSubclassProc(window, message, w, l);
}

ControlView::KeyUse TextView::Press(KeyPress press) {
  if (press == Ctrl('A')) {
    Send(EM_SETSEL, 0, -1);
    return KeyUse::kDone;
  }
  if (press == Ctrl('C') && Copies()) return KeyUse::kDone;
  const bool edits = press.key == Key::kDelete || press == Ctrl('C') || press == Ctrl('X') ||
                     press == Ctrl('V') || press == Ctrl('Z');
  return edits ? KeyUse::kNative : KeyUse::kNone;
}

ControlView::KeyUse TextView::PressEnter() {
  return many_lines() && !Own().read_only ? KeyUse::kNative : KeyUse::kNone;
}

void TextView::OnCommand(WORD code) {
  if (code == EN_CHANGE && !mirroring()) Own().Type(WindowText(handle()));
}

}  // namespace quarvel::platform::win32
