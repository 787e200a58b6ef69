#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

TEST(Info, PrintsAModelInNumbers) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"info", folder.Example("diet.mps")});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out,
            folder.Expand(
                "Name              DIET\n"
                "Description       The cheapest diet that covers a week's needs of energy, protein "
                "and calcium.\n"
                "                  COST is the objective: the price of 100 g of each food, in "
                "cents.\n"
                "File              @diet.mps\n"
                "Objective         COST\n"
                "Binding rows      4\n"
                "Non-binding rows  1\n"
                "Integer columns   0\n"
                "Summary           5 rows, 5 columns, 25 elements\n"));
  EXPECT_EQ(run.err, "");
}

TEST(Info, PrintsJson) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"info", "--json", folder.Example("knapsack.mps")});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(
      run.out,
      folder.Expand(
          "{\"name\":\"KNAPSACK\",\"description\":\"Six things to take along or "
          "leave, worth as much as possible within a weight limit.\\r\\nThe worth "
          "is negated, so that less is better; SLACK is the weight left over.\","
          "\"file\":\"@knapsack.mps\",\"read\":true,\"rows\":2,\"columns\":7,\"elements\":13,"
          "\"bindingRows\":1,\"nonBindingRows\":1,\"integerColumns\":6,\"objective\":\"WORTH\",\"hasEndata\":true}\n"));
}

TEST(Info, TellsWhatTheFileSaysOfItsObjective) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps",
      "OBJSENSE\n MAX\nROWS\n N COST\n L R\nCOLUMNS\n X COST 1 R 1\nRHS\n RHS COST -7.1 R "
      "4\nENDATA\n");
  EXPECT_EQ(RunQuarvel({"info", model}).out,
            folder.Expand("File              @a.mps\n"
                          "Objective         COST\n"
                          "  sense           maximize\n"
                          "  constant        7.1\n"
                          "Binding rows      1\n"
                          "Non-binding rows  1\n"
                          "Integer columns   0\n"
                          "Summary           2 rows, 1 column, 2 elements\n"));
  EXPECT_NE(RunQuarvel({"info", model, "--json"})
                .out.find("\"objective\":\"COST\",\"objectiveSense\":\"maximize\","
                          "\"objectiveConstant\":7.1,\"hasEndata\":true}"),
            std::string::npos);
  // The component's read passes over OBJSENSE, and so over what it says.
  EXPECT_EQ(RunQuarvel({"info", model, "--dialect", "component", "--on-error", "continue"})
                .out.find("Objective"),
            std::string::npos);
}

int CountOf(std::string_view text, std::string_view part) {
  int count = 0;
  for (std::size_t place = text.find(part); place != std::string_view::npos;
       place = text.find(part, place + part.size())) {
    ++count;
  }
  return count;
}

TEST(Info, ListsSeveralFilesAndGoesOnPastThoseThatAreNotRead) {
  const HostFolder folder;
  const std::vector<std::string> files = {folder.Example("diet.mps"), folder.Path("missing.mps"),
                                          folder.Example("mistakes.mps"),
                                          folder.Example("knapsack.mps")};
  std::vector<std::string> words = {"info"};
  words.insert(words.end(), files.begin(), files.end());
  const Outcome run = RunQuarvel(words);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            folder.Expand("      Rows   Columns  Elements   Integer  File\n"
                          "         5         5        25         0  @diet.mps\n"
                          "         -         -         -         -  @missing.mps (not read)\n"
                          "         -         -         -         -  @mistakes.mps (not read)\n"
                          "         2         7        13         6  @knapsack.mps\n"
                          "4 files, 2 not read\n"));
  EXPECT_NE(run.err.find(folder.Expand("quarvel: @missing.mps was not read\n")), std::string::npos);
  EXPECT_NE(run.err.find(folder.Expand("quarvel: @mistakes.mps was not read; \"--on-error")),
            std::string::npos);
  words.emplace_back("--json");
  const Outcome json = RunQuarvel(words);
  EXPECT_EQ(json.status, 1);
  EXPECT_EQ(std::count(json.out.begin(), json.out.end(), '\n'), 4);
  EXPECT_EQ(CountOf(json.out, ",\"read\":false}\n"), 2);
  EXPECT_EQ(CountOf(json.out, ",\"read\":true,"), 2);
  EXPECT_EQ(RunQuarvel({"info", files[0], files[0]}).status, 0);
}

