#include "mps/frm_set_default_bounds.h"

#include "model/model_store.h"

namespace quarvel::mps {

frmSetDefaultBounds::frmSetDefaultBounds(platform::Desktop& desktop)
    : Form(desktop, "frmSetDefaultBounds"),
      lblChoose(*this, "lblChoose", {12, 12, 336, 54}),
      optZeroToLimit(*this, "optZeroToLimit", {24, 74, 312, 22}),
      optLimitToLimit(*this, "optLimitToLimit", {24, 100, 312, 22}),
      cmdOK(*this, "cmdOK", {130, 136, 100, 28}) {
  SetSize(360, 176, false);
  cmdOK.is_default = true;
  optZeroToLimit.access_key = '0';
  optLimitToLimit.access_key = '-';
  cmdOK.on_click = [this] { Accept(); };
}

void frmSetDefaultBounds::OnLoad() {
  set_caption("Set Default Bounds");
  lblChoose.set_caption(
      "Choose which default bounds for Quarvel to implement.  These values are used if a "
      "column/variable is not explicitly given bounds.");
  optZeroToLimit.set_caption("0 to +1E10");
  optLimitToLimit.set_caption("-1E10 to +1E10");
  cmdOK.set_caption("OK");
  optZeroToLimit.set_value(true);
}

void frmSetDefaultBounds::Choose(bool infinite) {
  (infinite ? optLimitToLimit : optZeroToLimit).Click();
  cmdOK.Click();
}

void frmSetDefaultBounds::OnUnload() { Parent = nullptr; }

void frmSetDefaultBounds::Accept() {
  if (Parent != nullptr) {
    Parent->settings().DefaultToPlusMinusInfinity = optLimitToLimit.value();
  }
  Unload();
}

}  // namespace quarvel::mps
