#include "platform/qt/display_probe.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <memory>

#include <dlfcn.h>

namespace quarvel::platform::qt {
namespace {

bool IsNamed(const char* variable) { return !qEnvironmentVariableIsEmpty(variable); }

struct CloseLibrary {
  void operator()(void* library) const { dlclose(library); }
};

// Asks the X server for a connection, with all that may refuse one. The library is the one that
// Qt's own platform for X is made of; where it is not to be had, Qt tells what is missing.
bool AnswersX() {
  const std::unique_ptr<void, CloseLibrary> xcb(dlopen("libxcb.so.1", RTLD_LAZY | RTLD_LOCAL));
  if (!xcb) return true;
  using Connect = void* (*)(const char* display, int* screen);
  using HasError = int (*)(void* connection);
  using Disconnect = void (*)(void* connection);
  const auto connect = reinterpret_cast<Connect>(dlsym(xcb.get(), "xcb_connect"));
  const auto has_error = reinterpret_cast<HasError>(dlsym(xcb.get(), "xcb_connection_has_error"));
  const auto disconnect = reinterpret_cast<Disconnect>(dlsym(xcb.get(), "xcb_disconnect"));
  if (connect == nullptr || has_error == nullptr || disconnect == nullptr) return true;
  void* const connection = connect(nullptr, nullptr);
  const bool answers = has_error(connection) == 0;
  disconnect(connection);
  return answers;
}

bool AnswersWayland() {
  const QString socket = qEnvironmentVariable("WAYLAND_DISPLAY");
  if (socket.isEmpty()) return false;
  return QFile::exists(
      socket.startsWith(u'/') ? socket : qEnvironmentVariable("XDG_RUNTIME_DIR") + u'/' + socket);
}

}  // namespace

bool HasDisplay() {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (!platform.isEmpty() && !platform.startsWith("xcb") && !platform.startsWith("wayland")) {
    return true;
  }
  return AnswersWayland() || (IsNamed("DISPLAY") && AnswersX());
}

}  // namespace quarvel::platform::qt
