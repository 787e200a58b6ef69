#include "inspect/record_pairing.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/automation_error.h"

namespace quarvel::inspect {
namespace {

using Names = std::vector<std::string>;

NamedRecords Records(const Names& names) {
  return {static_cast<std::int32_t>(names.size()),
          [&names](std::int32_t number) -> std::string_view {
            return names[static_cast<std::size_t>(number) - 1];
          },
          [&names](std::string_view name) {
            const auto found = std::find(names.begin(), names.end(), name);
            return found == names.end() ? 0 : static_cast<std::int32_t>(found - names.begin()) + 1;
          }};
}

// The partner of each record of A, and of each of B: "2 1 0 | 2 1".
std::string Partners(const Names& a, const Names& b) {
  const RecordPairing pairing(Records(a), Records(b));
  std::string text;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    text += std::to_string(pairing.InB(static_cast<std::int32_t>(i))) + " ";
  }
  text += "|";
  for (std::size_t i = 1; i <= b.size(); ++i) {
    text += " " + std::to_string(pairing.InA(static_cast<std::int32_t>(i)));
  }
  return text;
}

TEST(RecordPairing, PairsRecordsOfOneName) {
  EXPECT_EQ(Partners({"X", "Y", "Z"}, {"Y", "W", "X"}), "3 1 0 | 2 0 1");
  EXPECT_EQ(Partners({}, {"X"}), "| 0");
  EXPECT_EQ(Partners({"X"}, {}), "0 |");
}

TEST(RecordPairing, PairsTheFirstOfANameWithTheFirstAndTheSecondWithTheSecond) {
  EXPECT_EQ(Partners({"X", "Y", "X", "X"}, {"Z", "X", "X", "Y"}), "2 4 3 0 | 0 1 3 2");
  EXPECT_EQ(Partners({"X", "X"}, {"X", "X", "X", "Y", "Y"}), "1 2 | 1 2 0 0 0");
  EXPECT_EQ(Partners({"", ""}, {"", "A", ""}), "1 3 | 1 0 2");
}

TEST(RecordPairing, LooksNoNameUpWhereTheOrderIsTheSame) {
  const Names names = {"X", "Y", "X", "Z"};
  const Names longer = {"X", "Y", "X", "Z", "W"};
  NamedRecords b = Records(names);
  b.find = [](std::string_view) -> std::int32_t {
    ADD_FAILURE() << "a name was looked up";
    return 0;
  };
  EXPECT_TRUE(RecordPairing(Records(names), b).is_same());
  EXPECT_FALSE(RecordPairing(Records(names), Records(longer)).is_same());
  EXPECT_FALSE(RecordPairing(Records(longer), Records(names)).is_same());
  const Names turned = {"Y", "X", "X", "Z"};
  EXPECT_FALSE(RecordPairing(Records(names), Records(turned)).is_same());
}

// The plain way: the n-th of a name belongs to the n-th of that name.
std::string PlainPartners(const Names& a, const Names& b) {
  std::vector<std::size_t> in_b(a.size());
  std::vector<std::size_t> in_a(b.size());
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t j = 0; j < b.size() && in_b[i] == 0; ++j) {
      if (in_a[j] != 0 || b[j] != a[i]) continue;
      in_b[i] = j + 1;
      in_a[j] = i + 1;
    }
  }
  std::string text;
  for (const std::size_t number : in_b) text += std::to_string(number) + " ";
  text += "|";
  for (const std::size_t number : in_a) text += " " + std::to_string(number);
  return text;
}

TEST(RecordPairing, GivesWhatThePlainWayGives) {
  std::mt19937 random(17);
  const auto below = [&random](std::size_t end) { return random() % end; };
  for (int round = 0; round < 3000; ++round) {
    Names a(below(9));
    for (std::string& name : a) name = std::string(1, "WXYZ"[below(4)]);
    Names b = a;
    for (std::size_t edits = below(4); edits > 0 && !b.empty(); --edits) {
      std::swap(b[below(b.size())], b[below(b.size())]);
      if (below(2) == 0) b.erase(b.begin() + static_cast<std::ptrdiff_t>(below(b.size())));
      if (below(2) == 0) b.emplace_back("X");
    }
    ASSERT_EQ(Partners(a, b), PlainPartners(a, b));
  }
}

TEST(RecordPairing, TakesAManifoldNameInLinearTime) {
  const Names names(200'000, "X");
  NamedRecords records = Records(names);
  records.find = [](std::string_view) { return 1; };
  const RecordPairing pairing(records, records);
  EXPECT_EQ(pairing.InB(1), 1);
  EXPECT_EQ(pairing.InB(200'000), 200'000);
  EXPECT_EQ(pairing.InA(100'000), 100'000);
}

TEST(RecordPairing, RaisesForANumberOfNoRecord) {
  const Names names = {"X"};
  const RecordPairing pairing(Records(names), Records(names));
  EXPECT_THROW(pairing.InB(2), AutomationError);
  EXPECT_THROW(pairing.InA(0), AutomationError);
}

}  // namespace
}  // namespace quarvel::inspect
