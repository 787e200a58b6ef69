#include "hosts/point.h"

#include <optional>

#include "hosts/find_record.h"
#include "hosts/streams.h"
#include "mps/line_reader.h"
#include "platform/automation_error.h"
#include "platform/files.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

constexpr std::string_view kBlanks = " \t";

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

Point::Point(const LPModel& model)
    : model_(model), values_(static_cast<std::size_t>(model.NumberOfColumns()), 0.0) {}

void Point::Set(std::string_view pair, int status_of_bad_text) {
  const std::size_t equals = pair.rfind('=');
  if (equals == std::string_view::npos) {
    throw CommandError(status_of_bad_text, "\"" + std::string(pair) + "\" is not NAME=VALUE");
  }
  SetColumn(Trimmed(pair.substr(0, equals)), pair.substr(equals + 1), status_of_bad_text);
}

void Point::SetColumn(std::string_view name, std::string_view value, int status_of_bad_text) {
  const std::optional<double> number = text::ParseNumber(Trimmed(value));
  if (!number) {
    throw CommandError(status_of_bad_text, "\"" + std::string(value) + "\" is not a number");
  }
  values_[static_cast<std::size_t>(FindRecord(model_, model::kColumnKind, name))] = *number;
}

void Point::SetFromLine(std::string_view line) {
  const std::string_view text = Trimmed(line);
  if (text.empty() || text.starts_with('#')) return;
  const std::size_t blank = text.find_first_of(kBlanks);
  // "X1 = 3" and "X1 =3" have both.
  const bool is_pair = text.find('=') != std::string_view::npos;
  if (is_pair || blank == std::string_view::npos) return Set(text, kProblem);
  SetColumn(text.substr(0, blank), text.substr(blank), kProblem);
}

void Point::SetFromFile(const std::string& path) {
  std::int64_t number = 0;
  const auto raise = [&path, &number](std::string_view text) {
    const std::string place = number == 0 ? path : path + ':' + text::IntegerText(number);
    throw CommandError(kProblem, place + ": " + std::string(text));
  };
  try {
    mps::LineReader lines{platform::InputFile(path)};
    mps::Line line;
    while (lines.Next(line)) {
      ++number;
      if (line.too_long) throw CommandError(kProblem, "the line is too long");
      SetFromLine(line.view());
    }
  } catch (const CommandError& error) {
    raise(error.text());
  } catch (const AutomationError& error) {
    raise(error.description());
  }
}

}  // namespace quarvel::hosts
