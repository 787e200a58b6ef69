// quarvel view: a model in the window of the component, on the system's own desktop. Questions are
// windows as well, so of the session only the command line is used.

#include "hosts/commands.h"
#include "hosts/opening_desktop.h"
#include "hosts/printing.h"
#include "hosts/viewer_desktop.h"

namespace quarvel::hosts {
namespace {

constexpr std::int16_t kComponentGood = -1;

void ViewNew(platform::Desktop& desktop) {
  LPModel model(desktop);
  model.NewMPSModel();
}

void ViewFile(Session& session, platform::Desktop& desktop, const std::string& path, bool edit) {
  OpeningDesktop opening(desktop, path);
  LPModel model(opening);
  if (model.ReadMPSFile() != kComponentGood) {
    throw CommandError(kProblem, path + " was not read");
  }
  if (model.store().settings().EndLineMissing) session.Note(MissingEndText(path));
  model.ViewEquations(edit);
}

}  // namespace

int RunView(Session& session) {
  const Arguments& arguments = session.arguments;
  if (arguments.operands.empty() && !arguments.edit) {
    throw CommandError(kUsage, "view takes a FILE, or --edit for a new model");
  }
  const auto desktop = MakeViewerDesktop();
  if (!desktop) {
    throw CommandError(kProblem,
                       "there is no display to show windows on; \"quarvel rows\" prints a model");
  }
  if (arguments.operands.empty()) {
    ViewNew(*desktop);
  } else {
    ViewFile(session, *desktop, arguments.operands.front(), arguments.edit);
  }
  return kGood;
}

}  // namespace quarvel::hosts
