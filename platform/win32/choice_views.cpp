#include "platform/win32/choice_views.h"

#include <algorithm>
#include <string>

#include "platform/win32/form_window.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {
namespace {

constexpr int kListLines = 12;

}  // namespace

void ComboView::Fill() {
  Send(CB_RESETCONTENT);
  for (const std::string& item : Own().items()) {
    Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(item).c_str()));
  }
  Synchronize();
}

void ComboView::Synchronize() { Send(CB_SETCURSEL, static_cast<WPARAM>(Own().list_index())); }

void ComboView::Show(Change change) {
  if (change == Change::kContents) Fill();
  if (change == Change::kSelection) Synchronize();
}

RECT ComboView::Placed(RECT place) const {
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

ControlView::KeyUse ComboView::NativeWhileOpen() const {
  return Send(CB_GETDROPPEDSTATE) != 0 ? KeyUse::kNative : KeyUse::kNone;
}

void ComboView::OnCommand(WORD code) {
  // A list that was closed without a choice shows the old one again, once that is settled.
  if (code == CBN_CLOSEUP) owner().SynchronizeSoon(*this);
  if (code == CBN_SELCHANGE) Own().Select(static_cast<int>(Send(CB_GETCURSEL)));
}

void TabView::Fill() {
  for (std::size_t i = 0; i < Own().captions().size(); ++i) {
    std::wstring words = ToWide(Own().captions()[i]);
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = words.data();
    Send(TCM_INSERTITEMW, i, reinterpret_cast<LPARAM>(&item));
  }
  Synchronize();
}

void TabView::Synchronize() { Send(TCM_SETCURSEL, static_cast<WPARAM>(Own().current())); }

RECT TabView::Placed(RECT place) const {
  RECT page = {0, 0, place.right - place.left, place.bottom - place.top};
  Send(TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&page));
  place.bottom = std::min(place.bottom, place.top + page.top);
  return place;
}

void TabView::Show(Change change) {
  if (change == Change::kSelection) Synchronize();
}

LRESULT TabView::OnNotify(NMHDR& header) {
  if (header.code == TCN_SELCHANGE) Own().Select(static_cast<int>(Send(TCM_GETCURSEL)));
  return 0;
}

}  // namespace quarvel::platform::win32
