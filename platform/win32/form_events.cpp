// What the windows of forms do with the messages they get.
#include <windowsx.h>

#include "platform/basic_controls.h"
#include "platform/focus_order.h"
#include "platform/grid.h"
#include "platform/win32/automation_name.h"
#include "platform/win32/dpi.h"
#include "platform/win32/form_messages.h"
#include "platform/win32/form_window.h"
#include "platform/win32/grid_view.h"

namespace quarvel::platform::win32 {
namespace {

void ClickMenuItem(const Form& form, int command) {
  const auto index = static_cast<std::size_t>(command - kFirstControlId);
  if (command < kFirstControlId || index >= form.controls().size()) return;
  Control* const control = form.controls()[index];
  if (control->kind() == ControlKind::kMenuItem) static_cast<MenuItem*>(control)->Click();
}

}  // namespace

LRESULT CALLBACK FormWindow::Receive(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
  if (message == WM_NCCREATE) {
    auto* const made =
        static_cast<FormWindow*>(reinterpret_cast<CREATESTRUCTW*>(l)->lpCreateParams);
    made->handle_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
  }
  auto* const self = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, w, l);
  LRESULT result = 0;
  self->ForUser([&] {
    const auto handled = self->Handle(message, w, l);
    result = handled ? *handled : DefWindowProcW(window, message, w, l);
  });
  return result;
}

std::optional<LRESULT> FormWindow::Handle(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_DESTROY:
      for (const auto& control : views_) control->Close();
      TakeAutomationName(handle_);
      return 0;
    case WM_NCDESTROY:
      Gone();
      return std::nullopt;
    case kDestroySoon:
      destruction_posted_ = false;
      if (!alive() && depth_ == 1) DestroyWindow(handle_);
      return 0;
    default:
      break;
  }
  if (alive()) return HandleForm(message, w, l);
  // Only this class destroys its windows.
  if (message == WM_CLOSE) return 0;
  return std::nullopt;
}

std::optional<LRESULT> FormWindow::HandleForm(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_COMMAND:
      OnCommand(w, l);
      return 0;
    case WM_NOTIFY:
      return OnNotify(*reinterpret_cast<NMHDR*>(l));
    case WM_CLOSE:
      form_->RequestClose();
      return 0;
    case WM_ACTIVATE:
      if (LOWORD(w) == WA_INACTIVE) SaveFocus();
      return std::nullopt;
    case WM_SETFOCUS:
      RestoreFocus();
      return 0;
    case WM_SETCURSOR:
      if (state_->pointer == MousePointer::kDefault || LOWORD(l) != HTCLIENT) return std::nullopt;
      ShowPointer(state_->pointer);
      return TRUE;
    case WM_CONTEXTMENU:
      if (OnContextMenu(reinterpret_cast<HWND>(w), l)) return 0;
      return std::nullopt;
    case WM_INITMENUPOPUP:
      OnMenu(reinterpret_cast<HMENU>(w));
      return 0;
    case kSynchronize:
      if (ControlView* control = Find(reinterpret_cast<HWND>(l))) control->Synchronize();
      return 0;
    default:
      return HandleLayout(message, w, l);
  }
}

std::optional<LRESULT> FormWindow::HandleLayout(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_SIZE:
      Arrange();
      return std::nullopt;
    case WM_GETMINMAXINFO:
      SmallestSize(*reinterpret_cast<MINMAXINFO*>(l));
      return 0;
    case WM_DPICHANGED:
      OnDpiChanged(LOWORD(w), *reinterpret_cast<RECT*>(l));
      return 0;
    case WM_SETTINGCHANGE:
      if (w == SPI_SETNONCLIENTMETRICS) UseFont();
      return std::nullopt;
    default:
      return std::nullopt;
  }
}

void FormWindow::OnCommand(WPARAM w, LPARAM l) {
  if (l != 0) {
    if (ControlView* control = Find(reinterpret_cast<HWND>(l))) control->OnCommand(HIWORD(w));
    return;
  }
  const int command = LOWORD(w);
  if (command == IDOK) {
    form_->PressDefaultButton();
  } else if (command == IDCANCEL) {
    form_->PressCancelButton();
  } else {
    ClickMenuItem(*form_, command);
  }
}

std::optional<LRESULT> FormWindow::OnNotify(NMHDR& header) {
  ControlView* const control = Find(header.hwndFrom);
  if (control == nullptr) return std::nullopt;
  return control->OnNotify(header);
}

void FormWindow::OnMenu(HMENU menu) {
  MenuItem* const item = menus_.ItemOf(menu);
  if (item == nullptr) return;
  item->Open();
  if (alive()) menus_.Fill(menu);
}

bool FormWindow::OnContextMenu(HWND window, LPARAM place) {
  ControlView* const control = Find(window);
  if (control == nullptr || control->control().kind() != ControlKind::kGrid) return false;
  auto& grid = static_cast<GridView&>(*control);
  MenuItem* const popup = grid.Own().popup;
  if (popup == nullptr) return false;
  POINT point = {GET_X_LPARAM(place), GET_Y_LPARAM(place)};
  // The keyboard has no place.
  if (place == -1) {
    point = grid.CurrentRowPoint();
  } else if (const int row = grid.RowAt(point); row >= 0) {
    grid.Own().Select(row);
  }
  if (alive()) popup->Open();
  if (!alive()) return true;
  const int command = menus_.PopUp(*popup, handle_, point);
  if (alive() && command != 0) ClickMenuItem(*form_, command);
  return true;
}

void FormWindow::OnDpiChanged(int dpi, const RECT& place) {
  dpi_ = dpi;
  UseFont();
  SetWindowPos(handle_, nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
  Arrange();
}

void FormWindow::UseFont() {
  FontHolder font = MessageFont(dpi_);
  for (const auto& control : views_) control->SetFont(font.get());
  font_ = std::move(font);
}

void FormWindow::SmallestSize(MINMAXINFO& info) const {
  if (!form_->resizable() || dpi_ == 0) return;
  const SIZE inner = {ToPixels(form_->smallest_width(), dpi_),
                      ToPixels(form_->smallest_height(), dpi_)};
  const SIZE size = OuterSize(inner, style_, extended_style_, !menus_.IsEmpty(), dpi_);
  info.ptMinTrackSize = {size.cx, size.cy};
}

void FormWindow::Arrange() {
  if (views_.empty() || IsIconic(handle_)) return;
  RECT inner;
  GetClientRect(handle_, &inner);
  const int width = ToUnits(inner.right, dpi_);
  const int height = ToUnits(inner.bottom, dpi_);
  HDWP moves = BeginDeferWindowPos(static_cast<int>(views_.size()));
  for (const auto& control : views_) {
    const Place place = control->control().PlaceIn(width, height);
    const RECT pixels = control->Placed({ToPixels(place.x, dpi_), ToPixels(place.y, dpi_),
                                         ToPixels(place.x + place.width, dpi_),
                                         ToPixels(place.y + place.height, dpi_)});
    if (moves == nullptr) return;
    moves = DeferWindowPos(moves, control->handle(), nullptr, pixels.left, pixels.top,
                           pixels.right - pixels.left, pixels.bottom - pixels.top,
                           SWP_NOZORDER | SWP_NOACTIVATE);
  }
  if (moves != nullptr) EndDeferWindowPos(moves);
}

void FormWindow::SaveFocus() {
  if (ControlView* focused = Find(GetFocus())) focus_ = focused;
}

void FormWindow::RestoreFocus() {
  if (focus_ != nullptr && CanHaveFocus(focus_->control())) SetFocus(focus_->handle());
}

}  // namespace quarvel::platform::win32
