// quarvel info: what the model holds, in numbers, and what its file says beside it.

#include <utility>

#include "hosts/commands.h"
#include "hosts/input_bytes.h"
#include "hosts/printing.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

std::int32_t IntegerColumns(const LPModel& model) {
  std::int32_t count = 0;
  for (std::int32_t j = 0; j < model.NumberOfColumns(); ++j) {
    if (model::ColumnTypeOf(model.ColType(j)) == model::ColumnType::kInteger) ++count;
  }
  return count;
}

std::string_view SenseText(mps::ObjectiveSense sense) {
  if (sense == mps::ObjectiveSense::kNotSaid) return {};
  return sense == mps::ObjectiveSense::kMaximize ? "maximize" : "minimize";
}

void AppendFactMembers(std::string& json, const mps::FileFacts& facts) {
  if (!facts.objective.empty()) AppendJsonMember(json, "objective", facts.objective);
  const std::string_view sense = SenseText(facts.sense);
  if (!sense.empty()) AppendJsonMember(json, "objectiveSense", sense);
  if (facts.objective_constant != 0) {
    AppendJsonMember(json, "objectiveConstant", facts.objective_constant);
  }
}

std::string UnreadJson(const std::string& path) {
  std::string json = "{";
  AppendJsonMember(json, "file", path);
  AppendJsonMember(json, "read", false);
  return json + "}\n";
}

std::string InfoJson(const Session& session, const std::string& path) {
  const LPModel& model = session.model();
  std::string json = "{";
  AppendJsonMember(json, "name", model.ModelName());
  AppendJsonMember(json, "description", model.ModelDescription());
  AppendJsonMember(json, "file", path);
  AppendJsonMember(json, "read", true);
  AppendJsonMember(json, "rows", model.NumberOfRows());
  AppendJsonMember(json, "columns", model.NumberOfColumns());
  AppendJsonMember(json, "elements", model.NumberOfElements());
  AppendJsonMember(json, "bindingRows", model.NumberOfBindingRows());
  AppendJsonMember(json, "nonBindingRows", model.NumberOfNonBindingRows());
  AppendJsonMember(json, "integerColumns", IntegerColumns(model));
  AppendFactMembers(json, session.facts());
  AppendJsonMember(json, "hasEndata", !session.may_be_cut_off());
  return json + "}\n";
}

// Facts of one file, a line each.
class FactList {
 public:
  explicit FactList(const Session& session)
      : pen_(session.arguments.color, session.streams.screen) {}

  void Add(std::string_view what, std::string_view fact) {
    constexpr std::size_t kWidth = 18;
    if (fact.empty()) return;
    text_ += pen_.Draw(Ink::kHeading, what);
    text_.append(kWidth - what.size(), ' ').append(text::VisibleText(fact)).append("\n");
  }
  const std::string& text() const { return text_; }

 private:
  Pen pen_;
  std::string text_;
};

void AddDescription(FactList& list, std::string_view description) {
  constexpr std::string_view kLineEnd = "\r\n";
  std::string_view what = "Description";
  while (!description.empty()) {
    const std::size_t end = description.find(kLineEnd);
    list.Add(what, description.substr(0, end));
    what = "";
    if (end == std::string_view::npos) break;
    description.remove_prefix(end + kLineEnd.size());
  }
}

void AddFacts(FactList& list, const mps::FileFacts& facts) {
  list.Add("Objective", facts.objective);
  list.Add("  sense", SenseText(facts.sense));
  if (facts.objective_constant == 0) return;
  list.Add("  constant", text::RoundTripText(facts.objective_constant));
}

std::string InfoText(const Session& session, const std::string& path) {
  const LPModel& model = session.model();
  FactList list(session);
  list.Add("Name", model.ModelName());
  AddDescription(list, model.ModelDescription());
  list.Add("File", NameOfInput(path));
  AddFacts(list, session.facts());
  list.Add("Binding rows", text::IntegerText(model.NumberOfBindingRows()));
  list.Add("Non-binding rows", text::IntegerText(model.NumberOfNonBindingRows()));
  list.Add("Integer columns", text::IntegerText(IntegerColumns(model)));
  list.Add("Summary", SizeText(model));
  return list.text();
}

// One file a line.
class FileTable {
 public:
  explicit FileTable(Session& session) : session_(session) {}

  // Prints a line about it; why a file is not read is told as well.
  void Add(const std::string& path) {
    ++files_;
    try {
      session_.Read(path);
    } catch (const CommandError& error) {
      if (error.status() == kInterrupted) throw;
      session_.Note(error.text());
      ++failed_;
      session_.streams.out << (session_.arguments.json ? UnreadJson(path) : UnreadLine(path));
      return;
    }
    session_.streams.out << (session_.arguments.json ? InfoJson(session_, path) : Line(path));
  }

  int End() {
    if (!session_.arguments.json) {
      std::string text = Counted(files_, "file");
      if (failed_ > 0) text += ", " + text::IntegerText(failed_) + " not read";
      session_.streams.out << text + '\n';
    }
    return failed_ == 0 ? kGood : kProblem;
  }

 private:
  static constexpr std::size_t kWidth = 10;

  std::string Header() {
    if (std::exchange(has_header_, true)) return {};
    std::string line;
    for (const std::string_view title : {"Rows", "Columns", "Elements", "Integer"}) {
      AppendRight(line, title, kWidth);
    }
    return Pen(session_.arguments.color, session_.streams.screen)
        .Draw(Ink::kHeading, line + "  File\n");
  }

  std::string Line(const std::string& path) {
    std::string line = Header();
    const LPModel& model = session_.model();
    for (const std::int32_t count : {model.NumberOfRows(), model.NumberOfColumns(),
                                     model.NumberOfElements(), IntegerColumns(model)}) {
      AppendRight(line, text::IntegerText(count), kWidth);
    }
    return line + "  " + text::VisibleText(NameOfInput(path)) + '\n';
  }

  std::string UnreadLine(const std::string& path) {
    std::string line = Header();
    for (int count = 0; count < 4; ++count) AppendRight(line, "-", kWidth);
    return line + "  " + text::VisibleText(NameOfInput(path)) + " (not read)\n";
  }

  Session& session_;
  bool has_header_ = false;
  std::int64_t files_ = 0;
  std::int64_t failed_ = 0;
};

}  // namespace

int RunInfo(Session& session) {
  const std::vector<std::string>& files = session.arguments.operands;
  StopAtSecondStandardInput(files);
  if (files.size() == 1) {
    session.Read(files[0]);
    session.streams.out << (session.arguments.json ? InfoJson(session, files[0])
                                                   : InfoText(session, files[0]));
    return kGood;
  }
  FileTable table(session);
  for (const std::string& file : files) {
    if (!session.KeepPrinting()) break;
    table.Add(file);
  }
  return table.End();
}

}  // namespace quarvel::hosts
