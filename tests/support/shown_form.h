// Finds the forms that a model keeps for itself, as its desktop has seen them.
#pragma once

#include <typeinfo>

#include "mps/frm_progress.h"
#include "platform/scripted/scripted_desktop.h"
#include "viewer/frm_view_equations.h"

namespace quarvel {

template <class Window>
inline constexpr const char* kFormName = nullptr;
template <>
inline constexpr const char* kFormName<mps::frmProgress> = "frmProgress";
template <>
inline constexpr const char* kFormName<viewer::frmViewEquations> = "frmViewEquations";

// The last one that was shown there; it throws std::bad_cast before.
template <class Window>
Window& ShownForm(const platform::ScriptedDesktop& desktop) {
  platform::Form* const form = desktop.LastShown(kFormName<Window>);
  if (form == nullptr) throw std::bad_cast();
  return dynamic_cast<Window&>(*form);
}

}  // namespace quarvel
