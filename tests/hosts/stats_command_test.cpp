#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/real_models.h"
#include "tests/support/run_quarvel.h"
#include "text/cell_width.h"

namespace quarvel {
namespace {

constexpr std::string_view kTransport =
    "Name              TRANSPORT\n"
    "File              @transport.mps\n"
    "Size              6 rows, 6 columns, 18 elements\n"
    "Density           50 %\n"
    "Simplification    nothing to take\n"
    "\n"
    "Rows\n"
    "  objective     1\n"
    "  greater than  3\n"
    "  less than     2\n"
    "\n"
    "Columns      real\n"
    "  0 or more     6\n"
    "\n"
    "Elements in a  least           most           mean  median  empty\n"
    "  row              2  DEMAND1     6  FREIGHT     3     2.5      0\n"
    "  column           3  X11         3  X11         3       3      0\n"
    "\n"
    "Sizes               zeros  nonzeros  smallest                largest\n"
    "  coefficients                   12         1  SUPPLY1, X11        1  SUPPLY1, "
    "X11\n"
    "  objective                       6         3  FREIGHT, X22        9  FREIGHT, "
    "X13\n"
    "  right-hand sides                5       275  DEMAND3           600  SUPPLY2\n"
    "  bounds                6\n"
    "\n"
    "Sizes from  coefficients  objective  right-hand sides  bounds\n"
    "  1E0                 12          6\n"
    "  1E2                                               5\n"
    "\n"
    "Rows by name  count  types  lower       upper       elements  coefficients\n"
    "  DEMAND#         3  G      275 to 325  inf                6  +1\n"
    "  SUPPLY#         2  L      -inf        350 to 600         6  +1\n"
    "  FREIGHT         1  N      -inf        inf                6  +3 to 9\n"
    "\n"
    "Columns by name  count  types  lower  upper  elements  coefficients\n"
    "  X#                 6  R      0      inf          18  +1 to 9\n";

TEST(Stats, PrintAModelInNumbers) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"stats", folder.Example("transport.mps")});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out, folder.Expand(kTransport));
}

// One of each kind that the model above has none of.
constexpr std::string_view kOddModel =
    "ROWS\n N COST\n E R1\n L R2\n G NONE\nCOLUMNS\n"
    " M1 'MARKER' 'INTORG'\n Y1 COST -2.5 R1 1\n Y2 R1 1000000\n M2 'MARKER' 'INTEND'\n"
    " X R2 0.125\n Z R1 -1\n EMPTY R1 0\nRHS\n RHS R1 4 R2 8\n RHS NONE -1\nRANGES\n RNG R1 3\n"
    "BOUNDS\n UP B Y1 1\n FR B X\n FX B Z 7\n UP B Y2 -2\n LO B Y2 -3\nENDATA\n";

TEST(Stats, TellWhatIsOdd) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"stats", folder.Write("a.mps", kOddModel)});
  EXPECT_EQ(run.status, 0);
  for (const char* const line : {
           "\nSimplification    1 row into bounds, 2 empty columns out, 1 empty row out\n",
           "\nDensity           25 %\n",
           "\n  ranged        1\n",
           "\nColumns        real  integer\n",
           "\n  from 0 to 1              1\n",
           "\n  both bounds              1\n",
           "\n  fixed           1\n",
           "\n  free            1\n",
           "\n  row              0  NONE      3  R1 ",
           "\n  Y#                 2  I      -3 to 0  -2 to 1         3  +-1 to 1E+06\n",
       }) {
    EXPECT_NE(run.out.find(line), std::string::npos) << line << run.out;
  }
}

TEST(Stats, ListTheBiggestPatterns) {
  const HostFolder folder;
  const std::string model = folder.Example("knapsack.mps");
  const std::string out = RunQuarvel({"stats", model, "--limit", "2"}).out;
  EXPECT_NE(out.find("  STOVE "), std::string::npos) << out;
  EXPECT_EQ(out.find("  ROPE "), std::string::npos) << out;
  EXPECT_TRUE(out.ends_with("  ... 5 more patterns (--limit all lists them)\n")) << out;
  std::string many = "ROWS\n N COST\nCOLUMNS\n";
  for (char c = 'A'; c <= 'Z'; ++c) many += std::string(" X") + c + " COST 1\n";
  const std::string path = folder.Write("many.mps", many + "ENDATA\n");
  EXPECT_TRUE(RunQuarvel({"stats", path})
                  .out.ends_with("  ... 6 more patterns (--limit all lists them)\n"));
  EXPECT_EQ(RunQuarvel({"stats", path, "--limit", "all"}).out.find("more pattern"),
            std::string::npos);
}

