#include "model/name_key.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace quarvel::model {
namespace {

// Names of every length that differ from each other in one byte, with NULs and high bytes too.
std::vector<std::string> ManyNames() {
  std::vector<std::string> names = {"", std::string(1, '\0'), std::string(12, '\xFF')};
  for (std::size_t length = 1; length <= 40; ++length) {
    const std::string base(length, 'N');
    names.push_back(base);
    for (std::size_t i = 0; i < length; ++i) {
      names.push_back(base);
      names.back()[i] = 'M';
    }
    names.push_back(base.substr(1) + '\0');
  }
  return names;
}

bool AreEqual(const NameKey& a, const NameKey& b) {
  return a.Equals(b.low, b.high) && a.hash == b.hash;
}

TEST(NameKey, IsTheSameWhateverStandsBehindTheName) {
  for (const std::string& name : ManyNames()) {
    for (const char behind : {'\0', 'N', '\xFF'}) {
      const std::string buffer = name + std::string(NameKey::kReadable, behind);
      EXPECT_TRUE(AreEqual(NameKey::OfPadded(std::string_view(buffer).substr(0, name.size())),
                           NameKey::Of(name)))
          << ::testing::PrintToString(name);
    }
  }
}

TEST(NameKey, DiffersForShortNamesThatDiffer) {
  const std::vector<std::string> names = ManyNames();
  for (std::size_t i = 0; i < names.size(); ++i) {
    for (std::size_t k = 0; k < i; ++k) {
      if (names[i] == names[k]) continue;
      const NameKey a = NameKey::Of(names[i]);
      const NameKey b = NameKey::Of(names[k]);
      EXPECT_TRUE(a.is_long() || b.is_long() || !a.Equals(b.low, b.high))
          << ::testing::PrintToString(names[i]) << ::testing::PrintToString(names[k]);
    }
  }
}

TEST(NameKey, ComparesNamesInTheirBuffers) {
  const std::vector<std::string> names = ManyNames();
  for (const std::string& name : names) {
    for (const std::string& other : names) {
      const std::string a = name + std::string(NameKey::kReadable, 'x');
      const std::string b = other + std::string(NameKey::kReadable, 'y');
      EXPECT_EQ(NameKey::AreSamePadded(std::string_view(a).substr(0, name.size()),
                                       std::string_view(b).substr(0, other.size())),
                name == other);
    }
  }
}

}  // namespace
}  // namespace quarvel::model
