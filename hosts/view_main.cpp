// The program `quarvel-view`: `quarvel view` with the toolkit's windows on Linux, and without a console
// on Windows, for the start menu and for files that are opened by a double click.

#include <string>
#include <vector>

#include "hosts/standard_output.h"
#include "hosts/standard_streams.h"
#include "hosts/view_in_windows.h"
#ifdef _WIN32
#include "hosts/library_search.h"
#include "hosts/viewer_desktop.h"
#else
#include "platform/qt/qt_desktop.h"
#endif

namespace {

namespace hosts = quarvel::hosts;

#ifdef _WIN32
// What the component does not tell in a box of its own is told in one here: nobody sees the standard
// streams of this program.
int View(hosts::Session& session) {
  const auto desktop = hosts::MakeViewerDesktop();
  try {
    return hosts::ViewInWindows(session, desktop.get());
  } catch (const quarvel::AutomationError& error) {
    if (desktop) desktop->MsgBox(quarvel::platform::Failure(error));
    throw;
  }
}
#else
int View(hosts::Session& session) {
  const auto desktop = quarvel::platform::MakeQtDesktop();
  return hosts::ViewInWindows(session, desktop.get());
}
#endif

}  // namespace

int main(int argc, char** argv) {
#ifdef _WIN32
  hosts::RestrictLibrarySearch();
#endif
  const auto words = [&] {
    std::vector<std::string> given = hosts::CommandLineWords(argc, argv);
    given.insert(given.begin(), "view");
    return given;
  };
  return hosts::RunOnStandardStreams(words, View, hosts::kProblem);
}
