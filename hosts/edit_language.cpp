#include "hosts/edit_language.h"

#include <algorithm>
#include <optional>

#include "hosts/edit_words.h"
#include "hosts/find_record.h"
#include "hosts/printing.h"
#include "hosts/streams.h"
#include "model/bound_code.h"
#include "model/record_number.h"
#include "text/edit_distance.h"
#include "text/numbers.h"
#include "text/upper_case.h"

namespace quarvel::hosts {
namespace {

using Words = std::vector<std::string>;

// One command; `words` holds its operands only.
struct EditCommand {
  std::string_view name;
  std::string operands;
  std::size_t fewest;
  std::size_t most;
  void (*run)(Session& session, const Words& words);
};

[[noreturn]] void RaiseBad(std::string text) { throw CommandError(kProblem, std::move(text)); }

double ParseValue(const std::string& word) {
  const std::optional<double> value = text::ParseNumber(word);
  if (!value) RaiseBad("\"" + word + "\" is not a number");
  return *value;
}

// A bound may also be absent.
double ParseBound(const std::string& word) {
  const std::string upper = text::UpperCase(word);
  if (upper == "INF" || upper == "+INF") return model::BoundLimit;
  if (upper == "-INF") return -model::BoundLimit;
  return ParseValue(word);
}

template <const model::RecordKind& kKind>
std::int32_t NumberOf(Session& session, const std::string& word) {
  return FindRecord(session.model(), kKind, word,
                    [&session](std::string_view note) { session.Note(note); });
}

// The number of the element within its row.
std::int32_t ElementOf(const LPModel& model, std::int32_t row, std::int32_t column) {
  const std::int32_t found = model.store().FindElement(model::Stored(row), model::Stored(column));
  if (found != 0) return model::Public(found);
  RaiseBad("row " + model.RowName(row) + " has no element at column " + model.ColName(column));
}

// Names are kept in upper case, since that is how everybody reads them back from the file: two
// names that differ in case only would be one there.
std::string NewName(const std::string& word) { return text::UpperCase(word); }

// A type of those that records of the kind may be given, by its letter in either case.
std::string TypeLetter(const model::RecordKind& kind, const std::string& word) {
  const bool is_row = &kind == &model::kRowKind;
  std::string letter = text::UpperCase(word);
  const std::string letters = is_row ? model::RowTypeLetters() : model::ColumnTypeLetters();
  const bool is_known = letter.size() == 1 && letter != "|" && letters.find(letter) != letters.npos;
  if (is_known) return letter;
  RaiseBad("there is no " + std::string(kind.noun) + " type " + word + ": it is one of " + letters);
}

// A new row gets the bounds that a row of its type has in a file without a right-hand side.
void AddRow(Session& session, const Words& words) {
  LPModel& model = session.model();
  const std::string letter = TypeLetter(model::kRowKind, words[1]);
  if (model.AddRow(NewName(words[0])) == 0) return;
  const std::int32_t row = model.NumberOfRows() - 1;
  model.SetRowType(row, letter);
  const model::RowType type = model::RowTypeOf(letter);
  model.SetRowLowerBound(row, model::TraitsOf(type).FreshLower());
  model.SetRowUpperBound(row, model::TraitsOf(type).FreshUpper());
}

void AddColumn(Session& session, const Words& words) {
  LPModel& model = session.model();
  const std::string letter = words.size() == 1 ? "" : TypeLetter(model::kColumnKind, words[1]);
  if (model.AddColumn(NewName(words[0])) == 0 || letter.empty()) return;
  model.SetColType(model.NumberOfColumns() - 1, letter);
}

void AddElement(Session& session, const Words& words) {
  const std::int32_t row = NumberOf<model::kRowKind>(session, words[0]);
  const std::int32_t column = NumberOf<model::kColumnKind>(session, words[1]);
  const LPModel& model = session.model();
  if (model.store().FindElement(model::Stored(row), model::Stored(column)) != 0) {
    RaiseBad("row " + model.RowName(row) + " has an element at column " + model.ColName(column) +
             " already; set-element changes it");
  }
  session.model().AddElement(row, column, ParseValue(words[2]));
}

void SetElement(Session& session, const Words& words) {
  const std::int32_t row = NumberOf<model::kRowKind>(session, words[0]);
  const std::int32_t element =
      ElementOf(session.model(), row, NumberOf<model::kColumnKind>(session, words[1]));
  session.model().SetRowElementValue(row, element, ParseValue(words[2]));
}

template <const model::RecordKind& kKind>
void Delete(Session& session, const Words& words) {
  (session.model().*kKind.remove)(NumberOf<kKind>(session, words[0]));
}

template <const model::RecordKind& kKind>
void Rename(Session& session, const Words& words) {
  (session.model().*kKind.set_name)(NumberOf<kKind>(session, words[0]), NewName(words[1]));
}

// The objective stays the objective.
void RenameRow(Session& session, const Words& words) {
  const std::int32_t row = NumberOf<model::kRowKind>(session, words[0]);
  const bool is_objective = session.model().RowName(row) == session.facts().objective;
  Rename<model::kRowKind>(session, words);
  if (is_objective) session.facts().objective = session.model().RowName(row);
}

template <const model::RecordKind& kKind>
void SetType(Session& session, const Words& words) {
  const std::int32_t number = NumberOf<kKind>(session, words[0]);
  (session.model().*kKind.set_type)(number, TypeLetter(kKind, words[1]));
}

void DeleteElement(Session& session, const Words& words) {
  const std::int32_t row = NumberOf<model::kRowKind>(session, words[0]);
  const std::int32_t element =
      ElementOf(session.model(), row, NumberOf<model::kColumnKind>(session, words[1]));
  session.model().DeleteElement(row, element);
}

void SetRowBounds(Session& session, const Words& words) {
  const std::int32_t row = NumberOf<model::kRowKind>(session, words[0]);
  session.model().SetRowLowerBound(row, ParseBound(words[1]));
  session.model().SetRowUpperBound(row, ParseBound(words[2]));
}

void SetBound(Session& session, const Words& words) {
  LPModel& model = session.model();
  const std::int32_t column = NumberOf<model::kColumnKind>(session, words[0]);
  const std::string letters = text::UpperCase(words[1]);
  const model::BoundCodeTraits* const code = model::FindBoundCode(letters);
  if (code == nullptr)
    RaiseBad("there is no bound " + words[1] + ": it is one of " + model::BoundCodeLetters());
  if ((words.size() == 3) != code->needs_value) {
    RaiseBad(letters + (code->needs_value ? " needs a value" : " takes no value"));
  }
  const double value = code->needs_value ? ParseBound(words[2]) : 0;
  const model::BoundsChange change = code->change;
  if (change.lower != model::BoundChange::kKept)
    model.SetColLowerBound(column, change.NewLower(value));
  if (change.upper != model::BoundChange::kKept)
    model.SetColUpperBound(column, change.NewUpper(value));
}

void SetObjective(Session& session, const Words& words) {
  const LPModel& model = session.model();
  const std::int32_t row = NumberOf<model::kRowKind>(session, words[0]);
  if (model::RowTypeOf(model.RowType(row)) != model::RowType::kFree) {
    RaiseBad("row " + model.RowName(row) + " is not of type N, as an objective is");
  }
  session.facts().objective = model.RowName(row);
}

void SetObjectiveSense(Session& session, const Words& words) {
  const std::string sense = text::UpperCase(words[0]);
  if (sense != "MIN" && sense != "MAX")
    RaiseBad("there is no sense " + words[0] + ": it is MIN or MAX");
  session.facts().sense =
      sense == "MAX" ? mps::ObjectiveSense::kMaximize : mps::ObjectiveSense::kMinimize;
}

void SetObjectiveConstant(Session& session, const Words& words) {
  session.facts().objective_constant = ParseValue(words[0]);
}

void SetName(Session& session, const Words& words) { session.model().SetModelName(words[0]); }

// The lines of a description are joined by CR LF.
void SetDescription(Session& session, const Words& words) {
  std::string description;
  for (const char c : words[0]) {
    if (c == '\n') description += '\r';
    description += c;
  }
  session.model().SetModelDescription(description);
}

void Simplify(Session& session, const Words&) { session.Simplify(); }

const std::vector<EditCommand>& EditCommands() {
  static const std::vector<EditCommand> commands = {
      {"add-row", "NAME " + model::RowTypeLetters(), 2, 2, AddRow},
      {"add-column", "NAME [" + model::ColumnTypeLetters() + "]", 1, 2, AddColumn},
      {"add-element", "ROW COLUMN VALUE", 3, 3, AddElement},
      {"set-element", "ROW COLUMN VALUE", 3, 3, SetElement},
      {"delete-row", "ROW", 1, 1, Delete<model::kRowKind>},
      {"delete-column", "COLUMN", 1, 1, Delete<model::kColumnKind>},
      {"delete-element", "ROW COLUMN", 2, 2, DeleteElement},
      {"rename-row", "ROW NAME", 2, 2, RenameRow},
      {"rename-column", "COLUMN NAME", 2, 2, Rename<model::kColumnKind>},
      {"set-row-type", "ROW " + model::RowTypeLetters(), 2, 2, SetType<model::kRowKind>},
      {"set-row-bounds", "ROW LOWER UPPER", 3, 3, SetRowBounds},
      {"set-bound", "COLUMN " + model::BoundCodeLetters() + " [VALUE]", 2, 3, SetBound},
      {"set-column-type", "COLUMN " + model::ColumnTypeLetters(), 2, 2,
       SetType<model::kColumnKind>},
      {"set-objective", "ROW", 1, 1, SetObjective},
      {"set-objective-sense", "MIN|MAX", 1, 1, SetObjectiveSense},
      {"set-objective-constant", "VALUE", 1, 1, SetObjectiveConstant},
      {"set-name", "TEXT", 1, 1, SetName},
      {"set-description", "TEXT", 1, 1, SetDescription},
      {"simplify", "", 0, 0, Simplify},
  };
  return commands;
}

const EditCommand& FindEditCommand(std::string_view name) {
  const auto& commands = EditCommands();
  const auto found =
      std::find_if(commands.begin(), commands.end(),
                   [name](const EditCommand& command) { return command.name == name; });
  if (found != commands.end()) return *found;
  text::NearestWords nearest(name);
  for (const EditCommand& known : commands) nearest.Offer(known.name);
  RaiseBad("there is no command " + std::string(name) + text::DidYouMean(nearest.words()));
}

}  // namespace

std::vector<EditCommandUse> EditCommandUses() {
  std::vector<EditCommandUse> uses;
  for (const EditCommand& command : EditCommands())
    uses.push_back({command.name, command.operands});
  return uses;
}

void RunEditLine(Session& session, std::string_view line) {
  Words words = SplitWords(line);
  if (words.empty()) return;
  const EditCommand& command = FindEditCommand(words[0]);
  words.erase(words.begin());
  if (words.size() < command.fewest || words.size() > command.most) {
    RaiseBad(std::string(command.name) + " takes " +
             (command.operands.empty() ? "nothing" : command.operands));
  }
  command.run(session, words);
  std::vector<std::string>& refusals = session.answers().refusals;
  if (!refusals.empty()) RaiseBad(refusals.front());
  session.CountCommand();
}

std::string EditHelp() {
  std::string help =
      "All commands are carried out, or nothing is written at the first bad one. They come from -c "
      "options\nor, without any, from standard input, one a line:\n";
  for (const EditCommand& command : EditCommands()) {
    constexpr std::size_t kNameWidth = 24;
    std::string shown = "  ";
    AppendLeft(shown, command.name, kNameWidth);
    shown.append(command.operands);
    shown.erase(shown.find_last_not_of(' ') + 1);
    help += shown + '\n';
  }
  return help +
         "Empty lines and lines that start with # are passed over. Text with blanks stands in "
         "double "
         "quotes;\n"
         "in them \\\" is a quote, \\\\ a backslash, \\n a new line and \\u and four hexadecimal "
         "digits\nthe character of that code. New names are kept in "
         "upper "
         "case.\n"
         "Bounds may be -inf and inf. Types and bounds of rows do not follow each other: a range "
         "is\n"
         "set-row-type ROW R and set-row-bounds ROW LOWER UPPER. Sense and constant of the objective "
         "are\nwritten with --layout free alone.\n"
         "Without --layout the file is laid out as the component does it (fixed), which has twelve "
         "characters\nfor a number: --layout free keeps all digits. OUT may be IN, which is then "
         "replaced whole or not at all.\n";
}

}  // namespace quarvel::hosts
