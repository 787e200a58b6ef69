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

TEST(Pen, DrawsAsItIsTold) {
  EXPECT_EQ(Pen(ColorChoice::kAlways, {}).Draw(Ink::kHeading, "Name"), "\x1b[1mName\x1b[0m");
  EXPECT_EQ(Pen(ColorChoice::kNever, kColored).Draw(Ink::kHeading, "Name"), "Name");
}

}  // namespace
}  // namespace quarvel::hosts
