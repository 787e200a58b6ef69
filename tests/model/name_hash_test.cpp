// Names that were chosen to meet in one place of a table, by somebody who does not know the secret
// numbers of the process.

#include "model/name_hash.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/name_index.h"

namespace quarvel::model {
namespace {

constexpr std::uint64_t kFirstFactor = 0xD6E8FEB86659FD93u;
constexpr std::uint64_t kSecondFactor = 0x9E3779B97F4A7C15u;
constexpr std::uint64_t kStart = 0x9E3779B97F4A7C15u;

// A hash of 96 bits that everybody can compute: each step can be taken back.
std::uint64_t OpenHash(std::uint64_t low, std::uint32_t high) {
  std::uint64_t hash = (low ^ kStart) * kFirstFactor;
  hash = ((hash ^ (hash >> 32)) + high) * kSecondFactor;
  return hash ^ (hash >> 32);
}

// A chain that everybody can compute but for what it starts from.
std::uint64_t OpenChain(std::uint64_t hash, std::string_view name) {
  for (std::size_t at = 0; at + 8 <= name.size(); at += 8) {
    std::uint64_t word;
    std::memcpy(&word, name.data() + at, sizeof word);
    hash = (hash ^ word) * kSecondFactor;
    hash ^= hash >> 32;
  }
  return hash;
}

// What an odd number is to be multiplied with to give 1.
std::uint64_t InverseOf(std::uint64_t odd) {
  std::uint64_t inverse = odd;
  for (int i = 0; i < 6; ++i) inverse *= 2 - odd * inverse;
  return inverse;
}

std::string NameOf(std::uint64_t low, std::uint32_t high) {
  std::string name(12, '\0');
  std::memcpy(name.data(), &low, sizeof low);
  std::memcpy(name.data() + sizeof low, &high, sizeof high);
  return name;
}

// 96 bits as numbers.
struct Parts {
  std::uint64_t low;
  std::uint32_t high;
};

constexpr std::uint32_t kNames = 1u << 15;

// Short names that OpenHash has in one place, whatever the size of the table. None ends in a NUL.
std::vector<Parts> CraftedForOpenHash() {
  std::vector<Parts> all;
  for (std::uint32_t i = 0; i < kNames; ++i) {
    const std::uint32_t high = 0x41000000u + i;
    std::uint64_t mixed = 0x0123456789ABCDEFu - high;
    mixed ^= mixed >> 32;
    all.push_back({(mixed * InverseOf(kFirstFactor)) ^ kStart, high});
  }
  return all;
}

// Secret numbers that somebody has found out; for those a crafted name is one subtraction.
NameHash::Secrets KnownSecrets() {
  NameHash::Secrets secrets{};
  secrets[3] = std::uint64_t{1} << 32;
  return secrets;
}

std::vector<Parts> CraftedForKnownSecrets() {
  std::vector<Parts> all;
  std::mt19937_64 random(5);
  while (all.size() < kNames) {
    const std::uint64_t low = random();
    const std::uint64_t product = (low >> 32) * (low & 0xFFFFFFFFu);
    const std::uint32_t high = 0x41424344u - static_cast<std::uint32_t>(product >> 32);
    if (high >> 24 != 0 && high != NameKey::kLong) all.push_back({low, high});
  }
  return all;
}

// Names of blocks of 16 bytes, each in one of two shapes between which a chain cannot tell behind
// the block, whatever it started from: the first word's highest bit becomes two bits of the chain,
// and the second word takes them back.
std::vector<std::string> CraftedForChains(std::size_t blocks) {
  constexpr std::uint64_t kTop = std::uint64_t{1} << 63;
  std::vector<std::string> all;
  for (std::uint32_t shape = 0; shape < 1u << blocks; ++shape) {
    std::string name;
    for (std::size_t block = 0; block < blocks; ++block) {
      std::uint64_t words[2] = {0x4142434445464748u, 0x4A4B4C4D4E4F5051u};
      if ((shape >> block & 1) != 0) {
        words[0] ^= kTop;
        words[1] ^= kTop | kTop >> 32;
      }
      name.append(reinterpret_cast<const char*>(words), sizeof words);
    }
    all.push_back(name);
  }
  return all;
}

NameHash::Secrets RandomSecrets(std::uint64_t seed) {
  std::mt19937_64 random(seed);
  NameHash::Secrets secrets;
  std::generate(secrets.begin(), secrets.end(), std::ref(random));
  return secrets;
}

// How many names share the last 15 bits of their place with one before, of 2^15 names.
std::size_t CountMeetings(const NameHash& hash, const std::vector<Parts>& names) {
  std::set<std::uint32_t> places;
  for (const Parts& parts : names) places.insert(hash.Place(parts.low, parts.high) % kNames);
  return names.size() - places.size();
}

// Random names leave about a third of them.
constexpr std::size_t kManyMeetings = kNames / 2;

TEST(NameHash, PutsCraftedShortNamesInOnePlaceForWhoKnowsTheSecretsAlone) {
  const std::vector<Parts> crafted = CraftedForKnownSecrets();
  EXPECT_EQ(CountMeetings(NameHash(KnownSecrets()), crafted), crafted.size() - 1);
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    EXPECT_LT(CountMeetings(NameHash(RandomSecrets(seed)), crafted), kManyMeetings) << seed;
  }
  EXPECT_LT(CountMeetings(NameHash::OfProcess(), crafted), kManyMeetings);
}

TEST(NameHash, ScattersShortNamesThatMeetInAHashWithoutSecrets) {
  const std::vector<Parts> crafted = CraftedForOpenHash();
  std::set<std::uint64_t> open;
  for (const Parts& parts : crafted) open.insert(OpenHash(parts.low, parts.high));
  ASSERT_EQ(open.size(), 1u);
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    EXPECT_LT(CountMeetings(NameHash(RandomSecrets(seed)), crafted), kManyMeetings) << seed;
  }
}

