#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

constexpr std::string_view kDialectModel =
    "NAME M FREE\nROWS\n N COST\n L LIM\nCOLUMNS\n X COST 1 LIM 1\n Y LIM 1\nRHS\n RHS LIM 4\nBOUNDS\n UP BND X -4\n"
    " UP BND Y -3\nENDATA\n";

TEST(DialectsCommand, ListsWhatReadersDisagreeAbout) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kDialectModel);
  const Outcome run = RunQuarvel({"dialects", model});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "");
  constexpr std::string_view kReadings =
      "  quarvel   the lower bound stays 0\n"
      "  glpsol    the lower bound stays 0\n"
      "  lp_solve  the lower bound stays 0\n"
      "  cbc       takes the lower bound away\n";
  const std::string end = std::string(kReadings) + "@a.mps: 1 thing that readers disagree about\n";
  EXPECT_EQ(run.out,
            folder.Expand("negative-upper: a negative UP without a lower bound before it, 2 "
                          "lines\n    11 | UP BND X -4\n    12 | UP BND Y -3\n" +
                          end));
  EXPECT_EQ(RunQuarvel({"dialects", model, "--limit", "1"}).out,
            folder.Expand("negative-upper: a negative UP without a lower bound before it, 2 lines\n"
                          "    11 | UP BND X -4\n   ... 1 more (--limit all lists them)\n" +
                          end));
}

TEST(DialectsCommand, SaysThatThereIsNothing) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"dialects", folder.Example("diet.mps")});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out,
            folder.Expand("@diet.mps: nothing that readers are known to disagree about\n"));
}

TEST(DialectsCommand, PrintsJson) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"dialects", folder.Write("a.mps", kDialectModel), "--json"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            folder.Expand(
                "{\"file\":\"@a.mps\",\"dialects\":[\n{\"id\":\"negative-upper\",\"text\":\"a "
                "negative UP without a lower bound before it\",\"count\":2,\"lines\":["
                "{\"line\":11,\"text\":\" UP BND X -4\"},{\"line\":12,\"text\":\" UP BND Y -3\"}"
                "],\"readers\":{\"quarvel\":\"the lower bound stays 0\",\"glpsol\":\"the lower "
                "bound stays 0\",\"lp_solve\":\"the lower bound stays 0\",\"cbc\":\"takes the "
                "lower bound away\"}}]}\n"));
  EXPECT_EQ(RunQuarvel({"dialects", folder.Example("diet.mps"), "--json"}).out,
            folder.Expand("{\"file\":\"@diet.mps\",\"dialects\":[]}\n"));
}

TEST(DialectsCommand, EndsWithAFileThatCannotBeRead) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"dialects", folder.Path("missing.mps")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, folder.Expand("quarvel: @missing.mps: File not found\n"));
}

}  // namespace
}  // namespace quarvel
