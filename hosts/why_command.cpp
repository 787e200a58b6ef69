// quarvel why: what a point does not keep of a model, each row with the point's numbers put in.

#include <cmath>
#include <limits>

#include "hosts/commands.h"
#include "hosts/folded_text.h"
#include "hosts/input_bytes.h"
#include "hosts/point.h"
#include "hosts/printing.h"
#include "inspect/violations.h"
#include "model/record_number.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

using inspect::Violation;
using inspect::ViolationKind;

constexpr std::int64_t kWhyLimit = 20;
constexpr std::size_t kUsualTerms = 12;  // of one row

struct KindWords {
  std::string_view id;    // in JSON
  std::string_view noun;  // of the record
  std::string_view lower;
  std::string_view upper;
};
constexpr KindWords kKindWords[] = {
    {"row", "row", "lower limit ", "upper limit "},
    {"bound", "column", "lower bound ", "upper bound "},
    {"integrality", "column", "", ""},
};

const KindWords& WordsOf(ViolationKind kind) { return kKindWords[static_cast<std::size_t>(kind)]; }

// All that there is to print.
struct Findings {
  Session& session;
  const Point& point;
  const inspect::FeasibilityTolerance& tolerance;
  const inspect::Violations& violations;
  std::size_t terms;  // of a row that are printed

  const LPModel& model() const { return session.model(); }
  const std::string& file() const { return session.arguments.operands[0]; }
  const std::string& point_file() const { return session.arguments.operands[1]; }
  const inspect::SolutionKindTraits& kind() const { return inspect::TraitsOf(point.kind()); }
  std::int64_t unlisted() const {
    return violations.count() - static_cast<std::int64_t>(violations.worst.size());
  }
  std::string NameOf(const Violation& violation) const {
    const std::int32_t index = model::Public(violation.number);
    return violation.kind == ViolationKind::kRow ? model().RowName(index) : model().ColName(index);
  }
  inspect::RowTerms TermsOf(const Violation& violation) const {
    return inspect::TermsOf(model().store(), violation.number, point.values(), terms);
  }
};

// "row COST is 3, 2 more than its upper limit 1"
std::string ViolationText(const Findings& findings, const Violation& violation) {
  const KindWords& words = WordsOf(violation.kind);
  std::string text(words.noun);
  text += ' ' + findings.NameOf(violation) + " is " + NumberText(violation.value) + ", " +
          NumberText(violation.amount);
  if (violation.kind == ViolationKind::kIntegrality) return text + " from a whole number";
  const bool below = violation.value < violation.limit;
  text.append(below ? " less than its " : " more than its ");
  text.append(below ? words.lower : words.upper);
  return text + NumberText(violation.limit);
}

// "+ 250*BREAD(30) - 64*MILK(40)", and what is left out of it.
std::string SumText(const Findings& findings, const inspect::RowTerms& sum) {
  std::string text;
  for (const inspect::RowTerm& term : sum.terms) {
    text += term.coefficient < 0 ? "- " : "+ ";
    text += NumberText(std::fabs(term.coefficient)) + '*' +
            findings.model().ColName(model::Public(term.column)) + '(' + NumberText(term.value) +
            ") ";
  }
  if (sum.others > 0) {
    text += "+ " + NumberText(sum.sum_of_others) + " of " + Counted(sum.others, "more term") + ' ';
  }
  return text.empty() ? "0 " : text;
}

std::string EquationText(const Findings& findings, const Violation& violation) {
  const inspect::RowTerms sum = findings.TermsOf(violation);
  std::string text = "    " + SumText(findings, sum);
  text += " =  " + NumberText(violation.value);
  text += violation.value < violation.limit ? "  <  " : "  >  ";
  text += NumberText(violation.limit);
  if (sum.zeros > 0) text += "  (and " + Counted(sum.zeros, "column") + " at 0)";
  return text;
}

