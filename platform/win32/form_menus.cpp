#include "platform/win32/form_menus.h"

#include <algorithm>
#include <string>

#include "platform/form.h"
#include "platform/win32/control_view.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {
namespace {

bool IsWithin(const MenuItem* item, const MenuItem& menu) {
  for (; item != nullptr; item = item->parent()) {
    if (item == &menu) return true;
  }
  return false;
}

void Clear(HMENU menu) {
  while (DeleteMenu(menu, 0, MF_BYPOSITION)) continue;
}

}  // namespace

int FormMenus::CommandOf(const Form& form, const MenuItem& item) {
  const auto& controls = form.controls();
  const auto place = std::find(controls.begin(), controls.end(), &item);
  return kFirstControlId + static_cast<int>(place - controls.begin());
}

void FormMenus::ShowBar(HWND window) {
  menus_.clear();
  MenuHolder bar(CreateMenu());
  AppendAll(bar.get(), MenuBar(*form_));
  const MenuHolder old(GetMenu(window));
  SetMenu(window, bar.Release());
  DrawMenuBar(window);
}

MenuItem* FormMenus::ItemOf(HMENU menu) const {
  const auto found = std::find_if(menus_.begin(), menus_.end(),
                                  [menu](const Opened& opened) { return opened.menu == menu; });
  return found == menus_.end() ? nullptr : found->item;
}

void FormMenus::Forget(const MenuItem& item) {
  std::erase_if(menus_, [&item](const Opened& opened) {
    return opened.item != &item && IsWithin(opened.item, item);
  });
}

void FormMenus::Fill(HMENU menu) {
  const MenuItem* const item = ItemOf(menu);
  if (item == nullptr) return;
  Forget(*item);
  Clear(menu);
  AppendAll(menu, item->children());
}

void FormMenus::AppendAll(HMENU menu, const std::vector<MenuItem*>& items) {
  // Lines stand between items: none at the ends, none beside another.
  bool line = false;
  bool empty = true;
  for (MenuItem* item : items) {
    if (!item->visible()) continue;
    if (item->is_separator) {
      line = !empty;
      continue;
    }
    if (line) AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    line = false;
    empty = false;
    Append(menu, *item);
  }
}

void FormMenus::Append(HMENU menu, MenuItem& item) {
  const UINT state = item.enabled() ? MF_ENABLED : MF_GRAYED;
  const std::wstring words = ToWide(MenuText(item, '&'));
  if (item.children().empty()) {
    AppendMenuW(menu, MF_STRING | state, static_cast<UINT_PTR>(CommandOf(*form_, item)),
                words.c_str());
    return;
  }
  MenuHolder children(CreatePopupMenu());
  menus_.push_back({children.get(), &item});
  AppendAll(children.get(), item.children());
  AppendMenuW(menu, MF_POPUP | state, reinterpret_cast<UINT_PTR>(children.Release()),
              words.c_str());
}

int FormMenus::PopUp(const MenuItem& item, HWND window, POINT place) {
  const MenuHolder menu(CreatePopupMenu());
  AppendAll(menu.get(), item.children());
  return TrackPopupMenuEx(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, place.x, place.y, window,
                          nullptr);
}

}  // namespace quarvel::platform::win32
