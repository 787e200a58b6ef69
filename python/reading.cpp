// Reading, with the interpreter's lock given away.

#include <string>
#include <string_view>

#include "python/core.h"
#include "python/signals.h"

namespace quarvel::python {
namespace {

namespace py = pybind11;

py::dict ProblemOf(const Problem& problem) {
  py::dict told;
  constexpr const char* kSeverities[] = {"error", "adapted", "warning"};
  told["severity"] = kSeverities[static_cast<int>(problem.severity)];
  told["code"] = std::string(problem.code);
  told["name"] = std::string(problem.name);
  told["line"] = problem.line;
  told["column"] = problem.column;
  told["length"] = problem.length;
  told["text"] = problem.text;
  told["item"] = problem.item;
  told["message"] = problem.message;
  told["expected"] = std::string(problem.expected);
  return told;
}

py::dict ResultOf(const ReadResult& result) {
  py::list problems;
  for (const Problem& problem : result.problems) problems.append(ProblemOf(problem));
  py::dict told;
  told["outcome"] = static_cast<int>(result.outcome);
  told["problems"] = problems;
  told["errors"] = result.errors;
  told["adapted"] = result.adapted;
  told["warnings"] = result.warnings;
  told["lines"] = result.lines;
  told["has_endata"] = result.has_endata;
  return told;
}

ReadOptions OptionsOf(const py::dict& given) {
  ReadOptions options;
  options.dialect = static_cast<Dialect>(given["dialect"].cast<int>());
  options.columns = static_cast<FieldColumns>(given["columns"].cast<int>());
  options.infinite_default_bounds = given["infinite_default_bounds"].cast<bool>();
  options.lint = given["lint"].cast<bool>();
  options.objective = given["objective"].cast<std::string>();
  options.negative_upper_frees_lower = given["negative_upper_frees_lower"].cast<bool>();
  options.kept_of_each = given["kept_of_each"].cast<std::size_t>();
  return options;
}

// Runs `read` with the options and a pulse.
template <class Read>
py::dict Done(SharedModel& shared, const py::dict& given, const py::object& progress,
              const Read& read) {
  const Use use(shared);
  ReadOptions options = OptionsOf(given);
  Pulse pulse(progress);
  options.on_progress = [&pulse](std::uint64_t done, std::uint64_t all) {
    return pulse.Beat(done, all, all != 0 && done == all);
  };
  ReadResult result;
  {
    const py::gil_scoped_release release;
    result = read(shared.model, options);
  }
  return ResultOf(result);
}

}  // namespace

void AddReading(ModelClass& model) {
  model.def("read_file", [](SharedModel& shared, const std::string& path, const py::dict& given,
                            const py::object& progress) {
    return Done(shared, given, progress, [&](Model& into, const ReadOptions& options) {
      return ReadFile(path, into, options);
    });
  });
  // The bytes are Python's own: it keeps them while the call lasts, and never changes them.
  model.def("read_bytes", [](SharedModel& shared, const py::bytes& bytes, const py::dict& given,
                             const py::object& progress) {
    const std::string_view text(bytes);
    return Done(shared, given, progress, [&](Model& into, const ReadOptions& options) {
      return ReadText(text, into, options);
    });
  });
}

}  // namespace quarvel::python
