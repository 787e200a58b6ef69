#include <gtest/gtest.h>

#include "tests/support/file_faults.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

constexpr std::string_view kSmallModelExact =
    "NAME          SMALL\r\n"
    "* small\r\n"
    "ROWS\r\n"
    " N  R1\r\n"
    " L  R2\r\n"
    "COLUMNS\r\n"
    "    X         R1                   1\r\n"
    "    X         R2                   2\r\n"
    "    Y         R1                -3.5\r\n"
    "RHS\r\n"
    "    RHS       R2                   8\r\n"
    "BOUNDS\r\n"
    " UP BOUND     X                   10\r\n"
    "ENDATA\r\n";

constexpr std::string_view kSmallModelWritten =
    "NAME          SMALL\r\n"
    "* small\r\n"
    "ROWS\r\n"
    " N  R1\r\n"
    " L  R2\r\n"
    "COLUMNS\r\n"
    "    X         R1                  1.\r\n"
    "    X         R2                  2.\r\n"
    "    Y         R1                -3.5\r\n"
    "RHS\r\n"
    "    RHS       R2                  8.\r\n"
    "BOUNDS\r\n"
    " UP BOUND     X                  10.\r\n"
    "ENDATA\r\n";

TEST(Convert, WritesWhatItRead) {
  const HostFolder folder;
  const Outcome run =
      RunQuarvel({"convert", folder.Write("a.mps", kSmallModel), folder.Path("b.mps")});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out,
            folder.Expand("@b.mps: written and verified: 2 rows, 2 columns, 3 coefficients "
                          "equal\n"));
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(folder.Read("b.mps"), kSmallModelExact);
}

TEST(Convert, LaysTheFileOutAsItIsTold) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  EXPECT_EQ(RunQuarvel({"convert", model, folder.Path("b.mps"), "--layout", "fixed"}).status, 0);
  EXPECT_EQ(folder.Read("b.mps"), kSmallModelWritten);
  EXPECT_EQ(RunQuarvel({"edit", model, folder.Path("b.mps"), "--layout", "free"}).status, 0);
  EXPECT_EQ(folder.Read("b.mps"), kSmallModelExact);
  EXPECT_EQ(RunQuarvel({"edit", model, folder.Path("b.mps")}).status, 0);
  EXPECT_EQ(folder.Read("b.mps"), kSmallModelWritten);
}

TEST(Convert, SaysHowMuchOfTheModelTheFileGivesBack) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "ROWS\n N C\n L R\n L E\nCOLUMNS\n X C 1 R .12345678912345\nENDATA\n");
  const std::string target = folder.Write("b.mps", "precious");
  const Outcome strict = RunQuarvel({"convert", model, target, "--layout=fixed", "--strict"});
  EXPECT_EQ(strict.status, 1);
  EXPECT_EQ(strict.out, "");
  EXPECT_TRUE(strict.err.ends_with(folder.Expand(
      "quarvel: @b.mps was not written; --strict writes nothing that loses something\n")))
      << strict.err;
  EXPECT_EQ(folder.Read("b.mps"), "precious");
  const Outcome run = RunQuarvel({"convert", model, target, "--layout=fixed"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, folder.Expand("@b.mps: written and read again: 2 of 3 rows, 1 column, 1 of 2 "
                                   "coefficients equal\n"));
  EXPECT_NE(run.err.find("row E (number 2) is left out: it has no elements"), std::string::npos);
  const Outcome exact = RunQuarvel({"convert", model, target, "--strict"});
  EXPECT_EQ(exact.status, 0);
  EXPECT_EQ(exact.out,
            folder.Expand("@b.mps: written and verified: 3 rows, 1 column, 2 coefficients "
                          "equal\n"));
}

TEST(Convert, WritesOverItsOwnFileAndLeavesNoBackup) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  EXPECT_EQ(RunQuarvel({"convert", model, folder.Path("./a.mps")}).status, 0);
  EXPECT_EQ(folder.Read("a.mps"), kSmallModelExact);
  EXPECT_FALSE(folder.Has("a.bkp"));
}

TEST(Convert, GivesEveryExampleBackUnchanged) {
  const HostFolder folder;
  for (const std::string name : {"diet.mps", "transport.mps", "knapsack.mps"}) {
    const std::string model = folder.Example(name);
    ASSERT_EQ(RunQuarvel({"convert", model, folder.Path("b.mps")}).status, 0) << name;
    for (const char* const command : {"rows", "columns"}) {
      const Outcome before = RunQuarvel({command, model, "--json"});
      const Outcome after = RunQuarvel({command, folder.Path("b.mps"), "--json"});
      ASSERT_EQ(before.status, 0);
      EXPECT_EQ(before.out, after.out) << name;
    }
  }
}

