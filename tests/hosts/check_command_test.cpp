#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/json_value.h"
#include "tests/support/run_quarvel.h"
#include "tests/support/test_paths.h"

namespace quarvel {
namespace {

// The line with the count of a code.
bool HasCount(const std::string& out, const std::string& count, const std::string& code) {
  const std::string line = std::string(9 - count.size(), ' ') + count + "  " + code;
  return out.find('\n' + line) != std::string::npos;
}

TEST(Check, FindsNothingInAGoodFile) {
  const HostFolder folder;
  for (const char* const name : {"diet.mps", "transport.mps", "ranges.mps"}) {
    const Outcome run = RunQuarvel({"check", folder.Example(name)});
    EXPECT_EQ(run.status, 0) << name;
    EXPECT_TRUE(run.out.starts_with(folder.Path(name) + ": no problems; ")) << run.out;
    EXPECT_EQ(run.err, "");
  }
}

TEST(Check, PrintsEachProblemAsACompilerDoes) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps",
      "ROWS\n N  cost\n L  lim\n Q  odd\nCOLUMNS\n    x  cost  1  lmi  2\n    y  cost  1  lim  1,5\n    z  cost  "
      "2  lim  4\nENDATA\n");
  const Outcome run = RunQuarvel({"check", model, "--no-lint"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            folder.Expand("@a.mps:4:2: error: no type of a row: Q [E103 row-type]\n"
                          "    4 |  Q  odd\n"
                          "      |  ^\n"
                          "      = expected: E, G, L or N\n"
                          "@a.mps:6:17: error: no row of this name: LMI [E110 no-such-row]\n"
                          "    6 |     x  cost  1  lmi  2\n"
                          "      |                 ^^^\n"
                          "      = expected: a name of the section ROWS\n"
                          "@a.mps:7:22: error: not a number: 1,5 [E109 not-numeric]\n"
                          "    7 |     y  cost  1  lim  1,5\n"
                          "      |                      ^^^\n"
                          "      = expected: a number such as 12, -0.5 or 1e-6\n"
                          "\n"
                          "        1  E103 row-type\n"
                          "        1  E109 not-numeric\n"
                          "        1  E110 no-such-row\n"
                          "@a.mps: 3 errors; 2 rows, 3 columns, 4 elements\n"));
  EXPECT_EQ(run.err, "");
}

TEST(Check, FindsEachKindOfMistake) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"check", folder.Example("mistakes.mps"), "--no-lint"});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(
      run.out.ends_with(": 21 errors, 9 warnings, 2 adaptations; 4 rows, 4 columns, 5 elements\n"))
      << run.out;
  EXPECT_TRUE(HasCount(run.out, "4", "E109 not-numeric\n")) << run.out;
}

TEST(Check, FindsAnEmptyFile) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"check", folder.Write("a.mps", "")});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(run.out.ends_with(
      folder.Expand("@a.mps: 3 errors, 1 warning; 0 rows, 0 columns, 0 elements\n")))
      << run.out;
}

TEST(Check, WarnsOfAFileThatMayBeCutOff) {
  const HostFolder folder;
  const std::string cut(kSmallModel.substr(0, kSmallModel.rfind("ENDATA")));
  for (const char* const last : {"", " UP BOUND Y 3"}) {
    const Outcome run = RunQuarvel({"check", folder.Write("a.mps", cut + last)});
    EXPECT_EQ(run.status, 3) << last;
    const std::string line = *last == '\0' ? "12" : "13";
    EXPECT_TRUE(run.out.starts_with(folder.Expand(
        "@a.mps:" + line +
        ": warning: no ENDATA line: the file may be cut off [W401 missing-endata]\n")))
        << run.out;
    EXPECT_EQ(run.err, "");
  }
}

TEST(Check, LintsUnlessToldNotTo) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "ROWS\n G need\nCOLUMNS\n x need 1\n x need 3\n y need 2\nENDATA\n");
  const Outcome run = RunQuarvel({"check", model});
  EXPECT_EQ(run.status, 3);
  EXPECT_NE(run.out.find("a.mps: warning: the column has two coefficients in one row: X; in row "
                         "NEED: 1, then 3;"),
            std::string::npos)
      << run.out;
  const Outcome plain = RunQuarvel({"check", model, "--no-lint"});
  EXPECT_EQ(plain.status, 0);
  EXPECT_EQ(plain.out, folder.Expand("@a.mps: no problems; 1 row, 2 columns, 3 elements\n"));
}

