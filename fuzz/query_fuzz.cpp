// Commands that look at a model, on files, points and screens that the input chooses. Each ends with a
// status that its help tells of and leaves every file as it was. What it prints cannot steer a terminal, is
// the same with colors but for those, is whole JSON where it was asked for, or a page and a picture that run
// nothing. What several commands tell of one model agrees: numbers of rows and columns, activities,
// the lines of the file, and the model that a packed copy gives.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/choices.h"
#include "fuzz/folder.h"
#include "fuzz/made_files.h"
#include "fuzz/page_text.h"
#include "fuzz/printed_text.h"
#include "hosts/completion.h"
#include "tests/support/json_value.h"
#include "tests/support/naive_reader.h"
#include "tests/support/naive_simplify.h"
#include "tests/support/naive_writer.h"
#include "tests/support/run_quarvel.h"
#include "tests/support/save_comparison.h"
#include "tests/support/wide_file.h"

namespace {

using namespace quarvel::testing;
using quarvel::JsonValue;
using quarvel::Outcome;
using quarvel::ReadWholeFile;
using quarvel::RunQuarvelOn;
using quarvel::WriteWholeFile;
using quarvel::fuzz::Choices;
using quarvel::fuzz::ChoosePoint;
using quarvel::fuzz::MakeFamilies;
using quarvel::fuzz::Require;
using quarvel::hosts::Screen;
using Words = std::vector<std::string>;
namespace fs = std::filesystem;

// --- what is looked at ---

std::string ChooseModel(Choices& choose) {
  const auto number = [&choose](std::uint32_t n) { return choose(n); };
  switch (choose(4)) {
    case 0:
      return MakeWideFile(number);
    case 1:
      return MakeFamilies(choose);
    case 2:
      return WriteNaively(choose(2) == 0 ? ChooseKeptModel(number) : ChooseAnyModel(number)).text;
    default:
      return choose.Until(0);
  }
}

Screen ChooseScreen(Choices& choose) {
  static const std::array<std::size_t, 6> kWidths = {0, 1, 20, 80, 200, 10000};
  Screen screen;
  screen.is_terminal = choose(2) == 0;
  screen.width = kWidths[choose(kWidths.size())];
  screen.height = choose(50);
  return screen;
}

// --- command lines ---

struct Command {
  std::string_view name;
  Words behind;   // that stand behind the file
  Words options;  // that it may be given
};

std::string ChooseName(Choices& choose) {
  static const std::array<const char*, 14> kNames = {
      "0", "1", "#0", "#1", "COST", "LIM", "X", "Y", "X 1", "FLOW", "R1", "-1", "#9", "MAX"};
  const std::uint32_t kind = choose(kNames.size() + 2);
  return kind < kNames.size() ? kNames[kind] : choose.Until(0);
}

const Words kReading = {"--dialect=component",
                        "--dialect=wide",
                        "--file-columns=fixed",
                        "--file-columns=free",
                        "--objective=LIM",
                        "--objective=other",
                        "--negative-upper=free",
                        "--default-bounds=inf",
                        "--on-error=continue",
                        "--simplify",
                        "--on-conflict=remove",
                        "--on-conflict=reset",
                        "--log=-",
                        "--json",
                        "--json",
                        "--ask",
                        "--on-error=ask"};

const std::vector<Command>& Commands() {
  static const std::vector<Command> kCommands = {
      {"info", {}, {"--json"}},
      {"stats", {}, {"--full", "--limit=1", "--limit=all"}},
      {"spy", {}, {"--width=1", "--width=37", "--width=300", "--height=1", "--height=20"}},
      {"spy", {}, {"-o=p.svg", "--output=p.svg", "--width=90", "--height=2000", "--height=70"}},
      {"spy", {}, {"--output=p.png", "--output=p.png", "--width=200", "--height=1"}},
      {"report", {}, {}},
      {"report", {}, {"--output=p.html", "--output=p.htm"}},
      {"rows",
       {},
       {"--match=*", "--match=[A-F]?*", "--match=\\*", "--type=L,G", "--type=N", "--free",
        "--fixed", "--empty", "--sort=-elements", "--sort=name", "--sort=lower",
        "--columns=name,equation", "--columns=index,type,upper", "--csv", "--full", "--limit=2",
        "--equations"}},
      {"columns",
       {},
       {"--match=x*", "--match=*[!a-z]", "--type=I", "--type=R,B", "--integer", "--free", "--fixed",
        "--empty", "--sort=-upper", "--sort=-name", "--sort=objective",
        "--columns=name,upper,lower,objective", "--csv", "--full", "--limit=1"}},
      {"row", {"?"}, {"--full", "--limit=1"}},
      {"column", {"?"}, {"--full", "--limit=1"}},
      {"evaluate", {"?"}, {"--point=p.txt", "X=2", "Y=-1.5", "#0=1e300", "1=0"}},
      {"dialects", {}, {"--limit=1", "--limit=all"}},
      {"explain", {"?"}, {"--limit=1", "--limit=all"}},
      {"why", {"p.txt"}, {"--tolerance=0", "--tolerance=1e-3,1", "--limit=1", "--limit=all"}},
      {"check",
       {},
       {"--sarif", "--only=E,W", "--ignore=W4", "--no-lint", "--limit=1", "--limit=all"}},
      {"diff",
       {"b.mps"},
       {"--tolerance=1", "--tolerance=0,1e-3", "--limit=1", "--script", "--quiet"}},
  };
  return kCommands;
}

// The command's words, with options of its own and of reading, at most five.
Words ChooseCommandLine(Choices& choose) {
  const Command& command = Commands()[choose(static_cast<std::uint32_t>(Commands().size()))];
  Words words = {std::string(command.name), "a.mps"};
  for (const std::string& word : command.behind) {
    words.push_back(word == "?" ? ChooseName(choose) : word);
  }
  for (std::uint32_t more = choose(6); more > 0; --more) {
    const bool own = !command.options.empty() && choose(3) != 0;
    const Words& from = own ? command.options : kReading;
    words.push_back(from[choose(static_cast<std::uint32_t>(from.size()))]);
  }
  return words;
}

// --- what must hold ---

std::string Told(const Words& words, const Outcome& result) {
  std::string told = "quarvel";
  for (const std::string& word : words) told += " [" + word + "]";
  return told + "\nstatus " + std::to_string(result.status) + "\nout:\n" + result.out + "\nerr:\n" +
         result.err + "\n";
}

bool Has(const Words& words, std::string_view word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

// Without the sequences that set and end a color: ESC [ numbers m.
std::string WithoutColors(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    const std::size_t start = text.find("\x1B[");
    plain += text.substr(0, start);
    if (start == std::string_view::npos) break;
    const std::size_t end = text.find_first_not_of("0123456789;", start + 2);
    if (end == std::string_view::npos || text[end] != 'm') return "not a color";
    text.remove_prefix(end + 1);
  }
  return plain;
}

std::string FaultOfPrint(const Words& words, const Outcome& result) {
  const int most = words[0] == "check" ? 3 : 2;
  if (result.status < 0 || result.status > most) return "no such exit status";
  // Lists for spreadsheets end their lines in CR LF; words to complete have a tab before their purpose.
  const std::string_view allowed = Has(words, "--csv")        ? "\n\r"
                                   : words[0] == "__complete" ? "\n\t"
                                                              : "\n";
  if (quarvel::fuzz::SteersTerminal(result.out, allowed))
    return "standard output has control characters";
  if (quarvel::fuzz::SteersTerminal(result.err, "\n"))
    return "standard error has control characters";
  return "";
}

// The value that was printed; a fault where it is none.
JsonValue JsonOf(const Words& words, const Outcome& result) {
  try {
    return JsonValue::Parse(result.out);
  } catch (const std::invalid_argument& fault) {
    Require(std::string("no JSON: ") + fault.what(), Told(words, result));
    return {};
  }
}

std::string FaultOfFile(const std::string& name, const std::string& bytes) {
  if (name.ends_with(".png")) return bytes.starts_with("\x89PNG\r\n") ? "" : "no picture";
  return quarvel::fuzz::PageText::FaultOf(bytes);
}

// What a user types who is asked something.
constexpr std::string_view kTyped = "n\ny\nwhat\ny\nall\n";

Outcome Run(const Words& words, const Screen& screen = {}) {
  const Outcome result = RunQuarvelOn(screen, words, kTyped);
  Require(FaultOfPrint(words, result), Told(words, result));
  return result;
}

void RunOne(Choices& choose, const std::string& point) {
  const Words words = ChooseCommandLine(choose);
  const Screen screen = ChooseScreen(choose);
  const Outcome result = Run(words, screen);
  Words colored = words;
  colored.emplace_back("--color=always");
  Outcome with_colors = RunQuarvelOn(screen, colored, kTyped);
  with_colors.out = WithoutColors(with_colors.out);
  Require(with_colors.out != result.out ? "colors change more than the color" : "",
          Told(words, result) + Told(colored, with_colors));
  const bool is_json = Has(words, "--json") || Has(words, "--sarif");
  if (is_json && result.status != 2 && (result.out.starts_with('{') || result.out.starts_with('[')))
    JsonOf(words, result);
  if (words[0] == "report") {
    Require(quarvel::fuzz::PageText::FaultOf(result.out), Told(words, result));
  }
  for (const char* const name : {"p.svg", "p.png", "p.html", "p.htm"}) {
    if (fs::exists(name)) Require(FaultOfFile(name, ReadWholeFile(name)), Told(words, result));
  }
  Require(ReadWholeFile("p.txt") != point ? "the point was changed" : "", Told(words, result));
}

// --- what several commands tell of one model ---

void CompareNumbers(const JsonValue& info) {
  const Words stats = {"stats", "a.mps", "--json"};
  const Outcome printed = Run(stats);
  const JsonValue numbers = JsonOf(stats, printed);
  for (const char* const what : {"rows", "columns", "elements"}) {
    Require(numbers[what].number() != info[what].number() ? "info and stats differ" : "",
            Told(stats, printed));
  }
  double types = 0;
  for (const char* const type : {"N", "G", "L", "E", "R"})
    types += numbers["rowTypes"][type].number();
  Require(types != info["rows"].number() ? "types of rows" : "", Told(stats, printed));
  for (const std::string list : {"rows", "columns"}) {
    const Words words = {list, "a.mps", "--json", "--limit=all"};
    const Outcome listed = Run(words);
    Require(static_cast<double>(JsonOf(words, listed).size()) != info[list].number()
                ? "info and a list differ"
                : "",
            Told(words, listed));
  }
}

// A row that a point does not keep has the activity that evaluate finds there, outside of its limit.
void CompareViolations() {
  const Words words = {"why", "a.mps", "p.txt", "--json", "--limit=3"};
  const Outcome told = Run(words);
  if (told.status == 2 || !told.out.starts_with('{')) return;
  const JsonValue why = JsonOf(words, told);
  for (const JsonValue& violation : why["violations"].items()) {
    Require(violation["amount"].number() > 0 ? "" : "kept", Told(words, told));
    if (violation["kind"].text() != "row") continue;
    const Words ask = {"evaluate", "a.mps", "#" + violation["index"].text(), "--point=p.txt",
                       "--json"};
    const Outcome answer = Run(ask);
    if (answer.status != 0) continue;  // a name that the model lacks is refused there
    Require(JsonOf(ask, answer)["activity"].text() != violation["value"].text() ? "activities" : "",
            Told(words, told) + Told(ask, answer));
  }
}

void CheckLines(Choices& choose, const std::string& model) {
  const Words words = {"explain", "a.mps", ChooseName(choose), "--json", "--limit=all"};
  const Outcome told = Run(words);
  if (told.status != 0) return;
  const auto ends = 1 + std::count(model.begin(), model.end(), '\n') +
                    std::count(model.begin(), model.end(), '\r');
  const JsonValue explained = JsonOf(words, told);
  double before = 0;
  for (const JsonValue& line : explained["lines"].items()) {
    const double number = line["line"].number();
    const bool is_one = number > before && number <= static_cast<double>(ends);
    Require(is_one ? "" : "a line that is not there", Told(words, told));
    before = number;
  }
}

// What is written exactly, and packed, is read back as the same model.
void ComparePacked(Choices& choose) {
  static const std::array<const char*, 5> kNames = {"c.mps", "c.mps.gz", "c.mps.bz2", "c.mps.xz",
                                                    "c.mps.zst"};
  const std::string name = kNames[choose(kNames.size())];
  const Words words = {"convert", "a.mps", name, "--strict", "--layout=free"};
  const Outcome written = Run(words);
  Require(fs::exists(name) == (written.status == 0) ? "" : "which file is there",
          Told(words, written));
  if (written.status != 0) return;
  const Words compare = {"diff", "a.mps", name};
  const Outcome same = Run(compare);
  Require(same.status != 0 ? "what was written exactly differs" : "",
          Told(words, written) + Told(compare, same));
}

void RunSeveral(Choices& choose, const std::string& model) {
  const Words words = {"info", "a.mps", "--json"};
  const Outcome told = Run(words);
  if (told.status != 0) return;
  CompareNumbers(JsonOf(words, told));
  CompareViolations();
  CheckLines(choose, model);
  ComparePacked(choose);
}

// --- words that ask for words ---

void RunWordsOfHelp(Choices& choose) {
  static const std::array<const char*, 7> kTyped = {"", "-", "--", "--color=", "ro", "C", "a.mps"};
  const Words commands = {"help", "man", "completion", "__complete"};
  Words words = {commands[choose(4)]};
  if (words[0] == "completion") words.emplace_back(choose(2) == 0 ? "bash" : "fish");
  if (words[0] == "help" || words[0] == "man")
    words.emplace_back(Commands()[choose(static_cast<std::uint32_t>(Commands().size()))].name);
  if (words[0] == "__complete") {
    const Words line = ChooseCommandLine(choose);
    words.insert(words.end(), line.begin(), line.end());
    words.emplace_back(kTyped[choose(kTyped.size())]);
  }
  const Outcome result = RunQuarvelOn(ChooseScreen(choose), words);
  Require(FaultOfPrint(words, result), Told(words, result));
  Require(result.status != 0 || result.out.empty() ? "nothing is told" : "", Told(words, result));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const quarvel::TemporaryFolder folder;
  quarvel::fuzz::EmptyFolder(folder);
  const quarvel::fuzz::InFolder inside(quarvel::fuzz::PathOf(folder));
  Choices choose(data, size);
  const std::uint32_t kind = choose(8);
  const std::string model = ChooseModel(choose);
  const std::string point = ChoosePoint(choose);
  WriteWholeFile("a.mps", model);
  WriteWholeFile("b.mps", choose(2) == 0 ? model : ChooseModel(choose));
  WriteWholeFile("p.txt", point);
  if (kind == 0) RunWordsOfHelp(choose);
  if (kind == 1 || kind == 2) RunSeveral(choose, model);
  if (kind > 2) RunOne(choose, point);
  Require(ReadWholeFile("a.mps") != model ? "the model's file was changed" : "", model);
  return 0;
}
