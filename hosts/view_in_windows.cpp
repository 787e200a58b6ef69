#include "hosts/view_in_windows.h"

#include "hosts/opening_desktop.h"
#include "hosts/printing.h"

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

CommandError NoDisplay() {
  return {kProblem, "there is no display to show windows on; \"quarvel rows\" prints a model"};
}

int ViewInWindows(Session& session, platform::Desktop* desktop) {
  if (desktop == nullptr) throw NoDisplay();
  const Arguments& arguments = session.arguments;
  if (arguments.operands.empty()) {
    ViewNew(*desktop);
  } else {
    ViewFile(session, *desktop, arguments.operands.front(), arguments.edit);
  }
  return kGood;
}

}  // namespace quarvel::hosts
