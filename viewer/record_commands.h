// The viewer's commands that add, rename, delete and change records of one kind.
#pragma once

#include <optional>

#include "viewer/command_desk.h"

namespace quarvel {

class RecordCommands {
 public:
  // `bounds` is the dialog for records of that kind. All three outlive the object.
  RecordCommands(CommandDesk& desk, const RecordKind& kind, SetBoundsForm& bounds);

  void Add();
  void Rename();
  void Delete();
  void ChangeBounds();

 private:
  RecordPage& page() const { return desk_.contents().PageOf(kind_); }
  // A name without spaces; empty when cancelled.
  std::string AskNewName() const;
  // The selected record; says so when there is none.
  std::optional<NamedRecord> Selected() const;

  CommandDesk& desk_;
  const RecordKind& kind_;
  SetBoundsForm& bounds_;
};

}  // namespace quarvel
