// Command lines, files and standard input chosen by the input, given to the program in a folder of
// its own. Whatever they are, the program ends with a status that its help tells of, prints nothing
// that could steer a terminal, prints whole JSON where it was asked for, changes nothing outside its
// folder, and leaves the file that it read as it was when it fails. Lines of the edit language are
// also carried out on the naive model: what is written must be that model's file, and nothing when
// a line is refused.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/choices.h"
#include "fuzz/folder.h"
#include "fuzz/json_text.h"
#include "fuzz/printed_text.h"
#include "tests/support/naive_edit_language.h"
#include "tests/support/naive_reader.h"
#include "tests/support/naive_simplify.h"
#include "tests/support/naive_writer.h"
#include "tests/support/run_quarvel.h"
#include "tests/support/save_comparison.h"

namespace {

using namespace quarvel::testing;
using quarvel::Outcome;
using quarvel::ReadWholeFile;
using quarvel::RunQuarvel;
using quarvel::WriteWholeFile;
using quarvel::fuzz::Choices;
using quarvel::fuzz::Require;
using Words = std::vector<std::string>;
namespace fs = std::filesystem;

constexpr std::string_view kSmallModel =
    "* small\nNAME SMALL\nROWS\n N R1\n L R2\n E R3\nCOLUMNS\n X R1 1 R2 2\n Y R1 -3.5 R3 1\n"
    "RHS\n RHS R2 8 R3 4\nBOUNDS\n UP BOUND X 10\n UP BOUND Y 3\nENDATA\n";

const std::string kPoint = "# a point\nX 2\n\n Y = -1.5\nC0 = 3\nC1 1e3\n";

// The program's current folder: "in" of a folder that must hold nothing else.
class Workplace {
 public:
  Workplace() { fs::create_directory(Inside()); }
  fs::path Inside() const { return Outside() / "in"; }
  void Empty() const { quarvel::fuzz::EmptyFolder(Inside()); }
  std::string Fault() const {
    const auto count = std::distance(fs::directory_iterator(Outside()), fs::directory_iterator());
    return count == 1 ? "" : "something was written outside the folder";
  }

 private:
  fs::path Outside() const { return quarvel::fuzz::PathOf(folder_); }

