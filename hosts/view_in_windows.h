// The model of `quarvel view` in the component's windows. Questions are windows as well, so of the session
// only the command line is used.
#pragma once

#include "hosts/session.h"
#include "platform/desktop.h"

namespace quarvel::hosts {

// What is raised where no window can be shown.
CommandError NoDisplay();

// Until the user closes the windows; gives the exit status. Without a desktop, and for a file that is not
// read, it raises a CommandError.
int ViewInWindows(Session& session, platform::Desktop* desktop);

}  // namespace quarvel::hosts
