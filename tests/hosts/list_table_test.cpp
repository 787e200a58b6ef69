#include "hosts/list_table.h"

#include <gtest/gtest.h>

namespace quarvel::hosts {
namespace {

TEST(ListTable, PutsCellsBelowEachOther) {
  ListTable table({{"No", false}, {"Name"}, {"Type"}});
  table.Widen(0, "1000");
  table.Widen(1, "鋼板A");
  EXPECT_EQ(table.Heading(), "  No  Name   Type\n");
  EXPECT_EQ(table.Line({"1", "鋼板A", "L"}), "   1  鋼板A  L\n");
  EXPECT_EQ(table.Line({"1000", "X", "L"}), "1000  X      L\n");
  EXPECT_EQ(table.StartOfLast(), 13u);
}

TEST(ListTable, NarrowsWhatMayBeCut) {
  ListTable table({{"Name", true, 20, 8}, {"Bound", false, 6}, {"Equation", true, 30, 10}});
  table.FitInto(55);
  EXPECT_EQ(table.width(0), 20u);
  EXPECT_EQ(table.width(2), 25u);
  table.FitInto(40);
  EXPECT_EQ(table.width(0), 15u);
  EXPECT_EQ(table.width(2), 15u);
  table.FitInto(30);
  EXPECT_EQ(table.width(0), 10u);
  EXPECT_EQ(table.Line({"ABCDEFGHIJK", "1234567", "0123456789X"}),
            "ABCDEFG...  1234567  0123456...\n");
  table.FitInto(5);
  EXPECT_EQ(table.width(0), 8u);
}

TEST(ListTable, PutsColumnsCloserWhereCuttingIsNotEnough) {
  ListTable table({{"Index", false}, {"Name", true, 0, 5}, {"Elements", false}});
  table.Widen(1, "PRODUCTION");
  table.FitInto(20);
  EXPECT_EQ(table.Line({"1", "PRODUCTION", "7"}), "    1 PR...        7\n");
  EXPECT_EQ(table.StartOfLast(), 12U);
}

}  // namespace
}  // namespace quarvel::hosts
