// The viewer's menus, as a table.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/menu.h"

namespace quarvel {

// Every item, in the order in which the menus show them.
enum class MenuId : std::uint8_t {
  kFile,
  kFileNew,
  kFileOpen,
  kFileSave,
  kFileSaveAs,
  kFileLine,
  kFileExit,
  kEdit,
  kEditRow,
  kEditRowAdd,
  kEditRowRename,
  kEditRowDel,
  kEditRowLine1,
  kEditRowAddEle,
  kEditRowChangeEle,
  kEditRowDelEle,
  kEditRowLine2,
  kEditRowChangeBnd,
  kEditCol,
  kEditColAdd,
  kEditColRename,
  kEditColDel,
  kEditColLine1,
  kEditColChangeEle,
  kEditColDelEle,
  kEditColLine2,
  kEditColChangeTypeBnd,
  kEditLine,
  kEditSimplify,
  kHelp,
  kHelpHelp,
  kHelpAbout,
};
inline constexpr std::size_t kMenuItems = static_cast<std::size_t>(MenuId::kHelpAbout) + 1;

class ViewerMenu {
 public:
  // Creates all items, with their captions and keys and without handlers.
  explicit ViewerMenu(platform::Form& form);

  platform::MenuItem& operator[](MenuId id) const { return *items_[static_cast<std::size_t>(id)]; }

 private:
  std::array<std::unique_ptr<platform::MenuItem>, kMenuItems> items_;
};

}  // namespace quarvel
