// The viewer's commands that add, rename, delete and change records of one kind.
#pragma once

#include <optional>
#include <string>

#include "viewer/named_record.h"

namespace quarvel::viewer {

class CommandDesk;
class RecordPage;
class SetBoundsForm;

class RecordCommands {
 public:
  // `bounds` is the dialog for records of that kind. All three outlive the object.
  RecordCommands(CommandDesk& desk, const model::RecordKind& kind, SetBoundsForm& bounds);

  void Add();
  void Rename();
  void Delete();
  void ChangeBounds();

 private:
  RecordPage& page() const;
  // A name without spaces; empty when cancelled.
  std::string AskNewName() const;
  // The selected record; says so when there is none.
  std::optional<NamedRecord> Selected() const;

  CommandDesk& desk_;
  const model::RecordKind& kind_;
  SetBoundsForm& bounds_;
};

}  // namespace quarvel::viewer