void PrintNames(const Findings& findings, const Point::Names& names, std::string_view noun,
                std::string_view what) {
  if (names.count == 0) return;
  std::string text = Counted(names.count, noun);
  text.append(" ").append(what).append(": ");
  for (const std::string& name : names.first) {
    if (&name != &names.first.front()) text += ", ";
    text += name;
  }
  if (names.has_more) text += ", ...";
  findings.session.streams.out << text::VisibleText(text) + '\n';
}

void PrintNotes(const Findings& findings) {
  const Point& point = findings.point;
  if (point.GivesNone()) {
    findings.session.streams.out
        << "no column of the model is in the point: is it one of another?\n";
  }
  PrintNames(findings, point.Missing(), "column", "not in the point, taken as 0");
  PrintNames(findings, point.unknown(), "name", "of the point not in the model");
  PrintNames(findings, point.repeated(), "value", "given again, the last one counts");
  const std::int64_t rounded = findings.violations.rounded;
  if (rounded == 0) return;
  findings.session.streams.out << Counted(rounded, "limit") +
                                      " exceeded by no more than the rounding of the values to " +
                                      text::IntegerText(findings.kind().digits) +
                                      " digits explains\n";
}

std::string SummaryText(const Findings& findings) {
  const inspect::Violations& found = findings.violations;
  std::string text = NameOfInput(findings.file()) + ": " + Counted(found.count(), "violation");
  if (found.count() != 0) {
    text += ": " + text::IntegerText(found.rows) + " of rows, " + text::IntegerText(found.bounds) +
            " of bounds, " + text::IntegerText(found.integers) + " of integers";
  }
  text.append("; the point is ").append(findings.kind().words);
  return text + "; tolerance " + NumberText(findings.tolerance.absolute) + ", relative " +
         NumberText(findings.tolerance.relative);
}

void PrintText(const Findings& findings) {
  Session& session = findings.session;
  const Screen& screen = session.streams.screen;
  const std::size_t width = screen.is_terminal ? screen.width : 0;
  for (const Violation& violation : findings.violations.worst) {
    if (!session.KeepPrinting()) break;
    std::string text = text::VisibleText(ViolationText(findings, violation)) + '\n';
    if (violation.kind == ViolationKind::kRow) {
      text += FoldedLine(text::VisibleText(EquationText(findings, violation)), width, 6) + '\n';
    }
    session.streams.out << text;
  }
  session.StopIfInterrupted();
  if (findings.unlisted() > 0) {
    const Pen pen(session.arguments.color, screen);
    session.streams.out << pen.Draw(Ink::kAside, "... " + text::IntegerText(findings.unlisted()) +
                                                     " more (--limit all lists them)\n");
  }
  PrintNotes(findings);
  session.streams.out << FoldedLine(text::VisibleText(SummaryText(findings)), width, 2) + '\n';
}

void AppendSumJson(std::string& json, const Findings& findings, const inspect::RowTerms& sum) {
  json += ",\"terms\":[";
  for (const inspect::RowTerm& term : sum.terms) {
    json += json.back() == '[' ? "{" : ",{";
    AppendJsonMember(json, "column", findings.model().ColName(model::Public(term.column)));
    AppendJsonMember(json, "coefficient", term.coefficient);
    AppendJsonMember(json, "value", term.value);
    json += '}';
  }
  json += ']';
  AppendJsonMember(json, "moreTerms", sum.others);
  AppendJsonMember(json, "moreTermsSum", sum.sum_of_others);
  AppendJsonMember(json, "columnsAtZero", sum.zeros);
}

void AppendViolationJson(std::string& json, const Findings& findings, const Violation& violation) {
  json += '{';
  AppendJsonMember(json, "kind", WordsOf(violation.kind).id);
  AppendJsonMember(json, "index", model::Public(violation.number));
  AppendJsonMember(json, "name", findings.NameOf(violation));
  AppendJsonMember(json, "value", violation.value);
  AppendJsonMember(json, "limit", violation.limit);
  AppendJsonMember(json, "amount", violation.amount);
  if (violation.kind == ViolationKind::kRow) {
    AppendSumJson(json, findings, findings.TermsOf(violation));
  }
  json += '}';
}