TEST(Check, LooksAtTheChosenCodesAndSaysWhatItLeftOut) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "ROWS\n G need\n G idle\n X odd\nCOLUMNS\n x need 1\nENDATA\n");
  const struct {
    std::vector<std::string> options;
    int status;
    std::string end;
  } cases[] = {
      {{"--only", "W"}, 3, "1 warning; 1 filtered out; 2 rows, 1 column, 1 element\n"},
      {{"--only=E1,W401"}, 1, "1 error; 1 filtered out; 2 rows, 1 column, 1 element\n"},
      {{"--ignore", "row-type"}, 3, "1 warning; 1 filtered out; 2 rows, 1 column, 1 element\n"},
      {{"--ignore", "E", "--ignore", "W501"},
       0,
       "no problems; 2 filtered out; 2 rows, 1 column, 1 element\n"},
      {{"--only", "W", "--ignore", "W"},
       0,
       "no problems; 2 filtered out; 2 rows, 1 column, 1 element\n"},
  };
  for (const auto& c : cases) {
    std::vector<std::string> words = {"check", model};
    words.insert(words.end(), c.options.begin(), c.options.end());
    const Outcome run = RunQuarvel(words);
    EXPECT_EQ(run.status, c.status) << c.options[0];
    EXPECT_TRUE(run.out.ends_with("a.mps: " + c.end)) << run.out;
  }
}

TEST(Check, PrintsJson) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps",
      "ROWS\n L R1\n x R2\nCOLUMNS\n A R1 1\n B R1 1 r3 2\nBOUNDS\n LO S A 5\n UP S A 1\n");
  const Outcome run = RunQuarvel({"check", model, "--json", "--no-lint"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(
      run.out,
      folder.Expand(
          "{\"file\":\"@a.mps\",\"problems\":[\n"
          "{\"code\":\"E103\",\"name\":\"row-type\",\"weight\":\"error\",\"line\":3,\"column\":2,"
          "\"length\":1,\"sentence\":\"no type of a row: x\",\"read\":\"x\",\"expected\":\"E, G, L or "
          "N\",\"text\":\" x R2\"},\n"
          "{\"code\":\"E110\",\"name\":\"no-such-row\",\"weight\":\"error\",\"line\":6,\"column\":9,"
          "\"length\":2,\"sentence\":\"no row of this name: R3\",\"item\":\"R3\",\"read\":\"r3\","
          "\"expected\":\"a name of the section ROWS\",\"text\":\" B R1 1 r3 2\"},\n"
          "{\"code\":\"W401\",\"name\":\"missing-endata\",\"weight\":\"warning\",\"line\":9,"
          "\"sentence\":\"no ENDATA line: the file may be cut off\",\"expected\":\"ENDATA\",\"text\":\" "
          "UP S A 1\"},\n"
          "{\"code\":\"E204\",\"name\":\"column-bounds-reversed\",\"weight\":\"error\",\"sentence\":"
          "\"the lower bound of the column is above the upper: A\",\"item\":\"A\",\"expected\":\"lower "
          "<= upper\",\"lines\":[8,9]}],\"counts\":{\"E103\":1,\"E110\":1,\"E204\":1,\"W401\":1},\"errors\":3,"
          "\"warnings\":1,\"adapted\":0,\"unlisted\":0,\"filtered\":0,\"read\":true,\"hasEndata\":"
          "false,\"rows\":1,\"columns\":2,\"elements\":2}\n"));
}

// It can be read once only, so nobody looks for the lines of the bounds.
TEST(Check, ChecksStandardInput) {
  constexpr std::string_view kReversed =
      "ROWS\n L R1\nCOLUMNS\n A R1 1\nBOUNDS\n LO S A 5\n UP S A 1\nENDATA\n";
  const Outcome run = RunQuarvel({"check", "-", "--no-lint"}, kReversed);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            "standard input: error: the lower bound of the column is above the upper: A [E204 "
            "column-bounds-reversed]\n"
            "      = expected: lower <= upper\n\n"
            "        1  E204 column-bounds-reversed\n"
            "standard input: 1 error; 1 row, 1 column, 1 element\n");
}

