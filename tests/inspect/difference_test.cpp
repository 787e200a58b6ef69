#include "inspect/difference.h"

#include <set>
#include <string>

#include <gtest/gtest.h>

namespace quarvel::inspect {
namespace {

using enum DifferenceKind;

TEST(Difference, HasANameOfItsOwnForEachKind) {
  std::set<std::string_view> names;
  for (std::size_t i = 0; i < kDifferenceKinds; ++i) {
    names.insert(NameOf(static_cast<DifferenceKind>(i)));
  }
  EXPECT_EQ(names.size(), kDifferenceKinds);
  EXPECT_FALSE(names.contains(""));
  EXPECT_EQ(NameOf(kModelName), "model-name");
  EXPECT_EQ(NameOf(kElementOrder), "element-order");
}

TEST(Difference, TakesOrderForANoteAndAllElseForADifference) {
  for (std::size_t i = 0; i < kDifferenceKinds; ++i) {
    const auto kind = static_cast<DifferenceKind>(i);
    EXPECT_EQ(IsNote(kind), NameOf(kind).ends_with("-order")) << NameOf(kind);
  }
}

TEST(Difference, CountsAllAndKeepsTheFirstOfEachKind) {
  Differences differences(2);
  EXPECT_TRUE(differences.none());
  differences.Add({kRowOrder, {2, 1}, {}});
  EXPECT_TRUE(differences.none());
  EXPECT_EQ(differences.CountOf(kRowOrder), 1);
  for (std::int32_t i = 1; i <= 5; ++i) differences.Add({kRowLower, {i, i}, {}, 1, 2});
  differences.Add({kColumnWent, {}, {7, 0}});
  EXPECT_FALSE(differences.none());
  EXPECT_EQ(differences.count(), 6);
  EXPECT_EQ(differences.CountOf(kRowLower), 5);
  ASSERT_EQ(differences.FirstOf(kRowLower).size(), 2u);
  EXPECT_EQ(differences.FirstOf(kRowLower)[1], (Difference{kRowLower, {2, 2}, {}, 1, 2}));
  EXPECT_EQ(differences.FirstOf(kColumnWent).size(), 1u);
  EXPECT_TRUE(differences.FirstOf(kColumnCame).empty());
}

}  // namespace
}  // namespace quarvel::inspect
