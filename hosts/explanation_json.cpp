// What made a record what it is, as JSON.

#include <optional>

#include "hosts/explanation.h"
#include "hosts/printing.h"
#include "model/record_number.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

using inspect::RecordOrigin;
using inspect::Setting;

void AppendSense(std::string& json, mps::ObjectiveSense sense) {
  using enum mps::ObjectiveSense;
  if (sense == kNotSaid) return AppendJsonObject(json, "objective", "null");
  AppendJsonMember(json, "objective", sense == kMaximize ? "maximize" : "minimize");
}

// The settings of one kind, the one that counts last; nothing where there is none.
void AppendHistory(std::string& json, std::string_view key, const inspect::History& history,
                   std::optional<Bound::Side> side = std::nullopt) {
  if (history.count == 0) return;
  json += ',';
  AppendJson(json, key);
  json += ":{\"count\":" + text::IntegerText(history.count) + ",\"settings\":[";
  for (const Setting& setting : history.last) {
    json += json.back() == '[' ? "{" : ",{";
    if (setting.line != 0) json += "\"line\":" + text::IntegerText(setting.line);
    if (!setting.type.empty()) {
      AppendJsonMember(json, "value", setting.type);
    } else if (side) {
      AppendJsonMember(json, "value", Bound{*side, setting.value});
    } else {
      AppendJsonMember(json, "value", setting.value);
    }
    if (setting.range_line != 0) {
      json += ",\"rangeLine\":" + text::IntegerText(setting.range_line);
    }
    json += '}';
  }
  json += "]}";
}

// That of the setting that counts, where a line has said it.
void AppendLine(std::string& json, std::string_view key, const inspect::History& history) {
  if (history.count > 0) AppendJsonMember(json, key, history.last.back().line);
}

void AppendObjective(std::string& json, const mps::FileFacts& facts, const RecordOrigin& record) {
  AppendSense(json, facts.sense);
  AppendLine(json, "objectiveLine", record.sense);
  AppendHistory(json, "objectiveHistory", record.sense);
  AppendJsonMember(json, "objectiveConstant", facts.objective_constant);
  AppendLine(json, "objectiveConstantLine", record.constant);
  AppendHistory(json, "objectiveConstantHistory", record.constant);
}

std::string CoefficientsJson(std::string_view key, std::int64_t count,
                             const std::vector<inspect::CoefficientOrigin>& first,
                             const RecordOrigin& record) {
  std::string json = ",";
  AppendJson(json, key);
  json += ":{\"count\":" + text::IntegerText(count);
  json += ",\"first\":[";
  for (const inspect::CoefficientOrigin& entry : first) {
    json += json.back() == '[' ? "\n{" : ",\n{";
    json += "\"line\":" + text::IntegerText(entry.line);
    AppendJsonMember(json, record.is_row ? "column" : "row", entry.other);
    AppendJsonMember(json, "value", entry.value);
    json += '}';
  }
  return json + "]}";
}

std::string UnusedJson(const RecordOrigin& record) {
  std::string json = ",\"unused\":{\"count\":" + text::IntegerText(record.idle_count);
  json += ",\"lines\":[";
  for (const std::int64_t line : record.idle_lines) {
    if (json.back() != '[') json += ',';
    json += text::IntegerText(line);
  }
  return json + "]}";
}

std::string ProblemsJson(const RecordOrigin& record) {
  std::string json = ",\"problems\":{\"count\":" + text::IntegerText(record.problem_count);
  json += ",\"first\":[";
  for (const mps::FileProblem& problem : record.problems) {
    json += json.back() == '[' ? "{" : ",{";
    AppendJsonMember(json, "code", mps::TraitsOf(problem.code).id);
    if (problem.line != 0) json += ",\"line\":" + text::IntegerText(problem.line);
    AppendJsonMember(json, "text", mps::SentenceOf(problem));
    json += '}';
  }
  return json + "]}";
}

void PrintRecordJson(const Explanation& explanation, const RecordOrigin& record) {
  std::string json = "{";
  if (record.number != 0) {
    AppendJsonMember(json, "index", model::Public(record.number));
    AppendJsonMember(json, "name", record.name);
    AppendHistory(json, "type", record.type);
    if (record.marker_line != 0) json += ",\"marker\":" + text::IntegerText(record.marker_line);
    AppendHistory(json, "lowerBound", record.lower, Bound::Side::kLower);
    AppendHistory(json, "upperBound", record.upper, Bound::Side::kUpper);
    if (explanation.IsObjective(record)) AppendObjective(json, explanation.facts, record);
    json += CoefficientsJson("elements", record.coefficient_count, record.coefficients, record);
    if (record.zero_count != 0) {
      json += CoefficientsJson("zeros", record.zero_count, record.zeros, record);
    }
  } else {
    AppendJsonMember(json, "name", record.name);
  }
  explanation.session.streams.out << json + UnusedJson(record) + ProblemsJson(record) + '}';
}

void PrintLinesJson(const Explanation& explanation) {
  explanation.session.streams.out << ",\"lines\":[";
  std::string_view gap = "\n";
  for (const auto& [number, quote] : explanation.quotes) {
    if (!explanation.session.KeepPrinting()) return;
    std::string json(gap);
    json += "{\"line\":" + text::IntegerText(number);
    AppendJsonMember(json, "text", quote);
    explanation.session.streams.out << json + '}';
    gap = ",\n";
  }
  explanation.session.streams.out << ']';
}

}  // namespace

void PrintExplanationJson(const Explanation& explanation) {
  std::string json = "{";
  AppendJsonMember(json, "file", explanation.file);
  explanation.session.streams.out << json;
  for (const RecordOrigin& record : explanation.records) {
    explanation.session.streams.out << (record.is_row ? ",\"row\":" : ",\"column\":");
    PrintRecordJson(explanation, record);
  }
  PrintLinesJson(explanation);
  explanation.session.StopIfInterrupted();
  json = "{";
  AppendJsonMember(json, "hasEndata", explanation.facts.has_endata);
  explanation.session.streams.out << ',' + json.substr(1) + "}\n";
}

}  // namespace quarvel::hosts
