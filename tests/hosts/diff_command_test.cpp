#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "fuzz/json_text.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

using Words = std::vector<std::string>;

constexpr std::string_view kPlant =
    "* first\n* second\nNAME PLANT\nROWS\n N COST\n L CAP\n G MIN\n E BAL\nCOLUMNS\n"
    " X COST 1 CAP 2\n X MIN 3\n Y CAP 5 BAL 1\n Z COST 7 BAL -1\n"
    "RHS\n RHS CAP 4 MIN 1\nBOUNDS\n UP BOUND X 10\n LO BOUND Y -3\nENDATA\n";

class DiffTest : public ::testing::Test {
 protected:
  Outcome Diff(std::string_view a, std::string_view b, const Words& options = {}) {
    Words words = {"diff", folder_.Write("a.mps", a), folder_.Write("b.mps", b)};
    words.insert(words.end(), options.begin(), options.end());
    return RunQuarvel(words);
  }
  // The lines between the two that name the files and the last one.
  std::string Listed(std::string_view a, std::string_view b, const Words& options = {}) {
    const std::string out = Diff(a, b, options).out;
    const std::size_t start = out.find('\n', out.find("\n+++ ") + 1) + 1;
    return out.substr(start, out.rfind('\n', out.size() - 2) + 1 - start);
  }

  HostFolder folder_;
};

// The text with `from` in the place of its first `to`.
std::string With(std::string_view text, std::string_view from, std::string_view to) {
  std::string changed(text);
  const std::size_t at = changed.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return changed.replace(at, from.size(), to);
}

TEST_F(DiffTest, SaysThatModelsAreTheSame) {
  const Outcome run = Diff(kPlant, kPlant);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out, folder_.Expand("--- @a.mps: 4 rows, 3 columns, 7 elements\n"
                                    "+++ @b.mps: 4 rows, 3 columns, 7 elements\n"
                                    "no differences\n"));
}

TEST_F(DiffTest, ListsWhatCameWentAndChanged) {
  constexpr std::string_view kB =
      "* first\n* 2nd\nNAME PLANT2\nROWS\n N COST\n L CAP\n G NEW\n L BAL\nCOLUMNS\n"
      " X COST 1 CAP 2.5\n W NEW 3 COST 1\n Z CAP 7 BAL -1\n"
      "RHS\n RHS CAP 4.5 NEW 1\nRANGES\n RNG CAP 1\nBOUNDS\n UP BOUND X 9\n MI BOUND Z\nENDATA\n";
  const Outcome run = Diff(kPlant, kB);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            folder_.Expand("--- @a.mps: 4 rows, 3 columns, 7 elements\n"
                           "+++ @b.mps: 4 rows, 3 columns, 6 elements\n"
                           "! name: \"PLANT\" -> \"PLANT2\"\n"
                           "! description, line 2: \"second\" -> \"2nd\"\n"
                           "! row CAP: type L -> R\n"
                           "! row CAP: lower -inf -> 3.5\n"
                           "! row CAP: upper 4 -> 4.5\n"
                           "- row MIN: G, 1 to inf, 1 element\n"
                           "! row BAL: type E -> L\n"
                           "! row BAL: lower 0 -> -inf\n"
                           "+ row NEW: G, 1 to inf, 1 element\n"
                           "! column X: upper 10 -> 9\n"
                           "! element CAP X: 2 -> 2.5\n"
                           "- column Y: R, -3 to inf, 2 elements\n"
                           "! column Z: lower 0 -> -inf\n"
                           "- element COST Z: 7\n"
                           "+ element CAP Z: 7\n"
                           "+ column W: R, 0 to inf, 2 elements\n"
                           "16 differences: 1 model-name, 1 description, 1 row-went, 1 row-came, "
                           "2 row-type, 2 row-lower, 1 row-upper, 1 column-went, 1 column-came, "
                           "1 column-lower, 1 column-upper, 1 element-went, 1 element-came, "
                           "1 element-value\n"));
}