TEST(Info, EscapesTextInJson) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "* say \"hi\" \\ \tthere\n" + std::string(kSmallModel));
  const Outcome run = RunQuarvel({"info", "--json", model});
  EXPECT_NE(run.out.find("\"description\":\"say \\\"hi\\\" \\\\ \\tthere\\r\\nsmall\""),
            std::string::npos)
      << run.out;
}

TEST(Info, LeavesOutWhatTheModelDoesNotHave) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", "ROWS\n L R1\nCOLUMNS\n X R1 1\nENDATA\n");
  EXPECT_EQ(RunQuarvel({"info", model}).out,
            folder.Expand("File              @a.mps\n"
                          "Binding rows      1\n"
                          "Non-binding rows  0\n"
                          "Integer columns   0\n"
                          "Summary           1 row, 1 column, 1 element\n"));
}

TEST(Reading, StopsAtTheFirstProblemWhereNobodyCanBeAsked) {
  const HostFolder folder;
  const std::string model = folder.Example("mistakes.mps");
  const std::string expected = folder.Expand(
      "quarvel: @mistakes.mps: line 5: COLUMNS before any row\n"
      "quarvel: @mistakes.mps was not read; \"--on-error continue\" passes over problems, "
      "\"quarvel "
      "check\" lists them\n");
  for (const std::vector<std::string>& words : {std::vector<std::string>{"info", model},
                                                {"info", model, "--on-error", "stop"},
                                                {"rows", model, "--on-error", "ask"}}) {
    const Outcome run = RunQuarvel(words);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, expected);
  }
}

TEST(Reading, PassesOverProblemsWhenToldTo) {
  const HostFolder folder;
  const Outcome run =
      RunQuarvel({"info", folder.Example("mistakes.mps"), "--on-error", "continue"});
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.out.find("\nSummary           4 rows, 4 columns, 5 elements\n"), std::string::npos);
  EXPECT_NE(run.err.find("mistakes.mps: line 15: no type of a row: X\n"), std::string::npos)
      << run.err;
  EXPECT_NE(run.err.find("mistakes.mps: the row has no coefficients: "), std::string::npos)
      << run.err;
}

TEST(Reading, AsksWhatTheComponentAsksWhenToldTo) {
  const HostFolder folder;
  const std::string model = folder.Example("mistakes.mps");
  EXPECT_EQ(
      RunQuarvel({"info", model, "--dialect", "component"}).err,
      folder.Expand("quarvel: @mistakes.mps: MPS file read error: no rows yet, but reading "
                    "columns (line 5)\n"
                    "quarvel: @mistakes.mps was not read; \"--on-error continue\" passes over "
                    "problems, \"quarvel check\" lists them\n"));
  const Outcome run =
      RunQuarvel({"info", model, "--dialect", "component", "--on-error", "continue"});
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(
      run.err.ends_with("mistakes.mps: Quarvel.dll error: rows or columns with no elements, "
                        "as noted in warnings.\n"))
      << run.err;
  const Outcome empty =
      RunQuarvel({"info", folder.Write("a.mps", "ROWS\n L R1\nCOLUMNS\n X R1 1\n Y R1 0\nENDATA\n"),
                  "--dialect", "component"});
  EXPECT_EQ(empty.status, 1);
  EXPECT_TRUE(
      empty.err.starts_with(folder.Expand("quarvel: @a.mps: Warning: no elements for column Y\n")))
      << empty.err;
}

TEST(Reading, TakesAFileAsItIsTold) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps",
      "ROWS\n N  COST\n N  PRICE\nCOLUMNS\n    X         COST      1\n    X         PRICE     2\n"
      "BOUNDS\n UP B X -4\nENDATA\n");
  EXPECT_EQ(RunQuarvel({"info", model, "--on-error", "continue"}).err,
            folder.Expand("quarvel: @a.mps: the lower bound of the column is above the upper: X\n"
                          "quarvel: @a.mps: line 8: a negative upper bound where the lower is 0: "
                          "X; the lower bound stays 0\n"
                          "quarvel: @a.mps: line 3: an N row that is not the objective: PRICE; it "
                          "stays as a free row\n"));
  EXPECT_EQ(
      RunQuarvel({"info", model, "--objective", "price", "--negative-upper", "free"}).err,
      folder.Expand("quarvel: @a.mps: line 8: a negative upper bound where the lower is 0: X; no "
                    "lower bound\n"
                    "quarvel: @a.mps: line 2: an N row that is not the objective: COST; it stays "
                    "as a free row\n"));
  const Outcome fixed = RunQuarvel({"info", model, "--file-columns", "fixed"});
  EXPECT_EQ(fixed.status, 1);
  EXPECT_NE(fixed.err.find("line 8: a wrong number of words"), std::string::npos) << fixed.err;
}

