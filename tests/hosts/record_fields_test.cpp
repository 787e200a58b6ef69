#include "hosts/record_fields.h"

#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

TEST(RecordFields, AreChosenInAnyOrder) {
  const HostFolder folder;
  const std::string model = folder.Example("ranges.mps");
  EXPECT_EQ(RunQuarvel({"rows", model, "--columns", "elements,name", "--type", "R"}).out,
            "Elements  Name\n"
            "       2  GRANGE\n"
            "       3  LRANGE\n"
            "       2  ERANGE\n"
            "(3 of 6 rows)\n");
  EXPECT_EQ(RunQuarvel({"rows", model, "--columns", "name,equation", "--match", "plain"}).out,
            "Name   Equation\n"
            "PLAIN   + 1*NOLOW + 1*NOHIGH  =  5\n"
            "(1 of 6 rows)\n");
  EXPECT_EQ(RunQuarvel({"columns", model, "--columns", "name,upper", "--json", "--fixed"}).out,
            "[\n{\"name\":\"FIXED\",\"upperBound\":2.5}\n]\n");
}

TEST(RecordFields, ArePrintedAsCommaSeparatedValues) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps",
                   "ROWS\n N COST\n L A,B\n L \"Q\"\nCOLUMNS\n X COST 1 A,B 1\n X \"Q\" 1\nRHS\n"
                   " RHS A,B 0.1234567890123456 \"Q\" 1e-300\nBOUNDS\n FR B X\nENDATA\n");
  EXPECT_EQ(RunQuarvel({"rows", model, "--csv"}).out,
            "index,name,type,lower,upper,elements\r\n"
            "0,COST,N,-inf,inf,1\r\n"
            "1,\"A,B\",L,-inf,0.1234567890123456,1\r\n"
            "2,\"\"\"Q\"\"\",L,-inf,1E-300,1\r\n");
  EXPECT_EQ(RunQuarvel({"columns", model, "--csv", "--columns", "name,objective"}).out,
            "name,objective\r\nX,1\r\n");
  EXPECT_EQ(RunQuarvel({"rows", model, "--csv", "--limit", "0"}).out,
            "index,name,type,lower,upper,elements\r\n");
  EXPECT_EQ(RunQuarvel({"rows", model, "--csv", "--empty"}).out,
            "index,name,type,lower,upper,elements\r\n");
}

TEST(RecordFields, SteerTheTerminalInNoForm) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "ROWS\n L \x1b[7m\nCOLUMNS\n X \x1b[7m 1\nENDATA\n");
  const hosts::Screen screen = {.is_terminal = true, .width = 80, .takes_colors = false};
  EXPECT_EQ(RunQuarvelOn(screen, {"rows", model, "--csv", "--columns", "name"}).out,
            "name\r\n\\x1B[7M\r\n");
  EXPECT_EQ(RunQuarvel({"rows", model, "--csv", "--columns", "name"}).out, "name\r\n\x1b[7M\r\n");
}

TEST(RecordFields, AreNotChosenTwice) {
  const Outcome both = RunQuarvel({"rows", "a", "--json", "--csv"});
  EXPECT_EQ(both.status, 2);
  EXPECT_TRUE(both.err.starts_with("quarvel: --csv and --json print the same list in two ways"));
  const Outcome equations = RunQuarvel({"rows", "a", "--equations", "--columns", "name"});
  EXPECT_EQ(equations.status, 2);
  EXPECT_TRUE(equations.err.starts_with("quarvel: --equations is a choice of columns"));
  EXPECT_TRUE(RunQuarvel({"rows", "a", "--columns", "nam"})
                  .err.starts_with("quarvel: --columns takes index, name, type, lower, upper, "
                                   "elements, equation, not \"nam\"; did you mean name?\n"));
}

}  // namespace
}  // namespace quarvel
