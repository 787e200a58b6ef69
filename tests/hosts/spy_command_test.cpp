#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

TEST(Spy, ShowsTheMatrixInAPipe) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"spy", folder.Example("transport.mps")});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out,
            folder.Expand("@transport.mps: 6 rows, 6 columns, 18 elements\n"
                          "      columns 0 to 5\n"
                          "     \u250C\u2500\u2500\u2500\u2500\u2500\u2500\u2500\u2500\u2500\u2500"
                          "\u2500\u2500\u2510\n"
                          "   0 \u2502\u28FF\u28FF\u28FF\u28FF\u28FF\u28FF\u28FF\u28FF\u28FF\u28FF"
                          "\u28FF\u28FF\u2502\n"
                          "     \u2502\u28FF\u28FF\u28FF\u28FF\u28FF\u28FF\u2800\u2800\u2800\u2800"
                          "\u2800\u2800\u2502\n"
                          "     \u2502\u2800\u2800\u2800\u2800\u2800\u2800\u28FF\u28FF\u28FF\u28FF"
                          "\u28FF\u28FF\u2502\n"
                          "rows \u2502\u28FF\u28FF\u2800\u2800\u2800\u2800\u28FF\u28FF\u2800\u2800"
                          "\u2800\u2800\u2502\n"
                          "     \u2502\u2800\u2800\u28FF\u28FF\u2800\u2800\u2800\u2800\u28FF\u28FF"
                          "\u2800\u2800\u2502\n"
                          "   5 \u2502\u2800\u2800\u2800\u2800\u28FF\u28FF\u2800\u2800\u2800\u2800"
                          "\u28FF\u28FF\u2502\n"
                          "     \u2514\u2500\u2500\u2500\u2500\u2500\u2500\u2500\u2500\u2500\u2500"
                          "\u2500\u2500\u2518\n"));
}

TEST(Spy, WritesAFileByItsSuffix) {
  const HostFolder folder;
  const std::string model = folder.Example("diet.mps");
  const Outcome svg = RunQuarvel({"spy", model, "-o", folder.Path("a.svg")});
  EXPECT_EQ(svg.status, 0);
  EXPECT_EQ(svg.out, folder.Expand("@a.svg: 5 rows, 5 columns, 25 elements\n"));
  EXPECT_TRUE(folder.Read("a.svg").starts_with("<svg "));
  EXPECT_EQ(RunQuarvel({"spy", model, "--output=" + folder.Path("a.png"), "--width", "50"}).status,
            0);
  EXPECT_TRUE(folder.Read("a.png").starts_with("\x89PNG"));
}

TEST(Spy, RefusesOtherFiles) {
  const HostFolder folder;
  const std::string model = folder.Example("diet.mps");
  const Outcome run = RunQuarvel({"spy", model, "-o", folder.Path("a.jpg")});
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(run.err.starts_with(
      folder.Expand("quarvel: spy writes files that end in .svg or .png, not @a.jpg\n")));
  EXPECT_FALSE(folder.Has("a.jpg"));
  EXPECT_EQ(RunQuarvel({"spy", model, "-o", folder.Path("no/a.svg")}).status, 1);
  const std::string odd = folder.Write("model.svg", kSmallModel);
  EXPECT_EQ(RunQuarvel({"spy", odd, "-o", odd}).status, 2);
  EXPECT_EQ(folder.Read("model.svg"), kSmallModel);
}

TEST(Spy, TakesSizes) {
  const HostFolder folder;
  const std::string model = folder.Example("transport.mps");
  const std::string out = RunQuarvel({"spy", model, "--width", "20", "--height", "1"}).out;
  EXPECT_LT(out.size(), RunQuarvel({"spy", model}).out.size());
  for (const char* const size : {"0", "-3", "10001", "x", ""}) {
    EXPECT_EQ(RunQuarvel({"spy", model, "--width", size}).status, 2) << size;
    EXPECT_EQ(RunQuarvel({"spy", model, std::string("--height=") + size}).status, 2) << size;
  }
}

TEST(Spy, HasAHelpWithExamples) {
  const Outcome run = RunQuarvel({"spy", "--help"});
  EXPECT_NE(run.out.find("\nExamples:\n  quarvel spy "), std::string::npos);
  EXPECT_NE(run.out.find("-o, --output FILE"), std::string::npos);
}

}  // namespace
}  // namespace quarvel
