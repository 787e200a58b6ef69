// The program `quarvel`.

#include "hosts/standard_output.h"
#include "hosts/standard_streams.h"
#ifdef _WIN32
#include "hosts/library_search.h"
#include "hosts/view_in_windows.h"
#include "hosts/viewer_desktop.h"
#else
#include "hosts/stack_room.h"
#include "hosts/viewer_program.h"
#endif

namespace {

namespace hosts = quarvel::hosts;

#ifdef _WIN32
int View(hosts::Session& session) {
  return hosts::ViewInWindows(session, hosts::MakeViewerDesktop().get());
}
#else
int View(hosts::Session& session) { return hosts::BecomeViewer(session); }
#endif

}  // namespace

int main(int argc, char** argv) {
#ifdef _WIN32
  hosts::RestrictLibrarySearch();
#endif
  const auto words = [&] {
#ifndef _WIN32
    hosts::ClaimStack();
#endif
    return hosts::CommandLineWords(argc, argv);
  };
  return hosts::RunOnStandardStreams(words, View);
}
