// What `quarvel explain` has to say of a name, and its two forms.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "hosts/session.h"
#include "inspect/where_from.h"
#include "mps/file_facts.h"

namespace quarvel::hosts {

struct Explanation {
  Session& session;
  std::string file;                            // as it was given
  std::vector<inspect::RecordOrigin> records;  // of the name, that the file makes or names
  mps::FileFacts facts;
  std::map<std::int64_t, std::string> quotes;  // the lines that are spoken of, by their numbers

  bool IsObjective(const inspect::RecordOrigin& record) const {
    return record.is_row && record.number != 0 && record.name == facts.objective;
  }
};

// Both raise a CommandError after a Ctrl-C.
void PrintExplanationText(const Explanation& explanation);
void PrintExplanationJson(const Explanation& explanation);

}  // namespace quarvel::hosts
