// Simplifying and comparing.

#include <optional>
#include <string>
#include <vector>

#include "python/core.h"
#include "python/lock.h"
#include "python/signals.h"
#include "python/texts.h"

namespace quarvel::python {
namespace {

namespace py = pybind11;

py::dict Simplified(SharedModel& shared, int on_conflict, const py::object& progress) {
  const Use use(shared);
  Pulse pulse(progress);
  SimplifyOptions options;
  options.on_conflict = static_cast<OnConflict>(on_conflict);
  options.on_progress = [&pulse](double part) { return pulse.Beat(part, 1.0); };
  SimplifyResult result;
  {
    const Unlocked unlocked;
    result = Simplify(shared.model, options);
    if (!result.is_stopped) pulse.End(1.0);
  }
  py::dict told;
  told["is_stopped"] = result.is_stopped;
  told["conflicts"] = result.conflicts;
  told["removed_rows"] = result.removed_rows;
  told["removed_columns"] = result.removed_columns;
  told["log"] = Told(result.log);
  py::list altered;
  for (const std::string& sentence : result.altered) altered.append(Told(sentence));
  told["altered"] = altered;
  return told;
}

py::dict DifferenceOf(const Difference& difference) {
  py::dict told;
  told["kind"] = std::string(difference.kind);
  told["is_note"] = difference.is_note;
  told["row_in_a"] = difference.row_in_a;
  told["row_in_b"] = difference.row_in_b;
  told["column_in_a"] = difference.column_in_a;
  told["column_in_b"] = difference.column_in_b;
  told["before"] = difference.before;
  told["after"] = difference.after;
  return told;
}

py::tuple Compared(SharedModel& a, SharedModel& b, double absolute, double relative,
                   std::size_t most) {
  const Use use_a(a);
  std::optional<Use> use_b;
  if (&a != &b) use_b.emplace(b);
  const py::none nobody;
  Pulse pulse(nobody);
  std::vector<Difference> found;
  std::int64_t count = 0;
  {
    const Unlocked unlocked;
    count = Compare(a.model, b.model, {absolute, relative}, [&](const Difference& difference) {
      if (found.size() < most) found.push_back(difference);
      pulse.Beat(0, 0);
    });
  }
  py::list differences;
  for (const Difference& difference : found) differences.append(DifferenceOf(difference));
  return py::make_tuple(count, differences);
}

}  // namespace

void AddSimplifying(ModelClass& model) { model.def("simplify", &Simplified); }

void AddComparing(py::module_& module) { module.def("compare", &Compared); }

}  // namespace quarvel::python
