// Running one job in a process of its own.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace quarvel::bench {

struct ChildResult {
  std::map<std::string, double> values;  // the lines "name value" of its standard output
  double peak_megabytes = 0;             // the most memory it had in use, in units of 10^6 bytes
  double pages = 0;                      // of memory that the system gave it while it ran
};

// Runs a program with its arguments and waits for its end. Nothing when it cannot be started or
// fails; its standard error goes to ours.
std::optional<ChildResult> RunChild(const std::vector<std::string>& command);

}  // namespace quarvel::bench
