// A point: a value for each column of a model, 0 for those that nobody gives.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "component/lp_model.h"

namespace quarvel::hosts {

class Point {
 public:
  explicit Point(const LPModel& model);

  // "NAME=VALUE"; the last "=" separates, and names may hold others. A later value replaces an
  // earlier one. Raises a CommandError of this status for a text that is none, and for an unknown
  // column.
  void Set(std::string_view pair, int status_of_bad_text);
  // The lines of a text file, "NAME VALUE" or "NAME=VALUE" each; empty lines and lines that start
  // with "#" are passed over. Raises a CommandError that names file and line.
  void SetFromFile(const std::string& path);

  std::span<const double> values() const { return values_; }

 private:
  void SetFromLine(std::string_view line);
  void SetColumn(std::string_view name, std::string_view value, int status_of_bad_text);

  const LPModel& model_;
  std::vector<double> values_;
};

}  // namespace quarvel::hosts
