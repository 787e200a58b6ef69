// docs/members.md, which is made from the component's one list of members.

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/automation/interface_table.h"
#include "tests/support/test_paths.h"

namespace quarvel {
namespace {

std::string Page() { return ProjectFile("docs/members.md"); }

// The cells of each member's row.
std::vector<std::vector<std::string>> RowsOf(const std::string& page) {
  std::vector<std::vector<std::string>> rows;
  std::istringstream lines(page);
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("| `")) continue;
    std::vector<std::string> cells;
    for (std::size_t start = 2; start < line.size();) {
      const std::size_t end = line.find(" |", start);
      cells.push_back(line.substr(start, end - start));
      start = end == std::string::npos ? line.size() : end + 3;
    }
    rows.push_back(cells);
  }
  return rows;
}

std::string OrDash(std::string_view text) { return text.empty() ? "-" : std::string(text); }

TEST(MembersPage, IsUpToDate) {
  EXPECT_EQ(Page(), ReadWholeFile(MadeFolder() + "/docs/members.md"))
      << "cmake --build build/linux --target members_page brings it up to date";
}

TEST(MembersPage, TellsOfEveryMemberWhatTheInterfacePromises) {
  const auto rows = RowsOf(Page());
  const auto promised = automation::InterfaceTable();
  ASSERT_EQ(rows.size(), promised.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    SCOPED_TRACE(promised[i].name);
    std::ostringstream id;
    id << "`0x" << std::hex << std::uppercase << promised[i].id << '`';
    const std::vector<std::string> wanted = {
        '`' + std::string(promised[i].name) + '`', std::string(promised[i].kind), id.str(),
        OrDash(promised[i].arguments), OrDash(promised[i].result)};
    ASSERT_EQ(rows[i].size(), wanted.size() + 1);
    EXPECT_EQ(std::vector<std::string>(rows[i].begin(), rows[i].end() - 1), wanted);
  }
}

// Where the type library carries a help text the page has the same; every other member has one, too.
TEST(MembersPage, HasAHelpTextForEveryMember) {
  const auto rows = RowsOf(Page());
  const auto promised = automation::InterfaceTable();
  ASSERT_EQ(rows.size(), promised.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::string& help = rows[i].back();
    EXPECT_GT(help.size(), 10u) << promised[i].name;
    EXPECT_TRUE(promised[i].help.empty() || help == promised[i].help) << help;
  }
}

}  // namespace
}  // namespace quarvel
