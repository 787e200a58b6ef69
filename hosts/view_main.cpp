// The program `quarvel-view` of Linux: `quarvel view`, with the toolkit's windows.

#include <string>
#include <vector>

#include "hosts/standard_output.h"
#include "hosts/standard_streams.h"
#include "hosts/view_in_windows.h"
#include "platform/qt/qt_desktop.h"

namespace {

namespace hosts = quarvel::hosts;

int View(hosts::Session& session) {
  const auto desktop = quarvel::platform::MakeQtDesktop();
  return hosts::ViewInWindows(session, desktop.get());
}

}  // namespace

int main(int argc, char** argv) {
  const auto words = [&] {
    std::vector<std::string> given = hosts::CommandLineWords(argc, argv);
    given.insert(given.begin(), "view");
    return given;
  };
  return hosts::RunOnStandardStreams(words, View);
}
