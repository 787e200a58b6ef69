// The program `quarvel`.

#include <cstddef>
#include <span>

#include "hosts/program.h"
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
  const std::span<const char* const> given(argv, static_cast<std::size_t>(argc));
  const int failure = hosts::FailureStatus(given.subspan(given.empty() ? 0 : 1));
#ifdef _WIN32
  hosts::RestrictLibrarySearch();
#else
  if (!hosts::ClaimStack()) hosts::EndWithoutStack(failure);
#endif
  const auto words = [&] { return hosts::CommandLineWords(argc, argv); };
  return hosts::RunOnStandardStreams(words, View, failure);
}