TEST(Check, PrintsJsonWithoutProblems) {
  const HostFolder folder;
  EXPECT_EQ(
      RunQuarvel({"check", folder.Write("a.mps", kSmallModel), "--json"}).out,
      folder.Expand("{\"file\":\"@a.mps\",\"problems\":[],\"counts\":{},\"errors\":0,"
                    "\"warnings\":0,\"adapted\":0,\"unlisted\":0,\"filtered\":0,\"read\":true,"
                    "\"hasEndata\":true,\"rows\":2,\"columns\":2,\"elements\":3}\n"));
}

TEST(Check, PrintsTwentyOfACodeUnlessItIsToldOtherwise) {
  const HostFolder folder;
  std::string model = "ROWS\n L R1\n";
  for (int i = 0; i < 1500; ++i) model += " X R2\n";
  for (int i = 0; i < 30; ++i) model += " L R1\n";
  model += "COLUMNS\n A R1 1\nENDATA\n";
  folder.Write("a.mps", model);
  const struct {
    std::vector<std::string> options;
    std::ptrdiff_t printed;  // of 1500
  } cases[] = {{{}, 20},
               {{"--limit", "all"}, 1500},
               {{"--limit=1500"}, 1500},
               {{"--limit", "1499"}, 1499},
               {{"--limit", "0"}, 0}};
  for (const auto& c : cases) {
    std::vector<std::string> words = {"check", folder.Path("a.mps"), "--only", "E103,E104"};
    words.insert(words.end(), c.options.begin(), c.options.end());
    const std::string out = RunQuarvel(words).out;
    const std::string more =
        c.printed == 1500 ? ""
                          : "  (" + std::to_string(c.printed) + " printed; --limit all prints all)";
    EXPECT_TRUE(HasCount(out, "1500", "E103 row-type" + more + "\n"))
        << out.substr(out.size() - 200);
    EXPECT_TRUE(out.ends_with(": 1530 errors; 1 row, 1 column, 1 element\n"));
    const auto excerpts = static_cast<std::ptrdiff_t>(std::count(out.begin(), out.end(), '|') / 2);
    EXPECT_EQ(excerpts, c.printed + std::min<std::ptrdiff_t>(c.printed, 30));
    words.emplace_back("--json");
    const JsonValue json = JsonValue::Parse(RunQuarvel(words).out);
    EXPECT_EQ(json["problems"].size(), static_cast<std::size_t>(excerpts));
    EXPECT_EQ(json["errors"].number(), 1530);
    EXPECT_EQ(json["unlisted"].number(), 1530 - static_cast<double>(excerpts));
    EXPECT_EQ(json["counts"]["E103"].number(), 1500);
  }
}

// The text of a line is that of the file, wherever the problem stands in it.
TEST(Check, ShowsTheFilesOwnText) {
  const HostFolder folder;
  const std::string line = " x  r  1  " + std::string(3000, ' ') + "nope  2\n";
  const std::string model = folder.Write(
      "a.mps", "ROWS\n L r\nCOLUMNS\n" + line + " x  oh\xF6  1\n y  r 3\nRHS\nENDATA\n");
  const std::string out = RunQuarvel({"check", model, "--only", "E"}).out;
  EXPECT_NE(out.find("a.mps:4:3011: error: no row of this name: NOPE"), std::string::npos) << out;
  EXPECT_NE(out.find("    4 | ..." + std::string(30, ' ') + "nope  2\n      | " +
                     std::string(33, ' ') + "^^^^\n"),
            std::string::npos)
      << out;
  EXPECT_NE(out.find("    5 |  x  oh\xC3\xB6  1\n      |     ^^^\n"), std::string::npos) << out;
}

