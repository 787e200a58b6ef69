#include "mps/line_batch.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/files.h"
#include "tests/support/test_paths.h"
#include "text/numbers.h"
#include "text/upper_case.h"

namespace quarvel::mps {
namespace {

// A line and its tokens, as far as they are kept.
struct Seen {
  std::size_t characters = 0;
  std::size_t tokens = 0;
  std::vector<std::string> kept;
  bool operator==(const Seen&) const = default;
};

void PrintTo(const Seen& seen, std::ostream* out) {
  *out << seen.characters << " characters, " << seen.tokens << " tokens";
  for (const std::string& token : seen.kept) *out << " [" << token << "]";
}

Seen See(std::size_t characters, const TokenList& tokens) {
  Seen seen{characters, tokens.count(), {}};
  for (std::size_t i = 1; i <= std::min(tokens.count(), TokenList::kKept); ++i) {
    seen.kept.emplace_back(tokens[i]);
  }
  return seen;
}

Seen SeeNext(Line& line) {
  Tokens tokens;
  tokens.Split(line);
  return See(line.characters, tokens);
}

class LineBatchTest : public ::testing::TestWithParam<LineBatch::Way> {
 protected:
  void SetUp() override {
    if (GetParam() != LineBatch::Way::kPlain && GetParam() != LineBatch::BestWay()) {
      GTEST_SKIP() << "this processor or this build has no AVX2";
    }
  }

  LineReader Open(const std::string& bytes) {
    WriteWholeFile(folder_.File("lines.txt"), bytes);
    return LineReader(platform::InputFile(folder_.File("lines.txt")));
  }

  std::vector<Seen> OneByOne(const std::string& bytes) {
    LineReader reader = Open(bytes);
    std::vector<Seen> lines;
    for (Line line; reader.Next(line);) lines.push_back(SeeNext(line));
    return lines;
  }

  // Batches as long as they give lines, then one line the other way. `plain` counts those that came
  // in batches.
  std::vector<Seen> InBatches(const std::string& bytes, std::size_t& plain) {
    LineReader reader = Open(bytes);
    std::vector<Seen> lines;
    LineBatch batch(GetParam());
    for (;;) {
      batch.Fill(reader);
      if (plain % 2 == 0) batch.MakeValues();
      for (std::size_t i = 0; i < batch.size(); ++i) {
        lines.push_back(See(batch[i].size, batch[i].tokens));
        ExpectTrueValues(batch[i]);
      }
      plain += batch.size();
      if (batch.size() > 0) continue;
      Line line;
      if (!reader.Next(line)) return lines;
      lines.push_back(SeeNext(line));
    }
  }

  // What is known ahead is the number that the token is.
  void ExpectTrueValues(const PlainLine& line) {
    for (std::size_t token = 1; token <= TokenList::kKept; ++token) {
      double value = 0;
      if (!line.FindValue(token, value)) continue;
      ASSERT_LE(token, line.tokens.count());
      const std::optional<double> expected = text::ParseNumber(line.tokens[token]);
      ASSERT_TRUE(expected.has_value()) << line.tokens[token];
      ASSERT_EQ(value, *expected) << line.tokens[token];
      ASSERT_EQ(std::signbit(value), std::signbit(*expected)) << line.tokens[token];
      ++values_;
    }
  }

  std::size_t values_ = 0;  // that were known

  void ExpectAgreement(const std::string& bytes) {
    std::size_t plain = 0;
    EXPECT_EQ(InBatches(bytes, plain), OneByOne(bytes)) << ::testing::PrintToString(bytes);
  }

