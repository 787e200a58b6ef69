// The pages as the programs that show them take them.
#include <string>

#include <gtest/gtest.h>

#include "hosts/commands.h"
#include "hosts/manual.h"
#include "tests/hosts/shell_output_posix.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

TEST(ManualPages, AreCleanRoff) {
  if (!HasProgram("mandoc"))
    GTEST_SKIP() << "there is no mandoc: cmake/setup.sh shells installs it";
  const HostFolder folder;
  folder.Write("page.1", hosts::ManualPage(nullptr));
  const std::string lint =
      "cd '" + folder.Path("") + "' && mandoc -Tlint -Wwarning page.1 2>&1 || true";
  EXPECT_EQ(ShellOutput(lint), "");
  for (const hosts::Command& command : hosts::Commands()) {
    folder.Write("page.1", hosts::ManualPage(&command));
    EXPECT_EQ(ShellOutput(lint), "") << command.name;
  }
}

TEST(ManualPages, AreShownByMan) {
  if (!HasProgram("man")) GTEST_SKIP() << "there is no man: cmake/setup.sh shells installs it";
  const HostFolder folder;
  const std::string page = folder.Write("page.1", hosts::ManualPage(&hosts::CommandOf("rows")));
  const std::string shown =
      ShellOutput("MANPAGER=cat MANWIDTH=100 MANROFFOPT=-c man -l '" + page + "' 2>&1 | col -b");
  EXPECT_NE(shown.find("quarvel rows diet.mps --match 'C*' --sort -elements"), std::string::npos)
      << shown;
  EXPECT_NE(shown.find("--limit N|all"), std::string::npos) << shown;
}

TEST(ManualPages, ShowTheEditCommandsOneBelowTheOther) {
  if (!HasProgram("man")) GTEST_SKIP() << "there is no man: cmake/setup.sh shells installs it";
  const HostFolder folder;
  const std::string page = folder.Write("page.1", hosts::ManualPage(&hosts::CommandOf("edit")));
  const std::string shown =
      ShellOutput("MANPAGER=cat MANWIDTH=80 MANROFFOPT=-c man -l '" + page + "' 2>&1 | col -bx");
  EXPECT_NE(shown.find("add-row                 NAME N|G|L|E|R\n"), std::string::npos) << shown;
  EXPECT_NE(shown.find("  simplify\n"), std::string::npos) << shown;
}

}  // namespace
}  // namespace quarvel
