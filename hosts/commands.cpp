#include "hosts/commands.h"

#include <algorithm>

#include "hosts/braille_picture.h"
#include "hosts/edit_language.h"
#include "hosts/list_options.h"
#include "hosts/record_selection.h"
#include "hosts/report_page.h"
#include "hosts/stats_report.h"
#include "hosts/streams.h"
#include "model/record_kind.h"
#include "text/edit_distance.h"

namespace quarvel::hosts {
namespace {

// How lines are taken, for commands that read without the component's questions.
constexpr OptionSet kLines = kFileColumns | kObjectiveRow | kNegativeUpper | kDefaultBounds;
constexpr OptionSet kReadings = kDialect | kAsk | kLines | kQuestions | kLog;
constexpr OptionSet kWritings = kReadings | kMissingEndata | kLoss | kLayout | kStrict | kJson;

std::string InfoHelp() {
  return "Several files make a table of one line each; --json prints one object a line. The exit status "
         "is 1\nwhen a file was not read.\n";
}

std::string EvaluateHelp() {
  return "Columns that are not given are 0. A value on the command line replaces one of the "
         "point's "
         "file.\n"
         "In that file empty lines and lines that start with # are passed over.\n";
}

std::string DialectsHelp() {
  return "Each thing is printed with the first 5 lines where it stands, unless --limit says otherwise, and "
         "with\nwhat quarvel, glpsol 5.0, lp_solve 5.5.2.5 and cbc 2.10.8 make of it, which was found out by "
         "runs of them.\nThe exit status is 1 when there is one, 0 when there is none.\n";
}

std::string ExplainHelp() {
  return "Each type, bound and coefficient is told with the line that set it and those that it overrode; "
         "then\nlines that name the row or column and change nothing of it, what was wrong in such lines, and all "
         "these\nlines as they stand in the file. A row and a column of that name are both explained. Without "
         "--limit, the\nfirst 10 elements are listed.\n";
}

std::string WhyHelp() {
  return "Lists rows that are beyond a limit, columns that are beyond a bound, and integer columns that "
         "are not\nwhole, the worst first: without --limit the first 20, each row with its 12 largest "
         "terms. POINT is a\nfile of names and values, or what glpsol (-o, -w), lp_solve, cbc or HiGHS "
         "wrote; columns that it does\nnot give are 0. Without --tolerance, what is off by no more than "
         "1E-06, or 1E-09 times the limit, is\nwithin it; so is what the digits of a solver's rounded "
         "values leave open, which is counted.\nThe exit status is 1 when there is a violation, 0 when there "
         "is none.\n";
}

std::string CheckHelp() {
  return "Each problem has its place, its line and a code; docs/problems.md explains the codes. "
         "Letters: E error,\nA adapted (read in spite of the plain dialect), W warning (passed over, "
         "or legal and risky). Without\n--limit the first 20 of each code are printed; all are "
         "counted.\nThe exit status is 1 when there is an error, 3 when there are only warnings, 0 "
         "when there is neither;\nof several files it is that of the worst. These end in a line about all; --json prints "
         "one object a\nline for them, --sarif one log with a run for each.\n";
}

std::string SimplifyHelp() {
  return "Without --layout the file is laid out as the component does it (fixed).\n"
         "Rows of one element become bounds of their column, and empty rows and columns go. --log "
         "FILE\nlists what was done.\n";
}

std::string ConvertHelp() {
  return "The file is read again before it takes its name: what it would give back as another model is "
         "refused,\nwhat it leaves out or shortens is noted. Without --layout it is an exact one "
         "(free).\n"
         "OUT may be IN. A name that ends in .gz, .bz2, .xz or .zst is packed so; - is standard output, where "
         "the\nmodel goes once it was read back.\n";
}

std::string DiffHelp() {
  return "Rows and columns are compared by name, whatever their order. Without --limit the first 20 of each "
         "kind\nare listed; all are counted. Lines start with - for what only A has, + for what only B has, "
         "! for what\nboth have differently. What --script prints makes A equal to B: \"quarvel edit A C\" "
         "takes it on standard\ninput.\n"
         "The exit status is 0 when there is no difference, 1 when there is one, 2 when a file was not read "
         "or\nno edit commands make A equal to B.\n";
}

std::string CompletionHelp() {
  return "SHELL is bash, zsh or fish. Commands, options and their values, files, and the names of rows and "
         "columns\nare completed. To have that from now on, put \"source <(quarvel completion bash)\" into "
         "~/.bashrc,\nthe same with zsh into ~/.zshrc, or \"quarvel completion fish | source\" into\n"
         "~/.config/fish/config.fish.\n";
}

std::string ViewHelp() {
  return "The dialogs about reading, and its questions, are windows too.\n"
         "On Linux it needs quarvel-view beside quarvel, the only program with Qt in it. The exit status is 1 "
         "when\nthat, a library of it or a display is missing, or the file was not read.\n";
}

constexpr Command kCommands[] = {
    {"info", "FILE ...", 1, kAnyNumber, kReadings | kJson, "print what each file holds, in numbers",
     InfoHelp, RunInfo},
    {"stats", "FILE", 1, 1, kReadings | kJson | kLimit | kFull,
     "print sizes, kinds and patterns of names, in numbers", StatsHelp, RunStats},
    {"spy", "FILE", 1, 1, kReadings | kOutput | kWidth | kHeight, "show the matrix as a picture",
     SpyHelp, RunSpy},
    {"report", "FILE", 1, 1, kLines | kOutput, "make a page of HTML about a model", ReportHelp,
     RunReport},
    {"rows", "FILE", 1, 1, kReadings | kJson | kLimit | kEquations | kListing, "list the rows",
     [] { return ListHelp(model::kRowKind); }, RunRows},
    {"columns", "FILE", 1, 1, kReadings | kJson | kLimit | kListing | kInteger, "list the columns",
     [] { return ListHelp(model::kColumnKind); }, RunColumns},
    {"row", "FILE NAME|INDEX", 2, 2, kReadings | kJson | kLimit | kFull,
     "print one row with its elements", nullptr, RunRow},
    {"column", "FILE NAME|INDEX", 2, 2, kReadings | kJson | kLimit | kFull,
     "print one column with its elements", nullptr, RunColumn},
    {"evaluate", "FILE ROW [NAME=VALUE ...]", 2, kAnyNumber, kReadings | kJson | kPoint,
     "print a row's activity at a point", EvaluateHelp, RunEvaluate},
    {"dialects", "FILE", 1, 1, kLines | kJson | kLimit,
     "list what readers in use make different models of", DialectsHelp, RunDialects},
    {"explain", "FILE NAME|INDEX", 2, 2, kLines | kJson | kLimit,
     "tell which lines made a row or column what it is", ExplainHelp, RunExplain},
    {"why", "FILE POINT", 2, 2, kReadings | kJson | kLimit | kTolerance,
     "list what a point does not keep of the model", WhyHelp, RunWhy},
    {"check", "FILE ...", 1, kAnyNumber,
     kLines | kJson | kLimit | kOnly | kIgnore | kSarif | kNoLint,
     "list every problem of files and of their models", CheckHelp, RunCheck},
    {"convert", "IN OUT", 2, 2, kWritings, "read a file and write it anew", ConvertHelp,
     RunConvert},
    {"simplify", "IN OUT", 2, 2, kWritings & ~(kSimplify | kAsk), "simplify a model and write it",
     SimplifyHelp, RunSimplify},
    {"edit", "IN OUT", 2, 2, kWritings | kCommand, "change a model by commands and write it",
     EditHelp, RunEdit},
    {"diff", "A B", 2, 2,
     (kReadings & ~(kLog | kSimplify | kOnConflict | kAsk)) | kJson | kLimit | kQuiet | kTolerance |
         kScript,
     "tell what two models differ in", DiffHelp, RunDiff, kUsage},
    {"view", "[FILE]", 0, 1, kEdit, "show a model in a window", ViewHelp, RunView},
    {"help", "[COMMAND]", 0, 1, 0, "print this help, or that of a command", nullptr, RunHelp},
    {"completion", "SHELL", 1, 1, 0, "print what makes the Tab key of a shell complete",
     CompletionHelp, RunCompletion},
    {"man", "[COMMAND]", 0, 1, 0, "print a page of the manual, as man(1) takes it", nullptr,
     RunMan},
};

}  // namespace

std::span<const Command> Commands() { return kCommands; }

const Command* FindCommand(std::string_view name) {
  const auto* const found = std::find_if(std::begin(kCommands), std::end(kCommands),
                                         [name](const Command& c) { return c.name == name; });
  return found == std::end(kCommands) ? nullptr : found;
}

const Command& CommandOf(std::string_view name) {
  const Command* const command = FindCommand(name);
  if (command != nullptr) return *command;
  text::NearestWords nearest(name);
  for (const Command& known : Commands()) nearest.Offer(known.name);
  throw CommandError(
      kUsage, "there is no command " + std::string(name) + text::DidYouMean(nearest.words()));
}

}  // namespace quarvel::hosts
