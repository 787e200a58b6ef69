#include "platform/win32/input_windows.h"

#include <algorithm>
#include <string>

#include "platform/form.h"
#include "platform/win32/form_window.h"
#include "platform/win32/pace.h"
#include "platform/win32/wide_text.h"
#include "text/encoding.h"

namespace quarvel::platform::win32 {
namespace {

constexpr WPARAM kLongestText = 0x7FFFFFFE;
constexpr int kListLines = 12;
constexpr int kProgressSteps = 1000;

}  // namespace

ControlWindow::Style TextWindow::WindowStyle() const {
  DWORD style = WS_TABSTOP | ES_LEFT;
  style |= many_lines() ? ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL : ES_AUTOHSCROLL;
  if (Own().read_only) style |= ES_READONLY;
  return {WC_EDITW, style, WS_EX_CLIENTEDGE};
}

void TextWindow::Fill() {
  // Of itself an edit window takes no more than some thirty thousand characters.
  Send(EM_SETLIMITTEXT, kLongestText);
  if (Own().read_only) {
    SetWindowSubclass(handle(), Receive, 1, reinterpret_cast<DWORD_PTR>(this));
  }
  ShowText();
}

void TextWindow::ShowText() {
  if (!Own().read_only || !many_lines()) return SetWindowTextTo(handle(), Own().text());
  // The window's time for a line grows with the square of its length.
  lines_ = text::LongLines(text::Utf8ToUtf16(Own().text()), u"\r\n");
  SetWindowTextTo(handle(), text::Utf16ToUtf8(lines_.broken()));
}

void TextWindow::Mirror(Change change) {
  if (change == Change::kValue) {
    const Mirroring mirroring(*this);
    ShowText();
  }
  ControlWindow::Mirror(change);
}

void TextWindow::TakeFocus() {
  ControlWindow::TakeFocus();
  if (!many_lines()) Send(EM_SETSEL, 0, -1);
}

TextWindow::Selection TextWindow::Selected() const {
  Selection selection;
  Send(EM_GETSEL, reinterpret_cast<WPARAM>(&selection.begin),
       reinterpret_cast<LPARAM>(&selection.end));
  return selection;
}

bool TextWindow::Copies() {
  if (!Own().read_only) return false;
  const auto [begin, end] = Selected();
  if (begin != end && !many_lines()) return false;
  owner().form().desktop().CopyToClipboard(
      begin == end ? Own().text() : text::Utf16ToUtf8(lines_.Between(begin, end)));
  return true;
}

LRESULT CALLBACK TextWindow::Receive(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                     DWORD_PTR self) noexcept {
  auto& box = *reinterpret_cast<TextWindow*>(self);
  bool taken = false;
  if (message == WM_COPY) {
    box.owner().Visit([&] { taken = box.owner().alive() && box.Copies(); });
  }
  return taken ? 0 : DefSubclassProc(window, message, w, l);
}

ControlWindow::KeyUse TextWindow::Press(KeyPress press) {
  if (press == Ctrl('A')) {
    Send(EM_SETSEL, 0, -1);
    return KeyUse::kDone;
  }
  if (press == Ctrl('C') && Copies()) return KeyUse::kDone;
  const bool edits = press.key == Key::kDelete || press == Ctrl('C') || press == Ctrl('X') ||
                     press == Ctrl('V') || press == Ctrl('Z');
  return edits ? KeyUse::kNative : KeyUse::kNone;
}

ControlWindow::KeyUse TextWindow::PressEnter() {
  return many_lines() && !Own().read_only ? KeyUse::kNative : KeyUse::kNone;
}

void TextWindow::OnCommand(WORD code) {
  if (code == EN_CHANGE && !mirroring()) Own().Type(WindowText(handle()));
}

void ComboWindow::Fill() {
  Send(CB_RESETCONTENT);
  for (const std::string& item : Own().items()) {
    Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(item).c_str()));
  }
  Synchronize();
}

void ComboWindow::Synchronize() { Send(CB_SETCURSEL, static_cast<WPARAM>(Own().list_index())); }

void ComboWindow::Mirror(Change change) {
  if (change == Change::kContents) Fill();
  if (change == Change::kSelection) Synchronize();
  ControlWindow::Mirror(change);
}

RECT ComboWindow::Placed(RECT place) const {
  RECT now;
  GetWindowRect(handle(), &now);
  const auto words = static_cast<LONG>(Send(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)));
  const LONG wanted = place.bottom - place.top;
  const LONG around = now.bottom - now.top > words ? now.bottom - now.top - words : 0;
  if (wanted > around) {
    Send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), wanted - around);
  }
  place.bottom += static_cast<LONG>(Send(CB_GETITEMHEIGHT, 0)) * kListLines;
  return place;
}

ControlWindow::KeyUse ComboWindow::NativeWhileOpen() const {
  return Send(CB_GETDROPPEDSTATE) != 0 ? KeyUse::kNative : KeyUse::kNone;
}

void ComboWindow::OnCommand(WORD code) {
  // A list that was closed without a choice shows the old one again, once that is settled.
  if (code == CBN_CLOSEUP) owner().SynchronizeSoon(*this);
  if (code == CBN_SELCHANGE) Own().Select(static_cast<int>(Send(CB_GETCURSEL)));
}

void TabWindow::Fill() {
  for (std::size_t i = 0; i < Own().captions().size(); ++i) {
    std::wstring words = ToWide(Own().captions()[i]);
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = words.data();
    Send(TCM_INSERTITEMW, i, reinterpret_cast<LPARAM>(&item));
  }
  Synchronize();
}

void TabWindow::Synchronize() { Send(TCM_SETCURSEL, static_cast<WPARAM>(Own().current())); }

RECT TabWindow::Placed(RECT place) const {
  RECT page = {0, 0, place.right - place.left, place.bottom - place.top};
  Send(TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&page));
  place.bottom = std::min(place.bottom, place.top + page.top);
  return place;
}

void TabWindow::Mirror(Change change) {
  if (change == Change::kSelection) Synchronize();
  ControlWindow::Mirror(change);
}

LRESULT TabWindow::OnNotify(NMHDR& header) {
  if (header.code == TCN_SELCHANGE) Own().Select(static_cast<int>(Send(TCM_GETCURSEL)));
  return 0;
}

int ProgressWindow::Position() const {
  const ProgressBar& bar = Own();
  if (bar.max() <= bar.min()) return 0;
  const double share = (double{bar.value()} - bar.min()) / (double{bar.max()} - bar.min());
  return static_cast<int>(std::clamp(share, 0.0, 1.0) * kProgressSteps);
}

void ProgressWindow::Fill() {
  Send(PBM_SETRANGE32, 0, kProgressSteps);
  shown_ = -1;
  stale_ = true;
  Flush();
}

void ProgressWindow::Mirror(Change change) {
  if (change == Change::kValue || change == Change::kRange) {
    stale_ = true;
    if (PaintIsDue(last_shown_)) Flush();
  }
  ControlWindow::Mirror(change);
}

void ProgressWindow::Flush() {
  if (!stale_) return;
  stale_ = false;
  const int position = Position();
  if (position == shown_) return;
  shown_ = position;
  last_shown_ = std::chrono::steady_clock::now();
  // A bar glides to a greater value but falls to a smaller one at once: the way to be on time.
  if (position < kProgressSteps) Send(PBM_SETPOS, static_cast<WPARAM>(position + 1));
  Send(PBM_SETPOS, static_cast<WPARAM>(position));
}

}  // namespace quarvel::platform::win32
