// All commands of the viewer.
#pragma once

#include "viewer/command_desk.h"
#include "viewer/element_commands.h"
#include "viewer/file_commands.h"
#include "viewer/record_commands.h"

namespace quarvel::viewer {

struct ViewerCommands {
  explicit ViewerCommands(CommandDesk& its_desk)
      : desk(its_desk),
        file(desk),
        rows(desk, model::kRowKind, desk.row_bounds),
        columns(desk, model::kColumnKind, desk.col_bounds),
        elements(desk) {}

  CommandDesk& desk;
  FileCommands file;
  RecordCommands rows;
  RecordCommands columns;
  ElementCommands elements;
};

}  // namespace quarvel::viewer
