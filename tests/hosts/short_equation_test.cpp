#include "hosts/short_equation.h"

#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"
#include "text/cell_width.h"

namespace quarvel {
namespace {

TEST(ShortEquation, GroupsDigits) {
  EXPECT_EQ(hosts::GroupedText(0), "0");
  EXPECT_EQ(hosts::GroupedText(999), "999");
  EXPECT_EQ(hosts::GroupedText(1000), "1,000");
  EXPECT_EQ(hosts::GroupedText(499994), "499,994");
  EXPECT_EQ(hosts::GroupedText(-1234567), "-1,234,567");
  EXPECT_EQ(hosts::GroupedText(-123), "-123");
}

std::string LongModel(int columns, const std::string& name) {
  std::string text = "ROWS\n N COST\n G RNG\n L NONE\nCOLUMNS\n";
  for (int j = 0; j < columns; ++j) {
    text += ' ' + name + std::to_string(j) + " COST 1 RNG -2.5\n";
  }
  return text + "RHS\n RHS RNG 1\nRANGES\n RNG RNG 4\nENDATA\n";
}

std::string EquationLine(const Outcome& run) {
  const std::size_t at = run.out.find("Equation  ");
  return run.out.substr(at + 10, run.out.find('\n', at) - at - 10);
}

TEST(ShortEquation, IsCutToTheLinesOfATerminal) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", LongModel(1000, "X"));
  const hosts::Screen screen = {.is_terminal = true, .width = 40, .takes_colors = false};
  const std::string cost = EquationLine(RunQuarvelOn(screen, {"row", model, "COST"}));
  EXPECT_TRUE(cost.starts_with(" + 1*X0 + 1*X1 + 1*X2 ")) << cost;
  EXPECT_TRUE(cost.ends_with(" more  (non-binding/objective)")) << cost;
  EXPECT_LE(cost.size(), 190u);
  EXPECT_GT(cost.size(), 180u);
  const std::string ranged = EquationLine(RunQuarvelOn(screen, {"row", model, "RNG"}));
  EXPECT_TRUE(ranged.starts_with("1  >=   - 2.5*X0 - 2.5*X1")) << ranged;
  EXPECT_TRUE(ranged.ends_with(" more  <=  5")) << ranged;
  EXPECT_EQ(EquationLine(RunQuarvelOn(screen, {"row", model, "NONE"})),
            "This row has no elements.  It is a less-than constraint row with upper bound 0.");
  EXPECT_EQ(EquationLine(RunQuarvelOn(screen, {"row", model, "COST", "--full"})),
            EquationLine(RunQuarvel({"row", model, "COST"})));
}

TEST(ShortEquation, HasAsManyTermsAsTheLimit) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", LongModel(2000, "X"));
  EXPECT_EQ(EquationLine(RunQuarvel({"row", model, "RNG", "--limit", "2"})),
            "1  >=   - 2.5*X0 - 2.5*X1 ... 1,998 more  <=  5");
  EXPECT_EQ(EquationLine(RunQuarvel({"row", model, "RNG", "--limit", "0"})),
            "1  >=   ... 2,000 more  <=  5");
}

TEST(ShortEquation, CountsWideLetters) {
  const HostFolder folder;
  const hosts::Screen screen = {.is_terminal = true, .width = 40, .takes_colors = false};
  const std::string model = folder.Write("a.mps", LongModel(100, "鋼板鋼板鋼板"));
  const Outcome run = RunQuarvelOn(screen, {"rows", model, "--equations"});
  std::string_view lines = run.out;
  while (!lines.empty()) {
    const std::string_view line = lines.substr(0, lines.find('\n'));
    if (line.find("This row") == std::string_view::npos) {
      EXPECT_LE(text::CellCount(line), 60u) << line;
    }
    lines.remove_prefix(line.size() + 1);
  }
}

}  // namespace
}  // namespace quarvel
