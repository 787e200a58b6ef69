#include "platform/win32/form_window.h"

#include <algorithm>
#include <utility>

#include "platform/automation_error.h"
#include "platform/focus_order.h"
#include "platform/win32/automation_name.h"
#include "platform/win32/basic_views.h"
#include "platform/win32/dpi.h"
#include "platform/win32/form_messages.h"
#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {
namespace {

constexpr DWORD kDialogStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr DWORD kResizableStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;

// In the middle of its owner, or of the screen, and not beyond the edges of that.
POINT Middle(SIZE size, HWND owner) {
  const RECT screen = WorkArea(owner);
  RECT around = screen;
  if (owner != nullptr && !IsIconic(owner)) GetWindowRect(owner, &around);
  const LONG x = (around.left + around.right - size.cx) / 2;
  const LONG y = (around.top + around.bottom - size.cy) / 2;
  return {std::max(screen.left, std::min(x, screen.right - size.cx)),
          std::max(screen.top, std::min(y, screen.bottom - size.cy))};
}

}  // namespace

FormWindow::FormWindow(std::shared_ptr<DrawerState> state, Form& form)
    : state_(std::move(state)), form_(&form), menus_(form) {}

FormWindow* FormWindow::Of(HWND window) {
  if (window == nullptr || !IsFormWindow(window)) return nullptr;
  // Another copy of the component may have forms on this thread too.
  const auto procedure = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
  if (procedure != Receive || GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId()) {
    return nullptr;
  }
  return reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

void FormWindow::Open(bool modal) {
  const HWND owner = OwnerWindow();
  MakeWindow(owner);
  MakeViews();
  Show(owner);
  using enum DisabledWindows::Which;
  disabled_ = DisabledWindows(modal ? kAll : kForms, handle_);
}

void FormWindow::MakeWindow(HWND owner) {
  const ActivationContext::Use use(state_->common_controls);
  style_ = form_->resizable() ? kResizableStyle : kDialogStyle;
  extended_style_ = form_->resizable() ? 0 : WS_EX_DLGMODALFRAME;
  CreateWindowExW(extended_style_, kFormClass, ToWide(form_->caption()).c_str(), style_,
                  CW_USEDEFAULT, CW_USEDEFAULT, 0, 0, owner, nullptr, state_->module, this);
  if (handle_ == nullptr) RaiseRunTimeError(RunTimeError::kOutOfMemory);
  GiveAutomationName(handle_, form_->name());
  dpi_ = DpiOf(handle_);
  font_ = MessageFont(dpi_);
}

void FormWindow::MakeViews() {
  const ActivationContext::Use use(state_->common_controls);
  int id = kFirstControlId;
  for (Control* control : form_->controls()) {
    auto made = MakeView(*this, *control, id++);
    if (!made) continue;
    views_.push_back(std::move(made));
    views_.back()->Open(font_.get());
  }
  for (const ControlKind kind : kBehindOthers) {
    for (const auto& view : views_) {
      if (view->control().kind() != kind) continue;
      SetWindowPos(view->handle(), HWND_BOTTOM, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
  }
  if (!menus_.IsEmpty()) menus_.ShowBar(handle_);
}

void FormWindow::Show(HWND owner) {
  const SIZE inner = {ToPixels(form_->width(), dpi_), ToPixels(form_->height(), dpi_)};
  SIZE size = OuterSize(inner, style_, extended_style_, !menus_.IsEmpty(), dpi_);
  if (form_->resizable()) {
    const RECT screen = WorkArea(owner);
    size.cx = std::min(size.cx, screen.right - screen.left);
    size.cy = std::min(size.cy, screen.bottom - screen.top);
  }
  const POINT place = Middle(size, owner);
  SetWindowPos(handle_, nullptr, place.x, place.y, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
  Arrange();
  const Control* const first = OpeningStop(*form_, form_->focus());
  focus_ = first != nullptr ? Find(*first) : nullptr;
  ShowWindow(handle_, SW_SHOW);
  // A process may have been started with its first window hidden; nobody could close a hidden form.
  if (!IsWindowVisible(handle_)) ShowWindow(handle_, SW_SHOW);
  if (focus_ != nullptr && GetActiveWindow() == handle_) focus_->TakeFocus();
  RedrawWindow(handle_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void FormWindow::Retire() {
  if (!alive()) return;
  disabled_.Enable();
  form_ = nullptr;
  focus_ = nullptr;
  // Whoever waits for this showing may be asleep.
  PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
  if (handle_ == nullptr) return;
  const HWND owner = GetWindow(handle_, GW_OWNER);
  HandOverOwned(handle_, owner);
  const bool was_active = GetActiveWindow() == handle_;
  if (was_active && owner != nullptr && IsWindowEnabled(owner) && IsWindowVisible(owner)) {
    SetActiveWindow(owner);
  }
  ShowWindow(handle_, SW_HIDE);
  if (depth_ == 0) DestroyWindow(handle_);
}

void FormWindow::Destroy() {
  Retire();
  if (handle_ != nullptr) DestroyWindow(handle_);
}

void FormWindow::Left() noexcept {
  --depth_;
  if (depth_ > 0 || alive() || handle_ == nullptr || destruction_posted_) return;
  destruction_posted_ = PostMessageW(handle_, kDestroySoon, 0, 0) != FALSE;
}

void FormWindow::Gone() {
  SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
  handle_ = nullptr;
  disabled_.Enable();
  std::erase_if(state_->windows, [this](const auto& window) { return window.get() == this; });
}

ControlView* FormWindow::Find(const Control& control) const {
  const auto found = std::find_if(views_.begin(), views_.end(), [&](const auto& window) {
    return &window->control() == &control;
  });
  return found == views_.end() ? nullptr : found->get();
}

ControlView* FormWindow::Find(HWND window) const {
  for (; window != nullptr && window != handle_; window = GetAncestor(window, GA_PARENT)) {
    const auto found = std::find_if(views_.begin(), views_.end(), [&](const auto& control) {
      return control->handle() == window;
    });
    if (found != views_.end()) return found->get();
  }
  return nullptr;
}

void FormWindow::CaptionChanged() {
  if (handle_ != nullptr) caption_.Change(handle_, form_->caption());
}

void FormWindow::ControlChanged(const Control& control, Change change) {
  if (handle_ == nullptr) return;
  if (control.kind() == ControlKind::kMenuItem) {
    if (static_cast<const MenuItem&>(control).parent() == nullptr) menus_.ShowBar(handle_);
    return;
  }
  ControlView* const window = Find(control);
  if (window == nullptr) return;
  if (change == Change::kFocus) return Focus(*window);
  window->Mirror(change);
  if (change == Change::kEnabled || change == Change::kVisible) LeaveUnusable(*window);
}

void FormWindow::BringToFront() {
  if (handle_ == nullptr) return;
  if (IsIconic(handle_)) ShowWindow(handle_, SW_RESTORE);
  SetForegroundWindow(handle_);
  SetActiveWindow(handle_);
}

void FormWindow::Flush() {
  if (!alive() || handle_ == nullptr) return;
  caption_.Flush(handle_, form_->caption());
  for (const auto& control : views_) control->Flush();
}

void FormWindow::Focus(ControlView& control) {
  focus_ = &control;
  if (GetActiveWindow() == handle_ && CanHaveFocus(control.control())) control.TakeFocus();
}

void FormWindow::LeaveUnusable(const ControlView& control) {
  if (CanHaveFocus(control.control())) return;
  if (focus_ == &control) focus_ = nullptr;
  if (GetActiveWindow() != handle_) return;
  const ControlView* const focused = Find(GetFocus());
  if (focused != nullptr && focused != &control) return;
  const Control* const next = Refuge(*form_, control.control());
  if (next != nullptr) Find(*next)->TakeFocus();
}

void FormWindow::ShowDefaultButton(ButtonView* focused) {
  for (const auto& window : views_) {
    if (window->control().kind() != ControlKind::kButton) continue;
    auto& button = static_cast<ButtonView&>(*window);
    button.ShowDefault(focused != nullptr ? &button == focused : button.WantsDefault());
  }
}

void FormWindow::SynchronizeSoon(const ControlView& control) {
  PostMessageW(handle_, kSynchronize, 0, reinterpret_cast<LPARAM>(control.handle()));
}

}  // namespace quarvel::platform::win32