  quarvel::TemporaryFolder folder_;
};

std::string Told(const Words& words, const Outcome& result) {
  std::string told = "quarvel";
  for (const std::string& word : words) told += " [" + word + "]";
  return told + "\nstatus " + std::to_string(result.status) + "\nout:\n" + result.out + "\nerr:\n" +
         result.err + "\n";
}

bool Has(const Words& words, std::string_view start) {
  return std::any_of(words.begin(), words.end(),
                     [start](const std::string& word) { return word.starts_with(start); });
}

// One text, or one in each line for a file each.
bool IsJson(const std::string& printed) {
  if (quarvel::fuzz::JsonText::IsValid(printed)) return true;
  std::istringstream lines(printed);
  for (std::string line; std::getline(lines, line);) {
    if (!quarvel::fuzz::JsonText::IsValid(line)) return false;
  }
  return true;
}

// What holds of every run.
std::string FaultOf(const Words& words, const Outcome& result) {
  const int most = Has(words, "check") ? 3 : 2;
  if (result.status < 0 || result.status > most) return "no such exit status";
  // Lines of CSV end as its readers want it.
  if (quarvel::fuzz::SteersTerminal(result.out, Has(words, "--csv") ? "\r\n" : "\n"))
    return "standard output has control characters";
  if (quarvel::fuzz::SteersTerminal(result.err, "\n"))
    return "standard error has control characters";
  const bool wants_json = (Has(words, "--json") || Has(words, "--sarif")) &&
                          !Has(words, "--help") && !Has(words, "-h") && !Has(words, "--version") &&
                          result.status == 0;
  const bool prints_json =
      wants_json && (result.out.starts_with('{') || result.out.starts_with('['));
  if (prints_json && !IsJson(result.out)) return "no JSON";
  return "";
}

// --- any command line ---

std::string ChooseWord(Choices& choose) {
  static const std::array<const char*, 93> kWords = {"a.mps",
                                                     "b.mps",
                                                     "point.txt",
                                                     "missing",
                                                     "info",
                                                     "rows",
                                                     "columns",
                                                     "row",
                                                     "column",
                                                     "evaluate",
                                                     "check",
                                                     "convert",
                                                     "simplify",
                                                     "edit",
                                                     "view",
                                                     "--json",
                                                     "--limit",
                                                     "--limit=1",
                                                     "0",
                                                     "1",
                                                     "inf",
                                                     "--equations",
                                                     "--point",
                                                     "--point=point.txt",
                                                     "-c",
                                                     "--command",
                                                     "--edit",
                                                     "--help",
                                                     "-h",
                                                     "--version",
                                                     "--log",
                                                     "--log=l.log",
                                                     "--on-error",
                                                     "continue",
                                                     "--on-error=continue",
                                                     "stop",
                                                     "--simplify",
                                                     "--on-conflict",
                                                     "remove",
                                                     "--on-conflict=remove",
                                                     "keep",
                                                     "--on-conflict=reset",
                                                     "reset",
                                                     "--default-bounds",
                                                     "--default-bounds=inf",
                                                     "--",
                                                     "-",
                                                     "R1",
                                                     "R2",
                                                     "x",
                                                     "Y",
                                                     "X=2",
                                                     "Y=-1.5",
                                                     "R1=1",
                                                     "-1",
                                                     "999",
                                                     "",
                                                     "--on-error=stop",
                                                     "--only",
                                                     "--only=E1,W5",
                                                     "--ignore=W",
                                                     "not-kept",
                                                     "--sarif",
                                                     "--no-lint",
                                                     "set-name A",
                                                     "delete-row R1",
                                                     "stats",
                                                     "dialects",
                                                     "explain",
                                                     "why",
                                                     "diff",
                                                     "--script",
                                                     "--quiet",
                                                     "--tolerance=1e-9",
                                                     "--strict",
                                                     "--layout=free",
                                                     "--layout",
                                                     "fixed",
                                                     "--dialect=component",
                                                     "--file-columns=fixed",
                                                     "--file-columns=free",
                                                     "--objective=R1",
                                                     "--negative-upper=free",
                                                     "--columns=name,type",
                                                     "--sort=name",
                                                     "--match=R*",
                                                     "--type=L",
                                                     "--csv",
                                                     "--empty",
                                                     "--full",
                                                     "--integer",
                                                     "--limit=all",
                                                     "--tolerance"};
  const std::uint32_t kind = choose(120);
  if (kind < kWords.size()) return kWords[kind];
  if (kind < 106) return ChooseEditLine([&choose](std::uint32_t n) { return choose(n); }, {}).text;
  return quarvel::fuzz::WithoutFolders(choose.Until(0));
}

std::string ChooseFile(Choices& choose) {
  switch (choose(4)) {
    case 0:
      return std::string(kSmallModel);
    case 1: {
      const auto number = [&choose](std::uint32_t n) { return choose(n); };
      return WriteNaively(choose(2) == 0 ? ChooseKeptModel(number) : ChooseAnyModel(number)).text;
    }
    default:
      return choose.Until(0);
  }
}

Words ChooseCommandLine(Choices& choose) {
  static const std::array<const char*, 16> kCommands = {
      "info",     "rows", "columns", "row",   "column",   "evaluate", "check", "convert",
      "simplify", "edit", "view",    "stats", "dialects", "explain",  "why",   "diff"};
  Words words;
  // Mostly a command and its files stand where they must.
  const std::uint32_t command = choose(20);
  if (command < kCommands.size()) {
    words = {kCommands[command], "a.mps"};
    if (command == 3 || command == 4) words.push_back("0");
    if (command == 5) words.push_back(choose(2) == 0 ? "R1" : "1");
    if (command == 5 && choose(2) == 0) words.push_back("--point=point.txt");
    if ((command >= 7 && command < 10) || command == 15) words.push_back("b.mps");
    if (command == 13) words.push_back("0");
    if (command == 14) words.push_back("point.txt");
  }
  for (std::uint32_t more = choose(6); more > 0; --more) words.push_back(ChooseWord(choose));
  return words;
}

void RunAnything(const Workplace& workplace, Choices& choose) {
  const Words words = ChooseCommandLine(choose);
  const std::string model = ChooseFile(choose);
  WriteWholeFile("a.mps", model);
  if (choose(3) == 0) WriteWholeFile("b.mps", kSmallModel);
  if (choose(2) == 0) WriteWholeFile("point.txt", choose(2) == 0 ? kPoint : choose.Until(0));
  const Outcome result = RunQuarvel(words, choose.Rest());
  Require(FaultOf(words, result), Told(words, result));
  Require(workplace.Fault(), Told(words, result));
  // A log goes where it is told to.
  const bool changed = ReadWholeFile("a.mps") != model;
  const bool may_change = result.status == 0 || Has(words, "--log");
  Require(changed && !may_change ? "the model's file was changed" : "", Told(words, result));
}

// --- lines of the edit language ---

// A column with a bound of 1E+10 and none beyond it, or one of -1E+10, which other programs read as fixed.
bool IsWrittenAsFixed(const NaiveModel& model) {
  constexpr double kNone = 1e10;
  return std::any_of(model.Columns.begin(), model.Columns.end(), [](const NaiveRecord& column) {
    return column.LowerBound == column.UpperBound && std::fabs(column.UpperBound) == kNone;
  });
}

// Bounds that leave a column no value are written only where a loss is allowed.
bool HasReversedBounds(const NaiveModel& model) {
  return std::any_of(model.Columns.begin(), model.Columns.end(), [](const NaiveRecord& column) {
    return column.LowerBound > column.UpperBound;
  });
}

// Whether the model's file is read as that model, so that there is no reason to refuse to write it.
bool IsKept(const NaiveModel& model) {
  NaiveModel read;
  const auto yes = [](const quarvel::platform::ShownBox&) {
    return quarvel::platform::MsgBoxResult::kYes;
  };
  NaiveReader reader(read, yes);
  reader.Read(WriteNaively(model).text);
  NaiveModel expected = AsReadBack(model);
  expected.FileLocation = "";
  expected.LongNameWarningShown = false;
  return Dump(read) == Dump(expected) && !IsWrittenAsFixed(model) && !HasReversedBounds(model);
}

// Where a pair was added twice, a deletion leaves an entry that names a row that is not there; such a
// model is not written.
bool IsWritable(const NaiveModel& model) {
  const auto is_there = [&model](const NaiveEntry& entry) {
    return entry.Index <= model.NumberOfRows;
  };
  return model.NumberOfElements > 0 &&
         std::all_of(model.Columns.begin(), model.Columns.end(), [&](const NaiveRecord& column) {
           return std::all_of(column.Elements.begin(), column.Elements.end(), is_there);
         });
}

// Such a deletion leaves lists of rows and columns that tell different models; it may be refused.
bool ListsAgree(const NaiveModel& model) {
  const NaiveModel by_columns = AsReadBack(model);
  return std::equal(model.Rows.begin(), model.Rows.end(), by_columns.Rows.begin(),
                    [](const NaiveRecord& row, const NaiveRecord& same) {
                      return row.ElementCount() == same.ElementCount();
                    });
}

struct Session {
  NaiveModel model;
  Words lines;
  bool good = true;
};

Session ChooseSession(Choices& choose, const NaiveModel& start) {
  const auto number = [&choose](std::uint32_t n) { return choose(n); };
  Session session = {.model = AsReadBack(start)};
  for (int i = 0; i < 60 && session.good && !choose.at_end(); ++i) {
    const NaiveEditLine line = ChooseEditLine(number, session.model);
    session.lines.push_back(line.text);
    session.good = line.apply(session.model);
  }
  return session;
}

std::string CompareFile(const Session& session, const Outcome& result, const std::string& written) {
  const bool writes = session.good && IsWritable(session.model);
  if (result.status == 0) {
    if (!writes) return "a refused line was passed over";
    return written == WriteNaively(session.model).text ? "" : "the file is not the model's";
  }
  if (result.status != 1) return "no such exit status of edit";
  return writes && ListsAgree(session.model) && IsKept(session.model) ? "good lines were refused"
                                                                      : "";
}

void RunEdits(Choices& choose) {
  const bool in_place = choose(2) == 1;
  const bool from_input = choose(2) == 1;
  const auto number = [&choose](std::uint32_t n) { return choose(n); };
  const NaiveModel start = ChooseKeptModel(number);
  const std::string before = WriteNaively(start).text;
  const Session session = ChooseSession(choose, start);
  // Without a command they would be read from standard input.
  Words words = {"edit", "a.mps", in_place ? "a.mps" : "b.mps"};
  std::string input;
  for (const std::string& line : session.lines) {
    if (from_input) input += line + "\n";
    if (!from_input) words.insert(words.end(), {"-c", line});
  }
  WriteWholeFile("a.mps", before);
  const Outcome result = RunQuarvel(words, input);
  const std::string told = input + Told(words, result);
  Require(FaultOf(words, result), told);
  const bool is_there = fs::exists(words[2]);
  Require(is_there == (in_place || result.status == 0) ? "" : "which file is there", told);
  const std::string written = is_there ? ReadWholeFile(words[2]) : "";
  Require(CompareFile(session, result, written), told + written);
  const bool keeps_old = !in_place || result.status != 0;
  Require(keeps_old && ReadWholeFile("a.mps") != before ? "the old file was changed" : "", told);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Workplace workplace;
  workplace.Empty();
  const quarvel::fuzz::InFolder inside(workplace.Inside());
  Choices choose(data, size);
  if (choose(2) == 0) {
    RunAnything(workplace, choose);
  } else {
    RunEdits(choose);
  }
  return 0;
}
