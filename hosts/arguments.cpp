#include "hosts/arguments.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "hosts/list_options.h"
#include "hosts/option.h"
#include "hosts/printing.h"
#include "hosts/questions.h"
#include "hosts/streams.h"
#include "text/edit_distance.h"
#include "text/numbers.h"
#include "text/upper_case.h"

namespace quarvel::hosts {
namespace {

bool SetAnswer(Arguments& arguments, const QuestionOption& option, std::string_view word) {
  const GivenAnswer* const answer =
      option.values.empty() ? &option.answers[1] : FindAnswer(option, word);
  if (answer != nullptr) arguments.answers[option.id] = answer;
  return answer != nullptr;
}

// False when the value is not allowed.
bool Set(const Option& option, Arguments& arguments, std::string_view given) {
  return option.question != nullptr ? SetAnswer(arguments, *option.question, given)
                                    : option.set(arguments, given);
}

constexpr Word<bool> kBoundWords[] = {{"0", false}, {"inf", true}};
constexpr Word<ColorChoice> kColorWords[] = {
    {"auto", ColorChoice::kAuto}, {"always", ColorChoice::kAlways}, {"never", ColorChoice::kNever}};
constexpr Word<mps::FileLayout> kLayoutWords[] = {{"free", mps::FileLayout::kFree},
                                                  {"fixed", mps::FileLayout::kFixed}};
constexpr Word<bool> kDialectWords[] = {{"wide", false}, {"component", true}};
constexpr Word<mps::FileColumns> kFileColumnWords[] = {{"fixed", mps::FileColumns::kFixed},
                                                       {"free", mps::FileColumns::kFree}};
constexpr Word<bool> kNegativeUpperWords[] = {{"keep", false}, {"free", true}};

bool SetLimit(Arguments& arguments, std::string_view value) {
  if (value == "all") {
    arguments.limit = Arguments::kAll;
    return true;
  }
  std::int64_t limit = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), limit);
  if (error != std::errc() || end != value.data() + value.size() || limit < 0) return false;
  arguments.limit = limit;
  return true;
}

bool SetTolerance(Arguments& arguments, std::string_view value) {
  const auto parse = [](std::string_view text) {
    const std::optional<double> number = text::ParseNumber(text);
    return number && *number >= 0 ? number : std::nullopt;
  };
  const std::size_t comma = value.find(',');
  const std::optional<double> absolute = parse(value.substr(0, comma));
  if (!absolute) return false;
  GivenTolerance tolerance = {.absolute = *absolute, .relative = std::nullopt};
  if (comma != std::string_view::npos) {
    tolerance.relative = parse(value.substr(comma + 1));
    if (!tolerance.relative) return false;
  }
  arguments.tolerance = tolerance;
  return true;
}

bool SetLength(std::optional<std::int32_t>& target, std::string_view value) {
  constexpr std::int32_t kMost = 10000;
  std::int32_t length = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), length);
  if (error != std::errc() || end != value.data() + value.size()) return false;
  target = length;
  return length >= 1 && length <= kMost;
}

bool SetPath(std::string& target, std::string_view value) {
  target = value;
  return !value.empty();
}

// Words with commas between them, none of them empty.
bool AppendWords(std::vector<std::string>& words, std::string_view value) {
  while (true) {
    const std::size_t comma = value.find(',');
    const std::string_view word = value.substr(0, comma);
    if (word.empty()) return false;
    words.emplace_back(word);
    if (comma == std::string_view::npos) return true;
    value.remove_prefix(comma + 1);
  }
}

constexpr Option kFirstOptions[] = {
    {kDialect, "--dialect", "", "wide|component",
     "how files are read: as this program does (the default), or as\nthe component does",
     [](Arguments& a, std::string_view v) {
       return Choose(a.component_dialect, kDialectWords, v);
     }},
    {kAsk, "--ask", "", "",
     "ask on the terminal what the component asks: the default\nbounds, each problem, whether to "
     "simplify; reads as it does",
     [](Arguments& a, std::string_view) { return a.ask = true; }},
    {kFileColumns, "--file-columns", "", "fixed|free",
     "where words of a file stand: in fixed columns, or between\nblanks; without, as the file's lines "
     "make sense",
     [](Arguments& a, std::string_view v) { return Choose(a.file_columns, kFileColumnWords, v); }},
    {kObjectiveRow, "--objective", "", "NAME",
     "the N row that is the objective, instead of the first",
     [](Arguments& a, std::string_view v) { return SetPath(a.objective, v); }},
    {kNegativeUpper, "--negative-upper", "", "keep|free",
     "a lower bound of 0 under a negative upper bound stays\n(the default), or becomes none",
     [](Arguments& a, std::string_view v) {
       return Choose(a.negative_upper_frees_lower, kNegativeUpperWords, v);
     }},
    {kDefaultBounds, "--default-bounds", "", "0|inf",
     "lower bound of columns that the file gives none:\n0 (the default), or no bound; the variable\n"
     "QUARVEL_DEFAULT_BOUNDS of the environment says it too",
     [](Arguments& a, std::string_view v) {
       return Choose(a.infinite_default_bounds, kBoundWords, v);
     }},
};

