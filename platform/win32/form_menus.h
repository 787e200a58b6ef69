// A form's menu bar and the menus that grids offer. A menu is made anew whenever it opens, from
// what its items say then.
#pragma once

#include <vector>

#include "platform/menu.h"
#include "platform/win32/handles.h"
#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

class FormMenus {
 public:
  explicit FormMenus(const Form& form) : form_(&form) {}
  FormMenus(const FormMenus&) = delete;
  FormMenus& operator=(const FormMenus&) = delete;

  bool IsEmpty() const { return MenuBar(*form_).empty(); }
  // Puts the bar in its present state on the window, which destroys it with itself.
  void ShowBar(HWND window);
  // The item whose menu that is; null for another menu.
  MenuItem* ItemOf(HMENU menu) const;
  // After ItemOf(menu) was opened: fills the menu.
  void Fill(HMENU menu);
  // Lets the user choose from the item's menu at a place of the screen; gives the command of the
  // choice, 0 for none. The form may be gone when this returns.
  int PopUp(const MenuItem& item, HWND window, POINT place);

  // The command number of an item: that of its control.
  static int CommandOf(const Form& form, const MenuItem& item);

 private:
  struct Opened {
    HMENU menu;
    MenuItem* item;
  };
  void Append(HMENU menu, MenuItem& item);
  void AppendAll(HMENU menu, const std::vector<MenuItem*>& items);
  void Forget(const MenuItem& item);

  const Form* form_;
  std::vector<Opened> menus_;
};

}  // namespace quarvel::platform::win32
