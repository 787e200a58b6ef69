// Holders of what Windows lends: given back when they go. Movable only.
#pragma once

#include <utility>

#include "platform/win32/win32.h"

namespace quarvel::platform::win32 {

template <typename Handle, typename GiveBack>
class Holder {
 public:
  Holder() = default;
  explicit Holder(Handle handle) : handle_(handle) {}
  ~Holder() { Reset(); }
  Holder(Holder&& other) noexcept : handle_(std::exchange(other.handle_, Handle{})) {}
  Holder& operator=(Holder&& other) noexcept {
    if (this != &other) {
      Reset();
      handle_ = std::exchange(other.handle_, Handle{});
    }
    return *this;
  }

  Handle get() const { return handle_; }
  explicit operator bool() const { return handle_ != Handle{}; }
  Handle Release() { return std::exchange(handle_, Handle{}); }
  void Reset() {
    if (handle_ != Handle{}) GiveBack()(std::exchange(handle_, Handle{}));
  }

 private:
  Handle handle_{};
};

struct DeleteFont {
  void operator()(HFONT font) const { DeleteObject(font); }
};
struct DestroyTheMenu {
  void operator()(HMENU menu) const { DestroyMenu(menu); }
};
struct DestroyTheWindow {
  void operator()(HWND window) const { DestroyWindow(window); }
};
struct FreeMemory {
  void operator()(HGLOBAL memory) const { GlobalFree(memory); }
};

using FontHolder = Holder<HFONT, DeleteFont>;
using MenuHolder = Holder<HMENU, DestroyTheMenu>;
using WindowHolder = Holder<HWND, DestroyTheWindow>;
using MemoryHolder = Holder<HGLOBAL, FreeMemory>;

}  // namespace quarvel::platform::win32
