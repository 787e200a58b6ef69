// A small model that the tests of queries share, and errors as comparable values.
//
//   row 0 R1: 2*X1 - 3.5*X2     row 1 R2: 1*X3     row 2 R3: 4*X1 + 5*X5     row 3 R4: no elements
//   columns 0..4 X1..X5; X4 is in no row; X5 is integer
#pragma once

#include <cstdint>
#include <ostream>
#include <string>

#include "component/lp_model.h"
#include "platform/scripted/scripted_desktop.h"

namespace quarvel {

struct Raised {
  Raised(std::int32_t n, std::string s, std::string d)
      : number(n), source(std::move(s)), description(std::move(d)) {}
  std::int32_t number;
  std::string source;
  std::string description;
  bool operator==(const Raised&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Raised& raised) {
  return out << raised.number << " [" << raised.source << "] " << raised.description;
}

// What `call` raised; number 0 when it raised nothing.
template <class Call>
Raised RaisedBy(const Call& call) {
  try {
    call();
  } catch (const AutomationError& error) {
    return {error.number(), error.source(), error.description()};
  }
  return {0, "", "nothing was raised"};
}

class QueryModel {
 public:
  QueryModel();

  // 1-based. Sets type and bounds without asking any rule.
  void SetRow(std::int32_t r, model::RowType type, double lower, double upper);

  platform::ScriptedDesktop desktop;
  LPModel model{desktop};
};

}  // namespace quarvel