TEST_F(DiffTest, TellsWhatFilesSayOfTheObjective) {
  const std::string b = With(kPlant, " N COST\n", " N OTHER\n N COST\n");
  EXPECT_EQ(Listed(kPlant, b),
            "! objective: COST -> OTHER\n+ row OTHER: N, -inf to inf, 0 elements\n");
}

TEST_F(DiffTest, TakesOrderForANote) {
  const std::string b = With(kPlant, " L CAP\n G MIN\n", " G MIN\n L CAP\n");
  const Outcome run = Diff(kPlant, b);
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.out.find("no differences\nin another order: 1 row-order\n"), std::string::npos)
      << run.out;
}

TEST_F(DiffTest, ComparesWithinATolerance) {
  const std::string b = With(With(kPlant, "X COST 1", "X COST 1.0000000001"), "MIN 3", "MIN 3.01");
  EXPECT_EQ(Listed(kPlant, b), "! element COST X: 1 -> 1.0000000001\n! element MIN X: 3 -> 3.01\n");
  EXPECT_EQ(Listed(kPlant, b, {"--tolerance", "1e-9"}), "! element MIN X: 3 -> 3.01\n");
  EXPECT_EQ(Listed(kPlant, b, {"--tolerance", "0,1e-9"}), "! element MIN X: 3 -> 3.01\n");
  EXPECT_EQ(Diff(kPlant, b, {"--tolerance", "1e-9,0.02"}).status, 0);
  EXPECT_EQ(Diff(kPlant, b, {"--tolerance", "0.01"}).status, 0);
}

TEST_F(DiffTest, ShowsAllDigits) {
  const std::string b = With(kPlant, "X COST 1", "X COST 1.0000000000000002");
  EXPECT_EQ(Listed(kPlant, b), "! element COST X: 1 -> 1.0000000000000002\n");
}

TEST_F(DiffTest, ListsAsManyOfAKindAsItIsTold) {
  std::string a = "NAME\nROWS\n N R\nCOLUMNS\n";
  std::string b = a;
  for (int i = 10; i < 40; ++i) {
    a += " C" + std::to_string(i) + " R 1\n";
    b += " C" + std::to_string(i) + " R 2\n";
  }
  a += "ENDATA\n";
  b += " D R 1\nENDATA\n";
  const Outcome usual = Diff(a, b);
  EXPECT_NE(usual.out.find("! element R C29: 1 -> 2\n+ column D: R, 0 to inf, 1 element\n"
                           "... 10 more (--limit all lists them)\n31 differences: "),
            std::string::npos)
      << usual.out;
  EXPECT_EQ(usual.out.find("C30"), std::string::npos);
  EXPECT_EQ(Listed(a, b, {"--limit", "1"}),
            "! element R C10: 1 -> 2\n+ column D: R, 0 to inf, 1 element\n"
            "... 29 more (--limit all lists them)\n");
  EXPECT_NE(Diff(a, b, {"--limit=all"}).out.find("! element R C39"), std::string::npos);
  EXPECT_EQ(Diff(a, b, {"--limit=0", "--json"}).out,
            folder_.Expand("{\"a\":{\"file\":\"@a.mps\",\"rows\":1,\"columns\":30,\"elements\":30},"
                           "\"b\":{\"file\":\"@b.mps\",\"rows\":1,\"columns\":31,\"elements\":31},"
                           "\"differences\":[],\"counts\":{\"column-came\":1,\"element-value\":30},"
                           "\"unlisted\":31,\"same\":false}\n"));
}