TEST(NameHash, ScattersNamesThatDifferInACounter) {
  std::vector<Parts> counted;
  for (std::uint32_t i = 0; i < kNames; ++i) {
    const std::string digits = std::to_string(100000 + i);
    std::string name = "R" + digits;
    name.resize(12, '\0');
    Parts parts;
    std::memcpy(&parts.low, name.data(), sizeof parts.low);
    std::memcpy(&parts.high, name.data() + sizeof parts.low, sizeof parts.high);
    counted.push_back(parts);
  }
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    EXPECT_LT(CountMeetings(NameHash(RandomSecrets(seed)), counted), kManyMeetings) << seed;
  }
}

// Also names that are too long for sums.
TEST(NameHash, TellsLongNamesApartThatMeetInAChainFromAnyStart) {
  for (const std::size_t blocks : {3u, 4u, 10u}) {
    const std::vector<std::string> crafted = CraftedForChains(blocks);
    for (std::uint64_t seed = 1; seed <= 10; ++seed) {
      std::set<std::uint64_t> chains;
      std::set<std::uint64_t> digests;
      const NameHash hash{RandomSecrets(seed)};
      for (const std::string& name : crafted) {
        chains.insert(OpenChain(seed * kSecondFactor, name));
        digests.insert(hash.Digest(name));
      }
      ASSERT_EQ(chains.size(), 1u);
      EXPECT_EQ(digests.size(), crafted.size());
    }
  }
}

TEST(NameHash, TellsNamesOfEveryLengthApart) {
  const NameHash& hash = NameHash::OfProcess();
  std::set<std::uint64_t> digests;
  for (std::size_t size = 1; size <= 200; ++size) {
    digests.insert(hash.Digest(std::string(size, '\0')));
    digests.insert(hash.Digest(std::string(size, 'A')));
    digests.insert(hash.Digest(std::string(size - 1, 'A') + 'B'));
    digests.insert(hash.Digest('B' + std::string(size, 'A')));
  }
  EXPECT_EQ(digests.size(), 800u);
}

// The numbers of a process come from the system.
TEST(NameHash, GivesOneProcessTheSameEachTime) {
  const NameHash& hash = NameHash::OfProcess();
  EXPECT_EQ(&hash, &NameHash::OfProcess());
  EXPECT_NE(hash.Place(1, 2), hash.Place(2, 1));
  EXPECT_NE(hash.Digest("A_NAME_OF_20_BYTES_1"), hash.Digest("A_NAME_OF_20_BYTES_2"));
}

std::size_t DetoursOf(const std::vector<std::string>& names) {
  NameIndex index;
  const auto name_of = [&names](std::int32_t number) -> const std::string& {
    return names[static_cast<std::size_t>(number - 1)];
  };
  for (std::size_t i = 0; i < names.size(); ++i) {
    index.Add(names[i], static_cast<std::int32_t>(i) + 1, name_of);
  }
  for (std::size_t i = 0; i < names.size(); ++i) {
    EXPECT_EQ(index.Find(names[i], name_of), static_cast<std::int32_t>(i) + 1);
  }
  return index.CountDetours();
}

// In one place they would take a quarter of the square of their number.
TEST(NameHash, LetsLookUpsOfCraftedNamesWalkNoFurtherThanOthers) {
  std::vector<std::string> names;
  for (const Parts& parts : CraftedForOpenHash()) names.push_back(NameOf(parts.low, parts.high));
  EXPECT_LT(DetoursOf(names), 2 * names.size());
  EXPECT_LT(DetoursOf(CraftedForChains(14)), 2u << 14);
}

}  // namespace
}  // namespace quarvel::model
