#include "hosts/problem_report.h"

#include <algorithm>

#include "hosts/printing.h"
#include "hosts/source_excerpt.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

using mps::FileProblem;
using mps::FileProblemTraits;
using mps::ProblemWeight;

// Line numbers stand at the right end of so many columns.
constexpr std::size_t kGutter = 5;

class TextReport : public ProblemReport {
 public:
  TextReport(const std::string& file, std::ostream& out, const Screen& screen, ColorChoice color)
      : ProblemReport(file, out), width_(ExcerptWidth(screen)), pen_(color, screen) {}

  void Print(const FileProblem& problem) override {
    const FileProblemTraits& traits = mps::TraitsOf(problem.code);
    const std::string weight = std::string(WeightWord(traits.weight())) + ':';
    std::string words = mps::SentenceOf(problem);
    words.append(" [").append(traits.id).append(" ").append(traits.name).append("]");
    std::string text = pen_.Draw(Ink::kHeading, text::OneLine(Place(problem))) + ' ';
    text += pen_.Draw(InkOf(traits.weight()), weight) + ' ' + text::OneLine(words) + '\n';
    if (!problem.text.empty()) AppendExcerpt(text, problem);
    AppendRemark(text, "expected: ", traits.expected);
    AppendRemark(text, "lines: ", OtherLines(problem));
    out() << text;
  }

  void End(const CheckResult& result) override {
    std::string text;
    if (result.counts.All() > 0) text += '\n';
    for (const FileProblemTraits& traits : mps::FileProblemTable()) {
      AppendCount(text, traits, result.counts);
    }
    std::string line = file() + ": " + Totals(result.counts);
    if (result.filtered > 0) line += "; " + text::IntegerText(result.filtered) + " filtered out";
    line += result.read ? "; " + SizeText(result) : "; not read";
    out() << text + text::OneLine(line) + '\n';
  }

 private:
  std::string Place(const FileProblem& problem) const {
    std::string place = file() + ':';
    for (const std::int64_t number : {problem.line, std::int64_t{problem.column}}) {
      if (number == 0) break;
      place += text::IntegerText(number) + ':';
    }
    return place;
  }

  // What a terminal has beside the numbers of lines.
  static std::size_t ExcerptWidth(const Screen& screen) {
    constexpr std::size_t kLeast = 60;
    constexpr std::size_t kBefore = kGutter + 3;
    if (!screen.is_terminal || screen.width == 0) return kUsualExcerpt;
    return std::max(kLeast + kBefore, screen.width) - kBefore;
  }

  static Ink InkOf(ProblemWeight weight) {
    if (weight == ProblemWeight::kError) return Ink::kError;
    return weight == ProblemWeight::kAdapted ? Ink::kRemark : Ink::kWarning;
  }

  // Without the blanks before them.
  std::string DrawnMarks(const std::string& marks) const {
    const std::size_t first = marks.find_first_not_of(' ');
    return marks.substr(0, first) + pen_.Draw(Ink::kMark, marks.substr(first));
  }

  void AppendExcerpt(std::string& text, const FileProblem& problem) const {
    const SourceExcerpt excerpt = ExcerptOf(problem, width_);
    AppendRight(text, text::IntegerText(problem.line), kGutter);
    text.append(" | ").append(excerpt.text).append("\n");
    if (excerpt.marks.empty()) return;
    text.append(kGutter, ' ').append(" | ").append(DrawnMarks(excerpt.marks)).append("\n");
  }

  static void AppendRemark(std::string& text, std::string_view what, std::string_view remark) {
    if (remark.empty()) return;
    text.append(kGutter, ' ').append(" = ").append(what).append(remark).append("\n");
  }

  static std::string OtherLines(const FileProblem& problem) {
    std::string lines;
    for (const std::int64_t line : problem.lines) {
      if (!lines.empty()) lines += ", ";
      lines += text::IntegerText(line);
    }
    return lines;
  }

  static void AppendCount(std::string& text, const FileProblemTraits& traits,
                          const ProblemCounts& counts) {
    const std::int64_t all = counts.All(traits.code);
    const std::int64_t printed = counts.Printed(traits.code);
    if (all == 0) return;
    constexpr std::size_t kCountWidth = 9;
    AppendRight(text, text::IntegerText(all), kCountWidth);
    text.append("  ").append(traits.id).append(" ").append(traits.name);
    if (printed < all) {
      text += "  (" + text::IntegerText(printed) + " printed; --limit all prints all)";
    }
    text += '\n';
  }

  static std::string Totals(const ProblemCounts& counts) {
    std::string totals;
    const auto add = [&](ProblemWeight weight, std::string_view noun) {
      const std::int64_t count = counts.All(weight);
      if (count == 0) return;
      if (!totals.empty()) totals += ", ";
      totals += Counted(count, noun);
    };
    add(ProblemWeight::kError, "error");
    add(ProblemWeight::kWarning, "warning");
    add(ProblemWeight::kAdapted, "adaptation");
    return totals.empty() ? "no problems" : totals;
  }

  static std::string SizeText(const CheckResult& result) {
    return Counted(result.rows, "row") + ", " + Counted(result.columns, "column") + ", " +
           Counted(result.elements, "element");
  }

  std::size_t width_;  // of excerpts
  Pen pen_;
};

}  // namespace

std::int64_t ProblemCounts::All(ProblemWeight weight) const {
  std::int64_t all = 0;
  for (const FileProblemTraits& traits : mps::FileProblemTable()) {
    if (traits.weight() == weight) all += All(traits.code);
  }
  return all;
}

std::int64_t ProblemCounts::All() const {
  std::int64_t all = 0;
  for (const Count& count : counts_) all += count.all;
  return all;
}

std::int64_t ProblemCounts::Printed() const {
  std::int64_t printed = 0;
  for (const Count& count : counts_) printed += count.printed;
  return printed;
}

std::unique_ptr<ProblemReport> MakeTextReport(const std::string& file, std::ostream& out,
                                              const Screen& screen, ColorChoice color) {
  return std::make_unique<TextReport>(file, out, screen, color);
}

std::string_view WeightWord(ProblemWeight weight) {
  switch (weight) {
    case ProblemWeight::kError:
      return "error";
    case ProblemWeight::kAdapted:
      return "adapted";
    case ProblemWeight::kWarning:
      break;
  }
  return "warning";
}

}  // namespace quarvel::hosts
