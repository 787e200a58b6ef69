// Which records of a model are listed, and in which order.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "hosts/list_choices.h"
#include "hosts/record_fields.h"
#include "text/glob.h"

namespace quarvel::hosts {

class RecordSelection {
 public:
  // Raises a CommandError of status kUsage for a type or a key that records of the kind do not have.
  RecordSelection(const ListChoices& choices, const model::RecordKind& kind);

  // The numbers of the records that all choices keep, in order; those that are equal in it, by number.
  std::vector<std::int32_t> Of(const ListedModel& listed) const;
  // What there is to say where they keep none: of a pattern that may be meant otherwise. Mostly empty.
  std::string HintOfNone() const;

 private:
  using TypeTest = bool (*)(const ListedModel& listed, std::int32_t index);

  bool Keeps(const ListedModel& listed, std::int32_t index) const;
  bool KeepsBounds(const ListedModel& listed, std::int32_t index) const;
  void Sort(const ListedModel& listed, std::vector<std::int32_t>& records) const;

  ListChoices choices_;
  std::vector<text::Glob> patterns_;
  std::vector<TypeTest> types_;
  const RecordField* key_ = nullptr;  // null: by number
  bool is_reversed_ = false;
};

// The types that --type takes for a kind, with commas and blanks between them.
std::string TypeWords(const model::RecordKind& kind);

// What the help of a list says of what can be chosen.
std::string ListHelp(const model::RecordKind& kind);

}  // namespace quarvel::hosts
