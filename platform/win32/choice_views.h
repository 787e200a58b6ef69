// Combo boxes and tab strips.
#pragma once

#include "platform/input_controls.h"
#include "platform/win32/control_view.h"

namespace quarvel::platform::win32 {

class ComboView : public ViewOf<ComboBox> {
 public:
  using ViewOf::ViewOf;
  // As high as its place when closed, with room below for the list.
  RECT Placed(RECT place) const override;
  KeyUse PressEnter() override { return NativeWhileOpen(); }
  KeyUse PressEscape() override { return NativeWhileOpen(); }
  void OnCommand(WORD code) override;
  void Synchronize() override;

 protected:
  Style WindowStyle() const override {
    return {WC_COMBOBOXW, CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP};
  }
  void Fill() override;
  void Show(Change change) override;

 private:
  KeyUse NativeWhileOpen() const;
};

// The tabs alone: what stands on their pages are the form's own controls, on the form's own ground.
class TabView : public ViewOf<TabStrip> {
 public:
  using ViewOf::ViewOf;
  RECT Placed(RECT place) const override;
  LRESULT OnNotify(NMHDR& header) override;
  void Synchronize() override;

 protected:
  Style WindowStyle() const override { return {WC_TABCONTROLW, WS_TABSTOP}; }
  void Fill() override;
  void Show(Change change) override;
};

}  // namespace quarvel::platform::win32
