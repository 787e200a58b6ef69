// The program that shows models in windows where `quarvel` has none of its own, so that only who looks at a
// model needs the toolkit, and nobody else waits for it to be loaded. Not of Windows.
#pragma once

#include "hosts/session.h"

namespace quarvel::hosts {

inline constexpr const char* kViewerProgram = "quarvel-view";

// Becomes the program kViewerProgram beside this one, with the options and the file of the session. Comes
// back only with a CommandError, when it is not there or does not start.
int BecomeViewer(Session& session);

}  // namespace quarvel::hosts
