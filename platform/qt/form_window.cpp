#include "platform/qt/form_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "platform/basic_controls.h"
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

bool IsCancel(const Control* control) {
  return control->kind() == ControlKind::kButton && static_cast<const Button*>(control)->is_cancel;
}

}  // namespace

FormWindow::FormWindow(Stage& stage, Form& form, bool modal)
    : QWidget(nullptr, FlagsFor(form)),
      stage_(stage),
      form_(&form),
      modal_(modal),
      inner_(new QWidget(this)),
      menus_(stage, form, *this) {
  setObjectName(ToQt(form.name()));
  // The program goes on when a window of the component is closed.
  setAttribute(Qt::WA_QuitOnClose, false);
  // A window that is not modal keeps only those away that it is tied to: the component's own.
  setWindowModality(modal ? Qt::ApplicationModal : Qt::WindowModal);
  ShowCaption();
  MakeViews();
  LeadLabels();
  Measure();
}

void FormWindow::MakeViews() {
  for (Control* control : form_->controls()) {
    auto view = MakeView(stage_, *control, *inner_);
    if (!view) continue;
    view_of_[control] = view.get();
    views_.push_back(std::move(view));
  }
  // Frames stand behind what is in them, and tab strips behind their pages' frames.
  for (const ControlKind kind : {ControlKind::kFrame, ControlKind::kTabStrip}) {
    for (const auto& view : views_) {
      if (view->control()->kind() == kind) view->widget().lower();
    }
  }
  for (const auto& view : views_) view->MirrorAll();
}

// The access key of a label leads to the control after it.
void FormWindow::LeadLabels() {
  QLabel* label = nullptr;
  for (const auto& view : views_) {
    const Control& control = *view->control();
    if (label != nullptr && TakesKeys(control)) {
      label->setBuddy(&view->widget());
      label = nullptr;
    }
    if (control.kind() == ControlKind::kLabel && control.access_key != 0) {
      label = static_cast<QLabel*>(&view->widget());
    }
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

void FormWindow::Detach() {
  form_ = nullptr;
  for (const auto& view : views_) view->Detach();
  view_of_.clear();
  menus_.Detach();
  hide();
}

void FormWindow::ShowCaption() {
  // Qt puts its own mark for "changed" in the place of this one.
  setWindowTitle(ToQt(form_->caption()).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

void FormWindow::Mirror(const Control& control, Change change) {
  if (control.kind() == ControlKind::kMenuItem) {
    return menus_.Mirror(static_cast<const MenuItem&>(control));
  }
  const auto view = view_of_.find(&control);
  if (view == view_of_.end()) return;
  if (change == Change::kEnabled || change == Change::kVisible) LeaveUnusable(*view->second);
  view->second->Mirror(change);
}

// A mark shows where the keyboard is: it may be the next that is used.
void FormWindow::FocusFirst() {
  const auto wanted = view_of_.find(form_->focus());
  ControlView* const stop =
      OpeningStop(views_, wanted == view_of_.end() ? nullptr : wanted->second);
  if (stop == nullptr) return;
  setAttribute(Qt::WA_KeyboardFocusChange);
  stop->Mirror(Change::kFocus);
}

// Left to itself, Qt would give the keyboard to the next widget, with all its text selected.
void FormWindow::LeaveUnusable(const ControlView& view) {
  QWidget* const focused = focusWidget();
  if (CanFocus(*view.control()) || !Holds(view, focused)) return;
  ControlView* const next = Refuge(views_, view);
  if (next != nullptr) {
    next->Mirror(Change::kFocus);
  } else {
    focused->clearFocus();
  }
}

bool FormWindow::focusNextPrevChild(bool next) {
  ControlView* const stop = form_ == nullptr ? nullptr : NextStop(views_, focusWidget(), next);
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
  if (form_ != nullptr) stage_.ForUser([this] { form_->RequestClose(); });
}

void FormWindow::resizeEvent(QResizeEvent*) { Arrange(); }

// Lists scroll to their current line only once they have their size.
void FormWindow::showEvent(QShowEvent*) {
  for (const auto& view : views_) view->Mirror(Change::kSelection);
}

// A menu bar may need more room once its style is known.
bool FormWindow::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest && form_ != nullptr) Arrange();
  return QWidget::event(event);
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  bool used = false;
  if (form_ != nullptr) stage_.ForUser([&] { used = Press(*event); });
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
      return PressEscape();
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return event.modifiers().testFlag(Qt::ControlModifier) &&
             TurnPage(event.modifiers().testFlag(Qt::ShiftModifier));
    default:
      return PressShortcut(*form_, ToKeyPress(event));
  }
}

// A dialog without a button for it is closed; a window with menus stays.
bool FormWindow::PressEscape() {
  if (form_->PressCancelButton()) return true;
  if (form_ == nullptr || !modal_ || menus_.bar() != nullptr) return false;
  const auto& controls = form_->controls();
  if (std::any_of(controls.begin(), controls.end(), IsCancel)) return false;
  form_->RequestClose();
  return true;
}

// True when there is a tab strip; its page, and what it held, may be gone.
bool FormWindow::TurnPage(bool backwards) {
  const auto& controls = form_->controls();
  const auto found = std::find_if(controls.begin(), controls.end(), [](const Control* control) {
    return control->kind() == ControlKind::kTabStrip && CanFocus(*control);
  });
  if (found == controls.end()) return false;
  setAttribute(Qt::WA_KeyboardFocusChange);
  auto& tabs = static_cast<TabStrip&>(**found);
  const auto count = static_cast<int>(tabs.captions().size());
  if (count > 0) tabs.Select((tabs.current() + (backwards ? count - 1 : 1)) % count);
  return true;
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
