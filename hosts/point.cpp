#include "hosts/point.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "hosts/find_record.h"
#include "hosts/input_bytes.h"
#include "hosts/streams.h"
#include "platform/automation_error.h"
#include "platform/console/console_system.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

constexpr std::string_view kBlanks = " \t";

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string NumberText(std::int64_t number) { return "number " + text::IntegerText(number); }

}  // namespace

// Takes the values of a file over to the point.
class Point::FileValues : public inspect::SolutionUser {
 public:
  FileValues(Point& point, UnknownName unknown) : point_(point), unknown_(unknown) {}

  void Begin(inspect::SolutionKind kind) override {
    point_.ForgetAll();
    point_.kind_ = kind;
  }

  void Take(const inspect::SolutionValue& value) override {
    line_ = value.line;
    const std::optional<std::int32_t> column = ColumnOf(value);
    if (!column) return TakeUnknown(value);
    if (point_.given_[static_cast<std::size_t>(*column)]) {
      point_.repeated_.Add(point_.model_.ColName(*column));
    }
    point_.SetColumn(*column, value.value);
  }

  // The line of the last value.
  std::int64_t line() const { return line_; }

 private:
  std::optional<std::int32_t> ColumnOf(const inspect::SolutionValue& value) const {
    if (value.number != 0) {
      const bool is_there = value.number <= point_.model_.NumberOfColumns();
      if (!is_there) return std::nullopt;
      return static_cast<std::int32_t>(value.number - 1);
    }
    const bool may_be_index = point_.kind_ == inspect::SolutionKind::kPairs;
    return LookUpRecord(point_.model_, model::kColumnKind, value.name, may_be_index);
  }

  void TakeUnknown(const inspect::SolutionValue& value) {
    const std::string name = value.number == 0 ? std::string(value.name) : NumberText(value.number);
    if (unknown_ == UnknownName::kRefused) RaiseNoRecord(point_.model_, model::kColumnKind, name);
    point_.unknown_.Add(name);
  }

  Point& point_;
  UnknownName unknown_;
  std::int64_t line_ = 0;
};

void RefuseStandardInputTwice(const std::string& model, const std::string& point) {
  if (model != kStandardInput || point != kStandardInput) return;
  throw CommandError(kUsage, "model and point cannot both be standard input");
}

void Point::Names::Add(std::string_view name) {
  ++count;
  const bool is_there = std::find(first.begin(), first.end(), name) != first.end();
  if (is_there) return;
  has_more = first.size() == kKeptNames;
  if (!has_more) first.emplace_back(name);
}

Point::Point(const LPModel& model, std::function<void(std::string_view)> note)
    : model_(model),
      note_(std::move(note)),
      values_(static_cast<std::size_t>(model.NumberOfColumns()), 0.0),
      given_(values_.size(), false) {}

void Point::Set(std::string_view pair, int status_of_bad_text) {
  const std::size_t equals = pair.rfind('=');
  if (equals == std::string_view::npos) {
    throw CommandError(status_of_bad_text, "\"" + std::string(pair) + "\" is not NAME=VALUE");
  }
  const std::string_view name = Trimmed(pair.substr(0, equals));
  if (name.empty()) {
    throw CommandError(status_of_bad_text, "\"" + std::string(pair) + "\" names no column");
  }
  const std::string_view value = pair.substr(equals + 1);
  const std::optional<double> number = text::ParseNumber(Trimmed(value));
  if (!number) {
    throw CommandError(status_of_bad_text, "the value of " + std::string(name) + ", \"" +
                                               std::string(value) + "\", is not a number");
  }
  const std::int32_t column = FindRecord(model_, model::kColumnKind, name, note_);
  if (!paired_.insert(column).second) repeated_.Add(model_.ColName(column));
  SetColumn(column, *number);
}

void Point::SetFromFile(const std::string& path, const Streams& streams, UnknownName unknown) {
  FileValues values(*this, unknown);
  const auto raise = [name = NameOfInput(path)](std::int64_t line, std::string_view text) {
    const std::string place = line == 0 ? name : name + ':' + text::IntegerText(line);
    throw CommandError(kProblem, place + ": " + std::string(text));
  };
  inspect::SolutionFile file;
  try {
    file = inspect::ReadSolutionFile(InputOpener(path, streams)(), values);
  } catch (const CommandError& error) {
    raise(values.line(), error.text());
  } catch (const AutomationError& error) {
    if (platform::console::InterruptNoted()) throw CommandError(kInterrupted, "stopped");
    raise(values.line(), error.description());
  }
  if (file.complaint) raise(file.complaint->line, file.complaint->text);
  // Numbers mean nothing in another model.
  if (file.kind == inspect::SolutionKind::kGlpsolRaw && file.columns != model_.NumberOfColumns()) {
    raise(0, "it has the values of " + text::IntegerText(file.columns) +
                 " columns by their numbers, and the model has " +
                 text::IntegerText(model_.NumberOfColumns()));
  }
}

Point::Names Point::Missing() const {
  Names names;
  for (std::size_t j = 0; j < given_.size(); ++j) {
    if (given_[j]) continue;
    names.Add(names.first.size() < kKeptNames ? model_.ColName(static_cast<std::int32_t>(j)) : "");
  }
  return names;
}

bool Point::GivesNone() const {
  return !given_.empty() && std::find(given_.begin(), given_.end(), true) == given_.end();
}

void Point::SetColumn(std::int32_t column, double value) {
  values_[static_cast<std::size_t>(column)] = value;
  given_[static_cast<std::size_t>(column)] = true;
}

void Point::ForgetAll() {
  std::fill(values_.begin(), values_.end(), 0.0);
  std::fill(given_.begin(), given_.end(), false);
  unknown_ = {};
  repeated_ = {};
}

}  // namespace quarvel::hosts
