// Menu items. Those without a parent form the window's menu bar, from left to right as they were
// created; an item with children opens a menu of them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/control.h"
#include "platform/keys.h"

namespace quarvel::platform {

class MenuItem : public Control {
 public:
  // `parent` null: on the menu bar. It outlives the item.
  MenuItem(Form& form, std::string name, MenuItem* parent);

  MenuItem* parent() const { return parent_; }
  const std::vector<MenuItem*>& children() const { return children_; }
  // A line between items; it has no caption.
  bool is_separator = false;
  // Pressed anywhere in the window it clicks the item, unless `shortcut_is_label` is set: then the
  // menu only prints it, because the key means this in one control alone.
  KeyPress shortcut;
  bool shortcut_is_label = false;
  std::function<void()> on_click;
  // The menu of this item is about to be shown: the moment to set its children's state.
  std::function<void()> on_open;

  // Enabled and visible, and so are all its parents.
  bool Available() const;

  // For drawers and tests: the user opens this item's menu, which opens those of its parents
  // before.
  void Open();
  // For drawers and tests: the user chooses it. Nothing when it is not available.
  void Click();

 private:
  MenuItem* parent_;
  std::vector<MenuItem*> children_;
};

// The words on an item as toolkits want them: the caption as MarkedCaption gives it and, behind a
// tab, the key.
std::string MenuText(const MenuItem& item, char mark);

// The items of the menu bar; empty for a form without one.
std::vector<MenuItem*> MenuBar(const Form& form);

// For drawers and tests: the key was pressed and the focused control has no use for it. Clicks the
// first available item with that shortcut (menus are opened first, so that states are fresh); false
// when there is none.
bool PressShortcut(const Form& form, KeyPress press);

}  // namespace quarvel::platform
