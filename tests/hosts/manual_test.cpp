#include "hosts/manual.h"

#include <string>

#include <gtest/gtest.h>

#include "hosts/command_examples.h"
#include "hosts/option.h"
#include "tests/support/run_quarvel.h"

namespace quarvel::hosts {
namespace {

std::string Typed(std::string_view text) {
  std::string typed;
  for (const char c : text) typed += c == '-' ? "\\-" : std::string(1, c);
  return typed;
}

TEST(Manual, HasAPageForTheProgramAndEachCommand) {
  const std::string program = RunQuarvel({"man"}).out;
  EXPECT_TRUE(program.starts_with(".TH QUARVEL 1 ")) << program;
  EXPECT_NE(program.find(".SH NAME\nquarvel \\- "), std::string::npos) << program;
  for (const Command& command : Commands()) {
    const std::string name(command.name);
    EXPECT_NE(program.find("quarvel\\-" + Typed(name) + " (1)"), std::string::npos) << name;
    const std::string page = RunQuarvel({"man", name}).out;
    EXPECT_NE(page.find(".SH NAME\nquarvel\\-" + Typed(name) + " \\- " + Typed(command.summary)),
              std::string::npos)
        << page;
  }
}

TEST(Manual, HasTheOptionsAndExamplesOfACommand) {
  for (const Command& command : Commands()) {
    const std::string page = ManualPage(&command);
    for (const Option& option : AllOptions()) {
      const bool is_taken = (option.id & command.options) == option.id;
      const bool is_there = page.find("\\fB" + Typed(option.name) + "\\fR") != std::string::npos;
      EXPECT_EQ(is_there, is_taken) << command.name << ' ' << option.name;
    }
    for (const CommandExample& example : ExamplesOf(command.name)) {
      EXPECT_NE(page.find("\\fB" + Typed(example.line) + "\\fR\n"), std::string::npos) << page;
    }
    EXPECT_NE(page.find("\\fBQUARVEL_DEFAULT_BOUNDS\\fR"), std::string::npos);
    EXPECT_NE(page.find("\\fB130\\fR"), std::string::npos);
  }
}

TEST(Manual, KnowsNoOtherCommand) {
  const Outcome run = RunQuarvel({"man", "rowz"});
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(run.err.starts_with("quarvel: there is no command rowz; did you mean row"))
      << run.err;
}

}  // namespace
}  // namespace quarvel::hosts
