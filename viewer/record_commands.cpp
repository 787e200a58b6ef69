#include "viewer/record_commands.h"

#include "platform/box.h"
#include "platform/desktop.h"
#include "viewer/command_desk.h"

namespace quarvel::viewer {

RecordCommands::RecordCommands(CommandDesk& desk, const model::RecordKind& kind,
                               SetBoundsForm& bounds)
    : desk_(desk), kind_(kind), bounds_(bounds) {}

RecordPage& RecordCommands::page() const { return desk_.contents().PageOf(kind_); }

std::string RecordCommands::AskNewName() const {
  const std::string noun(kind_.noun);
  while (true) {
    std::string name = desk_.desktop().InputBox(
        "Enter a name for the new " + noun + ".  Names cannot contain spaces.",
        platform::kDefaultTitle, "");
    if (name.find(' ') == std::string::npos) return name;
    desk_.Say("Spaces are not allowed in " + noun + " names");
  }
}

std::optional<NamedRecord> RecordCommands::Selected() const {
  auto record = page().SelectedRecord();
  if (!record) desk_.Say(NoneSelectedText(kind_));
  return record;
}

void RecordCommands::Add() {
  model::ModelInterface& model = desk_.model();
  const std::string name = AskNewName();
  if (!desk_.IsReady() || (model.*kind_.add)(name) == 0 || !desk_.IsReady()) return;
  const std::int32_t number = (model.*kind_.count)() - 1;
  // A host may have emptied the model while the name was warned of.
  if (number >= 0) {
    (model.*kind_.set_type)(number, kind_.first_type);
    bounds_.ShowBounds(model, number);
  }
  desk_.Refill();
}

void RecordCommands::Rename() {
  model::ModelInterface& model = desk_.model();
  const auto record = Selected();
  if (!record) return;
  const std::string name = desk_.desktop().InputBox(
      "Enter a name for this " + std::string(kind_.noun), platform::kDefaultTitle, record->name);
  desk_.WarnOfLongName(name);
  if (!desk_.IsReady()) return;
  if (!record->IsIn(model)) return desk_.GiveUp(NoneSelectedText(kind_));
  (model.*kind_.set_name)(record->number, name);
  desk_.Refill();
}

void RecordCommands::Delete() {
  model::ModelInterface& model = desk_.model();
  const auto record = Selected();
  if (!record || !desk_.ConfirmDeletion(std::string(kind_.noun) + ' ' + record->name)) return;
  if (!record->IsIn(model)) return desk_.GiveUp(NoneSelectedText(kind_));
  const std::int32_t count = (model.*kind_.count)();
  (model.*kind_.remove)(record->number);
  if (!desk_.IsReady()) return;
  if ((model.*kind_.count)() != count) page().ForgetDetails();
  desk_.Refill();
}

void RecordCommands::ChangeBounds() {
  const auto record = Selected();
  if (!record) return;
  bounds_.ShowBounds(desk_.model(), record->number);
  desk_.Refill();
}

}  // namespace quarvel::viewer
