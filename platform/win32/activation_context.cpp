#include "platform/win32/activation_context.h"

namespace quarvel::platform::win32 {
namespace {

constexpr WORD kLibraryManifest = 2;

HANDLE Create(HINSTANCE module) {
  ACTCTXW wanted = {};
  wanted.cbSize = sizeof(wanted);
  wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  wanted.hModule = module;
  wanted.lpResourceName = MAKEINTRESOURCEW(kLibraryManifest);
  return CreateActCtxW(&wanted);
}

}  // namespace

ActivationContext::ActivationContext(HINSTANCE module) : context_(Create(module)) {
  const Use use(*this);
  INITCOMMONCONTROLSEX classes = {};
  classes.dwSize = sizeof(classes);
  classes.dwICC =
      ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES | ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES;
  InitCommonControlsEx(&classes);
}

ActivationContext::~ActivationContext() {
  if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
}

ActivationContext::Use::Use(const ActivationContext& context)
    : active_(context.context_ != INVALID_HANDLE_VALUE &&
              ActivateActCtx(context.context_, &cookie_) != FALSE) {}

ActivationContext::Use::~Use() {
  if (active_) DeactivateActCtx(0, cookie_);
}

}  // namespace quarvel::platform::win32
