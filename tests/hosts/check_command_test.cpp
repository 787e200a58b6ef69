#include <algorithm>

#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

TEST(Check, FindsNothingInAGoodFile) {
  const HostFolder folder;
  for (const char* const name : {"diet.mps", "transport.mps", "knapsack.mps", "ranges.mps"}) {
    const Outcome run = RunQuarvel({"check", folder.Example(name)});
    EXPECT_EQ(run.status, 0) << name;
    EXPECT_TRUE(run.out.starts_with(folder.Path(name) + ": no problems; ")) << run.out;
    EXPECT_EQ(run.err, "");
  }
}

TEST(Check, ListsEveryProblemWithItsLine) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"check", folder.Example("mistakes.mps")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(
      run.out,
      folder.Expand(
          "@mistakes.mps:5: MPS file read error: no rows yet, but reading columns (line 5)\n"
          "@mistakes.mps:7: MPS file read error: no rows yet, but reading RHSs (line 7)\n"
          "@mistakes.mps:9: MPS file read error: no rows yet, but reading ranges (line 9)\n"
          "@mistakes.mps:11: MPS file read error: no variables yet, but reading bounds (line 11)\n"
          "@mistakes.mps:15: MPS file read error: improper row type (line 15)\n"
          "@mistakes.mps:16: MPS file read error: insufficent tokens in line 16\n"
          "@mistakes.mps:17: MPS file read error: row name appears for a second time (17)\n"
          "@mistakes.mps:21: MPS file read error: improper number of tokens (line 21)\n"
          "@mistakes.mps:22: MPS file read error: needs numeric value (line 22)\n"
          "@mistakes.mps:23: MPS file read error: no match for row name (line 23)\n"
          "@mistakes.mps:28: MPS file read error: improper number of tokens (line 28)\n"
          "@mistakes.mps:29: MPS file read error: needs numeric value (line 29)\n"
          "@mistakes.mps:30: MPS file read error: no match for row name (line 30)\n"
          "@mistakes.mps:32: MPS file read error: no match for row name (line 32)\n"
          "@mistakes.mps:33: MPS file read error: needs numeric value (line 33)\n"
          "@mistakes.mps:34: MPS file read error: improper number of tokens (line 34)\n"
          "@mistakes.mps:36: MPS file read error: improper number of tokens (line 36)\n"
          "@mistakes.mps:37: MPS file read error: improper bounds code (line 37)\n"
          "@mistakes.mps:38: MPS file error: too few tokens (line 38)\n"
          "@mistakes.mps:39: MPS file read error: needs numeric value (line 39)\n"
          "@mistakes.mps:40: MPS file read error: no match for variable name (line 40)\n"
          "@mistakes.mps: Quarvel.dll error: bounds reversed on variable B\n"
          "@mistakes.mps: Warning: no elements for column EMPTYCOL\n"
          "@mistakes.mps: Quarvel.dll error: bounds reversed on row TURNED\n"
          "@mistakes.mps: Warning: no elements for row EMPTYROW\n"
          "@mistakes.mps: Quarvel.dll error: rows or columns with no elements, as noted in "
          "warnings.\n"
          "@mistakes.mps: 26 problems; 4 rows, 4 columns, 5 elements\n"));
  EXPECT_EQ(run.err, "");
}

TEST(Check, FindsAnEmptyFile) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"check", folder.Write("a.mps", "")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, folder.Expand("@a.mps: Quarvel.dll error: no rows\n"
                                   "@a.mps: Quarvel.dll error: no columns\n"
                                   "@a.mps: Quarvel.dll error: no elements\n"
                                   "@a.mps: no ENDATA line: the file may be cut off\n"
                                   "@a.mps: 4 problems; 0 rows, 0 columns, 0 elements\n"));
}

TEST(Check, FindsThatAFileMayBeCutOff) {
  const HostFolder folder;
  const std::string cut(kSmallModel.substr(0, kSmallModel.rfind("ENDATA")));
  for (const char* const last : {"", "ENDAT", " ENDATA", "* ENDATA"}) {
    const std::string model = folder.Write("a.mps", cut + last);
    const Outcome run = RunQuarvel({"check", model});
    EXPECT_EQ(run.status, 1) << last;
    const std::string line = *last == '\0' ? "12" : "13";
    EXPECT_NE(run.out.find(
                  folder.Expand("@a.mps:" + line + ": no ENDATA line: the file may be cut off\n")),
              std::string::npos)
        << run.out;
    EXPECT_EQ(run.err, "");
  }
  const Outcome json = RunQuarvel({"check", folder.Write("a.mps", cut), "--json"});
  EXPECT_EQ(json.out,
            folder.Expand("{\"file\":\"@a.mps\",\"problems\":[\n{\"line\":12,\"text\":\"no ENDATA "
                          "line: the file may be cut off\"}],\"count\":1,\"unlisted\":0,"
                          "\"read\":true,\"hasEndata\":false,\"rows\":2,\"columns\":2,"
                          "\"elements\":3}\n"));
}