constexpr Option kMoreOptions[] = {
    {kLog, "--log", "", "FILE", "list in FILE what a simplification did; - is standard output",
     [](Arguments& a, std::string_view v) { return SetPath(a.log, v); }},
    {kJson, "--json", "", "", "print JSON",
     [](Arguments& a, std::string_view) { return a.json = true; }},
    {kLimit, "--limit", "", "N|all", "print at most N of them; all: every one",
     [](Arguments& a, std::string_view v) { return SetLimit(a, v); }},
    {kEquations, "--equations", "", "", "print each row as an equation",
     [](Arguments& a, std::string_view) { return a.equations = true; }},
    {kOutput, "--output", "-o", "FILE",
     "what is made goes to FILE, which ends in .svg or .png (spy),\nor in .html or .htm (report)",
     [](Arguments& a, std::string_view v) { return SetPath(a.output, v); }},
    {kWidth, "--width", "", "1..10000",
     "width of the whole picture in characters, or in pixels of a\nfile",
     [](Arguments& a, std::string_view v) { return SetLength(a.width, v); }},
    {kHeight, "--height", "", "1..10000",
     "height of the whole picture in lines, or in pixels of a file",
     [](Arguments& a, std::string_view v) { return SetLength(a.height, v); }},
    {kPoint, "--point", "", "FILE",
     "take the point from FILE: a NAME VALUE or NAME=VALUE\na line, or what a solver wrote",
     [](Arguments& a, std::string_view v) { return SetPath(a.point, v); }},
    {kTolerance, "--tolerance", "", "ABS[,REL]",
     "pass over what is off by ABS at most, or by REL\ntimes the number it is compared with",
     SetTolerance},
    {kCommand, "--command", "-c", "COMMAND", "one edit command; may be given many times",
     [](Arguments& a, std::string_view v) {
       a.edit_commands.emplace_back(v);
       return true;
     }},
    {kEdit, "--edit", "", "", "allow changes; without FILE, start a new model",
     [](Arguments& a, std::string_view) { return a.edit = true; }},
    {kMissingEndata, "--allow-missing-endata", "", "", "write also what a file without ENDATA held",
     [](Arguments& a, std::string_view) { return a.allow_missing_endata = true; }},
    {kLoss, "--allow-loss", "", "",
     "write also limits and bounds that read back as others, and a simplified model that is another",
     [](Arguments& a, std::string_view) { return a.allow_loss = true; }},
    {kOnly, "--only", "", "CODES",
     "of these problems only: ids, names or the starts of ids,\n"
     "as E110,long-names,W; may be given many times",
     [](Arguments& a, std::string_view v) { return AppendWords(a.only, v); }},
    {kIgnore, "--ignore", "", "CODES", "of all problems but these",
     [](Arguments& a, std::string_view v) { return AppendWords(a.ignore, v); }},
    {kSarif, "--sarif", "", "", "print SARIF 2.1.0, as services that show problems of code take it",
     [](Arguments& a, std::string_view) { return a.sarif = true; }},
    {kNoLint, "--no-lint", "", "", "do not look for what is legal and risky in the model",
     [](Arguments& a, std::string_view) { return a.no_lint = true; }},
    {kQuiet, "--quiet", "", "", "print nothing; the exit status tells",
     [](Arguments& a, std::string_view) { return a.quiet = true; }},
    {kScript, "--script", "", "", "print the edit commands that make A equal to B",
     [](Arguments& a, std::string_view) { return a.script = true; }},
    {0, "--color", "", "auto|always|never",
     "colors of lists, numbers and problems: on a terminal (the\ndefault), always or never; NO_COLOR in "
     "the environment turns\nthe default off",
     [](Arguments& a, std::string_view v) { return Choose(a.color, kColorWords, v); }},
    {kLayout, "--layout", "", "free|fixed",
     "free: what gives the model back bit for bit; fixed: what\nthe component writes",
     [](Arguments& a, std::string_view v) { return Choose(a.layout, kLayoutWords, v); }},
    {kStrict, "--strict", "", "", "write only what gives back all of the model",
     [](Arguments& a, std::string_view) { return a.strict = true; }},
    {0, "--help", "-h", "", "print this help",
     [](Arguments& a, std::string_view) { return a.help = true; }},
    {0, "--version", "-V", "", "print the version",
     [](Arguments& a, std::string_view) { return a.version = true; }},
};