TEST(Reading, TellsOfColumnsWithoutElementsAndGoesOn) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "ROWS\n L R1\nCOLUMNS\n X R1 1\n Y R1 0\n Z R1 0\nENDATA\n");
  const Outcome run = RunQuarvel({"info", model});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(
      run.err,
      folder.Expand(
          "quarvel: @a.mps: line 5: a coefficient of 0: R1; no element of column Y (and 1 more)\n"
          "quarvel: @a.mps: the column has no coefficients: Y (and 1 more)\n"));
}

TEST(Reading, EndsWithAFileThatCannotBeRead) {
  const HostFolder folder;
  const struct {
    std::string path;
    const char* failure;
  } cases[] = {
      {folder.Path("missing.mps"), "File not found"},
      {folder.Path("no/such/folder.mps"), "Path not found"},
      {folder.Path(""), "it is a folder, not a file"},
  };
  for (const auto& c : cases) {
    for (const char* const on_error : {"stop", "continue"}) {
      const Outcome run = RunQuarvel({"info", c.path, "--on-error", on_error});
      EXPECT_EQ(run.status, 1);
      EXPECT_EQ(run.out, "");
      EXPECT_EQ(run.err, "quarvel: " + c.path + ": " + c.failure + "\nquarvel: " + c.path +
                             " was not read\n");
    }
  }
}

TEST(Reading, TakesTheDefaultBoundsFromItsOption) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  const auto lower_of_y = [&model](const std::vector<std::string>& option) {
    std::vector<std::string> words = {"column", model, "Y", "--json"};
    words.insert(words.end(), option.begin(), option.end());
    const std::string out = RunQuarvel(words).out;
    const std::size_t at = out.find("\"lowerBound\":");
    return at == std::string::npos ? out : out.substr(at, out.find(',', at) - at);
  };
  EXPECT_EQ(lower_of_y({}), "\"lowerBound\":0");
  EXPECT_EQ(lower_of_y({"--default-bounds", "0"}), "\"lowerBound\":0");
  EXPECT_EQ(lower_of_y({"--default-bounds", "inf"}), "\"lowerBound\":\"-inf\"");
}

TEST(Reading, SimplifiesWhenToldTo) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  EXPECT_NE(RunQuarvel({"info", model}).out.find("2 rows, 2 columns, 3 elements"),
            std::string::npos);
  EXPECT_FALSE(folder.Has("a.log"));
  const Outcome run = RunQuarvel({"info", model, "--simplify"});
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.out.find("1 row, 2 columns, 2 elements"), std::string::npos) << run.out;
  EXPECT_EQ(run.err,
            "quarvel: " + model + ": the model was simplified; --log FILE lists what was done\n");
  EXPECT_FALSE(folder.Has("a.log"));
}

TEST(Reading, TellsEachTimeOfAFileWithoutEndata) {
  const HostFolder folder;
  const std::string cut(kSmallModel.substr(0, kSmallModel.rfind("ENDATA")));
  const std::string model = folder.Write("a.mps", cut);
  const std::vector<std::vector<std::string>> cases = {
      {"info", model},
      {"rows", model},
      {"columns", model},
      {"row", model, "R1"},
      {"column", model, "X"},
      {"evaluate", model, "R1"},
      {"rows", model, "--equations"},
  };
  for (std::vector<std::string> words : cases) {
    for (const bool json : {false, true}) {
      if (json) words.emplace_back("--json");
      const Outcome run = RunQuarvel(words);
      EXPECT_EQ(run.status, 0) << words[0];
      EXPECT_EQ(run.err, folder.Expand(
                             "quarvel: @a.mps: line 12: no ENDATA line: the file may be cut off\n"))
          << words[0];
      const bool is_array = run.out.starts_with('[');
      const bool told = run.out.find("\"hasEndata\":false}\n") != std::string::npos;
      EXPECT_EQ(told, json && !is_array) << run.out;
    }
  }
}

