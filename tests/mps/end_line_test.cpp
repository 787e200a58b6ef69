#include "mps/end_line.h"

#include <gtest/gtest.h>

namespace quarvel::mps {
namespace {

TEST(HasEndLine, KnowsTheLineByItsFirstWord) {
  for (const char* const lines : {"ENDATA", "ENDATA\n", "endata\r\n", "ROWS\n EndAta\n",
                                  "ROWS\rENDATA\rmore", "ENDATA x\n"}) {
    EXPECT_TRUE(HasEndLine(lines)) << lines;
  }
  for (const char* const lines :
       {"", "\n", "ROWS\n", "ENDAT", "ENDATA1\n", "x ENDATA\n", "*ENDATA"}) {
    EXPECT_FALSE(HasEndLine(lines)) << lines;
  }
}

}  // namespace
}  // namespace quarvel::mps
