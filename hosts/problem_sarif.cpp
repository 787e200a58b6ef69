// SARIF 2.1.0, the Static Analysis Results Interchange Format: one run with one rule for each code. Columns
// are counted in characters, from 1.

#include <algorithm>

#include "hosts/printing.h"
#include "hosts/problem_report.h"
#include "model/about.h"

namespace quarvel::hosts {
namespace {

using mps::FileProblem;
using mps::FileProblemTraits;

constexpr std::string_view kSchema =
    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";

std::string_view LevelOf(mps::ProblemWeight weight) {
  switch (weight) {
    case mps::ProblemWeight::kError:
      return "error";
    case mps::ProblemWeight::kAdapted:
      return "note";
    case mps::ProblemWeight::kWarning:
      break;
  }
  return "warning";
}

bool IsPlainInUri(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
         std::string_view("-._~/").find(c) != std::string_view::npos;
}

// A relative path stays relative, to whatever the run stood in.
std::string UriOf(const std::string& path) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  const bool has_drive = path.size() > 1 && path[1] == ':';
  std::string uri;
  if (path.starts_with('/')) uri = "file://";
  if (has_drive) uri = "file:///";
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\\' && has_drive) {
      uri += '/';
    } else if (IsPlainInUri(c) || (has_drive && c == ':')) {
      uri += c;
    } else {
      uri += '%';
      uri += kHex[byte >> 4];
      uri += kHex[byte & 0xF];
    }
  }
  return uri;
}

// An object of one text, as SARIF has them for messages.
void AppendMessage(std::string& json, std::string_view key, std::string_view text) {
  if (json.back() != '{') json += ',';
  AppendJson(json, key);
  json += ":{";
  AppendJsonMember(json, "text", text);
  json += '}';
}

std::string HelpOf(const FileProblemTraits& traits) {
  std::string help = "What is wrong: " + std::string(traits.words) + '.';
  if (!traits.expected.empty()) help.append(" What is accepted: ").append(traits.expected) += '.';
  std::string anchor(traits.id);
  std::transform(anchor.begin(), anchor.end(), anchor.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return help + " See docs/problems.md#" + anchor + '-' + std::string(traits.name) + '.';
}

std::string RuleOf(const FileProblemTraits& traits) {
  std::string json = "{";
  AppendJsonMember(json, "id", traits.id);
  AppendJsonMember(json, "name", traits.name);
  AppendMessage(json, "shortDescription", traits.words);
  AppendMessage(json, "help", HelpOf(traits));
  json += ",\"defaultConfiguration\":{";
  AppendJsonMember(json, "level", LevelOf(traits.weight()));
  return json + "}}";
}

class SarifReport : public ProblemReport {
 public:
  SarifReport(const std::string& file, std::ostream& out, const ReportPlace& place)
      : ProblemReport(file, out), place_(place), uri_(UriOf(file)) {}

  void Begin() override {
    std::string json;
    if (place_.is_first) {
      json = "{";
      AppendJsonMember(json, "$schema", kSchema);
      AppendJsonMember(json, "version", "2.1.0");
      json += ",\"runs\":[";
    }
    json += "{\"tool\":{\"driver\":{";
    AppendJsonMember(json, "name", "quarvel");
    AppendJsonMember(json, "version", model::ProductVersion());
    json += ",\"rules\":[";
    std::string_view separator = "\n";
    for (const FileProblemTraits& traits : mps::FileProblemTable()) {
      json.append(separator).append(RuleOf(traits));
      separator = ",\n";
    }
    json += "]}},\"columnKind\":\"unicodeCodePoints\",\"results\":[";
    out() << json;
  }

  void Print(const FileProblem& problem) override {
    const FileProblemTraits& traits = mps::TraitsOf(problem.code);
    std::string json = "{";
    AppendJsonMember(json, "ruleId", traits.id);
    AppendJsonMember(json, "ruleIndex", static_cast<std::int32_t>(traits.code));
    AppendJsonMember(json, "level", LevelOf(traits.weight()));
    AppendMessage(json, "message", mps::SentenceOf(problem));
    json += ",\"locations\":[" + Location(problem) + ']';
    if (!problem.lines.empty()) AppendRelated(json, problem);
    out() << (is_first_ ? "\n" : ",\n") + json + '}';
    is_first_ = false;
  }

  void End(const CheckResult& result) override {
    std::string json = "],\"invocations\":[{";
    AppendJsonMember(json, "executionSuccessful", result.read);
    AppendJsonMember(json, "exitCode", std::int32_t{result.status});
    json += "}],\"properties\":{";
    AppendJsonMember(json, "unlisted", result.counts.All() - result.counts.Printed());
    AppendJsonMember(json, "filtered", result.filtered);
    out() << json + (place_.is_last ? "}}]}\n" : "}},\n");
  }

 private:
  std::string Artifact() const {
    std::string json = "{\"physicalLocation\":{\"artifactLocation\":{";
    AppendJsonMember(json, "uri", uri_);
    return json + '}';
  }

  std::string Location(const FileProblem& problem) const {
    std::string json = Artifact();
    if (problem.line > 0) AppendRegion(json, problem);
    json += '}';
    if (!problem.item.empty()) {
      json += ",\"logicalLocations\":[{";
      AppendJsonMember(json, "name", problem.item);
      json += "}]";
    }
    return json + '}';
  }

  static void AppendRegion(std::string& json, const FileProblem& problem) {
    json += ",\"region\":{";
    AppendJsonMember(json, "startLine", problem.line);
    if (problem.column > 0) {
      AppendJsonMember(json, "startColumn", problem.column);
      AppendJsonMember(json, "endColumn", problem.column + problem.length);
    }
    json += '}';
    if (problem.text.empty()) return;
    json += ",\"contextRegion\":{";
    AppendJsonMember(json, "startLine", problem.line);
    AppendMessage(json, "snippet", problem.text);
    json += '}';
  }

  void AppendRelated(std::string& json, const FileProblem& problem) const {
    json += ",\"relatedLocations\":[";
    for (const std::int64_t line : problem.lines) {
      if (json.back() != '[') json += ',';
      json += Artifact() + ",\"region\":{";
      AppendJsonMember(json, "startLine", line);
      json += "}}}";
    }
    json += ']';
  }

  ReportPlace place_;
  std::string uri_;
  bool is_first_ = true;
};

}  // namespace

std::unique_ptr<ProblemReport> MakeSarifReport(const std::string& file, std::ostream& out,
                                               const ReportPlace& place) {
  return std::make_unique<SarifReport>(file, out, place);
}

}  // namespace quarvel::hosts
