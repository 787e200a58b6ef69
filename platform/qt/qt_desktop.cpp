#include "platform/qt/qt_desktop.h"

#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <string>

#include "platform/box.h"
#include "platform/form.h"
#include "platform/input_box.h"
#include "platform/program_search.h"
#include "platform/qt/boxes.h"
#include "platform/qt/display_probe.h"
#include "platform/qt/drawer_state.h"
#include "platform/qt/event_pump.h"
#include "platform/qt/file_dialogs.h"
#include "platform/qt/fitted_words.h"
#include "platform/qt/form_window.h"
#include "platform/qt/qt_text.h"
#include "platform/window_peer.h"

namespace quarvel::platform {
namespace {

// The QApplication of a process that has none, with the words of a command line that it keeps
// looking at.
class OwnApplication {
 public:
  OwnApplication() {
    if (QCoreApplication::instance() == nullptr) {
      application_ = std::make_unique<QApplication>(count_, words_);
      // The entry that a desktop takes name and icon of the windows from.
      QGuiApplication::setDesktopFileName("quarvel-view");
    }
  }

 private:
  int count_ = 1;
  char name_[8] = "quarvel";
  char* words_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};

class QtDesktop : public Desktop {
 public:
  QtDesktop() {
    state_.on_failure = [this](const std::string& text) {
      MsgBox({.kind = BoxKind::kFailure, .statement = text, .question = {}});
    };
  }
  ~QtDesktop() override { SetMousePointer(MousePointer::kDefault); }
  QtDesktop(const QtDesktop&) = delete;
  QtDesktop& operator=(const QtDesktop&) = delete;

  MsgBoxResult MsgBox(const Box& box) override {
    return qt::AskBox(pump_, state_.OwnerWindow(), box);
  }

  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view default_text) override {
    return AskLine(*this, qt::WordsOnScreenOf(state_.OwnerWindow()), prompt, title, default_text);
  }

  std::string ShowFileDialog(const FileDialog& dialog) override {
    return qt::ChooseFile(pump_, state_.OwnerWindow(), dialog);
  }

  void DoEvents() override {
    pump_.RunPending();
    state_.DestroyRetired();
  }

  void CopyToClipboard(std::string_view text) override {
    QGuiApplication::clipboard()->setText(qt::ToQtLines(text));
  }

  void Beep() override { QApplication::beep(); }
  void SetMousePointer(MousePointer pointer) override;
  bool OpenInEditor(const std::string& path) override;

  std::unique_ptr<FormPeer> Draw(Form& form, bool modal) override {
    state_.DestroyRetired();
    auto window = std::make_shared<qt::FormWindow>(state_, pump_, form);
    window->Open(modal);
    return std::make_unique<WindowPeer<qt::FormWindow>>(std::move(window));
  }

  void PumpUntilClosed(const Showing& showing) override {
    pump_.RunUntil([this, &showing] {
      state_.DestroyRetired();
      return showing.closed;
    });
  }

 private:
  OwnApplication application_;
  qt::EventPump pump_;
  qt::DrawerState state_;
  bool waiting_ = false;  // whether the pointer of waiting is shown
};

void QtDesktop::SetMousePointer(MousePointer pointer) {
  const bool wait = pointer == MousePointer::kWait;
  if (wait == waiting_) return;
  waiting_ = wait;
  if (wait) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QGuiApplication::restoreOverrideCursor();
  }
}

bool QtDesktop::OpenInEditor(const std::string& path) {
  const std::string opener = FindProgram("xdg-open");
  if (opener.empty() || !QFileInfo(qt::ToQt(path)).isFile()) return false;
  QProcess process;
  process.setProgram(qt::ToQt(opener));
  process.setArguments({qt::ToQt(path)});
  // It is a script, which looks for programs in its turn.
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("PATH", qt::ToQt(SearchedFolders()));
  process.setProcessEnvironment(environment);
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  return process.startDetached();
}

}  // namespace

std::unique_ptr<Desktop> MakeQtDesktop() {
  if (QCoreApplication::instance() == nullptr && !qt::HasDisplay()) return nullptr;
  return std::make_unique<QtDesktop>();
}

}  // namespace quarvel::platform