TEST(Check, EndsWithAFileThatCannotBeRead) {
  const HostFolder folder;
  const Outcome run = RunQuarvel({"check", folder.Path("missing.mps")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, folder.Expand("@missing.mps: error: the file cannot be read: File not found "
                                   "[E901 failure]\n\n"
                                   "        1  E901 failure\n"
                                   "@missing.mps: 1 error; not read\n"));
  EXPECT_EQ(RunQuarvel({"check", folder.Path("missing.mps"), "--ignore", "E"}).status, 1);
  const std::string json = RunQuarvel({"check", folder.Path("missing.mps"), "--json"}).out;
  EXPECT_NE(json.find("\"read\":false,\"hasEndata\":false,"), std::string::npos) << json;
}

TEST(Check, SaysWhatStandsInPlaceOfAFile) {
  const HostFolder folder;
  const std::string model = folder.Path("a.mps");
  std::filesystem::create_directory(ToPath(model));
  const auto told = [&](std::string_view what) {
    return folder.Expand("@a.mps: error: the file cannot be read: it is a " + std::string(what) +
                         " [E901 failure]\n");
  };
  const std::string of_folder = RunQuarvel({"check", model}).out;
  EXPECT_TRUE(of_folder.starts_with(told("folder, not a file"))) << of_folder;
  std::filesystem::remove(ToPath(model));
  std::error_code error;
  std::filesystem::create_symlink(ToPath(model), ToPath(model), error);
  if (error) GTEST_SKIP() << "no links here: " << error.message();
  const std::string of_link = RunQuarvel({"check", model}).out;
  EXPECT_TRUE(of_link.starts_with(told("link that leads back to itself"))) << of_link;
  EXPECT_EQ(RunQuarvel({"rows", model}).err,
            folder.Expand("quarvel: @a.mps: it is a link that leads back to itself\n"
                          "quarvel: @a.mps was not read\n"));
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

// Files of each status: errors, warnings alone, neither.
class CheckOfSeveral : public ::testing::Test {
 protected:
  const HostFolder folder_;
  const std::string bad_ = folder_.Write("bad.mps", "ROWS\n Q R\nCOLUMNS\n X R 1\nENDATA\n");
  const std::string risky_ =
      folder_.Write("risky.mps", "ROWS\n N C\n L R\nCOLUMNS\n X C 1 R 1\nRHS\n RHS R 4\n");
  const std::string good_ = folder_.Example("diet.mps");
};

TEST_F(CheckOfSeveral, EndsInALineAboutAllAndTheStatusOfTheWorst) {
  const Outcome run = RunQuarvel({"check", good_, bad_, risky_});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            RunQuarvel({"check", good_}).out + RunQuarvel({"check", bad_}).out +
                RunQuarvel({"check", risky_}).out +
                "3 files: 1 with errors, 1 with warnings only, 1 without errors or warnings\n");
  const Outcome warnings = RunQuarvel({"check", risky_, good_});
  EXPECT_EQ(warnings.status, 3);
  EXPECT_TRUE(
      warnings.out.ends_with("\n2 files: 1 with warnings only, 1 without errors or warnings\n"));
  const Outcome clean = RunQuarvel({"check", good_, good_});
  EXPECT_EQ(clean.status, 0);
  EXPECT_TRUE(clean.out.ends_with("\n2 files: 2 without errors or warnings\n"));
}

TEST_F(CheckOfSeveral, GoesOnBehindAFileThatCannotBeRead) {
  const Outcome run = RunQuarvel({"check", folder_.Path("none.mps"), good_});
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(run.out.ends_with("\n2 files: 1 with errors, 1 without errors or warnings\n"))
      << run.out;
}

TEST_F(CheckOfSeveral, PrintsAnObjectALine) {
  const Outcome run = RunQuarvel({"check", bad_, good_, risky_, "--json"});
  EXPECT_EQ(run.status, 1);
  std::vector<std::string> files;
  for (std::size_t at = 0; at < run.out.size();) {
    const std::size_t end = run.out.find('\n', at);
    ASSERT_NE(end, std::string::npos);
    files.push_back(JsonValue::Parse(run.out.substr(at, end - at))["file"].text());
    at = end + 1;
  }
  EXPECT_EQ(files, (std::vector<std::string>{bad_, good_, risky_}));
}

TEST_F(CheckOfSeveral, PrintsOneLogWithARunForEach) {
  const Outcome run = RunQuarvel({"check", bad_, good_, risky_, "--sarif"});
  const JsonValue log = JsonValue::Parse(run.out);
  EXPECT_EQ(log["version"].text(), "2.1.0");
  ASSERT_EQ(log["runs"].size(), 3U);
  EXPECT_NE(log["runs"][0]["results"].size(), 0U);
  EXPECT_EQ(log["runs"][1]["results"].size(), 0U);
  EXPECT_EQ(log["runs"][2]["results"][0]["ruleId"].text(), "W401");
}

}  // namespace
}  // namespace quarvel
