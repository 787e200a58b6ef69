// What the windows of one desktop share. It lives as long as the desktop or any of its windows.
#pragma once

#include <memory>
#include <vector>

#include "platform/desktop.h"
#include "platform/win32/activation_context.h"
#include "platform/win32/window_class.h"

namespace quarvel::platform::win32 {

class FormWindow;

struct DrawerState {
  // Raises when the class of forms cannot be registered.
  explicit DrawerState(HINSTANCE module);

  // A box that tells of the exception being handled, over that window.
  void TellFailure(HWND window) const noexcept;

  HINSTANCE module;
  ActivationContext common_controls;
  WindowClass form_class;
  MousePointer pointer = MousePointer::kDefault;
  // On the screen, or on their way off it.
  std::vector<std::shared_ptr<FormWindow>> windows;
};

// The shape of that pointer, to be used now.
void ShowPointer(MousePointer pointer);

}  // namespace quarvel::platform::win32
