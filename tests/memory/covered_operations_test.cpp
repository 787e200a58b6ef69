// Every operation of LPModel stands in a table of this folder, so that none is forgotten: a new one
// in the class or in the interface of the component fails here until it has its row.

#include <algorithm>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/memory/operation_names.h"
#include "tests/support/test_paths.h"

namespace quarvel::testing {
namespace {

using Names = std::set<std::string>;

// The first group of the expression in each line that has it, from the line that holds `begin` to
// the next one that begins with `end`.
Names NamesIn(const std::string& path, const char* begin, const char* end, const char* expression) {
  std::istringstream text(ProjectFile(path));
  const std::regex wanted(expression);
  Names names;
  bool inside = false;
  for (std::string line; std::getline(text, line);) {
    if (!inside) {
      inside = line.find(begin) != line.npos;
      continue;
    }
    if (line.starts_with(end)) break;
    std::smatch found;
    if (std::regex_search(line, found, wanted)) names.insert(found[1]);
  }
  return names;
}

// What the class declares at its first indentation, but what makes it and ends it.
Names PublicOperations() {
  Names names = NamesIn("component/lp_model.h", "class LPModel final",
                        " private:", R"(^  (?=[^ /]).*?\b([A-Za-z]\w*=?)\()");
  names.erase("LPModel");
  names.erase("operator=");
  return names;
}

Names MembersOfTheInterface() {
  return NamesIn("automation/quarvel.idl", "  interface ", "  };", R"(HRESULT (\w+)\()");
}

// What stands beside the operations: it gives what is there already, and takes no memory.
const Names& Others() {
  static const Names names = {"KeepLogIn", "desktop", "store"};
  return names;
}

Names Covered() {
  Names names;
  for (const auto& table : {NamesOfEdits(), NamesOfQueries(), NamesOfReads(), NamesOfSaves(),
                            NamesOfSimplifications(), NamesOfViews()}) {
    names.insert(table.begin(), table.end());
  }
  return names;
}

Names Without(const Names& all, const Names& some) {
  Names rest;
  std::set_difference(all.begin(), all.end(), some.begin(), some.end(),
                      std::inserter(rest, rest.end()));
  return rest;
}

TEST(CoveredOperations, AreAllThatTheClassHas) {
  EXPECT_EQ(Without(Without(PublicOperations(), Others()), Covered()), Names());
  EXPECT_EQ(Without(Covered(), PublicOperations()), Names());
}

// The two lists of operations are read from their files: each shows that the other is read whole.
TEST(CoveredOperations, AreAllThatTheInterfaceHas) {
  const Names members = MembersOfTheInterface();
  EXPECT_GT(members.size(), 60u);
  EXPECT_EQ(Without(members, Covered()), Names());
  EXPECT_EQ(Without(Without(PublicOperations(), Others()), members), Names());
}

}  // namespace
}  // namespace quarvel::testing
