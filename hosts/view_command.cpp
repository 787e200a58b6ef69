// quarvel view: a model in the window of the component, on the system's own desktop.

#include "hosts/commands.h"
#include "hosts/view_in_windows.h"

namespace quarvel::hosts {

int RunView(Session& session) {
  const Arguments& arguments = session.arguments;
  if (arguments.operands.empty() && !arguments.edit) {
    throw CommandError(kUsage, "view takes a FILE, or --edit for a new model");
  }
  if (!session.streams.view) throw NoDisplay();
  return session.streams.view(session);
}

}  // namespace quarvel::hosts
