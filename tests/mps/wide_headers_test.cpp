#include "mps/wide_headers.h"

#include <gtest/gtest.h>

namespace quarvel::mps {
namespace {

TEST(WideHeaders, AreFoundByTheirWord) {
  EXPECT_EQ(FindWideHeader("ROWS"), WideHeader::kPlain);
  EXPECT_EQ(FindWideHeader("NAME"), WideHeader::kName);
  EXPECT_EQ(FindWideHeader("OBJSENSE"), WideHeader::kSense);
  EXPECT_EQ(FindWideHeader("OBJSENSEMAX"), WideHeader::kMaximize);
  EXPECT_EQ(FindWideHeader("QUADOBJ"), WideHeader::kNotLinear);
  EXPECT_EQ(FindWideHeader("LAZYCONS"), WideHeader::kMoreRows);
  EXPECT_EQ(FindWideHeader("ROW"), WideHeader::kUnknown);
  EXPECT_EQ(FindWideHeader(""), WideHeader::kUnknown);
}

TEST(WideHeaders, SayASenseInAllItsSpellings) {
  for (const char* word : {"MAX", "MAXIMIZE", "MAXIMISE", "MAXIMUM", "MAXIMIZATION"}) {
    EXPECT_EQ(SenseOf(word), ObjectiveSense::kMaximize) << word;
  }
  for (const char* word : {"MIN", "MINIMIZE", "MINIMISE", "MINIMUM"}) {
    EXPECT_EQ(SenseOf(word), ObjectiveSense::kMinimize) << word;
  }
  EXPECT_EQ(SenseOf("MA"), ObjectiveSense::kNotSaid);
}

}  // namespace
}  // namespace quarvel::mps
