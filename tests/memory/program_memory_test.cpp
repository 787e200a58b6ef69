// The program, with every allocation of a command failing in turn: it ends with a status, says on
// standard error that memory ran out, prints nothing that it would not print otherwise, and leaves
// files whole.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/program.h"
#include "hosts/standard_output.h"
#include "tests/memory/trials.h"
#include "tests/support/run_quarvel.h"

namespace quarvel::testing {
namespace {

using Words = std::vector<std::string>;

constexpr std::string_view kCause = "Out of memory";
constexpr std::string_view kShortage = "quarvel: Out of memory\n";

// A model whose names do not stand in their own room alone.
constexpr std::string_view kModel =
    "* a model\nNAME WITH_A_LONG_NAME\nROWS\n N THE_ROW_THAT_IS_THE_OBJECTIVE\n L R2\n E "
    "R3\nCOLUMNS\n THE_FIRST_OF_ALL_COLUMNS THE_ROW_THAT_IS_THE_OBJECTIVE 1 R2 2\n Y R2 -3.5 R3 "
    "1\nRHS\n RHS R2 8 R3 4\nBOUNDS\n UP BOUND Y 10\nENDATA\n";
constexpr std::string_view kBroken = "ROWS\n N R1\n N R1\nCOLUMNS\n X R1 abc\n Y NONE 1\n";
// The same in other words, for comparing.
constexpr std::string_view kOther =
    "NAME OTHER\nROWS\n N THE_ROW_THAT_IS_THE_OBJECTIVE\n G R2\n L A_ROW_THAT_ONLY_THIS_ONE_HAS\n"
    "COLUMNS\n THE_FIRST_OF_ALL_COLUMNS THE_ROW_THAT_IS_THE_OBJECTIVE 1 R2 3\n Y R2 -3.5 "
    "A_ROW_THAT_ONLY_THIS_ONE_HAS 1\nENDATA\n";
constexpr std::string_view kPoint =
    "THE_FIRST_OF_ALL_COLUMNS 9\nY 99\nA_COLUMN_THAT_IS_NOT_THERE 1\n";
constexpr std::string_view kOld = "ROWS\n N OLD\nENDATA\n";

constexpr std::array<const char*, 10> kFiles = {
    "in", "broken", "out", "log", "other", "point", "drawn.svg", "drawn.png", "page", "packed.gz"};
using FileTexts = std::vector<std::string>;

struct NamedCommand {
  const char* name;
  Words words;
};

// "in" is the model, "other" one like it, "broken" a file with problems, "out" one that is there already.
const std::vector<NamedCommand>& ProgramRuns() {
  static const std::vector<NamedCommand> runs = {
      {"nothing", {}},
      {"no such command", {"a_command_that_is_not_there_at_all"}},
      {"no such option", {"info", "--an-option-that-is-not-there", "in"}},
      {"wrong number of words", {"info"}},
      {"help", {"--help"}},
      {"help of a command", {"edit", "--help"}},
      {"version", {"--version"}},
      {"manual", {"man", "rows"}},
      {"completion", {"completion", "bash"}},
      {"names to complete", {"__complete", "row", "in", "R"}},
      {"info", {"info", "in"}},
      {"info as JSON", {"info", "--json", "in"}},
      {"info of a broken file", {"info", "broken"}},
      {"info of no file", {"info", "a_file_that_is_not_there_at_all.mps"}},
      {"rows", {"rows", "--equations", "in"}},
      {"columns", {"columns", "in"}},
      {"row", {"row", "in", "R2"}},
      {"no such row", {"row", "in", "A_ROW_THAT_IS_NOT_THERE_AT_ALL"}},
      {"column", {"column", "in", "Y"}},
      {"evaluate", {"evaluate", "in", "R2", "THE_FIRST_OF_ALL_COLUMNS=2.5"}},
      {"check", {"check", "in"}},
      {"check as JSON", {"check", "--json", "broken"}},
      {"several files", {"info", "in", "broken"}},
      {"stats", {"stats", "in"}},
      {"stats as JSON", {"stats", "--json", "in"}},
      {"spy", {"spy", "in"}},
      {"spy into a drawing", {"spy", "in", "-o", "drawn.svg"}},
      {"spy into a picture", {"spy", "in", "-o", "drawn.png"}},
      {"report", {"report", "in", "-o", "page"}},
      {"diff", {"diff", "in", "other"}},
      {"diff as a script", {"diff", "in", "other", "--script"}},
      {"explain", {"explain", "in", "R2"}},
      {"why", {"why", "in", "point"}},
      {"dialects", {"dialects", "broken"}},
      {"convert", {"convert", "in", "out"}},
      {"convert, packed", {"convert", "in", "packed.gz"}},
      {"convert to standard output", {"convert", "in", "-"}},
      {"convert to the exact layout", {"convert", "in", "out", "--layout", "free", "--json"}},
      {"simplify", {"simplify", "in", "out", "--log", "log"}},
      {"edit", {"edit", "in", "out", "-c", "set-name OTHER_NAME_OF_THE_MODEL"}},
      {"edit, refused", {"edit", "in", "out", "-c", "delete-row A_ROW_THAT_IS_NOT_THERE"}},
      {"edit in place", {"edit", "in", "in", "-c", "delete-row R3"}},
  };
  return runs;
}

// With `diff` 1 says that two models differ.
int StatusOfFailure(const Words& words) {
  return !words.empty() && words.front() == "diff" ? hosts::kUsage : hosts::kProblem;
}

// What the program has written to a stream; the test has memory for it.
struct Written {
  static std::string out;
  static std::string err;

