#include "hosts/program.h"

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/commands.h"
#include "model/about.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

TEST(Program, PrintsItsVersion) {
  const Outcome run = RunQuarvel({"--version"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "quarvel " + std::string(model::ProductVersion()) + "\n");
  EXPECT_EQ(run.err, "");
}

TEST(Program, NamesEveryCommandInItsHelp) {
  const Outcome run = RunQuarvel({"--help"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  for (const hosts::Command& command : hosts::Commands()) {
    const std::string line =
        "\n  " + std::string(command.name) + ' ' + std::string(command.operands) + ' ';
    EXPECT_NE(run.out.find(line), std::string::npos) << line;
  }
}

TEST(Program, HelpsWithEveryCommand) {
  for (const hosts::Command& command : hosts::Commands()) {
    const std::string name(command.name);
    const Outcome run = RunQuarvel({name, "-h"});
    EXPECT_EQ(run.status, 0) << name;
    EXPECT_TRUE(run.out.starts_with("Usage: quarvel " + name + ' ' + std::string(command.operands) +
                                    " [OPTION ...]\n"))
        << run.out;
    EXPECT_EQ(run.out.find("--json") != std::string::npos, (command.options & hosts::kJson) != 0)
        << name;
    EXPECT_EQ(run.err, "") << name;
  }
}

TEST(Program, HelpsOnStandardErrorWithoutACommand) {
  const Outcome run = RunQuarvel({});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, RunQuarvel({"--help"}).out);
}

TEST(Program, HelpsByACommandToo) {
  const Outcome run = RunQuarvel({"help"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, RunQuarvel({"--help"}).out);
  EXPECT_EQ(RunQuarvel({"help", "rows"}).out, RunQuarvel({"rows", "-h"}).out);
}

struct Misuse {
  std::vector<std::string> words;
  const char* complaint;
};

TEST(Program, RefusesWhatItDoesNotUnderstand) {
  const Misuse cases[] = {
      {{"polish"}, "there is no command polish"},
      {{"--polish"}, "there is no option --polish"},
      {{"info"}, "info takes FILE ..."},
      {{"rows", "a", "b"}, "rows takes FILE, and not \"b\" as well"},
      {{"info", ""}, "info takes no empty words"},
      {{"convert", "a"}, "convert takes IN OUT"},
      {{"row", "a"}, "row takes FILE NAME|INDEX"},
      {{"evaluate", "a"}, "evaluate takes FILE ROW [NAME=VALUE ...]"},
      {{"info", "a", "--point", "p"}, "info takes no --point"},
      {{"check", "a", "--on-error", "stop"}, "check takes no --on-error"},
      {{"check", "a", "--simplify"}, "check takes no --simplify"},
      {{"check", "a", "--json", "--sarif"}, "check takes --json or --sarif, not both"},
      {{"check", "a", "--only", "E1,nonsense"},
       "--only: there is no problem nonsense; docs/problems.md lists them"},
      {{"check", "a", "--only", "no-such-rw"},
       "--only: there is no problem no-such-rw; did you mean no-such-row?"},
      {{"check", "a", "--ignore=W9"},
       "--ignore: there is no problem W9; docs/problems.md lists them"},
      {{"check", "a", "--only", "E1,,W"}, "--only takes CODES, not \"E1,,W\""},
      {{"simplify", "a", "b", "--simplify"}, "simplify takes no --simplify"},
      {{"view", "a", "--json"}, "view takes no --json"},
      {{"row", "a", "b", "--ask"},
       "--ask needs a terminal to ask on; elsewhere --default-bounds, --on-error, --on-conflict and "
       "--simplify answer"},
      {{"rows", "a", "--ask", "--dialect", "wide"},
       "rows takes --ask or --dialect wide: the questions are the component's"},
      {{"check", "a", "--ask"}, "check takes no --ask"},
      {{"help", "row", "rows"}, "help takes [COMMAND], and not \"rows\" as well"},
      {{"help", "colums"}, "there is no command colums; did you mean columns or column?"},
      {{"rows", "a", "--limit"}, "--limit needs a value: N|all"},
      {{"rows", "a", "--limit", "-1"}, "--limit takes N|all, not \"-1\""},
      {{"rows", "a", "--limit", "5x"}, "--limit takes N|all, not \"5x\""},
      {{"rows", "a", "--json=yes"}, "--json takes no value"},
      {{"info", "a", "--on-error", "go"}, "--on-error takes ask|stop|continue, not \"go\""},
      {{"info", "a", "--default-bounds=1"}, "--default-bounds takes 0|inf, not \"1\""},
      {{"info", "a", "--on-conflict="}, "--on-conflict takes ask|remove|reset|stop, not \"\""},
      {{"simplify", "a", "b", "--log", "a"}, "simplify cannot keep the log in a, which is a model"},
      {{"simplify", "a", "b", "--log=b"}, "simplify cannot keep the log in b, which is a model"},
  };
  for (const Misuse& misuse : cases) {
    const Outcome run = RunQuarvel(misuse.words);
    EXPECT_EQ(run.status, 2) << misuse.complaint;
    EXPECT_EQ(run.out, "") << misuse.complaint;
    EXPECT_TRUE(run.err.starts_with(std::string("quarvel: ") + misuse.complaint + "\n")) << run.err;
  }
}

TEST(Program, PointsToTheHelpOfTheCommand) {
  EXPECT_EQ(RunQuarvel({"rows", "a", "b"}).err,
            "quarvel: rows takes FILE, and not \"b\" as well\n"
            "quarvel: \"quarvel rows --help\" tells more\n");
  EXPECT_EQ(RunQuarvel({"help", "nope"}).err,
            "quarvel: there is no command nope\nquarvel: \"quarvel --help\" tells more\n");
  EXPECT_EQ(RunQuarvel({"-v"}).err,
            "quarvel: there is no option -v; did you mean -V?\n"
            "quarvel: \"quarvel --help\" tells more\n");
  EXPECT_EQ(RunQuarvel({"polish"}).err,
            "quarvel: there is no command polish\nquarvel: \"quarvel --help\" tells more\n");
}

TEST(Program, KnowsTheModelUnderAnotherNameOfItsFile) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  const Outcome run =
      RunQuarvel({"simplify", model, folder.Path("b.mps"), "--log", folder.Path("./a.mps")});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(folder.Read("a.mps"), kSmallModel);
}

TEST(Program, PointsToTheHelpOfTheCommandWhoseLineIsWrong) {
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"rows", "a.mps", "--limit", "ALL"},
        {"rows", "a.mps", "--sort"},
        {"rows", "--jsn", "a.mps"},
        {"--tolerance", "x", "rows"}}) {
    const Outcome run = RunQuarvel(words);
    EXPECT_EQ(run.status, 2) << words[1];
    EXPECT_TRUE(run.err.ends_with("quarvel: \"quarvel rows --help\" tells more\n")) << run.err;
  }
  EXPECT_TRUE(RunQuarvel({"--jsn"}).err.ends_with("quarvel: \"quarvel --help\" tells more\n"));
}

