#include "platform/large_pages.h"

#include <cstdint>
#include <vector>

#include <gtest/gtest.h>

namespace quarvel::platform {
namespace {

bool IsAligned(const void* place) {
  return reinterpret_cast<std::uintptr_t>(place) % kTableAlignment == 0;
}

TEST(TableAllocator, KeepsWhatAGrowingArrayHolds) {
  std::vector<std::uint32_t, TableAllocator<std::uint32_t>> table;
  constexpr std::uint32_t kCount = 3'000'000;  // beyond the size where large pages begin
  for (std::uint32_t i = 0; i < kCount; ++i) table.push_back(i * 7);
  for (std::uint32_t i = 0; i < kCount; ++i) ASSERT_EQ(table[i], i * 7);
  EXPECT_TRUE(IsAligned(table.data()));
  table.resize(10);
  table.shrink_to_fit();
  EXPECT_EQ(table[9], 63u);
}

TEST(TableAllocator, AlignsSmallAndBigTables) {
  struct alignas(kTableAlignment) Line {
    char bytes[kTableAlignment];
  };
  for (const std::size_t count : {1u, 3u, 70'000u}) {
    const std::vector<Line, TableAllocator<Line>> lines(count);
    EXPECT_TRUE(IsAligned(lines.data())) << count;
  }
}

TEST(MakeTable, CanBeWrittenFromTheFirstToTheLastEntry) {
  for (const std::size_t count : {0u, 1u, 2'000'000u}) {
    const Table<double> table = MakeTable<double>(count);
    for (std::size_t i = 0; i < count; ++i) table[i] = static_cast<double>(i);
    for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(table[i], static_cast<double>(i));
  }
}

TEST(MakeTable, RefusesMoreThanAddressesCanTell) {
  EXPECT_THROW(MakeTable<double>(SIZE_MAX / 4), std::bad_alloc);
}

}  // namespace
}  // namespace quarvel::platform