 private:
  TemporaryFolder folder_;
};

constexpr char kTail[] =
    "\nand a tail that is longer than all a group shows of it, twice over "
    "and once more for good measure, so that it is seen\n";

TEST_P(LineBatchTest, TakesPlainLinesOnceTheFileIsInMemory) {
  std::string bytes = "first\n";
  for (int i = 0; i < 100; ++i) bytes += " c" + std::to_string(i) + "  r 1.5\n";
  std::size_t plain = 0;
  const std::vector<Seen> lines = InBatches(bytes + kTail, plain);
  EXPECT_EQ(lines, OneByOne(bytes + kTail));
  EXPECT_EQ(lines[1], (Seen{10, 3, {"C0", "R", "1.5"}}));
  EXPECT_GE(plain, 100u);
}

TEST_P(LineBatchTest, TakesAtMostAFullBatch) {
  std::string bytes;
  for (std::size_t i = 0; i < 3 * LineBatch::kMost; ++i) bytes += "a b\n";
  LineReader reader = Open(bytes);
  Line line;
  ASSERT_TRUE(reader.Next(line));
  LineBatch batch(GetParam());
  batch.Fill(reader);
  EXPECT_EQ(batch.size(), LineBatch::kMost);
}

TEST_P(LineBatchTest, ConvertsTheNumbersOfPairs) {
  LineReader reader =
      Open("first\n c r 1.5\n c r 2 s -0.25\n c r 1e5 s 7\n c\n" + std::string(kTail));
  Line line;
  ASSERT_TRUE(reader.Next(line));
  LineBatch batch(GetParam());
  batch.Fill(reader);
  batch.MakeValues();
  ASSERT_GE(batch.size(), 4u);
  double value = 0;
  EXPECT_TRUE(batch[0].FindValue(3, value));
  EXPECT_EQ(value, 1.5);
  EXPECT_FALSE(batch[0].FindValue(5, value));
  EXPECT_TRUE(batch[1].FindValue(3, value));
  EXPECT_EQ(value, 2);
  EXPECT_TRUE(batch[1].FindValue(5, value));
  EXPECT_EQ(value, -0.25);
  EXPECT_FALSE(batch[2].FindValue(3, value));
  EXPECT_TRUE(batch[2].FindValue(5, value));
  EXPECT_EQ(value, 7);
  EXPECT_FALSE(batch[3].FindValue(3, value));
}

TEST_P(LineBatchTest, ConvertsNothingUnasked) {
  LineReader reader = Open("first\n c r 1.5\n" + std::string(kTail));
  Line line;
  ASSERT_TRUE(reader.Next(line));
  LineBatch batch(GetParam());
  batch.Fill(reader);
  ASSERT_GE(batch.size(), 1u);
  double value = 0;
  EXPECT_FALSE(batch[0].FindValue(3, value));
}

TEST_P(LineBatchTest, SeesTheLineEndsThatOneByOneSees) {
  for (const std::string end : {"\n", "\r", "\r\n", "\n\r", "\n\n", "\r\r\n", "\r\n\r\n"}) {
    std::string bytes = "first" + end;
    for (int i = 0; i < 80; ++i) bytes += " name  " + std::to_string(i) + end;
    ExpectAgreement(bytes);
    ExpectAgreement(bytes + kTail);
  }
}

TEST_P(LineBatchTest, LeavesLongLinesAndOtherAlphabetsAlone) {
  for (std::size_t length = 55; length <= 70; ++length) {
    const std::string bytes = "first\n" + std::string(length, 'q') + "\nx y z\n";
    ExpectAgreement(bytes + kTail);
  }
  ExpectAgreement("first\nplain line\nr\xC3\xA4um 1\nr\xE4um 2\nplain again\n" +
                  std::string(kTail));
}

TEST_P(LineBatchTest, AgreesWithOneByOneAcrossPiecesOfTheFile) {
  static const std::string kBytes = "aZ{~ 0.-    \n\n\r\t" + std::string("\x7F\x80\0", 3);
  std::mt19937 random(5);
  for (int round = 0; round < 6; ++round) {
    std::string bytes;
    while (bytes.size() < 300'000) {
      const std::size_t size = random() % (round < 3 ? 40 : 90);
      for (std::size_t i = 0; i < size; ++i) {
        const std::size_t most = random() % 50 == 0 ? kBytes.size() : 12;
        bytes += kBytes[random() % most];
      }
      bytes += round % 2 == 0 ? "\n" : "\r\n";
    }
    std::size_t plain = 0;
    EXPECT_EQ(InBatches(bytes, plain), OneByOne(bytes));
    EXPECT_GT(plain, 0u);
  }
  EXPECT_GT(values_, 100u);
}

INSTANTIATE_TEST_SUITE_P(EachWay, LineBatchTest,
                         ::testing::Values(LineBatch::Way::kPlain, LineBatch::Way::kAvx2),
                         [](const auto& way) {
                           return way.param == LineBatch::Way::kPlain ? "Plain" : "Avx2";
                         });

}  // namespace
}  // namespace quarvel::mps
