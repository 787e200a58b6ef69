#include "hosts/report_page.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <sstream>

#include "hosts/html.h"
#include "hosts/printing.h"
#include "hosts/short_equation.h"
#include "hosts/stats_words.h"
#include "model/about.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

constexpr std::size_t kMostLettersOfPath = 300;
constexpr int kMostLinesOfDescription = 12;

std::string Figure(const std::string& value, std::string_view what) {
  return "<div><dd>" + value + "</dd><dt>" + std::string(what) + "</dt></div>\n";
}

std::int64_t IntegerColumns(const inspect::ModelStats& stats) {
  return CountOf(stats.column_types[static_cast<std::size_t>(model::ColumnType::kInteger)]);
}

// A link down to the list of problems, in the color of the worst.
std::string Verdict(const CheckResult& check) {
  const std::int64_t errors = check.counts.All(mps::ProblemWeight::kError);
  const std::int64_t warnings = check.counts.All(mps::ProblemWeight::kWarning);
  const std::int64_t adapted = check.counts.All(mps::ProblemWeight::kAdapted);
  const auto link = [](std::string_view weight, std::int64_t count) {
    return "<a class=\"" + std::string(weight) + "\" href=\"#problems\">" + GroupedText(count) +
           "</a>";
  };
  if (errors > 0) return Figure(link("error", errors), errors == 1 ? "error" : "errors");
  if (warnings > 0)
    return Figure(link("warning", warnings), warnings == 1 ? "warning" : "warnings");
  if (adapted > 0) return Figure(link("adapted", adapted), "adapted in reading");
  return Figure("0", "problems");
}

// In percent, of which three digits say enough.
std::string DensityText(double density) {
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), 100 * density,
                                 std::chars_format::general, 3);
  return {digits.data(), end.ptr};
}

std::string ObjectiveText(const mps::FileFacts& facts) {
  if (facts.objective.empty()) return "none";
  std::string text = facts.objective;
  if (facts.sense == mps::ObjectiveSense::kMinimize) text += ", to be minimized";
  if (facts.sense == mps::ObjectiveSense::kMaximize) text += ", to be maximized";
  if (facts.objective_constant != 0) text += ", plus " + ShortText(facts.objective_constant);
  return text;
}

std::string Fact(std::string_view what, const std::string& fact, std::size_t most) {
  if (fact.empty()) return "";
  return "<dt>" + std::string(what) + "</dt><dd>" + Html(fact, most) + "</dd>\n";
}

// Its lines as the file has them.
std::string Description(std::string description) {
  std::replace(description.begin(), description.end(), '\t', ' ');
  std::istringstream lines(text::VisibleText(description, text::LineEnds::kKept));
  std::string shown;
  std::string line;
  for (int count = 0; count < kMostLinesOfDescription && std::getline(lines, line); ++count) {
    shown += (shown.empty() ? "" : "<br>\n") + Html(line, kMostLettersOfPath);
  }
  if (shown.empty()) return "";
  if (std::getline(lines, line)) shown += "<br>\n...";
  return "<dt>Description</dt><dd>" + shown + "</dd>\n";
}

}  // namespace

std::string ReportHead(const ReportedModel& reported, const CheckResult& check) {
  const inspect::ModelStats& stats = reported.stats;
  const std::string name = reported.model.ModelName();
  std::string head = "<header>\n<h1>" + Html(name.empty() ? reported.file : name) + "</h1>\n";
  head += "<dl class=\"facts\">\n" + Fact("File", reported.file, kMostLettersOfPath) +
          Fact("Objective", ObjectiveText(reported.facts), kMostLettersOfName) +
          Description(reported.model.ModelDescription()) + "</dl>\n";
  head += "<dl class=\"figures\">\n" + Figure(GroupedText(stats.rows), "rows") +
          Figure(GroupedText(stats.columns), "columns") +
          Figure(GroupedText(IntegerColumns(stats)), "of them integer") +
          Figure(GroupedText(stats.elements), "coefficients") +
          Figure(DensityText(stats.density) + "&nbsp;%", "of the matrix") + Verdict(check) +
          "</dl>\n";
  head += "<nav aria-label=\"Parts of this page\">";
  constexpr std::string_view kLinks[][2] = {{"matrix", "Matrix"},
                                            {"kinds", "Rows and columns"},
                                            {"sizes", "Sizes"},
                                            {"names", "Names"},
                                            {"scales", "Scaling"},
                                            {"problems", "Problems"},
                                            {"simplification", "Simplification"},
                                            {"equations", "Equations"}};
  for (const auto& link : kLinks) {
    head.append("<a href=\"#").append(link[0]).append("\">").append(link[1]).append("</a> ");
  }
  return head + "</nav>\n</header>\n";
}

std::string ReportPage(const std::string& title, const std::string& body) {
  std::string page =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
      "<meta http-equiv=\"Content-Security-Policy\" "
      "content=\"default-src 'none'; style-src 'unsafe-inline'; img-src data:\">\n"
      "<meta name=\"color-scheme\" content=\"light dark\">\n";
  page += "<title>" + Html(title) + "</title>\n<style>\n";
  page.append(kReportStyle).append("</style>\n</head>\n<body>\n<main>\n").append(body);
  page += "</main>\n<footer>Made by quarvel " + std::string(model::ProductVersion()) +
          ".</footer>\n</body>\n</html>\n";
  return page;
}

}  // namespace quarvel::hosts