void AppendNamesJson(std::string& json, std::string_view key, const Point::Names& names) {
  json += ',';
  AppendJson(json, key);
  json += ":{\"count\":" + text::IntegerText(names.count) + ",\"first\":[";
  for (const std::string& name : names.first) {
    if (json.back() != '[') json += ',';
    AppendJson(json, name);
  }
  json += "]}";
}

std::string FactsJson(const Findings& findings) {
  const inspect::Violations& found = findings.violations;
  std::string json = "\"count\":" + text::IntegerText(found.count());
  json += ",\"unlisted\":" + text::IntegerText(findings.unlisted());
  json += ",\"rows\":" + text::IntegerText(found.rows);
  json += ",\"bounds\":" + text::IntegerText(found.bounds);
  json += ",\"integers\":" + text::IntegerText(found.integers);
  json += ",\"withinRounding\":" + text::IntegerText(found.rounded);
  AppendNamesJson(json, "missing", findings.point.Missing());
  AppendNamesJson(json, "unknown", findings.point.unknown());
  AppendNamesJson(json, "repeated", findings.point.repeated());
  AppendJsonMember(json, "hasEndata", !findings.session.may_be_cut_off());
  return json;
}

void PrintJson(const Findings& findings) {
  Session& session = findings.session;
  std::string json = "{";
  AppendJsonMember(json, "file", findings.file());
  AppendJsonMember(json, "point", findings.point_file());
  AppendJsonMember(json, "pointKind", findings.kind().id);
  AppendJsonMember(json, "digits", findings.kind().digits);
  AppendJsonMember(json, "tolerance", findings.tolerance.absolute);
  AppendJsonMember(json, "relativeTolerance", findings.tolerance.relative);
  session.streams.out << json + ",\"violations\":[";
  for (const Violation& violation : findings.violations.worst) {
    if (!session.KeepPrinting()) break;
    json = &violation == &findings.violations.worst.front() ? "\n" : ",\n";
    AppendViolationJson(json, findings, violation);
    session.streams.out << json;
  }
  session.StopIfInterrupted();
  session.streams.out << "]," + FactsJson(findings) + "}\n";
}

inspect::FeasibilityTolerance ToleranceOf(const Arguments& arguments) {
  inspect::FeasibilityTolerance tolerance;
  if (!arguments.tolerance) return tolerance;
  tolerance.absolute = arguments.tolerance->absolute;
  tolerance.relative = arguments.tolerance->relative.value_or(tolerance.relative);
  return tolerance;
}

}  // namespace

int RunWhy(Session& session) {
  const Arguments& arguments = session.arguments;
  RefuseStandardInputTwice(arguments.operands[0], arguments.operands[1]);
  session.Read(arguments.operands[0]);
  Point point(session.model());
  point.SetFromFile(arguments.operands[1], session.streams, UnknownName::kNoted);
  const bool limited = (arguments.used & kLimit) != 0;
  const bool all = limited && arguments.limit == Arguments::kAll;
  const auto limit = static_cast<std::size_t>(limited ? arguments.limit : kWhyLimit);
  const inspect::FeasibilityTolerance tolerance = ToleranceOf(arguments);
  const inspect::Violations violations =
      inspect::FindViolations(session.model().store(), point.values(), tolerance,
                              inspect::TraitsOf(point.kind()).digits, limit);
  const Findings findings = {session, point, tolerance, violations,
                             all ? std::numeric_limits<std::size_t>::max() : kUsualTerms};
  if (arguments.json) {
    PrintJson(findings);
  } else {
    PrintText(findings);
  }
  return violations.count() == 0 && !point.GivesNone() ? kGood : kProblem;
}

}  // namespace quarvel::hosts
