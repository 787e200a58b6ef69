// quarvel row, quarvel column: one of them with all its elements.

#include <algorithm>

#include "hosts/commands.h"
#include "hosts/printing.h"
#include "hosts/short_equation.h"
#include "text/cell_width.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

constexpr std::size_t kFactWidth = 10;
// On a terminal, of a record that nobody wants in full.
constexpr std::int64_t kElementsOnTerminal = 20;
constexpr std::size_t kEquationLines = 5;

struct Item {
  Session& session;
  const LPModel& model;
  const model::RecordKind& kind;
  std::int32_t index;
  std::int32_t shown;   // elements to print
  bool limit_is_given;  // on the command line
  bool is_fitted;       // to a terminal
  Pen pen;

  std::string Name() const { return (model.*kind.name)(index); }
  std::string Type() const { return (model.*kind.type)(index); }
  double Lower() const { return (model.*kind.lower)(index); }
  double Upper() const { return (model.*kind.upper)(index); }
  std::int32_t Elements() const { return (model.*kind.elements)(index); }
  std::int32_t OtherIndex(std::int32_t k) const { return (model.*kind.element_at)(index, k); }
  std::string OtherName(std::int32_t k) const { return (model.*kind.other.name)(OtherIndex(k)); }
  double Value(std::int32_t k) const { return (model.*kind.element_value)(index, k); }
  bool IsRow() const { return &kind == &model::kRowKind; }
};

void AppendFact(const Item& item, std::string& text, std::string_view what, std::string_view fact) {
  text += item.pen.Draw(Ink::kHeading, what);
  text.append(kFactWidth - what.size(), ' ');
  text += text::VisibleText(fact) + '\n';
}

std::string Equation(const Item& item) {
  const Screen& screen = item.session.streams.screen;
  EquationRoom room = {.is_shown = !item.session.arguments.json};
  if (item.is_fitted && screen.width > kFactWidth) {
    room.cells = kEquationLines * screen.width - kFactWidth;
  }
  if (item.limit_is_given) room.terms = static_cast<std::size_t>(item.shown);
  return ShortEquation(item.model, item.index, room);
}

// What stands behind the elements where these are not all.
std::string LastLine(const Item& item) {
  std::string line(kFactWidth, ' ');
  if (item.limit_is_given) {
    return item.pen.Draw(Ink::kAside, line + "(the first " + text::IntegerText(item.shown) + ")\n");
  }
  line += "... " + GroupedText(item.Elements() - item.shown) + " more (--full lists all)";
  return item.pen.Draw(Ink::kAside, line + '\n');
}

std::string ItemHeading(const Item& item) {
  std::string text;
  AppendFact(item, text, item.kind.title,
             item.Name() + " (number " + text::IntegerText(item.index) + ")");
  AppendFact(item, text, "Type", item.Type());
  AppendFact(item, text, "Lower", BoundText(AsLower(item.Lower())));
  AppendFact(item, text, "Upper", BoundText(AsUpper(item.Upper())));
  if (item.IsRow()) AppendFact(item, text, "Equation", Equation(item));
  AppendFact(item, text, "Elements", text::IntegerText(item.Elements()));
  return text;
}

// Of the elements' names, which make room for the values on a terminal.
std::size_t NameWidth(const Item& item) {
  constexpr std::size_t kLeast = 12;
  std::size_t width = 0;
  std::size_t values = 0;
  for (std::int32_t k = 0; k < item.shown; ++k) {
    width = std::max(width, text::CellCount(text::VisibleText(item.OtherName(k))));
    values = std::max(values, text::GeneralText(item.Value(k)).size());
  }
  const std::size_t others = kFactWidth + 2 + values;
  const std::size_t screen = item.session.streams.screen.width;
  if (!item.is_fitted || screen == 0) return width;
  return std::min(width, screen > others + kLeast ? screen - others : kLeast);
}

void PrintItemText(const Item& item) {
  item.session.streams.out << ItemHeading(item);
  const std::size_t width = NameWidth(item);
  std::string line;
  for (std::int32_t k = 0; k < item.shown && item.session.KeepPrinting(); ++k) {
    line.assign(kFactWidth, ' ');
    AppendLeft(line, text::CutToCells(text::VisibleText(item.OtherName(k)), width), width);
    line += "  " + text::GeneralText(item.Value(k)) + '\n';
    item.session.streams.out << line;
  }
  item.session.StopIfInterrupted();
  if (item.shown < item.Elements()) item.session.streams.out << LastLine(item);
}

void PrintItemJson(const Item& item) {
  std::string json = "{";
  AppendJsonMember(json, "index", item.index);
  AppendJsonMember(json, "name", item.Name());
  AppendJsonMember(json, "type", item.Type());
  AppendJsonMember(json, "lowerBound", AsLower(item.Lower()));
  AppendJsonMember(json, "upperBound", AsUpper(item.Upper()));
  if (item.IsRow()) AppendJsonMember(json, "equation", Equation(item));
  item.session.streams.out << json + ",\"elements\":[";
  for (std::int32_t k = 0; k < item.shown && item.session.KeepPrinting(); ++k) {
    json = k == 0 ? "{" : ",{";
    AppendJsonMember(json, item.kind.other.noun, item.OtherName(k));
    AppendJsonMember(json, "index", item.OtherIndex(k));
    AppendJsonMember(json, "value", item.Value(k));
    item.session.streams.out << json + '}';
  }
  item.session.StopIfInterrupted();
  json = "]";
  AppendJsonMember(json, "unlisted", item.Elements() - item.shown);
  AppendJsonMember(json, "hasEndata", !item.session.may_be_cut_off());
  item.session.streams.out << json + "}\n";
}

int PrintItem(Session& session, const model::RecordKind& kind) {
  const auto& operands = session.arguments.operands;
  session.Read(operands[0]);
  const LPModel& model = session.model();
  const std::int32_t index = session.Find(operands[0], kind, operands[1]);
  const std::int64_t elements = (model.*kind.elements)(index);
  const Arguments& arguments = session.arguments;
  const Screen& screen = session.streams.screen;
  const bool limit_is_given = (arguments.used & kLimit) != 0;
  const bool is_fitted = screen.is_terminal && !arguments.full && !arguments.json;
  const bool is_cut = is_fitted && !limit_is_given;
  const std::int64_t shown = std::min(elements, is_cut ? kElementsOnTerminal : arguments.limit);
  const Item item = {session,
                     model,
                     kind,
                     index,
                     static_cast<std::int32_t>(shown),
                     limit_is_given,
                     is_fitted,
                     Pen(arguments.color, screen)};
  if (session.arguments.json) {
    PrintItemJson(item);
  } else {
    PrintItemText(item);
  }
  return kGood;
}

}  // namespace

int RunRow(Session& session) { return PrintItem(session, model::kRowKind); }

int RunColumn(Session& session) { return PrintItem(session, model::kColumnKind); }

}  // namespace quarvel::hosts
