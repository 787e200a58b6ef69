#include "platform/qt/form_peer.h"

#include <QWindow>
#include <utility>

namespace quarvel::platform::qt {
namespace {

// A window manager that never shows the window must not hold up the work that it tells about.
constexpr std::chrono::milliseconds kLongestWait{500};

}  // namespace

QtFormPeer::QtFormPeer(Stage& stage, EventPump& pump, Form& form, bool modal)
    : stage_(stage), pump_(pump), window_(std::make_unique<FormWindow>(stage, form, modal)) {
  // A window that is not modal would keep the user out of the host's.
  const QWidget* const owner = modal ? stage_.Owner() : stage_.Top();
  TieTo(*window_, owner);
  PlaceOver(*window_, owner);
  window_->show();
  window_->FocusFirst();
  stage_.Raise(*window_);
}

QtFormPeer::~QtFormPeer() {
  window_->Detach();
  stage_.Bury(std::move(window_));
}

void QtFormPeer::BringToFront() {
  stage_.Raise(*window_);
  if (painted_) window_->raise();
  window_->activateWindow();
  if (std::exchange(painted_, true)) return;
  // An event may end this peer; the window outlives what is done for the user.
  FormWindow& window = *window_;
  EventPump& pump = pump_;
  stage_.ForUser([&window, &pump] {
    pump.PaintUntil([&window] { return window.IsDetached() || window.windowHandle()->isExposed(); },
                    kLongestWait);
    if (!window.IsDetached()) window.repaint();
  });
}

}  // namespace quarvel::platform::qt