TEST(Reading, TellsOfAMissingEndataOnce) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", "ROWS\n N A\nCOLUMNS\n X A 1\nFOO");
  const std::string err = RunQuarvel({"info", model}).err;
  const std::size_t first = err.find("no ENDATA line");
  ASSERT_NE(first, std::string::npos) << err;
  EXPECT_EQ(err.find("no ENDATA line", first + 1), std::string::npos) << err;
}

TEST(Reading, AdvisesToGoOnOnlyWhereThatHelps) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", std::string("R\0O\0", 4));
  EXPECT_EQ(RunQuarvel({"info", model}).err,
            folder.Expand("quarvel: @a.mps: The text is in UTF-16; UTF-8 "
                          "and ASCII are read.\nquarvel: @a.mps was not read\n"));
  const Outcome refused = RunQuarvel({"info", folder.Write("a.mps", "ROWS\n Q A\nENDATA\n")});
  EXPECT_NE(refused.err.find("; \"--on-error continue\" passes over problems"), std::string::npos)
      << refused.err;
}

TEST(Reading, TellsOfAMissingEndataAlsoWhereTheFileIsNotRead) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"info", folder.Write("a.mps", "ROWS\n L R1\n")});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(run.err.starts_with(
      folder.Expand("quarvel: @a.mps: the model has no columns\n"
                    "quarvel: @a.mps: line 2: no ENDATA line: the file may be cut off\n")))
      << run.err;
}

TEST(Reading, TellsWhereASaveThatDidNotEndLeftTheModel) {
  const HostFolder folder;
  const std::string torn = folder.Write("a.mps", "ROWS\n N C\nCOLUMNS\n X C 1\n");
  folder.Write("a.bkp", kSmallModel);
  const std::string note = folder.Expand(
      "quarvel: @a.mps: a save that did not end may have left the whole model in @a.bkp\n");
  for (const char* const command : {"info", "rows", "check"}) {
    const Outcome run = RunQuarvel({command, torn});
    EXPECT_TRUE(run.err.find(note) != std::string::npos) << command << run.err;
  }
  const Outcome written = RunQuarvel({"convert", torn, folder.Path("b.mps")});
  EXPECT_EQ(written.status, 1);
  EXPECT_TRUE(written.err.find(note) != std::string::npos) << written.err;
  folder.Write("a.mps", "ROWS\n L R1\n");  // is not read
  EXPECT_TRUE(RunQuarvel({"info", torn}).err.find(note) == std::string::npos);
  const std::string cut = folder.Write("a.mps", "ROWS\n N C\nCOLUMNS\n X C 1\n Y NONE 1");
  EXPECT_TRUE(RunQuarvel({"info", cut}).err.find(note) != std::string::npos);
  EXPECT_TRUE(RunQuarvel({"info", folder.Write("a.mps", kSmallModel)}).err.empty());
}

TEST(Reading, OverwritesNoFileForALog) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  folder.Write("a.log", "precious");
  const std::vector<std::vector<std::string>> cases = {
      {"info", model, "--simplify"},
      {"convert", model, folder.Path("b.mps"), "--simplify"},
      {"simplify", model, folder.Path("b.mps")},
      {"simplify", folder.Example("transport.mps"), folder.Path("b.mps")},
      {"edit", model, folder.Path("b.mps"), "-c", "simplify"},
  };
  folder.Write("transport.log", "precious");
  for (const auto& words : cases) {
    EXPECT_EQ(RunQuarvel(words).status, 0) << words[0];
    EXPECT_EQ(folder.Read("a.log"), "precious") << words[0];
    EXPECT_EQ(folder.Read("transport.log"), "precious") << words[0];
  }
}

TEST(Commands, ReadStandardInputOnce) {
  for (const char* const command : {"info", "check", "diff"}) {
    const Outcome run = RunQuarvel({command, "-", "-"}, kSmallModel);
    EXPECT_EQ(run.status, 2) << command;
    EXPECT_EQ(run.out, "");
    EXPECT_TRUE(run.err.starts_with("quarvel: standard input can be read once only: give - once\n"))
        << run.err;
  }
}

}  // namespace
}  // namespace quarvel