constexpr std::string_view kSmallAsJson =
    "{\"name\":\"SMALL\",\"file\":\"@a.mps\",\"rows\":2,\"columns\":2,\"elements\":3,"
    "\"density\":0.75,\"rowTypes\":{\"N\":1,\"G\":0,\"L\":1,\"E\":0,\"R\":0},"
    "\"columnTypes\":{\"real\":{\"nonNegative\":1,\"lowerOnly\":0,\"upperOnly\":0,"
    "\"zeroOne\":0,\"boxed\":1,\"fixed\":0,\"free\":0,\"crossed\":0},"
    "\"integer\":{\"nonNegative\":0,\"lowerOnly\":0,\"upperOnly\":0,"
    "\"zeroOne\":0,\"boxed\":0,\"fixed\":0,\"free\":0,\"crossed\":0},"
    "\"binary\":{\"nonNegative\":0,\"lowerOnly\":0,\"upperOnly\":0,"
    "\"zeroOne\":0,\"boxed\":0,\"fixed\":0,\"free\":0,\"crossed\":0}},"
    "\"coefficients\":{\"count\":1,\"zeros\":0,"
    "\"smallest\":{\"value\":2,\"row\":\"R2\",\"column\":\"X\"},"
    "\"largest\":{\"value\":2,\"row\":\"R2\",\"column\":\"X\"},"
    "\"histogram\":[{\"decade\":0,\"count\":1}]},"
    "\"objective\":{\"count\":2,\"zeros\":0,"
    "\"smallest\":{\"value\":1,\"row\":\"R1\",\"column\":\"X\"},"
    "\"largest\":{\"value\":-3.5,\"row\":\"R1\",\"column\":\"Y\"},"
    "\"histogram\":[{\"decade\":0,\"count\":2}]},"
    "\"rightHandSides\":{\"count\":1,\"zeros\":0,"
    "\"smallest\":{\"value\":8,\"row\":\"R2\"},\"largest\":{\"value\":8,\"row\":\"R2\"},"
    "\"histogram\":[{\"decade\":0,\"count\":1}]},"
    "\"bounds\":{\"count\":1,\"zeros\":2,\"smallest\":{\"value\":10,\"column\":\"X\"},"
    "\"largest\":{\"value\":10,\"column\":\"X\"},"
    "\"histogram\":[{\"decade\":1,\"count\":1}]},"
    "\"rowLengths\":{\"shortest\":{\"elements\":1,\"name\":\"R2\"},"
    "\"longest\":{\"elements\":2,\"name\":\"R1\"},\"mean\":1.5,\"median\":1.5,\"empty\":0},"
    "\"columnLengths\":{\"shortest\":{\"elements\":1,\"name\":\"Y\"},"
    "\"longest\":{\"elements\":2,\"name\":\"X\"},\"mean\":1.5,\"median\":1.5,\"empty\":0},"
    "\"duplicates\":0,\"firstDuplicate\":null,"
    "\"simplification\":{\"convertedRows\":1,\"askedRows\":0,\"emptyColumns\":0,"
    "\"emptyRows\":0,\"failingRow\":null},"
    "\"rowFamilies\":{\"count\":1,\"listed\":[\n"
    "{\"pattern\":\"R#\",\"count\":2,\"first\":\"R1\",\"types\":{\"N\":1,\"L\":1},"
    "\"lower\":{\"from\":\"-inf\",\"to\":\"-inf\"},\"upper\":{\"from\":8,\"to\":\"inf\"},"
    "\"elements\":3,\"coefficients\":{\"from\":-3.5,\"to\":2},"
    "\"sizes\":{\"from\":1,\"to\":3.5}}]},"
    "\"columnFamilies\":{\"count\":2,\"listed\":[\n"
    "{\"pattern\":\"X\",\"count\":1,\"first\":\"X\",\"types\":{\"R\":1},"
    "\"lower\":{\"from\":0,\"to\":0},\"upper\":{\"from\":10,\"to\":10},"
    "\"elements\":2,\"coefficients\":{\"from\":1,\"to\":2},"
    "\"sizes\":{\"from\":1,\"to\":2}}]}}\n";

