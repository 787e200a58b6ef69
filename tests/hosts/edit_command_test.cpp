#include <filesystem>
#include <functional>
#include <optional>
#include <sstream>
#include <utility>

#include <gtest/gtest.h>

#include "hosts/program.h"
#include "platform/automation_error.h"
#include "platform/files.h"
#include "tests/support/file_faults.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

using Words = std::vector<std::string>;

// The rows and columns of a model after commands, as JSON.
class EditTest : public ::testing::Test {
 protected:
  Outcome Edit(const Words& commands, std::string_view model = kSmallModel) {
    Words words = {"edit", folder_.Write("a.mps", model), folder_.Path("b.mps")};
    for (const std::string& command : commands) {
      words.emplace_back("-c");
      words.push_back(command);
    }
    return RunQuarvel(words);
  }
  Outcome EditFromInput(std::string_view input) {
    return RunQuarvel({"edit", folder_.Write("a.mps", kSmallModel), folder_.Path("b.mps")}, input);
  }
  std::string Show(const Words& words) {
    Words all = {words[0], folder_.Path("b.mps")};
    all.insert(all.end(), words.begin() + 1, words.end());
    return RunQuarvel(all).out;
  }

  HostFolder folder_;
};

struct Effect {
  const char* command;
  Words show;
  const char* expected;  // a part of what is shown afterwards
};

TEST_F(EditTest, DoesWhatEachCommandSays) {
  const Effect cases[] = {
      {"set-element R1 Y 0.5", {"row", "R1"}, "Equation   + 1*X + 0.5*Y  (non-binding/objective)"},
      {"set-element 0 1 1D2", {"row", "R1"}, " + 1*X + 100*Y  "},
      {"add-element r2 y -1", {"row", "R2"}, " + 2*X - 1*Y  <=  8"},
      {"delete-element R1 X", {"row", "R1"}, "Equation   - 3.5*Y  "},
      {"delete-element R2 X", {"info"}, "1 row, 2 columns, 2 elements"},
      {"delete-row R2", {"info"}, "1 row, 2 columns, 2 elements"},
      {"delete-row 1", {"info"}, "1 row, 2 columns, 2 elements"},
      {"delete-column Y", {"info"}, "2 rows, 1 column, 2 elements"},
      {"rename-row R2 limit", {"row", "LIMIT"}, "Row       LIMIT (number 1)"},
      {"rename-column 1 z", {"column", "Z"}, "Column    Z (number 1)"},
      {"set-row-type R2 n", {"row", "R2"}, "Type      N"},
      {"set-row-bounds R2 -inf 9.25", {"row", "R2"}, "<=  9.25"},
      {"set-bound X LO 2", {"column", "X"}, "Lower     2\nUpper     10"},
      {"set-bound X up 12", {"column", "X"}, "Lower     0\nUpper     12"},
      {"set-bound X UP inf", {"column", "X"}, "Lower     0\nUpper     inf"},
      {"set-bound X FX -1", {"column", "X"}, "Lower     -1\nUpper     -1"},
      {"set-bound X FR", {"column", "X"}, "Lower     -inf\nUpper     inf"},
      {"set-bound X PL", {"column", "X"}, "Lower     0\nUpper     inf"},
      {"set-column-type Y I", {"column", "Y"}, "Type      I"},
      {"rename-row R1 cost", {"info"}, "Objective         COST\n"},
      {"set-objective r1", {"info"}, "Objective         R1\n"},
      {"set-objective-sense min", {"info"}, "Objective         R1\n"},
      {"set-objective-constant 0", {"info"}, "Objective         R1\n"},
      {"set-name \"two words\"", {"info"}, "Name              TWO\n"},
      {"set-description \"say \\\"hi\\\"\\nto \\\\ all\"",
       {"info", "--json"},
       "\"description\":\"say \\\"hi\\\"\\r\\nto \\\\ all\""},
      {"simplify", {"column", "X"}, "Lower     0\nUpper     4"},
  };
  for (const Effect& effect : cases) {
    const Outcome run = Edit({effect.command});
    EXPECT_EQ(run.status, 0) << effect.command << ": " << run.err;
    const std::string shown = Show(effect.show);
    EXPECT_NE(shown.find(effect.expected), std::string::npos) << effect.command << '\n' << shown;
  }
}

