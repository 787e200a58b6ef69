// The viewer's menus: one table says all of a command (viewer_menu.cpp).
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "platform/menu.h"

namespace quarvel::viewer {

class CommandDesk;
struct ViewerCommands;

class ViewerMenu {
 public:
  // Creates all items, in the order in which the menus show them, with their captions and keys and
  // without handlers.
  explicit ViewerMenu(platform::Form& form);

  // Lets the items run their commands; a command that changes the model does nothing without
  // editing, however it was reached. What it has changed before it failed is shown.
  void Connect(ViewerCommands& commands);
  // Enables the items that can be used now.
  void Update(const CommandDesk& desk);
  // Shows the part of the Edit menu for one page and hides the other's.
  void ShowPart(int page);

  // The item of that name, which the table has.
  platform::MenuItem& operator[](std::string_view name) const;
  const std::vector<std::unique_ptr<platform::MenuItem>>& items() const { return items_; }

 private:
  std::vector<std::unique_ptr<platform::MenuItem>> items_;  // by entries of the table
};

}  // namespace quarvel::viewer
