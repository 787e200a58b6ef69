#include "hosts/screen.h"

#include <gtest/gtest.h>

namespace quarvel::hosts {
namespace {

constexpr Screen kColored = {.is_terminal = true, .width = 80, .takes_colors = true};
constexpr Screen kPlain = {.is_terminal = true, .width = 80, .takes_colors = false};

TEST(Pen, DrawsWhereThereAreColors) {
  EXPECT_EQ(Pen(ColorChoice::kAuto, kColored).Draw(Ink::kHeading, "Name\n"),
            "\x1b[1mName\x1b[0m\n");
  EXPECT_EQ(Pen(ColorChoice::kAuto, kColored).Draw(Ink::kAside, "more"), "\x1b[2mmore\x1b[0m");
  EXPECT_EQ(Pen(ColorChoice::kAuto, kColored).Draw(Ink::kAside, ""), "");
  EXPECT_EQ(Pen(ColorChoice::kAuto, kPlain).Draw(Ink::kHeading, "Name\n"), "Name\n");
  EXPECT_EQ(Pen(ColorChoice::kAuto, {}).Draw(Ink::kHeading, "Name\n"), "Name\n");
}

TEST(Pen, HasAnInkForEachMeaning) {
  const struct {
    Ink ink;
    const char* start;
  } cases[] = {
      {Ink::kHeading, "\x1b[1m"},    {Ink::kAside, "\x1b[2m"},     {Ink::kError, "\x1b[1;31m"},
      {Ink::kWarning, "\x1b[1;35m"}, {Ink::kRemark, "\x1b[1;36m"}, {Ink::kMark, "\x1b[1;32m"},
      {Ink::kGone, "\x1b[31m"},      {Ink::kCame, "\x1b[32m"},     {Ink::kChanged, "\x1b[33m"}};
  for (const auto& c : cases) {
    EXPECT_EQ(Pen(ColorChoice::kAlways, {}).Draw(c.ink, "x"), std::string(c.start) + "x\x1b[0m");
  }
}

TEST(Pen, DrawsAsItIsTold) {
  EXPECT_EQ(Pen(ColorChoice::kAlways, {}).Draw(Ink::kHeading, "Name"), "\x1b[1mName\x1b[0m");
  EXPECT_EQ(Pen(ColorChoice::kNever, kColored).Draw(Ink::kHeading, "Name"), "Name");
}

}  // namespace
}  // namespace quarvel::hosts