TEST_F(DiffTest, PrintsJson) {
  const std::string b =
      With(With(With(kPlant, " L CAP\n", " G CAP\n"), "X COST 1 CAP 2", "X COST 1"),
           "UP BOUND X 10", "PL BOUND X");
  const Outcome run = Diff(kPlant, b, {"--json"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out.substr(run.out.find("\"differences\"")),
            "\"differences\":[\n"
            "{\"kind\":\"row-type\",\"row\":\"CAP\",\"a\":\"L\",\"b\":\"G\"},\n"
            "{\"kind\":\"row-lower\",\"row\":\"CAP\",\"a\":\"-inf\",\"b\":4},\n"
            "{\"kind\":\"row-upper\",\"row\":\"CAP\",\"a\":4,\"b\":\"inf\"},\n"
            "{\"kind\":\"column-upper\",\"column\":\"X\",\"a\":10,\"b\":\"inf\"},\n"
            "{\"kind\":\"element-went\",\"row\":\"CAP\",\"column\":\"X\",\"a\":2,\"b\":null}\n"
            "],\"counts\":{\"row-type\":1,\"row-lower\":1,\"row-upper\":1,\"column-upper\":1,"
            "\"element-went\":1},\"unlisted\":0,\"same\":false}\n");
  EXPECT_TRUE(fuzz::JsonText::IsValid(run.out));
  EXPECT_EQ(Diff(kPlant, kPlant, {"--json"}).status, 0);
}

TEST_F(DiffTest, PrintsEachKindAsJson) {
  constexpr std::string_view kB =
      "* other\nNAME B\nROWS\n N PROFIT\n L CAP\nCOLUMNS\n M0 'MARKER' 'INTORG'\n X PROFIT 1 CAP 2\n"
      " M1 'MARKER' 'INTEND'\n W CAP 1\nRHS\n RHS CAP 4\nBOUNDS\n UP BOUND X 10\nENDATA\n";
  const Outcome run = Diff(kPlant, kB, {"--json"});
  EXPECT_TRUE(fuzz::JsonText::IsValid(run.out)) << run.out;
  for (
      const char* part :
      {R"({"kind":"model-name","a":"PLANT","b":"B"})",
       R"({"kind":"description","a":"first\r\nsecond","b":"other"})",
       R"({"kind":"objective","a":"COST","b":"PROFIT"})",
       R"({"kind":"row-went","row":"BAL","type":"E","lower":0,"upper":0,"elements":2})",
       R"({"kind":"row-came","row":"PROFIT","type":"N","lower":"-inf","upper":"inf","elements":1})",
       R"({"kind":"column-type","column":"X","a":"R","b":"I"})",
       R"({"kind":"column-went","column":"Y","type":"R","lower":-3,"upper":"inf","elements":2})",
       R"({"kind":"column-came","column":"W","type":"R","lower":0,"upper":"inf","elements":1})"}) {
    EXPECT_NE(run.out.find(part), std::string::npos) << part << "\n" << run.out;
  }
}

TEST_F(DiffTest, IsQuietWhenItIsTold) {
  EXPECT_EQ(Diff(kPlant, kPlant, {"--quiet"}).status, 0);
  const Outcome run = Diff(kPlant, With(kPlant, "MIN 3", "MIN 4"), {"--quiet", "--json"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out + run.err, "");
}

TEST_F(DiffTest, TellsTroubleFromDifferences) {
  const std::string a = folder_.Write("a.mps", kPlant);
  Outcome run = RunQuarvel({"diff", a, folder_.Path("none.mps")});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  run = RunQuarvel({"diff", a, folder_.Write("bad.mps", "ROWS\n Q R\n")});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(RunQuarvel({"diff", a}).status, 2);
  EXPECT_EQ(RunQuarvel({"diff", a, a, "--tolerance", "-1"}).status, 2);
  EXPECT_EQ(RunQuarvel({"diff", a, a, "--tolerance", "1,"}).status, 2);
  EXPECT_EQ(RunQuarvel({"diff", a, a, "--tolerance", "x"}).status, 2);
  run = RunQuarvel({"diff", a, a, "--script", "--json"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err,
            "quarvel: diff takes --script without --json and --quiet\n"
            "quarvel: \"quarvel diff --help\" tells more\n");
  run = RunQuarvel({"diff", a, a, "--script", "--limit", "1"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err,
            "quarvel: diff takes --script without --limit: half of the commands make no B\n"
            "quarvel: \"quarvel diff --help\" tells more\n");
}

TEST_F(DiffTest, ShowsNamesSoThatTheySteerNoTerminal) {
  const std::string b = With(kPlant, "* first", "* \x1b[2J");
  const Outcome run = Diff(kPlant, b);
  EXPECT_NE(run.out.find("line 1: \"first\" -> \"\\x1B[2J\"\n"), std::string::npos) << run.out;
}

}  // namespace
}  // namespace quarvel