TEST_F(EditTest, AddsRowsWithTheLimitsOfTheirType) {
  const struct {
    const char* type;
    const char* expected;
  } cases[] = {{"N", "+ 1*X  (non-binding/objective)"},
               {"g", "+ 1*X  >=  0"},
               {"L", "+ 1*X  <=  0"},
               {"E", "+ 1*X  =  0"}};
  for (const auto& c : cases) {
    const Outcome run = Edit({std::string("add-row new ") + c.type, "add-element NEW X 1"});
    EXPECT_EQ(run.status, 0) << c.type << ": " << run.err;
    EXPECT_NE(Show({"row", "NEW"}).find(c.expected), std::string::npos) << c.type;
  }
}

TEST_F(EditTest, AddsARange) {
  EXPECT_EQ(Edit({"add-row RG R", "set-row-bounds RG 2 5", "add-element RG Y 1"}).status, 0);
  EXPECT_NE(Show({"row", "RG"}).find("2  >=   + 1*Y  <=  5"), std::string::npos);
}

// A row that its limit of 1E+10 and more has made free.
TEST_F(EditTest, WritesSuchRowsInTheExactLayout) {
  const std::string model =
      "NAME T\nROWS\n N C\n G R\n L S\nCOLUMNS\n X R 1 S 1\n X C 1\n"
      "RHS\n RHS R -1E11\n RHS S 4\nENDATA\n";
  const std::string file = folder_.Write("free.mps", model);
  const std::string made = folder_.Path("b.mps");
  const Words edit = {"edit", file, made, "--layout", "free", "-c"};
  Words named = edit;
  named.emplace_back("set-objective R");
  EXPECT_EQ(RunQuarvel(named).status, 0);
  EXPECT_NE(Show({"info"}).find("Objective         R\n"), std::string::npos);
  Words deleted = edit;
  deleted.emplace_back("delete-row C");
  EXPECT_EQ(RunQuarvel(deleted).status, 0);
  EXPECT_EQ(Show({"info"}).find("Objective         R\n"), std::string::npos);
}

TEST_F(EditTest, AddsColumns) {
  EXPECT_EQ(Edit({"add-column c1", "add-column C2 i", "add-element R1 C1 1", "add-element R1 C2 1"})
                .status,
            0);
  EXPECT_NE(Show({"column", "C1"}).find("Type      R\nLower     0\nUpper     inf\n"),
            std::string::npos);
  EXPECT_NE(Show({"column", "C2"}).find("Type      I\n"), std::string::npos);
}

TEST_F(EditTest, WritesAMissingLowerBoundOnlyInFreeRecords) {
  EXPECT_EQ(Edit({"set-bound Y MI"}).status, 0);
  EXPECT_NE(Show({"column", "Y"}).find("Lower     -inf\nUpper     inf\n"), std::string::npos);
}

TEST_F(EditTest, TakesCommandsFromStandardInput) {
  const Outcome run = EditFromInput(
      "# a comment\n\n   \t\n  set-bound\tX UP 7\r\n\"rename-row\" R2 \"LI\"MIT\n"
      "# delete-row R1\n");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, folder_.Expand("@b.mps: written and verified: 2 rows, 2 columns, 3 "
                                    "coefficients equal\n"));
  EXPECT_NE(Show({"column", "X"}).find("Upper     7\n"), std::string::npos);
  EXPECT_NE(Show({"row", "LIMIT"}).find("Row       LIMIT"), std::string::npos);
}

TEST_F(EditTest, ReadsNoInputWhenCommandsAreGiven) {
  const Outcome run = RunQuarvel({"edit", folder_.Write("a.mps", kSmallModel),
                                  folder_.Path("b.mps"), "-c", "set-bound X UP 7"},
                                 "this is no command\n");
  EXPECT_EQ(run.status, 0) << run.err;
}