TEST(Convert, NamesWhatDoesNotFitFixedColumns) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "ROWS\n L LONGROWNAME\nCOLUMNS\n X LONGROWNAME 1\nENDATA\n");
  for (const char* const layout : {"--layout=free", "--layout=fixed"}) {
    const Outcome run = RunQuarvel({"convert", model, folder.Path("b.mps"), layout});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, folder.Expand("quarvel: @b.mps: the name LONGROWNAME takes more room than "
                                     "fixed columns have, so that the file is to be read with free "
                                     "columns\n"))
        << layout;
  }
}

TEST(Convert, SaysNothingOfFreeColumnsThatFitFixedOnes) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps", "ROWS\n L R\nCOLUMNS\n X R 1\n Y R 1\nBOUNDS\n FR B X\n MI B Y\nENDATA\n");
  for (const char* const layout : {"--layout=free", "--layout=fixed"}) {
    const std::string output = folder.Path("b.mps");
    EXPECT_EQ(RunQuarvel({"convert", model, output, layout}).err.find("fixed columns"),
              std::string::npos);
    const Outcome json = RunQuarvel({"convert", model, output, layout, "--json"});
    EXPECT_NE(json.out.find("\"fitsFixedColumns\":true"), std::string::npos) << json.out;
  }
}

TEST(Convert, WritesToNoFolder) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"convert", folder.Write("a.mps", kSmallModel), folder.Path("")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, folder.Expand("quarvel: @ is a folder, not a file\n"));
}

TEST(Convert, LeavesTheTargetAloneWhenThereIsNothingToWrite) {
  const HostFolder folder;
  const std::string empty = folder.Write("a.mps", "ENDATA\n");
  const std::string target = folder.Write("b.mps", "precious");
  const Outcome run = RunQuarvel({"convert", empty, target, "--on-error", "continue"});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(run.err.ends_with(
      folder.Expand("quarvel: @b.mps was not written: the model has no elements\n")))
      << run.err;
  EXPECT_EQ(folder.Read("b.mps"), "precious");
}

TEST(Convert, LeavesTheTargetAloneWhenTheFileIsNotRead) {
  const HostFolder folder;
  const std::string target = folder.Write("b.mps", "precious");
  EXPECT_EQ(RunQuarvel({"convert", folder.Example("mistakes.mps"), target}).status, 1);
  EXPECT_EQ(folder.Read("b.mps"), "precious");
}

TEST(Convert, ReportsATargetThatCannotBeWritten) {
  const HostFolder folder;
  const Outcome run =
      RunQuarvel({"convert", folder.Write("a.mps", kSmallModel), folder.Path("no/b.mps")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, folder.Expand("quarvel: @no/b.mps: Path not found\n"
                                   "quarvel: @no/b.mps was not written\n"));
}

TEST(Simplify, WritesTheSimplifiedModelAndCopiesTheLog) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"simplify", folder.Example("ranges.mps"), folder.Path("out.mps"),
                                  "--log", folder.Path("copy.log")});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(
      run.out,
      folder.Expand("@out.mps: written and verified: 5 rows, 6 columns, 14 coefficients equal\n"));
  EXPECT_NE(folder.Read("out.mps").find(" LO BOUND     LOW                 3.\r\n"),
            std::string::npos);
  EXPECT_EQ(folder.Read("copy.log"), folder.Expand("Log file for simplification of @ranges.mps\r\n"
                                                   "Converted row FLOOR into variable bound\r\n"));
  EXPECT_TRUE(run.err.starts_with(
      folder.Expand("quarvel: @ranges.mps: the simplifications are listed in @copy.log\n")))
      << run.err;
  EXPECT_FALSE(folder.Has("ranges.log"));
}

TEST(Simplify, SaysWhenThereWasNothingToDo) {
  const HostFolder folder;
  folder.Write("copy.log", "Log file for simplification of another model\r\n");
  const Outcome run = RunQuarvel({"simplify", folder.Example("transport.mps"),
                                  folder.Path("out.mps"), "--log", folder.Path("copy.log")});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err.substr(0, run.err.find('\n')),
            folder.Expand("quarvel: @transport.mps: No simplifications were made."));
  EXPECT_EQ(folder.Read("copy.log"),
            folder.Expand("Log file for simplification of @transport.mps\r\n"
                          "No simplifications were made.\r\n"));
  EXPECT_FALSE(folder.Has("transport.log"));
  EXPECT_TRUE(folder.Has("out.mps"));
}