TEST(Check, PrintsJson) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps", "ROWS\n L R1\n X R2\nCOLUMNS\n A R1 1\n B\nBOUNDS\n LO S A 1E11\nENDATA\n");
  const Outcome run = RunQuarvel({"check", model, "--json"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(
      run.out,
      folder.Expand(
          "{\"file\":\"@a.mps\",\"problems\":[\n"
          "{\"line\":3,\"text\":\"MPS file read error: improper row type (line 3)\"},\n"
          "{\"line\":6,\"text\":\"MPS file read error: improper number of tokens (line 6)\"},"
          "\n"
          "{\"text\":\"Quarvel.dll error: bounds reversed on variable A\"}"
          "],\"count\":3,\"unlisted\":0,\"read\":true,\"hasEndata\":true,\"rows\":1,\"columns\":1,\"elements\":1}\n"));
}

TEST(Check, PrintsJsonWithoutProblems) {
  const HostFolder folder;
  EXPECT_EQ(
      RunQuarvel({"check", folder.Write("a.mps", kSmallModel), "--json"}).out,
      folder.Expand("{\"file\":\"@a.mps\",\"problems\":[],\"count\":0,\"unlisted\":0,\"read\":true,"
                    "\"hasEndata\":true,"
                    "\"rows\":2,\"columns\":2,\"elements\":3}\n"));
}

TEST(Check, CountsPastItsLimit) {
  const HostFolder folder;
  EXPECT_EQ(RunQuarvel({"check", folder.Example("mistakes.mps"), "--limit", "1"}).out,
            folder.Expand(
                "@mistakes.mps:5: MPS file read error: no rows yet, but reading columns (line 5)\n"
                "... 25 more (--limit all lists them)\n"
                "@mistakes.mps: 26 problems; 4 rows, 4 columns, 5 elements\n"));
}

TEST(Check, ListsAThousandProblemsUnlessItIsToldOtherwise) {
  const HostFolder folder;
  std::string model = "ROWS\n L R1\n";
  for (int i = 0; i < 1500; ++i) model += " X R2\n";
  model += "COLUMNS\n A R1 1\nENDATA\n";
  folder.Write("a.mps", model);
  const struct {
    std::vector<std::string> options;
    std::size_t listed;
  } cases[] = {{{}, 1000},
               {{"--limit", "all"}, 1500},
               {{"--limit=1500"}, 1500},
               {{"--limit", "1499"}, 1499},
               {{"--limit", "0"}, 0}};
  for (const auto& c : cases) {
    std::vector<std::string> words = {"check", folder.Path("a.mps")};
    words.insert(words.end(), c.options.begin(), c.options.end());
    const std::string out = RunQuarvel(words).out;
    const std::string more = std::to_string(1500 - c.listed);
    const bool says_more =
        out.find("\n... " + more + " more (--limit all lists them)\n") != std::string::npos ||
        out.starts_with("... 1500 more");
    EXPECT_EQ(says_more, c.listed < 1500) << out.substr(out.size() - 200);
    const auto lines = static_cast<std::size_t>(std::count(out.begin(), out.end(), '\n'));
    EXPECT_EQ(lines, c.listed + (c.listed < 1500 ? 2 : 1));
    EXPECT_TRUE(out.ends_with(": 1500 problems; 1 row, 1 column, 1 element\n"));
    words.emplace_back("--json");
    const std::string json = RunQuarvel(words).out;
    EXPECT_NE(json.find("],\"count\":1500,\"unlisted\":" + more + ","), std::string::npos);
  }
}

TEST(Check, EndsWithAFileThatCannotBeRead) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"check", folder.Path("missing.mps")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, folder.Expand("@missing.mps: File not found\n"
                                   "@missing.mps: 1 problem; not read\n"));
}

TEST(Check, SurvivesBinaryNoise) {
  const HostFolder folder;
  std::string noise = "ROWS\n";
  std::uint32_t state = 12345;
  for (int i = 0; i < 20000; ++i) {
    state = state * 1664525u + 1013904223u;
    noise += static_cast<char>(state >> 24);
  }
  const Outcome run = RunQuarvel({"check", folder.Write("a.mps", noise)});
  EXPECT_EQ(run.status, 1);
  for (const char c : run.out) {
    ASSERT_TRUE(static_cast<unsigned char>(c) >= 0x20 || c == '\n') << static_cast<int>(c);
  }
}

}  // namespace
}  // namespace quarvel