TEST_F(EditTest, WarnsOfLongNamesOnly) {
  const Outcome run =
      Edit({"rename-row R2 LONGROWNAME", "add-row LONGROWNAME2 L", "add-element LONGROWNAME2 X 1"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(
      run.err,
      folder_.Expand("quarvel: @a.mps: ") +
          "The name you entered had more than 8 characters.  In a standard MPS file, "
          "names can be no longer than 8 characters.  If you wish your model to be standard, "
          "please reset the name to have 8 or fewer characters\n"
          "quarvel: " +
          folder_.Path("b.mps") +
          ": the name LONGROWNAME takes more room than fixed columns have, so that the file is to be "
          "read with free columns\n");
}

struct Bad {
  const char* command;
  const char* complaint;
};

TEST_F(EditTest, WritesNothingAtABadCommand) {
  const Bad cases[] = {
      {"polish", "there is no command polish"},
      {"delete-rows R1", "there is no command delete-rows; did you mean delete-row?"},
      {"add-row R9", "add-row takes NAME N|G|L|E|R"},
      {"simplify now", "simplify takes nothing"},
      {"add-row r1 L", "Row not added:  that name is already in use"},
      {"add-row \"A B\" L", "Row not added:  spaces are not allowed in row names"},
      {"add-row \"\" L", "Row not added:  empty name given"},
      {"add-row R9 X", "there is no row type X: it is one of N|G|L|E|R"},
      {"add-column X", "Column not added:  that name is already in use"},
      {"add-column Z B", "there is no column type B: it is one of R|I"},
      {"set-column-type X |", "there is no column type |: it is one of R|I"},
      {"set-row-type R1 Q", "there is no row type Q: it is one of N|G|L|E|R"},
      {"rename-row R1 R2", "That name is already in use"},
      {"rename-row R1 R1", "That name is already in use"},
      {"rename-column X \"\"", "Invalid Name"},
      {"rename-column X \"A B\"", "Spaces are not allowed in column names"},
      {"delete-row R9", "there is no row R9; did you mean R1 or R2?"},
      {"delete-row 2", "there is no row 2; rows are numbered from 0 to 1"},
      {"delete-column -1", "there is no column -1; columns are numbered from 0 to 1"},
      {"delete-element R2 Y", "row R2 has no element at column Y"},
      {"add-element R2 X 1", "row R2 has an element at column X already; set-element changes it"},
      {"set-element R2 Y 1", "row R2 has no element at column Y"},
      {"add-element R2 Y one", "\"one\" is not a number"},
      {"add-element R2 Y inf", "\"inf\" is not a number"},
      {"set-row-bounds R2 0 ten", "\"ten\" is not a number"},
      {"set-bound X BV", "there is no bound BV: it is one of LO|UP|FX|FR|MI|PL"},
      {"set-bound X UP", "UP needs a value"},
      {"set-bound X FR 1", "FR takes no value"},
      {"set-name \"open", "a quote is not closed"},
      {"set-objective R2", "row R2 is not of type N, as an objective is"},
      {"set-objective-sense up", "there is no sense up: it is MIN or MAX"},
      {"set-objective-constant x", "\"x\" is not a number"},
  };
  for (const Bad& bad : cases) {
    const Outcome run = Edit({"set-bound X UP 7", bad.command, "polish too"});
    EXPECT_EQ(run.status, 1) << bad.command;
    EXPECT_EQ(run.out, "") << bad.command;
    EXPECT_EQ(run.err, folder_.Expand(std::string("quarvel: command 2 (") + bad.command + "): " +
                                      bad.complaint + "\nquarvel: @b.mps was not written\n"));
    EXPECT_FALSE(folder_.Has("b.mps")) << bad.command;
  }
}

TEST_F(EditTest, NamesTheLineOfStandardInput) {
  const Outcome run = EditFromInput("# first\n\nset-bound X UP 7\ndelete-row R7\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, folder_.Expand(
                         "quarvel: line 4 (delete-row R7): there is no row R7; did you mean R1 or "
                         "R2?\nquarvel: @b.mps was not written\n"));
  EXPECT_FALSE(folder_.Has("b.mps"));
}

// One of its elements goes with the row; the others would come to stand at another one.
TEST_F(EditTest, RefusesToWriteElementsThatADeletedRowLeftBehind) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps", "ROWS\n N COST\n L OLD\n L CAP\nCOLUMNS\n X COST 1 OLD 2\n X OLD 3 CAP 1\nENDATA\n");
  for (const char* const layout : {"fixed", "free"}) {
    const std::string out = folder.Write("b.mps", "precious");
    const Outcome run = RunQuarvel(
        {"edit", model, out, "--layout", layout, "-c", "delete-row OLD", "--allow-loss"});
    EXPECT_EQ(run.status, 1) << layout;
    EXPECT_NE(
        run.err.find("row CAP (number 1) has other elements than the columns have at it: of a "
                     "pair with several elements one was deleted with its row or column"),
        std::string::npos)
        << run.err;
    EXPECT_EQ(folder.Read("b.mps"), "precious");
    EXPECT_EQ(RunQuarvel({"edit", model, out, "--layout", layout, "-c", "delete-element OLD X",
                          "-c", "delete-row OLD"})
                  .status,
              0);
  }
}

