#include "hosts/loss_report.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

using Words = std::vector<std::string>;

constexpr char kTurned[] =
    "ROWS\n N COST\n L R1\n L KEEP\nCOLUMNS\n X COST 1 R1 -2\n X KEEP 1\n Y KEEP 1 COST 1\nRHS\n"
    " RHS R1 -6 KEEP 100\nENDATA\n";

TEST(LossReport, TellsOfTheFirstRowsThatMakeAnotherModel) {
  for (const auto& [rows, more] : {std::pair(5, ""), {6, " (and 1 more)"}, {9, " (and 4 more)"}}) {
    const HostFolder folder;
    std::string start = "ROWS\n N COST\n L KEEP\n";
    std::string columns = "COLUMNS\n";
    std::string rhs = "RHS\n RHS KEEP 100\n";
    for (int i = 0; i < rows; ++i) {
      const std::string number = std::to_string(i);
      start += " L R" + number + "\n";
      columns += " X" + number + " COST 1 R" + number + " -2\n X" + number + " KEEP 1\n";
      rhs += " RHS R" + number + " -6\n";
    }
    const std::string model = folder.Write("a.mps", start + columns + rhs + "ENDATA\n");
    std::string notes;
    for (int i = 0; i < 5; ++i) {
      const std::string number = std::to_string(i);
      notes +=
          folder.Expand("quarvel: @a.mps: the simplified model is another one: row R" + number +
                        " became bounds as if its coefficient were positive, for column X" +
                        number + (i == 4 ? more : "") + "\n");
    }
    const Outcome run = RunQuarvel({"info", model, "--simplify"});
    EXPECT_TRUE(run.err.starts_with(notes)) << run.err;
  }
}

TEST(LossReport, WritesASimplifiedModelThatIsAnotherOnlyWhenAllowed) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kTurned);
  const std::string note = folder.Expand(
      "quarvel: @a.mps: the simplified model is another one: row R1 became bounds as if its "
      "coefficient were positive, for column X\n");
  const std::string log =
      folder.Expand("quarvel: @a.mps: the model was simplified; --log FILE lists what was done\n");
  const Outcome looked = RunQuarvel({"info", model, "--simplify"});
  EXPECT_EQ(looked.status, 0);
  EXPECT_EQ(looked.err, note + log);
  struct Case {
    std::vector<std::string> words;
    std::string output;
  };
  const Case cases[] = {
      {{"simplify", model, folder.Path("b.mps")}, "b.mps"},
      {{"convert", model, folder.Path("c.mps"), "--simplify"}, "c.mps"},
      {{"edit", model, folder.Path("d.mps"), "-c", "simplify", "-c", "set-name D"}, "d.mps"}};
  for (Case c : cases) {
    const Outcome refused = RunQuarvel(c.words);
    EXPECT_EQ(refused.status, 1) << c.output;
    EXPECT_EQ(refused.out, "") << c.output;
    EXPECT_EQ(refused.err,
              note + log +
                  folder.Expand("quarvel: @" + c.output +
                                " was not written: the simplified model is another one; "
                                "--allow-loss writes it all the same\n"));
    EXPECT_FALSE(folder.Has(c.output)) << c.output;
    c.words.emplace_back("--allow-loss");
    const Outcome written = RunQuarvel(c.words);
    EXPECT_EQ(written.status, 0) << written.err;
    EXPECT_TRUE(written.err.starts_with(note + log)) << written.err;
    EXPECT_TRUE(folder.Has(c.output)) << c.output;
  }
}

TEST(LossLines, NameTheFirstFewOfEachKindAndCountTheRest) {
  mps::Losses losses;
  for (int i = 0; i < 5; ++i) {
    losses.Add(mps::LossKind::kDigits, [i] {
      return mps::Loss{"row", i, "R" + std::to_string(i), "is less"};
    });
  }
  losses.Add(mps::LossKind::kEmptyRow, [] { return mps::Loss{"row", 9, "E", "is left out"}; });
  EXPECT_EQ(
      hosts::LossLines(losses, mps::LossWeight::kNoted),
      (Words{"row E (number 9) is left out", "row R0 (number 0) is less",
             "row R1 (number 1) is less", "row R2 (number 2) is less", "... and 2 more like it"}));
  EXPECT_EQ(hosts::LossLines(losses, mps::LossWeight::kBreaks), Words());
}

