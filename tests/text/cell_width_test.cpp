#include "text/cell_width.h"

#include <gtest/gtest.h>

namespace quarvel::text {
namespace {

TEST(CellWidth, CountsWhatATerminalGivesText) {
  const struct {
    const char* text;
    std::size_t cells;
  } cases[] = {{"", 0},
               {"ROW_1", 5},
               {"Ä", 1},
               {"A\xCC\x88", 1},  // with its dots as a mark
               {"鋼", 2},
               {"鋼A板", 5},
               {"ｱ", 1},   // half as wide
               {"Ａ", 2},  // twice as wide
               {"한국", 4},
               {"\xE1\x84\x92\xE1\x85\xA1\xE1\x86\xAB", 2},  // the same syllable in three letters
               {"😀", 2},
               {"…", 1},
               {"\xE3\x80\x80", 2},  // the wide blank
               {"\xFF", 1}};
  for (const auto& c : cases) EXPECT_EQ(CellCount(c.text), c.cells) << c.text;
}

TEST(CellWidth, CutsWithDots) {
  const struct {
    const char* text;
    std::size_t cells;
    const char* cut;
  } cases[] = {{"ROW_12345", 9, "ROW_12345"},
               {"ROW_12345", 8, "ROW_1..."},
               {"ROW_12345", 3, "..."},
               {"ROW_12345", 2, ".."},
               {"ROW_12345", 0, ""},
               {"鋼板鋼板", 8, "鋼板鋼板"},
               {"鋼板鋼板", 7, "鋼板..."},
               {"鋼板鋼板", 6, "鋼..."},  // half a letter cannot be shown
               {"A\xCC\x88ZZZZ", 4, "A\xCC\x88..."}};
  for (const auto& c : cases) EXPECT_EQ(CutToCells(c.text, c.cells), c.cut) << c.text;
}

}  // namespace
}  // namespace quarvel::text
