#include "hosts/diff_text.h"

#include <algorithm>
#include <string_view>

#include "hosts/edit_words.h"
#include "hosts/input_bytes.h"
#include "hosts/printing.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

using inspect::Difference;
using inspect::DifferenceKind;
using enum inspect::DifferenceKind;

// "L, -inf to 4, 3 elements".
template <class Record>
std::string RecordText(const Record& record) {
  std::string text = model::TypeText(record.Type);
  if (!text.empty()) text += ", ";
  text += ExactBoundText(AsLower(record.LowerBound)) + " to ";
  text += ExactBoundText(AsUpper(record.UpperBound)) + ", ";
  return text + Counted(record.ElementCount(), "element");
}

std::string Change(std::string_view what, std::string_view before, std::string_view after) {
  return std::string(what).append(" ").append(before).append(" -> ").append(after);
}

std::string QuotedText(std::string_view text) { return '"' + text::OneLine(text) + '"'; }

// The next line of a description, which is taken from its front.
std::string_view TakeLine(std::string_view& text) {
  constexpr std::string_view kLineEnd = "\r\n";
  const std::string_view line = text.substr(0, text.find(kLineEnd));
  text.remove_prefix(std::min(line.size() + kLineEnd.size(), text.size()));
  return line;
}

// The first line that differs.
std::string DescriptionText(std::string_view a, std::string_view b) {
  std::int64_t number = 0;
  std::string_view line_a;
  std::string_view line_b;
  while (line_a == line_b && !(a.empty() && b.empty())) {
    line_a = TakeLine(a);
    line_b = TakeLine(b);
    ++number;
  }
  return Change("! description, line " + text::IntegerText(number) + ":", QuotedText(line_a),
                QuotedText(line_b));
}

std::string_view SenseText(const mps::FileFacts& facts) {
  return facts.sense == mps::ObjectiveSense::kMaximize ? "maximize" : "minimize";
}

// A record of one kind as the lines name it.
struct NamedPair {
  std::string_view noun;
  inspect::RecordPair numbers;

  template <class Records>
  std::string Start(char mark, const Records& a, const Records& b) const {
    const std::string_view name = numbers.a != 0 ? a[numbers.a].Name : b[numbers.b].Name;
    return std::string(1, mark) + ' ' + std::string(noun) + ' ' + QuotedWord(name) + ": ";
  }
};

// What differs between records of one kind, whose kinds of differences stand in the order of rows'.
template <class Records>
std::string RecordLine(const Difference& d, DifferenceKind like_row, const NamedPair& pair,
                       const Records& a, const Records& b) {
  switch (like_row) {
    case kRowWent:
      return pair.Start('-', a, b) + RecordText(a[pair.numbers.a]);
    case kRowCame:
      return pair.Start('+', a, b) + RecordText(b[pair.numbers.b]);
    case kRowType:
      return pair.Start('!', a, b) + Change("type", model::TypeText(a[pair.numbers.a].Type),
                                            model::TypeText(b[pair.numbers.b].Type));
    case kRowLower:
      return pair.Start('!', a, b) +
             Change("lower", ExactBoundText(AsLower(d.before)), ExactBoundText(AsLower(d.after)));
    default:
      return pair.Start('!', a, b) +
             Change("upper", ExactBoundText(AsUpper(d.before)), ExactBoundText(AsUpper(d.after)));
  }
}

// The kind of a difference of rows that is like one of columns.
DifferenceKind LikeRow(DifferenceKind of_column) {
  constexpr int kApart = static_cast<int>(kColumnWent) - static_cast<int>(kRowWent);
  static_assert(static_cast<int>(kColumnUpper) - static_cast<int>(kRowUpper) == kApart);
  return static_cast<DifferenceKind>(static_cast<int>(of_column) - kApart);
}

std::string ElementLine(const Difference& d, const model::ModelData& a) {
  const std::string place =
      " element " + QuotedWord(a.Rows[d.row.a].Name) + ' ' + QuotedWord(a.Columns[d.column.a].Name);
  if (d.kind == kElementWent) return '-' + place + ": " + text::RoundTripText(d.before);
  if (d.kind == kElementCame) return '+' + place + ": " + text::RoundTripText(d.after);
  return '!' + Change(place + ":", text::RoundTripText(d.before), text::RoundTripText(d.after));
}

}  // namespace

void DiffText::PrintLine(std::string_view line, std::optional<Ink> ink) {
  std::string shown = text::VisibleText(line) + '\n';
  out() << (ink ? pen_.Draw(*ink, shown) : shown);
}

void DiffText::Begin() {
  PrintLine("--- " + NameOfInput(file_a()) + ": " + SizeText(sides().a.model()), Ink::kHeading);
  PrintLine("+++ " + NameOfInput(file_b()) + ": " + SizeText(sides().b.model()), Ink::kHeading);
}

void DiffText::Print(const Difference& difference) {
  const std::string line = LineOf(difference);
  const Ink one_sided = line.front() == '-' ? Ink::kGone : Ink::kCame;
  PrintLine(line, line.front() == '!' ? Ink::kChanged : one_sided);
}

std::string DiffText::LineOf(const Difference& d) const {
  const model::ModelData& a = sides().a.model().store().data();
  const model::ModelData& b = sides().b.model().store().data();
  const mps::FileFacts& facts_a = sides().a.facts();
  const mps::FileFacts& facts_b = sides().b.facts();
  switch (d.kind) {
    case kModelName:
      return Change("! name:", QuotedText(a.ModelName), QuotedText(b.ModelName));
    case kDescription:
      return DescriptionText(a.ModelDescription, b.ModelDescription);
    case kObjectiveSense:
      return Change("! objective sense:", SenseText(facts_a), SenseText(facts_b));
    case kObjective:
      return Change("! objective:", QuotedWord(facts_a.objective), QuotedWord(facts_b.objective));
    case kObjectiveConstant:
      return Change("! objective constant:", text::RoundTripText(d.before),
                    text::RoundTripText(d.after));
    default:
      break;
  }
  if (d.kind >= kElementWent) return ElementLine(d, a);
  if (d.kind >= kColumnWent)
    return RecordLine(d, LikeRow(d.kind), {"column", d.column}, a.Columns, b.Columns);
  return RecordLine(d, d.kind, {"row", d.row}, a.Rows, b.Rows);
}

void DiffText::End() {
  if (unlisted() > 0) {
    PrintLine("... " + text::IntegerText(unlisted()) + " more (--limit all lists them)",
              Ink::kAside);
  }
  std::string counts;
  std::string order;
  for (std::size_t i = 0; i < inspect::kDifferenceKinds; ++i) {
    const auto kind = static_cast<DifferenceKind>(i);
    const std::int64_t count = differences().CountOf(kind);
    if (count == 0) continue;
    std::string& list = inspect::IsNote(kind) ? order : counts;
    list.append(list.empty() ? "" : ", ").append(text::IntegerText(count)).append(" ");
    list += inspect::NameOf(kind);
  }
  PrintLine(none() ? "no differences"
                   : Counted(differences().count(), "difference") + ": " + counts);
  if (!order.empty()) PrintLine("in another order: " + order);
}

}  // namespace quarvel::hosts