class LossyEdit : public ::testing::Test {
 protected:
  Outcome Edit(Words options) {
    Words words = {"edit", folder_.Write("a.mps", kSmallModel), folder_.Path("b.mps")};
    words.insert(words.end(), options.begin(), options.end());
    return RunQuarvel(words);
  }

  HostFolder folder_;
};

TEST_F(LossyEdit, WritesNothingThatReadsBackAsAnotherModelUnlessToldTo) {
  const struct {
    Words commands;
    const char* complaint;
  } cases[] = {
      {{"-c", "set-bound X MI"},
       "column X (number 0) has the bounds [-inf, 10], which read back as [0, 10]"},
      {{"-c", "set-bound X MI", "-c", "set-bound X UP -2"},
       "column X (number 0) has the bounds [-inf, -2], which read back as [0, -2]"},
      {{"-c", "set-bound X LO 11"},
       "column X (number 0) has the bounds [11, 10], which are reversed"},
      {{"-c", "set-bound X UP -4", "--layout", "free"},
       "column X (number 0) has the bounds [0, -4], which are reversed"},
      {{"-c", "set-bound X LO 1e10", "-c", "set-bound X PL"},
       "column X (number 0) has the bounds [10000000000, inf], which are written as FX, as which "
       "other programs read them"},
      {{"-c", "set-row-bounds R2 2 8"},
       "row R2 (number 1) of type L has the limits [2, 8], which read back as [-inf, 8]"},
      {{"-c", "set-row-type R2 E", "-c", "set-row-bounds R2 2 8"},
       "row R2 (number 1) of type E has the limits [2, 8], which read back as [2, 2]"},
      {{"-c", "set-row-type R2 E", "-c", "set-row-bounds R2 8 2"},
       "row R2 (number 1) of type E has the limits [8, 2], which are reversed"},
      {{"-c", "add-row R3 E", "-c", "set-row-bounds R3 4 4"},
       "row R3 (number 2) has no elements, so that its limits [4, 4] are those of a row that the "
       "file does not have"},
      {{"-c", "add-column Z", "-c", "set-bound Z UP 4"},
       "column Z (number 2) has no elements, so that its bounds [0, 4] are those of a column that "
       "the file does not have"},
      {{"-c", "set-element R2 X 1e-12"},
       "row R2 (number 1) would be left without elements: all are written as 0"},
  };
  for (const auto& c : cases) {
    const Outcome refused = Edit(c.commands);
    EXPECT_EQ(refused.status, 1) << c.complaint;
    EXPECT_EQ(refused.out, "") << c.complaint;
    EXPECT_EQ(refused.err, folder_.Expand(std::string("quarvel: @b.mps: ") + c.complaint + "\n" +
                                          "quarvel: @b.mps was not written; --allow-loss writes "
                                          "it all the same\n"));
    EXPECT_FALSE(folder_.Has("b.mps")) << c.complaint;
  }
  for (const auto& c : cases) {
    Words options = c.commands;
    options.emplace_back("--allow-loss");
    const Outcome written = Edit(options);
    EXPECT_EQ(written.status, 0) << c.complaint;
    EXPECT_NE(written.err.find(c.complaint), std::string::npos) << written.err;
    EXPECT_TRUE(folder_.Has("b.mps")) << c.complaint;
  }
}

