#include "inspect/like_fixed_columns.h"

#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace quarvel::inspect {
namespace {

using mps::Section;

bool Looks(std::string_view text, Section section = Section::kColumns, bool is_marker = false) {
  return LikeFixedColumns().Use(text, section, is_marker);
}

// As cbc 2.10.8 takes them: its messages were "Bad image" and "No match for column".
TEST(LikeFixedColumns, AreThoseThatCbcRefuses) {
  for (const char* const text :
       {"    X0  COST  -1", "    X0 R1 1", "    X0  R1   1", "    X0   R1  1", "    X0123456  R1 1",
        "    X0 R1                          1", "    X0        COST  -1", "  X0          COST  -1",
        "     C1xxxxxx R1  -1", "    C0xxxx    R23 -1          R1          -1"}) {
    EXPECT_TRUE(Looks(text)) << text;
  }
  for (const char* const text :
       {" UP BND X0 4", " UP BND X0   4", " FR BND X0", " UP BND       X0 4"}) {
    EXPECT_TRUE(Looks(text, Section::kBounds)) << text;
  }
  EXPECT_TRUE(Looks("    RHS  R1  7", Section::kRhs));
  EXPECT_TRUE(Looks("    RNG       R1 4", Section::kRanges));
}

TEST(LikeFixedColumns, AreNotThoseThatItReads) {
  for (const char* const text :
       {" X0 COST -1", "  X0  COST  -1", "     X0  COST  -1", "    X0  R1  1", "    X0 COST -1",
        "    X0        COST                -1", "    X0        COST      -1", "    X01234567 R1 1",
        "    X0       R1 1", "    X0123456 R1 1", " X0           COST   -1", " X0 R1 1 COST -1",
        "  C0  R2345   1", "    X0\tCOST  -1", ""}) {
    EXPECT_FALSE(Looks(text)) << text;
  }
  for (const char* const text : {" UP BND X0 45", " UP BND  X0 4", "  UP BND X0 4",
                                 " UP   BND X0 4", " FR BND       X0", " UP BNDSETX  X0 4"}) {
    EXPECT_FALSE(Looks(text, Section::kBounds)) << text;
  }
  EXPECT_FALSE(Looks(" RHS R1 7", Section::kRhs));
  EXPECT_FALSE(Looks("    MARKER    'MARKER' 'INTORG'", Section::kColumns, true));
  EXPECT_FALSE(Looks("    L R1", Section::kRows));
}

// What shows that columns are free, by the line behind it.
TEST(LikeFixedColumns, AreNoneBehindALineThatShowsFreeOnes) {
  const auto settles = [](Section section, std::string_view text, bool is_marker = false) {
    LikeFixedColumns look;
    EXPECT_FALSE(look.Use(text, section, is_marker)) << text;
    return !look.Use("    X0  COST  -1", Section::kColumns, false);
  };
  EXPECT_TRUE(settles(Section::kColumns, "    X0  R1  1"));
  EXPECT_TRUE(settles(Section::kColumns, "    X01234567 R1 1"));
  EXPECT_TRUE(settles(Section::kColumns, "    Cx        R2345   -1"));
  EXPECT_TRUE(settles(Section::kColumns, "    MARKER 'MARKER' 'INTORG'", true));
  EXPECT_TRUE(settles(Section::kRows, " L  R23456789"));
  EXPECT_FALSE(settles(Section::kColumns, " X0 R1 1"));
  EXPECT_FALSE(settles(Section::kColumns, "    X0123456 R1 1"));
  EXPECT_FALSE(settles(Section::kColumns, "    MARKER    'MARKER' 'INTORG'", true));
  EXPECT_FALSE(settles(Section::kRows, " L  R2345678"));
  EXPECT_FALSE(settles(Section::kRows, "  L  R23456789"));
  LikeFixedColumns said;
  said.SayFree();
  EXPECT_FALSE(said.Use("    X0  COST  -1", Section::kColumns, false));
}

}  // namespace
}  // namespace quarvel::inspect
