#include "inspect/dialect_points.h"

#include <set>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/test_paths.h"

namespace quarvel::inspect {
namespace {

TEST(DialectPoints, HasATableInTheOrderOfThePoints) {
  std::set<std::string_view> ids;
  for (std::size_t i = 0; i < DialectTable().size(); ++i) {
    const DialectTraits& traits = DialectTable()[i];
    EXPECT_EQ(static_cast<std::size_t>(traits.point), i);
    EXPECT_TRUE(ids.insert(traits.id).second) << traits.id;
    std::set<std::string_view> readings;
    for (const ReaderReading& reading : traits.readings) readings.insert(reading.reading);
    EXPECT_GT(readings.size(), 1U) << traits.id;
  }
}

TEST(DialectPoints, HasEachPointOnItsPage) {
  const std::string page = ReadWholeFile(SourceFolder() + "/docs/dialects.md");
  for (const DialectTraits& traits : DialectTable()) {
    EXPECT_NE(page.find("| `" + std::string(traits.id) + "` |"), std::string::npos) << traits.id;
  }
}

}  // namespace
}  // namespace quarvel::inspect
