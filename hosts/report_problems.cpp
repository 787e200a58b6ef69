// The problems of a file and its model on the page of a report: how many of each code, and the first of
// each with their lines.

#include "hosts/html.h"
#include "hosts/report_page.h"
#include "hosts/short_equation.h"
#include "hosts/source_excerpt.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

using mps::FileProblem;
using mps::FileProblemTraits;

constexpr std::size_t kMostLettersOfSentence = 300;
constexpr std::size_t kMostLines = 10;

std::string CodeText(const FileProblemTraits& traits) {
  return std::string(traits.id) + ' ' + std::string(traits.name);
}

// All digits but for the number itself are the file's own, so it stands without commas.
std::string Place(const FileProblem& problem) {
  if (problem.line == 0) return "";
  std::string place = "line " + text::IntegerText(problem.line);
  if (problem.column != 0) place += ", column " + text::IntegerText(problem.column);
  return "<b>" + place + "</b>: ";
}

std::string OtherLines(const FileProblem& problem) {
  std::string lines;
  for (std::size_t i = 0; i < problem.lines.size() && i < kMostLines; ++i) {
    lines += (i == 0 ? "" : ", ") + text::IntegerText(problem.lines[i]);
  }
  if (lines.empty()) return "";
  if (problem.lines.size() > kMostLines) lines += " ...";
  return " <span class=\"soft\">(lines " + lines + ")</span>";
}

std::string Item(const FileProblem& problem) {
  std::string item = "<li>" + Place(problem) +
                     Html(mps::SentenceOf(problem), kMostLettersOfSentence) + OtherLines(problem);
  if (!problem.text.empty()) {
    const SourceExcerpt excerpt = ExcerptOf(problem);
    item += "<pre>" + Html(excerpt.text, kMostLettersOfSentence);
    if (!excerpt.marks.empty()) item += '\n' + Html(excerpt.marks, kMostLettersOfSentence);
    item += "</pre>";
  }
  return item + "</li>\n";
}

std::string OfCode(const FileProblemTraits& traits, const std::vector<FileProblem>& problems,
                   std::int64_t all) {
  std::string items;
  std::int64_t shown = 0;
  for (const FileProblem& problem : problems) {
    if (problem.code != traits.code) continue;
    items += Item(problem);
    ++shown;
  }
  std::string text = "<h3 class=\"" + std::string(WeightWord(traits.weight())) + "\">" +
                     CodeText(traits) + ": " + std::string(traits.words) + "</h3>\n";
  if (!traits.expected.empty()) {
    text +=
        "<p class=\"soft\">Expected: " + Html(traits.expected, kMostLettersOfSentence) + "</p>\n";
  }
  text += "<ul class=\"problems\">\n" + items + "</ul>\n";
  if (shown < all) text += "<p class=\"more\">... " + GroupedText(all - shown) + " more</p>\n";
  return text;
}

}  // namespace

std::string ReportOnProblems(const std::vector<FileProblem>& problems, const CheckResult& check) {
  HtmlTable table("How many of each code", {{"Code"}, {"weight"}, {"how many", true}});
  std::string details;
  using enum mps::ProblemWeight;
  for (const mps::ProblemWeight weight : {kError, kWarning, kAdapted}) {
    for (const FileProblemTraits& traits : mps::FileProblemTable()) {
      const std::int64_t all = check.counts.All(traits.code);
      if (all == 0 || traits.weight() != weight) continue;
      table.Add({CodeText(traits), std::string(WeightWord(weight)), GroupedText(all)});
      details += OfCode(traits, problems, all);
    }
  }
  return HtmlPart("problems", "Problems",
                  table.empty() ? "<p>None: no errors, no warnings, and nothing that had to be "
                                  "adapted.</p>\n"
                                : table.Text() + details);
}

}  // namespace quarvel::hosts
