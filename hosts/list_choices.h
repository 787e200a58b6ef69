// What the options of `quarvel rows` and `quarvel columns` choose: which records, in which order, and
// what of each is shown.
#pragma once

#include <string>
#include <vector>

namespace quarvel::hosts {

struct ListChoices {
  std::vector<std::string> patterns;  // of names (text/glob.h); none: all
  std::string types;                  // words with commas between them; empty: all
  bool is_integer = false;
  bool is_free = false;
  bool is_fixed = false;
  bool is_empty = false;
  std::string sort;     // the key of a field (record_fields.h), "-" before it to turn it round
  std::string columns;  // keys with commas between them; empty: the usual ones
  bool csv = false;
};

}  // namespace quarvel::hosts
