// The menus of a form: its menu bar, and the same menus popped up over a grid.
//
// Shortcuts are only printed; the window's keys are pressed through the form, so that no hidden
// item answers.
#pragma once

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/menu.h"

namespace quarvel::platform::qt {

class FormWindow;

class FormMenus {
 public:
  // Nothing is made for a form without menu items.
  FormMenus(FormWindow& owner, Form& form);
  FormMenus(const FormMenus&) = delete;
  FormMenus& operator=(const FormMenus&) = delete;

  // Null for a form without menus.
  QMenuBar* bar() const { return bar_; }
  // The item has changed.
  void Mirror(const MenuItem& item);
  // Shows the menu of that item there.
  void PopUp(const MenuItem& item, const QPoint& global_position);
  // The items are about to go: closes what is open and forgets them.
  void Retire();

 private:
  template <typename Parent>
  void Add(MenuItem& item, Parent& parent);
  void AddMenu(MenuItem& item, QMenu& menu);

  FormWindow& owner_;
  QMenuBar* bar_ = nullptr;
  std::unordered_map<const MenuItem*, QAction*> actions_;
  std::unordered_map<const MenuItem*, QMenu*> menus_;
};

}  // namespace quarvel::platform::qt