TEST(Simplify, ListsARowThatIsAllThatWent) {
  const HostFolder folder;
  const std::string in = folder.Write("a.mps", kConflictModel);
  const Outcome run = RunQuarvel({"simplify", in, folder.Path("b.mps"), "--on-conflict", "remove",
                                  "--log", folder.Path("log"), "--json"});
  EXPECT_EQ(run.err,
            folder.Expand("quarvel: @a.mps: The equality R2 violates variable bounds.  Removed.\n"
                          "quarvel: @a.mps: the simplifications are listed in @log\n"));
  EXPECT_NE(run.out.find("\"simplified\":true"), std::string::npos) << run.out;
  EXPECT_EQ(folder.Read("log"), folder.Expand("Log file for simplification of @a.mps\r\n"
                                              "Removed equality:  R2\r\n"));
}

TEST(Simplify, PrintsItsLogWhereThatIsAskedFor) {
  const HostFolder folder;
  const std::string in = folder.Example("ranges.mps");
  const Outcome run = RunQuarvel({"simplify", in, folder.Path("b.mps"), "--log", "-"});
  const std::string log = folder.Expand(
      "Log file for simplification of @ranges.mps\nConverted row FLOOR into variable bound\n");
  EXPECT_TRUE(run.out.starts_with(log + folder.Path("b.mps") + ": written")) << run.out;
  EXPECT_EQ(run.err.find("listed in"), std::string::npos) << run.err;
  EXPECT_EQ(
      RunQuarvel({"simplify", folder.Example("transport.mps"), folder.Path("b.mps"), "--log", "-"})
          .out.find(folder.Expand("Log file for simplification of @transport.mps\n"
                                  "No simplifications were made.\n")),
      0u);
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"simplify", in, "-", "--log", "-"},
        {"simplify", in, folder.Path("c.mps"), "--json", "--log", "-"},
        {"rows", in, "--simplify", "--csv", "--log", "-"}}) {
    const Outcome refused = RunQuarvel(words);
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.err.substr(0, refused.err.find('\n')),
              "quarvel: " + words[0] + " takes a file for --log where standard output has data");
  }
}

TEST(Simplify, SettlesConflictsAsToldTo) {
  const struct {
    std::vector<std::string> option;
    const char* outcome;
    const char* size;
    const char* bounds;  // of X
  } cases[] = {
      {{},
       "Stopped converting rows.",
       "2 rows, 2 columns, 3 coefficients",
       "\"lowerBound\":0,\"upperBound\":3,"},
      {{"--on-conflict", "ask"},
       "Stopped converting rows.",
       "2 rows, 2 columns, 3 coefficients",
       "\"lowerBound\":0,\"upperBound\":3,"},
      {{"--on-conflict", "stop"},
       "Stopped converting rows.",
       "2 rows, 2 columns, 3 coefficients",
       "\"lowerBound\":0,\"upperBound\":3,"},
      {{"--on-conflict", "remove"},
       "Removed.",
       "1 row, 2 columns, 2 coefficients",
       "\"lowerBound\":0,\"upperBound\":3,"},
      {{"--on-conflict", "reset"},
       "The bounds were reset to it.",
       "1 row, 2 columns, 2 coefficients",
       "\"lowerBound\":4,\"upperBound\":4,"},
  };
  for (const auto& c : cases) {
    const HostFolder folder;
    std::vector<std::string> words = {"simplify", folder.Write("a.mps", kConflictModel),
                                      folder.Path("b.mps")};
    words.insert(words.end(), c.option.begin(), c.option.end());
    const Outcome run = RunQuarvel(words);
    EXPECT_EQ(run.status, 0) << c.outcome;
    EXPECT_TRUE(run.err.starts_with(
        folder.Expand("quarvel: @a.mps: The equality R2 violates variable bounds.  ") + c.outcome +
        "\n"))
        << run.err;
    EXPECT_EQ(run.out,
              folder.Expand(std::string("@b.mps: written and verified: ") + c.size + " equal\n"));
    const Outcome column = RunQuarvel({"column", folder.Path("b.mps"), "X", "--json"});
    EXPECT_NE(column.out.find(c.bounds), std::string::npos) << column.out;
  }
}

