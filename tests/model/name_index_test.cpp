#include "model/name_index.h"

#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace quarvel::model {
namespace {

// Names by number, as records hold them.
class Names {
 public:
  std::string& operator[](std::int32_t number) {
    return names_[static_cast<std::size_t>(number - 1)];
  }
  auto Of() {
    return [this](std::int32_t number) -> const std::string& { return (*this)[number]; };
  }
  std::int32_t Add(NameIndex& index, const std::string& name) {
    names_.push_back(name);
    const auto number = static_cast<std::int32_t>(names_.size());
    index.Add(name, number, Of());
    return number;
  }

 private:
  std::vector<std::string> names_;
};

TEST(NameIndex, FindsNothingInAnEmptyIndex) {
  const NameIndex index;
  EXPECT_EQ(index.Find("X", [](std::int32_t) { return std::string(); }), 0);
}

TEST(NameIndex, TellsNamesOfEveryLengthApart) {
  NameIndex index;
  Names names;
  std::vector<std::string> all = {""};
  for (std::size_t length = 1; length <= 40; ++length) {
    all.push_back(std::string(length, 'A'));
    all.push_back(std::string(length - 1, 'A') + 'B');
    all.push_back('B' + std::string(length - 1, 'A') + 'C');
    all.push_back(std::string(length, '\0'));
    all.push_back(std::string(length - 1, 'A') + '\0');
  }
  std::map<std::string, std::int32_t> expected;
  for (const std::string& name : all) {
    const std::int32_t number = names.Add(index, name);
    expected.emplace(name, number);
  }
  for (const auto& [name, number] : expected) {
    EXPECT_EQ(index.Find(name, names.Of()), number) << name.size();
  }
  EXPECT_EQ(index.Find("ZZZ", names.Of()), 0);
}

TEST(NameIndex, KeepsTheFirstOfTwoEqualNames) {
  NameIndex index;
  Names names;
  names.Add(index, "SAME");
  names.Add(index, "SAME");
  EXPECT_EQ(index.Find("SAME", names.Of()), 1);
}

TEST(NameIndex, ForgetsARemovedName) {
  NameIndex index;
  Names names;
  for (int i = 0; i < 1000; ++i) names.Add(index, "N" + std::to_string(i));
  for (int i = 0; i < 1000; i += 3) index.Remove("N" + std::to_string(i), i + 1);
  for (int i = 0; i < 1000; ++i) {
    EXPECT_EQ(index.Find("N" + std::to_string(i), names.Of()), i % 3 == 0 ? 0 : i + 1);
  }
}

TEST(NameIndex, AsksToBeRebuiltWhenARemovedNameHadASecondOwner) {
  NameIndex index;
  Names names;
  names.Add(index, "SAME");
  names.Add(index, "SAME");
  index.Remove("SAME", 1);
  EXPECT_TRUE(index.stale());
  names[1] = "OTHER";
  index.Rebuild(2, names.Of());
  EXPECT_FALSE(index.stale());
  EXPECT_EQ(index.Find("SAME", names.Of()), 2);
}

// Names that all belong to the same place go on to the places behind it; those move back when one
// is taken out.
TEST(NameIndex, FindsNamesThatCrowdInOnePlace) {
  std::vector<std::string> crowd;
  const auto bucket_of_16 = [](std::string_view name) { return NameKey::Of(name).hash >> 28; };
  const std::uint32_t place = bucket_of_16("0");
  for (int i = 0; crowd.size() < 14; ++i) {
    if (bucket_of_16(std::to_string(i)) == place) crowd.push_back(std::to_string(i));
  }
  std::mt19937 random(3);
  for (int round = 0; round < 200; ++round) {
    NameIndex index;
    Names names;
    std::map<std::string, std::int32_t> expected;
    for (int step = 0; step < 60; ++step) {
      const std::string& name = crowd[random() % crowd.size()];
      const auto found = expected.find(name);
      if (found == expected.end()) {
        expected[name] = names.Add(index, name);
      } else {
        index.Remove(name, found->second);
        expected.erase(found);
      }
      for (const std::string& other : crowd) {
        const auto wanted = expected.find(other);
        ASSERT_EQ(index.Find(other, names.Of()), wanted == expected.end() ? 0 : wanted->second);
      }
    }
  }
}

// Room for so many may be any number of buckets.
TEST(NameIndex, FindsAllNamesInRoomThatWasMadeForThem) {
  for (const std::size_t room : {1u, 47u, 48u, 49u, 145u, 1000u, 1001u, 5000u}) {
    NameIndex index;
    Names names;
    index.Reserve(room);
    const auto count = static_cast<int>(2 * room);
    for (int i = 1; i <= count; ++i) names.Add(index, std::to_string(i));
    for (int i = 1; i <= count; ++i) ASSERT_EQ(index.Find(std::to_string(i), names.Of()), i);
    for (int i = 1; i <= count; i += 2) index.Remove(std::to_string(i), i);
    for (int i = 1; i <= count; ++i) {
      ASSERT_EQ(index.Find(std::to_string(i), names.Of()), i % 2 == 0 ? i : 0) << room;
    }
    EXPECT_EQ(index.Find("0", names.Of()), 0);
  }
}

TEST(NameIndex, AgreesWithAScanThroughRandomChanges) {
  std::mt19937 random(7);
  NameIndex index;
  Names names;
  std::map<std::string, std::int32_t> expected;
  for (int step = 0; step < 20000; ++step) {
    const std::string name =
        std::string(random() % 3 == 0 ? "A_LONG_PREFIX_" : "") + std::to_string(random() % 3000);
    const auto found = expected.find(name);
    ASSERT_EQ(index.Find(name, names.Of()), found == expected.end() ? 0 : found->second);
    if (found == expected.end()) {
      expected[name] = names.Add(index, name);
    } else {
      index.Remove(name, found->second);
      expected.erase(found);
    }
  }
}

}  // namespace
}  // namespace quarvel::model