TEST(Stats, ShowAZeroWithoutASign) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps", "ROWS\n N C\n L R\nCOLUMNS\n X C 1 R 1\nRHS\n S R -0\nBOUNDS\n LO B X -0\nENDATA\n");
  const Outcome run = RunQuarvel({"stats", model});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out.find("-0"), std::string::npos) << run.out;
}

TEST(Stats, PrintJson) {
  const HostFolder folder;
  const Outcome run =
      RunQuarvel({"stats", "--json", folder.Write("a.mps", kSmallModel), "--limit", "1"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, folder.Expand(kSmallAsJson));
}

TEST(Stats, KnowTheRowAtWhichASimplificationAsks) {
  const HostFolder folder;
  const std::string out = RunQuarvel({"stats", folder.Write("a.mps", kConflictModel)}).out;
  EXPECT_NE(out.find("\nSimplification    1 row to be asked about\n"), std::string::npos) << out;
}

TEST(Stats, HaveAHelpWithExamples) {
  const Outcome run = RunQuarvel({"stats", "--help"});
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.out.find("\n  quarvel stats "), std::string::npos);
  EXPECT_NE(run.out.find("--limit N|all"), std::string::npos);
}

std::size_t WidestCells(const std::string& text) {
  std::istringstream lines(text);
  std::size_t widest = 0;
  for (std::string line; std::getline(lines, line);) {
    // A path is as long as it is.
    if (!line.starts_with("File ")) widest = std::max(widest, text::CellCount(line));
  }
  return widest;
}

TEST(Stats, FitAScreenWhateverTheNumbersAre) {
  const HostFolder folder;
  std::string model = "NAME WIDE\nROWS\n N COST\n";
  std::string columns = "COLUMNS\n";
  std::string bounds = "BOUNDS\n";
  for (int i = 0; i < 300; ++i) {
    const std::string number = std::to_string(i);
    const std::string row =
        std::string(static_cast<std::size_t>(1 + i % 17), static_cast<char>('A' + i % 26)) + number;
    model += std::string(" ") + "LGE"[i % 3] + ' ' + row + '\n';
    columns += " LONGNAME_OF_X_" + number + ' ' + row + " -1234.5678" + number + "E" +
               std::to_string(i % 30 - 15) + " COST 98765.4321" + number + '\n';
    bounds += " LO B LONGNAME_OF_X_" + number + " -" + number +
              "34567.123E-7\n UP B LONGNAME_OF_X_" + number + ' ' + number + "12345.678\n";
  }
  const std::string file = folder.Write("w.mps", model + columns + bounds + "ENDATA\n");
  for (const std::size_t width : {std::size_t{60}, std::size_t{80}, std::size_t{120}}) {
    const hosts::Screen screen = {.is_terminal = true, .width = width, .height = 24};
    const std::string out = RunQuarvelOn(screen, {"stats", file}).out;
    // Nothing but headings and counts is left to cut on the narrowest.
    EXPECT_LE(WidestCells(out), width == 60 ? 64 : width) << out;
  }
}

using StatsOnRealModels = OnRealModels;

TEST_F(StatsOnRealModels, FitAScreen) {
  const hosts::Screen screen = {.is_terminal = true, .width = 80, .height = 24};
  int files = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(*DataFolder())) {
    if (!entry.is_regular_file() || entry.file_size() > 1'000'000) continue;
    const Outcome run =
        RunQuarvelOn(screen, {"stats", entry.path().string(), "--on-error", "continue"});
    if (run.status != 0) continue;
    ++files;
    EXPECT_LE(WidestCells(run.out), 80U) << run.out;
  }
  EXPECT_GT(files, 20);
}

TEST_F(StatsOnRealModels, ShowThousandsOfNamesAsAFewPatterns) {
  const Outcome run =
      RunQuarvel({"stats", *DataFolder() + "/netlib/fit2d.mps", "--on-error", "continue"});
  EXPECT_EQ(run.status, 0);
  EXPECT_LT(std::count(run.out.begin(), run.out.end(), '\n'), 60) << run.out;
  EXPECT_NE(run.out.find("Columns by name"), std::string::npos);
}

}  // namespace
}  // namespace quarvel
