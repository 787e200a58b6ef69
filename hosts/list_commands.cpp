// quarvel rows, quarvel columns: one line each, printed while walking, so that the longest list takes
// hardly any memory.

#include <algorithm>

#include "hosts/commands.h"
#include "hosts/list_table.h"
#include "hosts/printing.h"
#include "hosts/record_fields.h"
#include "hosts/record_selection.h"
#include "hosts/short_equation.h"
#include "model/record_kind.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

// Of a list on a terminal that nobody wants in full.
constexpr std::int64_t kRecordsOnTerminal = 100;
constexpr std::size_t kLeastNameWidth = 8;
constexpr std::size_t kLeastEquationWidth = 20;

class Lister {
 public:
  Lister(Session& session, const model::RecordKind& kind, RecordFields fields,
         const RecordSelection& selection)
      : session_(session),
        screen_(session.streams.screen),
        pen_(session.arguments.color, screen_),
        listed_(session.model(), kind, session.facts().objective),
        fields_(std::move(fields)),
        records_(selection.Of(listed_)) {}

  bool is_empty() const { return records_.empty(); }
  void PrintText();
  void PrintCsv();
  void PrintJson();

 private:
  // So many of the records are printed, at most.
  std::size_t Limit(bool is_cut_on_terminal) const;
  bool IsFitted() const { return screen_.is_terminal && !session_.arguments.full; }
  ListTable MakeTable() const;
  void Measure(ListTable& table) const;
  std::string Cell(const ListTable& table, std::size_t field, std::int32_t record) const;
  std::string TextLine(const ListTable& table, std::int32_t record) const;
  std::string CsvLine(std::int32_t record) const;
  std::string JsonLine(std::int32_t record) const;
  std::string LastLine() const;
  // Stops when nobody reads it, and raises after a Ctrl-C.
  template <class LineOf>
  void PrintLines(const LineOf& line_of);
  void Print(std::string_view text) {
    session_.streams.out.write(text.data(), static_cast<std::streamsize>(text.size()));
  }

  Session& session_;
  const Screen& screen_;
  Pen pen_;
  ListedModel listed_;
  RecordFields fields_;
  std::vector<std::int32_t> records_;
  std::size_t shown_ = 0;
};

std::size_t Lister::Limit(bool is_cut_on_terminal) const {
  const bool is_given = (session_.arguments.used & kLimit) != 0;
  std::int64_t limit = session_.arguments.limit;
  if (is_cut_on_terminal && IsFitted() && !is_given) limit = kRecordsOnTerminal;
  return static_cast<std::size_t>(
      std::min<std::int64_t>(limit, static_cast<std::int64_t>(records_.size())));
}

template <class LineOf>
void Lister::PrintLines(const LineOf& line_of) {
  for (std::size_t i = 0; i < shown_ && session_.KeepPrinting(); ++i) Print(line_of(records_[i]));
  session_.StopIfInterrupted();
}

ListTable Lister::MakeTable() const {
  std::vector<ListColumn> columns;
  for (const RecordField* field : fields_) {
    ListColumn column = {field->heading, field->is_left, IsFitted() ? 0 : field->width, 0};
    if (IsName(*field)) column.least = kLeastNameWidth;
    if (IsEquation(*field)) column.least = kLeastEquationWidth;
    columns.push_back(column);
  }
  return ListTable(std::move(columns));
}

// Names, and on a terminal all else, where equations take whatever there is.
void Lister::Measure(ListTable& table) const {
  for (std::size_t f = 0; f < fields_.size(); ++f) {
    const RecordField& field = *fields_[f];
    if (IsEquation(field)) continue;
    if (!IsName(field) && !IsFitted()) continue;
    for (std::size_t i = 0; i < shown_ && session_.KeepPrinting(); ++i) {
      table.Widen(f, ShownText(field.value(listed_, records_[i])));
    }
  }
  if (!IsFitted() || screen_.width == 0) return;
  for (std::size_t f = 0; f < fields_.size(); ++f) {
    if (IsEquation(*fields_[f])) table.Widen(f, std::string(screen_.width, ' '));
  }
  table.FitInto(screen_.width);
}

std::string Lister::Cell(const ListTable& table, std::size_t field, std::int32_t record) const {
  if (!IsEquation(*fields_[field])) return ShownText(fields_[field]->value(listed_, record));
  const bool is_cut = IsFitted() && screen_.width != 0;
  const EquationRoom room = {.cells = is_cut ? table.width(field) : EquationRoom::kAny};
  return ShortEquation(listed_.model, record, room);
}