[[noreturn]] void RaiseUsage(std::string text) { throw CommandError(kUsage, std::move(text)); }

const Option& KnownOption(std::string_view name) {
  const Option* const option = FindOption(name);
  if (option != nullptr) return *option;
  text::NearestWords nearest(name);
  for (const Option& each : AllOptions()) {
    const std::string_view letter = each.short_name;
    if (!letter.empty() && text::UpperCase(letter) == text::UpperCase(name)) {
      RaiseUsage("there is no option " + std::string(name) +
                 text::DidYouMean({std::string(letter)}));
    }
    nearest.Offer(each.name);
  }
  RaiseUsage("there is no option " + std::string(name) + text::DidYouMean(nearest.words()));
}

// The option at the front of `words`; gives how many words it took.
std::size_t TakeOption(Arguments& arguments, std::span<const std::string> words) {
  std::string_view name = words[0];
  std::optional<std::string_view> value;
  const std::size_t equals = name.find('=');
  if (equals != std::string_view::npos && name.starts_with("--")) {
    value = name.substr(equals + 1);
    name = name.substr(0, equals);
  }
  const Option& option = KnownOption(name);
  std::size_t taken = 1;
  if (option.value.empty()) {
    if (value) RaiseUsage(std::string(option.name) + " takes no value");
  } else if (!value) {
    if (words.size() < 2) {
      RaiseUsage(std::string(option.name) + " needs a value: " + std::string(option.value));
    }
    value = words[1];
    taken = 2;
  }
  if (!Set(option, arguments, value.value_or(""))) {
    RaiseUsage(std::string(option.name) + " takes " + std::string(option.value) + ", not \"" +
               std::string(*value) + "\"");
  }
  arguments.used |= option.id;
  return taken;
}

void TakeOperand(Arguments& arguments, const std::string& word) {
  if (arguments.command.empty()) {
    arguments.command = word;
  } else {
    arguments.operands.push_back(word);
  }
}

}  // namespace

const std::vector<Option>& AllOptions() {
  static const std::vector<Option> options = [] {
    std::vector<Option> all(std::begin(kFirstOptions), std::end(kFirstOptions));
    for (const QuestionOption& question : QuestionOptions()) {
      all.push_back(
          {question.id, question.name, "", question.values, question.help, nullptr, &question});
    }
    const std::span<const Option> list = ListOptions();
    all.insert(all.end(), list.begin(), list.end());
    all.insert(all.end(), std::begin(kMoreOptions), std::end(kMoreOptions));
    return all;
  }();
  return options;
}

bool IsOption(std::string_view word) {
  return word.size() > 1 && word[0] == '-' &&
         std::string_view("0123456789.").find(word[1]) == std::string_view::npos;
}

const Option* FindOption(std::string_view name) {
  const auto found =
      std::find_if(AllOptions().begin(), AllOptions().end(), [name](const Option& option) {
        return name == option.name || (!option.short_name.empty() && name == option.short_name);
      });
  return found == AllOptions().end() ? nullptr : &*found;
}

const Option& OptionOf(OptionSet id) {
  return *std::find_if(AllOptions().begin(), AllOptions().end(),
                       [id](const Option& option) { return option.id == id; });
}

Arguments ParseArguments(std::span<const std::string> words) {
  Arguments arguments;
  while (!words.empty()) {
    std::size_t taken = 1;
    if (words[0] == "--") {
      for (const std::string& word : words.subspan(1)) TakeOperand(arguments, word);
      break;
    }
    if (IsOption(words[0])) {
      taken = TakeOption(arguments, words);
    } else {
      TakeOperand(arguments, words[0]);
    }
    words = words.subspan(taken);
  }
  return arguments;
}

std::string DescribeOptions(OptionSet options) {
  constexpr std::size_t kIndent = 40;
  std::string text;
  for (const Option& option : AllOptions()) {
    if ((option.id & options) != option.id) continue;
    std::string line = "  ";
    if (!option.short_name.empty()) line.append(option.short_name).append(", ");
    line += option.name;
    if (!option.value.empty()) line.append(" ").append(option.value);
    line += "  ";
    AppendLeft(text, line, kIndent);
    for (const char c : option.help) {
      text += c;
      if (c == '\n') text.append(kIndent, ' ');
    }
    text += '\n';
  }
  return text;
}

std::string OptionName(OptionSet options) {
  for (const Option& option : AllOptions()) {
    if ((option.id & options) != 0) return std::string(option.name);
  }
  return "";
}

}  // namespace quarvel::hosts
