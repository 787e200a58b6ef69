// Pictures of every window as Windows draws it, in the folder that the command line names:
//   screenshots FOLDER
// The resolution of the system sets their scale. The exit status is 1 when one could not be taken.
#include <cstdio>
#include <string>
#include <utility>

#include "component/lp_model.h"
#include "hosts/opening_desktop.h"
#include "hosts/viewer_desktop.h"
#include "mps/frm_progress.h"
#include "platform/win32/control_view.h"
#include "platform/win32/wide_text.h"
#include "tests/screenshots/win32_picture.h"
#include "tests/support/test_paths.h"
#include "tests/win32/user_steps.h"
#include "viewer/frm_view_equations.h"

namespace quarvel::platform::win32 {
namespace {

constexpr wchar_t kViewer[] = L"Model Viewer";
constexpr wchar_t kBox[] = L"Quarvel";
constexpr ULONGLONG kMomentMs = 300;

class Photographer {
 public:
  explicit Photographer(std::string folder) : folder_(std::move(folder)) {}

  int taken() const { return taken_; }
  bool failed() const { return failed_; }
  UserSteps& user() { return user_; }

  void Take(HWND window, const std::string& name) {
    if (SavePicture(window, folder_ + '/' + name + ".png")) {
      ++taken_;
    } else {
      std::fprintf(stderr, "%s.png is blank or could not be written\n", name.c_str());
      failed_ = true;
    }
  }
  // When the window of that title is there.
  template <typename Action>
  void On(const std::wstring& title, Action action) {
    user_.Until(ToUtf8(title), [title, action] {
      const HWND window = FindTopWindow(title);
      if (window == nullptr || !IsWindowEnabled(window)) return false;
      action(window);
      return true;
    });
  }
  // Its picture, a moment after it came up, and then the key that ends it.
  void TakeAndPress(const std::wstring& title, const std::string& name, WPARAM key) {
    Pause();
    On(title, [this, name, key](HWND window) {
      Take(window, name);
      const HWND focused = GetFocus();
      PressKey(focused == nullptr ? window : focused, key);
    });
  }
  void Pause() {
    user_.Until("a moment", [begun = ULONGLONG{0}]() mutable {
      if (begun == 0) begun = GetTickCount64();
      return GetTickCount64() - begun > kMomentMs;
    });
  }

 private:
  std::string folder_;
  UserSteps user_;
  int taken_ = 0;
  bool failed_ = false;
};

int CommandOf(const std::string& name) {
  const auto desktop = hosts::MakeViewerDesktop();
  const viewer::frmViewEquations viewer(*desktop);
  for (std::size_t i = 0; i < viewer.controls().size(); ++i) {
    if (viewer.controls()[i]->name() == name) return kFirstControlId + static_cast<int>(i);
  }
  return 0;
}

void Choose(Photographer& camera, const std::string& item) {
  const auto command = static_cast<WPARAM>(CommandOf(item));
  camera.On(kViewer, [command](HWND viewer) { PostMessageW(viewer, WM_COMMAND, command, 0); });
}

void SelectLine(HWND viewer, const wchar_t* grid, int line) {
  LVITEMW item = {};
  item.state = LVIS_SELECTED | LVIS_FOCUSED;
  item.stateMask = item.state;
  SendMessageW(FindControl(viewer, grid), LVM_SETITEMSTATE, static_cast<WPARAM>(line),
               reinterpret_cast<LPARAM>(&item));
}

void TakeMenu(Photographer& camera, wchar_t letter, const std::string& name) {
  camera.On(kViewer,
            [letter](HWND viewer) { PostMessageW(viewer, WM_SYSCOMMAND, SC_KEYMENU, letter); });
  camera.Pause();
  camera.On(kViewer, [&camera, name](HWND viewer) {
    camera.Take(viewer, name);
    PressKey(viewer, VK_ESCAPE);
    PressKey(viewer, VK_ESCAPE);
  });
  camera.Pause();
}

void TakeColumns(Photographer& camera) {
  camera.On(kViewer, [](HWND viewer) { SelectLine(viewer, L"fgrdColsEqns", 0); });
  camera.Pause();
  camera.On(kViewer, [&](HWND viewer) { camera.Take(viewer, "viewer_columns"); });
  TakeMenu(camera, L'f', "menu_file");
  Choose(camera, "mnuEditColChangeTypeBnd");
  camera.TakeAndPress(L"Set Column Bounds", "column_bounds", VK_ESCAPE);
  camera.On(kViewer, [](HWND viewer) { SelectLine(viewer, L"fgrdColsEqns", 0); });
  Choose(camera, "mnuEditColChangeEle");
  camera.TakeAndPress(L"Change Element Value", "input_box", VK_ESCAPE);
}

void TakeRows(Photographer& camera) {
  camera.On(kViewer, [](HWND viewer) {
    SendMessageW(FindControl(viewer, L"sstViewEqns"), TCM_SETCURFOCUS, 1, 0);
    SelectLine(viewer, L"fgrdRows", 1);
  });
  camera.Pause();
  camera.On(kViewer, [&](HWND viewer) {
    camera.Take(viewer, "viewer_rows");
    RECT place;
    GetWindowRect(viewer, &place);
    SetWindowPos(viewer, nullptr, 0, 0, (place.right - place.left) * 5 / 4,
                 (place.bottom - place.top) * 5 / 4, SWP_NOZORDER);
  });
  camera.Pause();
  camera.On(kViewer, [&](HWND viewer) { camera.Take(viewer, "viewer_rows_wide"); });
  TakeMenu(camera, L'e', "menu_edit");
  Choose(camera, "mnuEditRowChangeBnd");
  camera.TakeAndPress(L"Set Row Bounds", "row_bounds", VK_ESCAPE);
  Choose(camera, "mnuEditRowAddEle");
  camera.TakeAndPress(L"Add Elements to Row SUPPLY1", "add_elements", VK_ESCAPE);
  Choose(camera, "mnuFileExit");
  camera.Pause();
  camera.On(kBox, [&](HWND box) {
    camera.Take(box, "message_box_save");
    PressBoxButton(box, IDNO);
  });
}

void TakeProgress(Photographer& camera, Desktop& desktop) {
  mps::frmProgress progress(desktop);
  progress.Load();
  progress.set_caption("Progress: Reading MPS File (40%)");
  progress.bar.set_range(0, 100);
  progress.bar.set_value(40);
  progress.Show();
  camera.Take(FindTopWindow(L"Progress: Reading MPS File (40%)"), "progress");
  progress.Finish();
}

void TakeAll(Photographer& camera, Desktop& desktop) {
  TakeProgress(camera, desktop);
  hosts::OpeningDesktop opening(desktop, SourceFolder() + "/examples/transport.mps");
  LPModel model(opening);
  camera.TakeAndPress(L"Set Default Bounds", "default_bounds", VK_RETURN);
  camera.Pause();
  camera.On(kBox, [&](HWND box) {
    camera.Take(box, "message_box_simplify");
    PressBoxButton(box, IDNO);
  });
  model.ReadMPSFile();
  TakeColumns(camera);
  TakeRows(camera);
  model.ViewEquations(true);
}

}  // namespace
}  // namespace quarvel::platform::win32

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: screenshots FOLDER\n");
    return 2;
  }
  const auto desktop = quarvel::hosts::MakeViewerDesktop();
  quarvel::platform::win32::Photographer camera(argv[1]);
  quarvel::platform::win32::TakeAll(camera, *desktop);
  std::printf("%d pictures in %s\n", camera.taken(), argv[1]);
  return camera.failed() || !camera.user().AllDone() ? 1 : 0;
}