  static hosts::WriteResult ToOut(std::string_view bytes) { return To(out, bytes); }
  static hosts::WriteResult ToErr(std::string_view bytes) { return To(err, bytes); }

 private:
  static hosts::WriteResult To(std::string& text, std::string_view bytes) {
    const EnoughMemory enough;
    text += bytes;
    return hosts::WriteResult::kWritten;
  }
};
std::string Written::out;
std::string Written::err;

// One run in a folder of its own.
class ProgramRun {
 public:
  explicit ProgramRun(const Words& words) : words_(words) {
    folder_.Write("in", kModel);
    folder_.Write("broken", kBroken);
    folder_.Write("other", kOther);
    folder_.Write("point", kPoint);
    folder_.Write("out", kOld);
    for (std::string& word : words_) {
      if (std::find(kFiles.begin(), kFiles.end(), word) != kFiles.end()) word = folder_.Path(word);
    }
    Written::out.clear();
    Written::err.clear();
  }

  int Run() {
    const hosts::OutputBuffer::Writer to_err = Written::ToErr;
    hosts::OutputBuffer out_buffer(Written::ToOut);
    hosts::OutputBuffer err_buffer(to_err);
    std::ostream out(&out_buffer);
    std::ostream err(&err_buffer);
    err << std::unitbuf;
    const auto no_line = [] { return std::optional<std::string>(); };
    const auto words = [this] {
      const EnoughMemory enough;
      return words_;
    };
    const int status = hosts::RunProgram(words, {no_line, out, err, false}, hosts::kProblem);
    out_buffer.Finish();
    return status;
  }

  // What the files hold. The folder's name is another one each time.
  FileTexts Files() const {
    FileTexts texts;
    for (const char* const name : kFiles) {
      texts.push_back(folder_.Has(name) ? Shortened(folder_.Read(name)) : "nothing");
    }
    return texts;
  }
  std::string Shortened(std::string text) const {
    const std::string folder = folder_.Path("");
    for (std::size_t at = text.find(folder); at != text.npos; at = text.find(folder)) {
      text.replace(at, folder.size(), "@");
    }
    return text;
  }

 private:
  HostFolder folder_{HostFolder::Place::kInMemory};
  Words words_;
};

class ProgramTrial {
 public:
  explicit ProgramTrial(const Words& words) : words_(words) {
    ProgramRun run(words);
    before_ = run.Files();
    status_ = run.Run();
    after_ = run.Files();
    out_ = run.Shortened(Written::out);
    err_ = run.Shortened(Written::err);
  }

  std::optional<std::string> operator()(std::int64_t n, Shortage shortage) const {
    ProgramRun run(words_);
    testing::Outcome outcome;
    {
      const FailingAllocation failing(n, shortage);
      outcome = OutcomeOf([&] { return run.Run(); });
      if (!failing.happened()) return std::nullopt;
    }
    return FaultOf(run, outcome);
  }

 private:
  std::string FaultOf(const ProgramRun& run, const testing::Outcome& outcome) const {
    if (outcome.error != 0) return Text(outcome);
    const std::string out = run.Shortened(Written::out);
    const std::string err = run.Shortened(Written::err);
    const FileTexts files = run.Files();
    if (outcome.result == status_ && out == out_ && err == err_ && files == after_) return "";
    const int failed = StatusOfFailure(words_);
    if (outcome.result != failed) return Text(outcome) + ": " + err;
    // `check` lists what is wrong with the file where its results stand.
    const bool lists = out.find(kCause) != out.npos;
    if (!lists && err.find(kCause) == err.npos) return "nothing told: " + err;
    if (!lists && !out_.starts_with(out)) return "other output: " + out;
    for (std::size_t i = 0; i < files.size(); ++i) {
      const bool is_empty_log = kFiles[i] == std::string_view("log") && files[i].empty();
      const bool is_whole = files[i] == before_[i] || files[i] == after_[i] || is_empty_log;
      if (!is_whole) return std::string(kFiles[i]) + " holds " + files[i];
    }
    return "";
  }

  Words words_;
  int status_ = 0;
  FileTexts before_;
  FileTexts after_;
  std::string out_;
  std::string err_;
};

TEST(ProgramMemory, ProgramSaysThatMemoryRanOutAtEveryFailedAllocation) {
  Trials trials(Trials::StepWithFiles());
  for (const NamedCommand& run : ProgramRuns()) trials.Run(run.name, ProgramTrial(run.words));
  trials.Expect(1000);
}

TEST(ProgramMemory, EvenWithNoMemoryAtAllItEndsWithThatMessage) {
  for (const NamedCommand& command : ProgramRuns()) {
    ProgramRun run(command.words);
    const FailingAllocation failing(1, Shortage::kForEver);
    const int status = run.Run();
    const EnoughMemory enough;
    if (!failing.happened()) continue;
    EXPECT_EQ(status, StatusOfFailure(command.words)) << command.name;
    EXPECT_EQ(Written::err, kShortage) << command.name;
    EXPECT_EQ(Written::out, "") << command.name;
  }
}

}  // namespace
}  // namespace quarvel::testing
