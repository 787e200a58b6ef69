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

TEST(TextTable, IsNothingWithoutLines) { EXPECT_EQ(TextTable({kLeft}).Text(), ""); }

}  // namespace
}  // namespace quarvel::hosts
