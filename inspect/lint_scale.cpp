#include <cmath>
#include <limits>

#include "inspect/lint_parts.h"
#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

using model::ElementEntry;
using mps::FileProblem;
using mps::FileProblemCode;

constexpr double kFarApart = 1e9;

// The smallest and the largest size among coefficients, and the record that each was met in.
struct Sizes {
  double smallest = std::numeric_limits<double>::infinity();
  double largest = 0;
  std::int32_t smallest_in = 0;
  std::int32_t largest_in = 0;

  void Add(const Sizes& other) {
    if (other.smallest < smallest) {
      smallest = other.smallest;
      smallest_in = other.smallest_in;
    }
    if (other.largest > largest) {
      largest = other.largest;
      largest_in = other.largest_in;
    }
  }
  bool AreFarApart() const { return largest > smallest * kFarApart; }
  std::string Text() const {
    return "from " + text::GeneralText(smallest) + " to " + text::GeneralText(largest);
  }
};

Sizes SizesOf(const model::ElementList& list, std::int32_t number) {
  Sizes sizes;
  sizes.smallest_in = sizes.largest_in = number;
  double smallest = sizes.smallest;
  double largest = sizes.largest;
  // Free of branches, which would go either way.
  for (const ElementEntry& entry : list) {
    const double size = std::fabs(entry.Value);
    largest = size > largest ? size : largest;
    const double above_zero = size != 0 ? size : smallest;
    smallest = above_zero < smallest ? above_zero : smallest;
  }
  sizes.smallest = smallest;
  sizes.largest = largest;
  return sizes;
}

// Of all of them together.
template <class Records>
Sizes LintSizes(const Records& records, std::int32_t count, FileProblemCode code,
                const LintListener& listener) {
  Sizes all;
  for (std::int32_t number = 1; number <= count; ++number) {
    const Sizes sizes = SizesOf(records[number].Elements, number);
    if (sizes.AreFarApart()) {
      listener.Tell(code, [&] {
        return FileProblem{.code = {}, .item = records[number].Name, .made = sizes.Text()};
      });
    }
    all.Add(sizes);
  }
  return all;
}

}  // namespace

void LintScale(const model::ModelData& data, const LintListener& listener) {
  LintSizes(data.Rows, data.NumberOfRows, FileProblemCode::kRowScale, listener);
  const Sizes all =
      LintSizes(data.Columns, data.NumberOfColumns, FileProblemCode::kColumnScale, listener);
  if (!all.AreFarApart()) return;
  const bool is_one = all.smallest_in == all.largest_in;
  listener.Tell(FileProblemCode::kModelScale, [&] {
    return FileProblem{.code = {},
                       .made = all.Text() + (is_one ? ", in the column " : ", in the columns ") +
                               data.Columns[all.smallest_in].Name +
                               (is_one ? "" : " and " + data.Columns[all.largest_in].Name)};
  });
}

}  // namespace quarvel::inspect