TEST(Program, TellsTheStatusesOfEachCommandInItsHelp) {
  const auto helps = [](const char* command) {
    return RunQuarvel({"help", command}).out + RunQuarvel({"man", command}).out;
  };
  EXPECT_NE(helps("diff").find("  1     there is a difference\n"), std::string::npos);
  EXPECT_EQ(helps("diff").find("a file was not read or written"), std::string::npos);
  EXPECT_NE(helps("check").find("check found warnings only"), std::string::npos);
  EXPECT_EQ(helps("rows").find("check found warnings only"), std::string::npos);
  EXPECT_NE(helps("row").find("Rows and columns are given by name"), std::string::npos);
  EXPECT_EQ(helps("man").find("Rows and columns are given by name"), std::string::npos);
}

// As many as the first line of its help shows.
TEST(Program, TakesNoOperandTooFewAndNoneTooMany) {
  for (const hosts::Command& command : hosts::Commands()) {
    SCOPED_TRACE(std::string(command.name));
    std::size_t needed = 0;
    std::size_t shown = 0;
    bool is_any_number = false;
    std::istringstream words{std::string(command.operands)};
    for (std::string word; words >> word;) {
      if (word.starts_with("...")) {
        is_any_number = true;
        continue;
      }
      ++shown;
      if (word[0] != '[') ++needed;
    }
    std::vector<std::string> line(1 + needed, "x");
    line[0] = command.name;
    if (needed > 0) {
      line.pop_back();
      const Outcome few = RunQuarvel(line);
      EXPECT_EQ(few.status, 2);
      EXPECT_TRUE(few.err.starts_with("quarvel: " + line[0] + " takes ")) << few.err;
    }
    if (is_any_number) continue;
    line.resize(2 + shown, "x");
    const Outcome many = RunQuarvel(line);
    EXPECT_EQ(many.status, 2);
    EXPECT_NE(many.err.find("and not \"x\" as well"), std::string::npos) << many.err;
  }
}

}  // namespace
}  // namespace quarvel