std::string Lister::TextLine(const ListTable& table, std::int32_t record) const {
  std::vector<std::string> cells;
  for (std::size_t f = 0; f < fields_.size(); ++f) cells.push_back(Cell(table, f, record));
  return table.Line(cells);
}

std::string Lister::CsvLine(std::int32_t record) const {
  std::string line;
  for (const RecordField* field : fields_) {
    if (field != fields_.front()) line += ',';
    AppendCsv(line, field->value(listed_, record));
  }
  if (screen_.is_terminal) line = text::VisibleText(line);
  return line + "\r\n";
}

std::string Lister::JsonLine(std::int32_t record) const {
  std::string line = record == records_[0] ? "\n{" : ",\n{";
  for (const RecordField* field : fields_) {
    AppendJsonField(line, *field, field->value(listed_, record));
  }
  return line + '}';
}

// How many of how many are listed; nothing where all are.
std::string Lister::LastLine() const {
  const auto number = [this](std::size_t count) {
    const auto n = static_cast<std::int64_t>(count);
    return screen_.is_terminal ? GroupedText(n) : text::IntegerText(n);
  };
  const auto all = static_cast<std::size_t>(listed_.count());
  const bool is_chosen = records_.size() < all;
  if (shown_ == all) return "";
  std::string line = "(";
  if (shown_ < records_.size()) line += "the first ";
  line += number(shown_);
  if (shown_ < records_.size() && is_chosen) {
    line += " of the " + number(records_.size()) + " that match,";
  }
  line.append(" of ").append(number(all)).append(" ").append(listed_.kind.noun);
  if (all != 1) line += 's';
  const bool is_cut = shown_ < records_.size() && (session_.arguments.used & kLimit) == 0;
  return line.append(is_cut ? "; --full lists all)\n" : ")\n");
}

void Lister::PrintText() {
  shown_ = Limit(true);
  ListTable table = MakeTable();
  Measure(table);
  Print(pen_.Draw(Ink::kHeading, table.Heading()));
  PrintLines([&](std::int32_t record) { return TextLine(table, record); });
  Print(pen_.Draw(Ink::kAside, LastLine()));
}

void Lister::PrintCsv() {
  shown_ = Limit(false);
  std::string first;
  for (const RecordField* field : fields_) {
    if (!first.empty()) first += ',';
    first += field->key;
  }
  Print(first + "\r\n");
  PrintLines([&](std::int32_t record) { return CsvLine(record); });
}

void Lister::PrintJson() {
  shown_ = Limit(false);
  Print("[");
  PrintLines([&](std::int32_t record) { return JsonLine(record); });
  Print("\n]\n");
}

RecordFields ChosenFields(const Arguments& arguments, const model::RecordKind& kind) {
  if (arguments.list.columns.empty()) {
    const bool is_short = arguments.equations && !arguments.json;
    RecordFields fields = UsualFields(kind, is_short);
    if (arguments.equations && !is_short) fields.push_back(FieldsOf(kind, "equation", "")[0]);
    return fields;
  }
  if (arguments.equations) {
    throw CommandError(kUsage, "--equations is a choice of columns, as --columns is: give one");
  }
  RecordFields fields = FieldsOf(kind, arguments.list.columns, "--columns");
  // All are of one table, whose order is that of the members.
  if (arguments.json) std::sort(fields.begin(), fields.end());
  return fields;
}

int List(Session& session, const model::RecordKind& kind) {
  const Arguments& arguments = session.arguments;
  if (arguments.json && arguments.list.csv) {
    throw CommandError(kUsage, "--csv and --json print the same list in two ways: give one");
  }
  const RecordFields fields = ChosenFields(arguments, kind);
  const RecordSelection selection(arguments.list, kind);
  session.Read(arguments.operands[0]);
  Lister lister(session, kind, fields, selection);
  if (lister.is_empty()) {
    const std::string hint = selection.HintOfNone();
    if (!hint.empty()) session.Note(hint);
  }
  if (arguments.json) {
    lister.PrintJson();
  } else if (arguments.list.csv) {
    lister.PrintCsv();
  } else {
    lister.PrintText();
  }
  return kGood;
}

}  // namespace

int RunRows(Session& session) { return List(session, model::kRowKind); }

int RunColumns(Session& session) { return List(session, model::kColumnKind); }

}  // namespace quarvel::hosts
