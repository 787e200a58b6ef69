#include "hosts/text_table.h"

#include <gtest/gtest.h>

namespace quarvel::hosts {
namespace {

using enum TextTable::Align;

TEST(TextTable, MakesColumnsAsWideAsTheirWidestText) {
  TextTable table({kLeft, kRight, kLeft});
  table.Add({"name", "n", "more"});
  table.Add({"a", "1234", ""});
  table.Add({"b\xC3\xA4r", "5"});
  EXPECT_EQ(table.Text("> "),
            "> name     n  more\n"
            "> a     1234\n"
            "> b\xC3\xA4r      5\n");
}

TEST(TextTable, ShowsWhatWouldSteerATerminalAsEscapes) {
  TextTable table({kLeft, kLeft});
  table.Add({"a\x1B[2J", "b"});
  EXPECT_EQ(table.Text(), "a\\x1B[2J  b\n");
}

TEST(TextTable, CutsNamesWhereALineWouldBeTooLong) {
  TextTable table({kName, kRight, kName});
  table.Add({"A_NAME_OF_TWENTY_ONES", "12345", "ANOTHER_ONE_OF_20_ONE"});
  table.Add({"B", "6", "C"});
  const std::string whole =
      " A_NAME_OF_TWENTY_ONES  12345  ANOTHER_ONE_OF_20_ONE\n"
      " B                          6  C\n";
  EXPECT_EQ(table.Text(" "), whole);
  EXPECT_EQ(table.Text(" ", 52), whole);
  EXPECT_EQ(table.Text(" ", 40),
            " A_NAME_OF_TW...  12345  ANOTHER_ONE_...\n"
            " B                    6  C\n");
  EXPECT_EQ(table.Text(" ", 26),
            " A_NAM...  12345  ANOTH...\n"
            " B             6  C\n");
  EXPECT_EQ(table.Text(" ", 20),
            " A_...  12345  AN...\n"
            " B          6  C\n");
}

TEST(TextTable, IsNothingWithoutLines) { EXPECT_EQ(TextTable({kLeft}).Text(), ""); }

}  // namespace
}  // namespace quarvel::hosts
