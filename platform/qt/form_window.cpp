#include "platform/qt/form_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "platform/basic_controls.h"
#include "platform/focus_order.h"
#include "platform/input_controls.h"
#include "platform/qt/key_press.h"
#include "platform/qt/qt_text.h"

namespace quarvel::platform::qt {
namespace {

Qt::WindowFlags FlagsFor(const Form& form) {
  if (form.resizable()) return Qt::Window;
  return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
         Qt::WindowCloseButtonHint;
}

// A window manager that never shows the window must not hold up the work that it tells about.
constexpr std::chrono::milliseconds kLongestWait{500};

}  // namespace

FormWindow::FormWindow(DrawerState& state, EventPump& pump, Form& form)
    : QWidget(nullptr, FlagsFor(form)),
      state_(state),
      pump_(pump),
      form_(&form),
      inner_(new QWidget(this)),
      menus_(*this, form) {
  setObjectName(ToQt(form.name()));
  // The program goes on when a window of the component is closed.
  setAttribute(Qt::WA_QuitOnClose, false);
  ShowCaption();
  MakeViews();
  LeadLabels();
  Measure();
}

void FormWindow::Open(bool modal) {
  // A window that is not modal keeps only those away that it is tied to: the component's own.
  setWindowModality(modal ? Qt::ApplicationModal : Qt::WindowModal);
  const QWidget* const owner = modal ? state_.OwnerWindow() : state_.Top();
  TieTo(*this, owner);
  PlaceOver(*this, owner);
  show();
  FocusFirst();
  state_.Raise(*this);
}

void FormWindow::MakeViews() {
  for (Control* control : form_->controls()) {
    auto view = MakeView(*this, *control);
    if (!view) continue;
    view_of_[control] = view.get();
    views_.push_back(std::move(view));
  }
  for (const ControlKind kind : kBehindOthers) {
    for (const auto& view : views_) {
      if (view->control().kind() == kind) view->widget().lower();
    }
  }
  for (const auto& view : views_) view->MirrorAll();
}

void FormWindow::LeadLabels() {
  for (const auto& view : views_) {
    const Control& control = view->control();
    if (control.kind() != ControlKind::kLabel || control.access_key == 0) continue;
    const ControlView* const next = Find(LedTo(*form_, control));
    if (next != nullptr) static_cast<QLabel&>(view->widget()).setBuddy(&next->widget());
  }
}

void FormWindow::Measure() {
  const int bar = menus_.bar() == nullptr ? 0 : menus_.bar()->sizeHint().height();
  const QSize size(form_->width(), form_->height() + bar);
  if (!form_->resizable()) return setFixedSize(size);
  const QSize smallest(form_->smallest_width(), form_->smallest_height() + bar);
  setMinimumSize(smallest);
  // Some room is left for the frame, which has no size before it is shown.
  constexpr QSize kFrame(8, 40);
  resize(size.boundedTo(screen()->availableSize() - kFrame).expandedTo(smallest));
}

void FormWindow::Arrange() {
  int top = 0;
  if (menus_.bar() != nullptr) {
    top = menus_.bar()->sizeHint().height();
    menus_.bar()->setGeometry(0, 0, width(), top);
  }
  inner_->setGeometry(0, top, width(), height() - top);
  for (const auto& view : views_) view->PlaceIn(inner_->width(), inner_->height());
}

void FormWindow::Retire() {
  if (!alive()) return;
  form_ = nullptr;
  view_of_.clear();
  menus_.Retire();
  hide();
  state_.Retire(shared_from_this());
}

void FormWindow::BringToFront() {
  state_.Raise(*this);
  if (painted_) raise();
  activateWindow();
  if (std::exchange(painted_, true)) return;
  ForUser([this] {
    pump_.PaintUntil([this] { return !alive() || windowHandle()->isExposed(); }, kLongestWait);
    if (alive()) repaint();
  });
}

void FormWindow::CaptionChanged() {
  if (std::exchange(caption_stale_, true)) return;
  const auto show = [this] {
    caption_stale_ = false;
    if (alive()) ShowCaption();
  };
  QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
}

void FormWindow::ShowCaption() {
  // Qt puts its own mark for "changed" in the place of this one.
  setWindowTitle(ToQt(form_->caption()).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

void FormWindow::ControlChanged(const Control& control, Change change) {
  if (control.kind() == ControlKind::kMenuItem) {
    return menus_.Mirror(static_cast<const MenuItem&>(control));
  }
  ControlView* const view = Find(&control);
  if (view == nullptr) return;
  if (change == Change::kFocus) return view->TakeFocus();
  // Qt would give the keyboard away itself once the widget cannot have it.
  if (change == Change::kEnabled || change == Change::kVisible) LeaveUnusable(*view);
  view->Mirror(change);
}

ControlView* FormWindow::Find(const Control* control) const {
  const auto view = view_of_.find(control);
  return view == view_of_.end() ? nullptr : view->second;
}

const Control* FormWindow::FocusedControl() const {
  const QWidget* const focused = focusWidget();
  for (const auto& view : views_) {
    const QWidget& widget = view->widget();
    if (focused != nullptr && (&widget == focused || widget.isAncestorOf(focused))) {
      return &view->control();
    }
  }
  return nullptr;
}

// A mark shows where the keyboard is: it may be the next that is used.
void FormWindow::FocusFirst() {
  ControlView* const stop = Find(OpeningStop(*form_, form_->focus()));
  if (stop == nullptr) return;
  setAttribute(Qt::WA_KeyboardFocusChange);
  stop->TakeFocus();
}

// Left to itself, Qt would give the keyboard to the next widget, with all its text selected.
void FormWindow::LeaveUnusable(const ControlView& view) {
  const Control& control = view.control();
  if (CanHaveFocus(control) || FocusedControl() != &control) return;
  if (ControlView* const next = Find(Refuge(*form_, control)); next != nullptr) {
    next->TakeFocus();
  } else {
    focusWidget()->clearFocus();
  }
}

bool FormWindow::focusNextPrevChild(bool next) {
  if (!alive()) return false;
  ControlView* const stop = Find(NextStop(*form_, FocusedControl(), next));
  if (stop == nullptr) return false;
  setAttribute(Qt::WA_KeyboardFocusChange);
  stop->widget().setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

void FormWindow::PopUp(const MenuItem& item, const QPoint& global_position) {
  menus_.PopUp(item, global_position);
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (alive()) ForUser([this] { form_->RequestClose(); });
}

void FormWindow::resizeEvent(QResizeEvent*) { Arrange(); }

// Lists scroll to their current line only once they have their size.
void FormWindow::showEvent(QShowEvent*) {
  for (const auto& view : views_) view->Mirror(Change::kSelection);
}

// A menu bar may need more room once its style is known.
bool FormWindow::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest && alive()) Arrange();
  return QWidget::event(event);
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  bool used = false;
  if (alive()) ForUser([&] { used = Press(*event); });
  if (used) {
    event->accept();
  } else {
    QWidget::keyPressEvent(event);
  }
}

bool FormWindow::Press(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Enter:
    case Qt::Key_Return:
      return form_->PressDefaultButton();
    case Qt::Key_Escape:
      return form_->PressEscape();
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      if (!event.modifiers().testFlag(Qt::ControlModifier)) return false;
      setAttribute(Qt::WA_KeyboardFocusChange);
      return TurnPage(*form_, !event.modifiers().testFlag(Qt::ShiftModifier));
    default:
      return PressShortcut(*form_, ToKeyPress(event));
  }
}

void PlaceOver(QWidget& window, const QWidget* owner) {
  const QScreen* const screen =
      owner == nullptr ? QGuiApplication::primaryScreen() : owner->screen();
  const QRect room = screen->availableGeometry();
  const QRect around = owner == nullptr ? room : owner->frameGeometry();
  QRect place(QPoint(), window.size());
  place.moveCenter(around.center());
  // A large window over a small one stays on the screen.
  place.moveLeft(std::max(std::min(place.left(), room.right() - place.width()), room.left()));
  place.moveTop(std::max(std::min(place.top(), room.bottom() - place.height()), room.top()));
  window.move(place.topLeft());
}

void TieTo(QWidget& window, const QWidget* owner) {
  if (owner == nullptr || owner->windowHandle() == nullptr) return;
  window.winId();
  window.windowHandle()->setTransientParent(owner->windowHandle());
}

}  // namespace quarvel::platform::qt