TEST_F(LossyEdit, NeverWritesWhatIsNoModel) {
  const struct {
    Words commands;
    const char* complaint;
  } cases[] = {
      {{"-c", "rename-row R2 \"A\\nENDATA\""},
       "row A\\x0AENDATA (number 1) has a line end in its name"},
      {{"-c", "rename-column X \"A\\nB\""}, "column A\\x0AB (number 0) has a line end in its name"},
      {{"-c", "rename-column X \xE4"}, "column \\xE4 (number 0) has a name that is not UTF-8"},
      {{"-c", "set-name \"A\\nROWS\""}, "the model's name has a line end within a line"},
      {{"-c", "set-description \"A\rROWS\""},
       "the model's description has a line end within a line"},
      {{"-c", "set-description \xE4"}, "the model's description is not UTF-8"},
      {{"-c", "rename-row R1 'MARKER'"},
       "column X (number 0) begins with an element at a row called 'MARKER', which reads as a "
       "marker"},
      {{"-c", "rename-column X INT", "-c", "set-column-type Y I"},
       "column INT (number 0) has the name that stands in the lines of markers"},
      {{"-c", "rename-column X intend", "-c", "set-column-type Y I"},
       "column INTEND (number 0) has the name that stands in the lines of markers"},
      {{"-c", "rename-row R2 " + std::string(1 << 20, 'A')},
       "has a name that is too long for a line"},
      {{"-c", "set-description " + std::string(1 << 20, 'A')},
       "the model's description has a line that is too long to be read"},
  };
  for (const auto& c : cases) {
    for (const bool allowed : {false, true}) {
      Words options = c.commands;
      if (allowed) options.emplace_back("--allow-loss");
      const Outcome run = Edit(options);
      EXPECT_EQ(run.status, 1) << c.complaint;
      EXPECT_NE(run.err.find(c.complaint), std::string::npos) << run.err;
      EXPECT_TRUE(run.err.ends_with(folder_.Expand("quarvel: @b.mps was not written\n")))
          << run.err;
      EXPECT_FALSE(folder_.Has("b.mps")) << c.complaint;
    }
  }
}

TEST_F(LossyEdit, NotesWhatReadsBackAnotherWay) {
  const struct {
    Words commands;
    const char* note;
  } cases[] = {
      {{"-c", "add-row R3 L"}, "row R3 (number 2) is left out: it has no elements"},
      {{"-c", "add-column Z"}, "column Z (number 2) is left out: it has no elements"},
      {{"-c", "set-element R1 X 1e-12"},
       "column X (number 0) has the element 1E-12 at row R1, which is written as 0 and left out"},
      {{"-c", "set-element R1 X 0"},
       "column X (number 0) has the element 0 at row R1, which is written as 0 and left out"},
      {{"-c", "set-element R1 X 0.12345678912345"},
       "column X (number 0) has the element 0.12345678912345 at row R1, which reads back as "
       "0.1234567891"},
      {{"-c", "set-bound X UP 0.1234567891234"},
       "column X (number 0) has the bounds [0, 0.1234567891234], which read back as [0, "
       "0.12345678912]"},
      {{"-c", "set-column-type X I"},
       "column Y (number 1) stands before the integer columns in the file"},
      {{"-c", "add-element R2 Y 1", "-c", "delete-element R2 X", "-c", "add-element R2 X 1"},
       "row R2 (number 1) reads back with its elements in another order"},
      {{"-c", "set-row-type R2 N"},
       "row R2 (number 1) of type N has the limits [-inf, 8], which read back as [-inf, inf]: this "
       "type limits nothing"},
      {{"-c", "set-name \"two words\""}, "the model's name \"two words\" reads back as \"TWO\""},
      {{"-c", "set-description \" x\""},
       "the model's description loses blanks around its lines, or empty lines at its ends"},
      {{"-c", "rename-row R2 A\x1b[7M"},
       "row A\\x1B[7M (number 1) has a control character in its name, which other programs may not "
       "take"},
  };
  for (const auto& c : cases) {
    const Outcome run = Edit(c.commands);
    EXPECT_EQ(run.status, 0) << run.err;
    const std::string line = folder_.Expand(std::string("quarvel: @b.mps: ") + c.note + "\n");
    EXPECT_NE(run.err.find(line), std::string::npos) << line << run.err;
    EXPECT_TRUE(folder_.Has("b.mps"));
  }
}

// Convert and simplify write through the same door.
TEST_F(LossyEdit, IsNoWorseThanTheOtherCommandsThatWrite) {
  const std::string model = folder_.Write(
      "a.mps",
      "ROWS\n L R\n L S\nCOLUMNS\n X R 1 S 1\n Y R 1\nBOUNDS\n MI B X\n UP B X 5\nENDATA\n");
  for (const char* const command : {"convert", "simplify"}) {
    const Outcome run = RunQuarvel({command, model, folder_.Path("b.mps"), "--layout=fixed"});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("column X (number 0) has the bounds [-inf, "), std::string::npos)
        << run.err;
    EXPECT_FALSE(folder_.Has("b.mps"));
  }
}

}  // namespace
}  // namespace quarvel
