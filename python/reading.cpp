// Reading, with the interpreter's lock given away.

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "api/streams.h"
#include "hosts/packing/file_bytes.h"
#include "platform/files.h"
#include "python/core.h"
#include "python/lock.h"
#include "python/signals.h"
#include "python/texts.h"

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
  told["text"] = Told(problem.text);
  told["item"] = Told(problem.item);
  told["message"] = Told(problem.message);
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
  options.objective = Utf8(py::str(given["objective"]), ErrorCode::kValue);
  options.negative_upper_frees_lower = given["negative_upper_frees_lower"].cast<bool>();
  options.kept_of_each = given["kept_of_each"].cast<std::size_t>();
  return options;
}

// The bytes are Python's own: it keeps them while the call lasts, and never changes them.
class BytesOfPython : public platform::ByteSource {
 public:
  explicit BytesOfPython(std::string_view bytes) : bytes_(bytes) {}
  std::uint64_t size() const override { return bytes_.size(); }
  std::size_t Read(char* buffer, std::size_t capacity) override {
    const std::size_t count = std::min(capacity, bytes_.size() - at_);
    std::memcpy(buffer, bytes_.data() + at_, count);
    at_ += count;
    return count;
  }

 private:
  std::string_view bytes_;
  std::size_t at_ = 0;
};

// How much of what may be packed is used. All is 0 where that is not known.
struct Course {
  std::uint64_t done = 0;
  std::uint64_t all = 0;
};

class CountedBytes : public platform::ByteSource {
 public:
  CountedBytes(std::unique_ptr<platform::ByteSource> bytes, Course& course)
      : bytes_(std::move(bytes)), course_(course) {
    course_ = {.done = 0, .all = bytes_->size()};
  }
  std::uint64_t size() const override { return course_.all; }
  std::size_t Read(char* buffer, std::size_t capacity) override {
    // What has no size may be a pipe, which nobody may write to for long.
    if (course_.all == 0) Pulse::Listen();
    const std::size_t count = bytes_->Read(buffer, capacity);
    course_.done += count;
    return count;
  }

 private:
  std::unique_ptr<platform::ByteSource> bytes_;
  Course& course_;
};

// Reads what `open` gives, packed or not.
py::dict Done(SharedModel& shared, const api::OpenBytes& open, const std::string& path,
              const py::dict& given, const py::object& progress) {
  const Use use(shared);
  ReadOptions options = OptionsOf(given);
  Pulse pulse(progress);
  Course course;
  options.on_progress = [&](std::uint64_t done, std::uint64_t all) {
    return all != 0 ? pulse.Beat(done, all) : pulse.Beat(course.done, course.all);
  };
  const auto unpacked = [&]() -> std::unique_ptr<platform::ByteSource> {
    auto bytes = open();
    if (!bytes) return nullptr;
    return hosts::Unpacked(std::make_unique<CountedBytes>(std::move(bytes), course));
  };
  ReadResult result;
  {
    const Unlocked unlocked;
    result = api::ReadOpened(unpacked, path, shared.model, options);
    pulse.Rethrow();
    if (result.is_read()) pulse.End(std::max(course.done, course.all));
  }
  return ResultOf(result);
}

py::dict ReadOfFile(SharedModel& shared, const std::string& path, const py::dict& given,
                    const py::object& progress) {
  bool is_used = false;
  const auto open = [&]() -> std::unique_ptr<platform::ByteSource> {
    const bool again = std::exchange(is_used, true);
    // What has no size may be a pipe, which nobody may write to any more.
    if (again && platform::FileLength(path) == 0) return nullptr;
    return hosts::OpenFile(path);
  };
  return Done(shared, open, path, given, progress);
}

py::dict ReadOfBytes(SharedModel& shared, const py::bytes& bytes, const py::dict& given,
                     const py::object& progress) {
  const std::string_view text(bytes);
  const auto open = [text] { return std::make_unique<BytesOfPython>(text); };
  return Done(shared, open, "", given, progress);
}

}  // namespace

void AddReading(ModelClass& model) {
  model.def("read_file", &ReadOfFile);
  model.def("read_bytes", &ReadOfBytes);
}

}  // namespace quarvel::python
