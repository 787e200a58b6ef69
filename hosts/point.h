// A point: a value for each column of a model, 0 for those that nobody gives.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "component/lp_model.h"
#include "hosts/streams.h"
#include "inspect/solution_file.h"

namespace quarvel::hosts {

// What becomes of a name in a file that the model has no column of.
enum class UnknownName : std::uint8_t { kRefused, kNoted };

class Point {
 public:
  // So many names are kept of any kind.
  static constexpr std::size_t kKeptNames = 10;
  struct Names {
    std::int64_t count = 0;
    std::vector<std::string> first;  // each once
    bool has_more = false;           // other names than these

    void Add(std::string_view name);
  };

  // `note` hears what FindRecord has to say of a column that Set is given.
  explicit Point(const LPModel& model, std::function<void(std::string_view)> note = {});

  // "NAME=VALUE"; the last "=" separates, and names may hold others. A later value replaces an
  // earlier one. Raises a CommandError of this status for a text that is none, and for an unknown
  // column.
  void Set(std::string_view pair, int status_of_bad_text);
  // The values of a file of any kind that inspect/solution_file.h knows. Columns of names and values are
  // given as on the command line, those of a solver by their names alone, as they stand there or in
  // upper case. "-" is standard input, and what is packed is unpacked. Raises a CommandError that names file
  // and line.
  void SetFromFile(const std::string& path, const Streams& streams,
                   UnknownName unknown = UnknownName::kRefused);

  std::span<const double> values() const { return values_; }
  // Of the last file.
  inspect::SolutionKind kind() const { return kind_; }
  // Columns that nobody gave, in the model's order.
  Names Missing() const;
  // There are columns, and nobody gave any of them.
  bool GivesNone() const;
  // Names in files that the model does not have; columns that a file, or Set, was given again. What Set
  // replaces of a file is none.
  const Names& unknown() const { return unknown_; }
  const Names& repeated() const { return repeated_; }

 private:
  class FileValues;

  void SetColumn(std::int32_t column, double value);
  void ForgetAll();

  const LPModel& model_;
  std::function<void(std::string_view)> note_;
  std::vector<double> values_;
  std::vector<bool> given_;
  inspect::SolutionKind kind_ = inspect::SolutionKind::kPairs;
  Names unknown_;
  Names repeated_;
  std::set<std::int32_t> paired_;  // columns that Set was given
};

// Raises a CommandError of status kUsage where both are.
void RefuseStandardInputTwice(const std::string& model, const std::string& point);

}  // namespace quarvel::hosts