// The component's own log of a model in "a.log" would be that very file.
TEST(Simplify, NeedsNoPlaceBesideTheModelForItsLog) {
  const HostFolder folder;
  const std::string model = folder.Write("a.log", kSmallModel);
  EXPECT_EQ(RunQuarvel({"simplify", model, folder.Path("b.mps")}).status, 0);
  EXPECT_EQ(RunQuarvel({"info", model, "--simplify"}).status, 0);
  EXPECT_TRUE(folder.Has("b.mps"));
  EXPECT_EQ(folder.Read("a.log"), kSmallModel);
}

TEST(Writing, StopsAtAFileWithoutEndataUnlessToldToGoOn) {
  const HostFolder folder;
  const std::string cut(kSmallModel.substr(0, kSmallModel.rfind("ENDATA")));
  const std::string model = folder.Write("a.mps", cut);
  const std::string target = folder.Path("b.mps");
  const std::vector<std::vector<std::string>> cases = {
      {"convert", model, target},
      {"convert", model, target, "--on-error", "continue"},
      {"simplify", model, target},
      {"edit", model, target, "-c", "set-bound X UP 7"},
      {"edit", model, model, "-c", "set-bound X UP 7"},
  };
  for (std::vector<std::string> words : cases) {
    folder.Write("b.mps", "precious");
    const Outcome stopped = RunQuarvel(words, "polish\n");
    EXPECT_EQ(stopped.status, 1) << words[0];
    EXPECT_EQ(stopped.out, "") << words[0];
    EXPECT_EQ(stopped.err,
              folder.Expand("quarvel: @a.mps: line 12: no ENDATA line: the file may be cut off\n") +
                  "quarvel: " + words[2] +
                  " was not written; --allow-missing-endata writes what was there\n");
    EXPECT_EQ(folder.Read("b.mps"), "precious") << words[0];
    EXPECT_EQ(folder.Read("a.mps"), cut) << words[0];
  }
  for (std::vector<std::string> words : cases) {
    words.emplace_back("--allow-missing-endata");
    const Outcome run = RunQuarvel(words);
    EXPECT_EQ(run.status, 0) << words[0] << run.err;
    EXPECT_TRUE(run.err.starts_with(
        folder.Expand("quarvel: @a.mps: line 12: no ENDATA line: the file may be cut off\n")));
    EXPECT_TRUE(folder.Read("b.mps").ends_with("ENDATA\r\n")) << words[0];
  }
}

TEST(Simplify, ReportsALogThatCannotBeCopied) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"simplify", folder.Example("ranges.mps"), folder.Path("out.mps"),
                                  "--log", folder.Path("no/copy.log")});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(run.err.ends_with(
      folder.Expand("quarvel: @no/copy.log: Path not found; @out.mps was not written\n")));
  EXPECT_FALSE(folder.Has("out.mps"));
}

#ifndef _WIN32
TEST(Convert, TellsOfADeviceWhereTheModelDoesNotGo) {
  const HostFolder folder;
  const Outcome run =
      RunQuarvel({"convert", folder.Write("a.mps", kSmallModel), "/dev/null", "--layout=free"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err,
            "quarvel: /dev/null: written, but not read again, as it cannot be replaced: 2 rows, 2 "
            "columns, 3 coefficients\n");
}
#endif

// Whatever call fails: a backup beside the file is told of.
TEST(Convert, TellsOfABackupThatStays) {
  int stays_after_success = 0;
  bool happened = true;
  for (int call = 1; happened; ++call) {
    SCOPED_TRACE(call);
    const HostFolder folder;
    const std::string path = folder.Write("a.mps", kSmallModel);
    Outcome run;
    {
      const FileFaults faults(FaultKind::kNotPermitted, call);
      run = RunQuarvel({"convert", path, path});
      happened = faults.happened();
    }
    if (!folder.Has("a.bkp")) continue;
    const bool is_told =
        run.err.find(folder.Expand("the backup @a.bkp could not be deleted")) !=
            std::string::npos ||
        run.err.find(folder.Expand("backup could not be deleted: @a.bkp")) != std::string::npos;
    EXPECT_TRUE(is_told) << run.status << ' ' << run.err;
    if (run.status == 0) ++stays_after_success;
  }
  EXPECT_GE(stays_after_success, 1);
}

}  // namespace
}  // namespace quarvel