TEST_F(EditTest, RefusesToDeleteTheOnlyRow) {
  const Outcome run = Edit({"delete-row R2", "delete-row R1"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err,
            folder_.Expand(
                "quarvel: command 2 (delete-row R1): Cannot remove the only row. Rename it instead "
                "of removing it and creating a new one.\nquarvel: @b.mps was not written\n"));
}

TEST_F(EditTest, LeavesItsOwnFileAloneAtABadCommand) {
  const std::string model = folder_.Write("a.mps", kSmallModel);
  EXPECT_EQ(RunQuarvel({"edit", model, model, "-c", "set-bound X UP 7", "-c", "polish"}).status, 1);
  EXPECT_EQ(folder_.Read("a.mps"), kSmallModel);
  EXPECT_EQ(RunQuarvel({"edit", model, model, "-c", "set-bound X UP 7"}).status, 0);
  EXPECT_NE(folder_.Read("a.mps").find(" UP BOUND     X                   7.\r\n"),
            std::string::npos);
}

TEST_F(EditTest, FailsWithASimplificationThatFails) {
  const Outcome run = Edit({"set-element R2 X 0", "simplify"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "quarvel: command 2 (simplify): the simplification of " +
                         folder_.Path("a.mps") + " failed: Division by zero\nquarvel: " +
                         folder_.Path("b.mps") + " was not written\n");
  EXPECT_FALSE(folder_.Has("b.mps"));
}

TEST_F(EditTest, ListsWhatEachOfItsSimplificationsDid) {
  const Outcome run =
      RunQuarvel({"edit", folder_.Write("a.mps", kSmallModel), folder_.Path("b.mps"), "--log",
                  folder_.Path("all.log"), "-c", "simplify", "-c", "simplify", "-c", "add-row R3 L",
                  "-c", "simplify"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(folder_.Read("all.log"), folder_.Expand("Log file for simplification of @a.mps\r\n"
                                                    "Converted row R2 into variable bound\r\n"
                                                    "Log file for simplification of @a.mps\r\n"
                                                    "Removed empty row:  L R3\r\n"));
}

// Runs `edit file file` with commands on standard input, each line of which `next` gives.
Outcome EditOwn(const std::string& file, const std::function<std::optional<std::string>()>& next) {
  std::ostringstream out;
  std::ostringstream err;
  const Words words = {"edit", file, file};
  const int status = hosts::RunProgram(words, {next, out, err, false});
  return {status, out.str(), err.str()};
}

TEST_F(EditTest, WritesNothingWhenItsCommandsCannotBeRead) {
  const std::string file = folder_.Write("a.mps", kSmallModel);
  bool is_first = true;
  const Outcome run = EditOwn(file, [&]() -> std::optional<std::string> {
    if (std::exchange(is_first, false)) return "set-bound X UP 4";
    RaiseRunTimeError(RunTimeError::kDeviceIoError);
  });
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "quarvel: standard input: Device I/O error\n");
  EXPECT_EQ(folder_.Read("a.mps"), kSmallModel);
}

TEST_F(EditTest, PassesOverAByteOrderMarkBeforeItsCommands) {
  const std::string file = folder_.Write("a.mps", kSmallModel);
  const Outcome run = RunQuarvel({"edit", file, file}, "\xEF\xBB\xBFset-name Q\r\n");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_NE(folder_.Read("a.mps").find(" Q\r\n"), std::string::npos);
  EXPECT_EQ(RunQuarvel({"edit", file, file}, "set-name P\n\xEF\xBB\xBFset-name Q\n").status, 1);
}

TEST_F(EditTest, LeavesAFileThatAnotherProgramHasChangedMeanwhile) {
  const std::string file = folder_.Write("a.mps", kSmallModel);
  const Outcome run = EditOwn(file, [&]() -> std::optional<std::string> {
    folder_.Write("a.mps", kConflictModel);
    return std::nullopt;
  });
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err,
            folder_.Expand("quarvel: @a.mps: another program has changed the file since it "
                           "was read\nquarvel: @a.mps was not written\n"));
  EXPECT_EQ(folder_.Read("a.mps"), kConflictModel);
  EXPECT_FALSE(folder_.Has("a.bkp"));
}

TEST_F(EditTest, MakesAFileAnewThatWasRemovedMeanwhile) {
  const std::string file = folder_.Write("a.mps", kSmallModel);
  const Outcome run = EditOwn(file, [&]() -> std::optional<std::string> {
    platform::RemoveFile(file);
    return std::nullopt;
  });
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(folder_.Read("a.mps").ends_with("ENDATA\r\n"));
}

TEST_F(EditTest, KeepsTheBackupBesideTheFileAndOthersAsTheyAre) {
  const struct {
    const char* file;
    const char* backup;
  } cases[] = {
      {"y.d/model", "y.d/model.bkp"}, {"y.d/m.mps", "y.d/m.bkp"}, {"y.d/.m", "y.d/.m.bkp"}};
  std::filesystem::create_directory(ToPath(folder_.Path("y.d")));
  folder_.Write("y.bkp", "a thesis");
  for (const auto& [name, backup] : cases) {
    const std::string file = folder_.Write(name, kSmallModel);
    folder_.Write(backup, "notes");
    const Outcome run = RunQuarvel({"edit", file, file, "-c", "set-bound X UP 4"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, folder_.Expand("quarvel: what had the name of the backup is kept as @" +
                                      std::string(backup) + ".1\n"));
    EXPECT_FALSE(folder_.Has(backup)) << name;
    EXPECT_EQ(folder_.Read(std::string(backup) + ".1"), "notes");
  }
  EXPECT_EQ(folder_.Read("y.bkp"), "a thesis");
}

TEST_F(EditTest, NamesTheBackupThatCannotBeMade) {
  const std::string file = folder_.Write("a.mps", kSmallModel);
  std::filesystem::create_directory(ToPath(folder_.Path("a.bkp")));
  const Outcome run = RunQuarvel({"edit", file, file, "-c", "set-bound X UP 4"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err,
            folder_.Expand("quarvel: @a.mps: its backup @a.bkp could not be made: Path/File "
                           "access error\nquarvel: @a.mps was not written\n"));
  EXPECT_EQ(folder_.Read("a.mps"), kSmallModel);
}

TEST_F(EditTest, LeavesNoBackupOfAFileThatItLeftAsItWas) {
  const std::string file = folder_.Write("a.mps", kSmallModel);
  for (int call = 1; call < 200; ++call) {
    FileFaults faults(FaultKind::kDeviceError, call);
    const Outcome run = RunQuarvel({"edit", file, file, "-c", "set-bound X UP 10"});
    platform::SetFileWatch(nullptr);
    if (run.status == 0) break;
    if (folder_.Read("a.mps") != kSmallModel) continue;
    const bool stays = folder_.Has("a.bkp");
    // Only what could not be deleted stays.
    EXPECT_FALSE(stays) << call << run.err;
    if (stays) platform::RemoveFile(folder_.Path("a.bkp"));
  }
  EXPECT_FALSE(folder_.Has("a.bkp"));
}

}  // namespace
}  // namespace quarvel
