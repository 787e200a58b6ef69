#include "model/row_lists.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <utility>
#include <vector>

#include "model/stored_model.h"
#include "platform/large_pages.h"

namespace quarvel::model {
namespace {

// Places among the entries of all rows, which stand row after row.
using Places = std::vector<std::uint32_t, platform::TableAllocator<std::uint32_t>>;

// A row within its group and a column, in the 32 bits of an index.
class GroupedIndex {
 public:
  // Groups of at most 2^most_row_bits rows, fewer when columns need the bits.
  GroupedIndex(std::int32_t columns, int most_row_bits)
      : column_bits_(static_cast<int>(std::bit_width(static_cast<std::uint32_t>(columns)))),
        row_bits_(std::min(most_row_bits, 32 - column_bits_)) {}

  int row_bits() const { return row_bits_; }
  std::size_t Group(std::int32_t row) const { return static_cast<std::uint32_t>(row) >> row_bits_; }
  std::size_t FirstRow(std::size_t group) const { return group << row_bits_; }

  std::int32_t Pack(std::int32_t row, std::int32_t column) const {
    const std::uint32_t within = static_cast<std::uint32_t>(row) & Mask(row_bits_);
    return static_cast<std::int32_t>(within << column_bits_ | static_cast<std::uint32_t>(column));
  }
  std::size_t RowWithin(std::int32_t packed) const {
    return static_cast<std::uint64_t>(static_cast<std::uint32_t>(packed)) >> column_bits_;
  }
  std::int32_t Column(std::int32_t packed) const {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(packed) & Mask(column_bits_));
  }

 private:
  static std::uint32_t Mask(int bits) {
    return static_cast<std::uint32_t>((std::uint64_t{1} << bits) - 1);
  }
  int column_bits_;
  int row_bits_;
};

class RowLists {
 public:
  explicit RowLists(StoredModel& model)
      : data_(model.data),
        arena_(model.row_arena),
        places_(static_cast<std::size_t>(data_.Rows.size()) + 1, 0) {
    CountElements();
    FindPlaces();
  }

  void Fill() {
    // So many lists have their ends in the processor's cache.
    constexpr std::int32_t kFewRows = 4096;
    // Groups of some hundred kilobytes.
    constexpr int kRowBits = 11;
    constexpr int kLeastRowBits = 6;
    const GroupedIndex index(data_.Columns.size(), kRowBits);
    if (data_.Rows.size() <= kFewRows || index.row_bits() < kLeastRowBits) {
      Lend();
      FillDirectly();
      return;
    }
    Places groups(index.Group(data_.Rows.size()) + 1);
    for (std::size_t g = 0; g < groups.size(); ++g) groups[g] = places_[index.FirstRow(g)];
    // What is copied to put a group in order. Most of the model would take as much memory again.
    std::size_t most_copied = 0;
    for (std::size_t g = 0; g < groups.size(); ++g) {
      const std::size_t size = End(groups, g) - groups[g];
      const std::size_t stays = IsLarge(size) ? Count(LongestRow(index, g)) : 0;
      most_copied = std::max(most_copied, size - stays);
    }
    if (most_copied > total_ / 2) {
      Lend();
      FillDirectly();
      return;
    }
    Places next = groups;
    const platform::Table<ElementEntry> copy = platform::MakeTable<ElementEntry>(most_copied);
    Lend();
    FillGroups(index, next);
    for (std::size_t g = 0; g < groups.size(); ++g) {
      OrderGroup(index, g, {entries_ + groups[g], entries_ + End(groups, g)}, copy.get());
    }
  }

 private:
  // Slot 0 stays 0.
  void CountElements() {
    for (const ColumnRecord& column : data_.Columns) {
      for (const ElementEntry& entry : column.Elements) {
        ++places_[static_cast<std::size_t>(entry.Index)];
      }
    }
    for (const std::uint32_t count : places_) total_ += count;
  }

  // Turns the counts into where each row's room begins.
  void FindPlaces() {
    std::uint32_t next = 0;
    for (std::uint32_t& place : places_) {
      const std::uint32_t count = std::exchange(place, next);
      next += count;
    }
  }

  // Lends each row room for its coefficients. Nothing fails from here on.
  void Lend() {
    entries_ = arena_.Take(total_);
    for (std::int32_t r = 1; r <= data_.Rows.size(); ++r) {
      const auto row = static_cast<std::size_t>(r);
      if (Count(row) > 0) data_.Rows[r].Elements.store().Lend(entries_ + places_[row], Count(row));
    }
  }

  static void Put(ElementEntry& entry, std::int32_t index, PackedDouble value) {
    // Part by part: copied as a whole, an entry that was just put together is waited for.
    entry.Index = index;
    entry.Value = value;
  }

  template <class Visit>
  void ForEachElement(const Visit& visit) const {
    for (std::int32_t c = 1; c <= data_.Columns.size(); ++c) {
      for (const ElementEntry& entry : std::as_const(data_.Columns)[c].Elements) visit(entry, c);
    }
  }

  void FillDirectly() {
    ForEachElement([this](const ElementEntry& entry, std::int32_t c) {
      Put(entries_[places_[static_cast<std::size_t>(entry.Index)]++], c, entry.Value);
    });
  }

  // `next`: where each group's next entry goes.
  void FillGroups(const GroupedIndex& index, Places& next) {
    ForEachElement([&](const ElementEntry& entry, std::int32_t c) {
      Put(entries_[next[index.Group(entry.Index)]++], index.Pack(entry.Index, c), entry.Value);
    });
  }

  // A group of more does not fit into the processor's cache. One is large mostly because of one row, as
  // that of the objective.
  static bool IsLarge(std::size_t group_size) { return group_size > std::size_t{1} << 17; }

  // Until the first entry of its group is put in order.
  std::size_t Count(std::size_t row) const {
    return (row + 1 < places_.size() ? places_[row + 1] : total_) - places_[row];
  }
  std::size_t LongestRow(const GroupedIndex& index, std::size_t g) const {
    const std::size_t end = std::min(index.FirstRow(g + 1), places_.size());
    std::size_t longest = index.FirstRow(g);
    for (std::size_t row = longest; row < end; ++row) {
      if (Count(row) > Count(longest)) longest = row;
    }
    return longest;
  }

  // `copy`: room for what has to be copied.
  void OrderGroup(const GroupedIndex& index, std::size_t g, std::span<ElementEntry> group,
                  ElementEntry* copy) {
    ElementEntry* const copied = IsLarge(group.size())
                                     ? OrderLongestRow(index, LongestRow(index, g), group, copy)
                                     : std::copy(group.begin(), group.end(), copy);
    std::uint32_t* const places = places_.data() + index.FirstRow(g);
    for (const ElementEntry& entry : std::span(copy, copied)) {
      Put(entries_[places[index.RowWithin(entry.Index)]++], index.Column(entry.Index), entry.Value);
    }
  }

  // Puts that row of the group in order without a copy of it, and copies the others. Gives their end.
  ElementEntry* OrderLongestRow(const GroupedIndex& index, std::size_t row,
                                std::span<ElementEntry> group, ElementEntry* copy) {
    const std::size_t count = Count(row);
    const std::size_t within = index.RowWithin(index.Pack(static_cast<std::int32_t>(row), 0));
    auto kept = group.begin();
    for (const ElementEntry& entry : group) {
      if (index.RowWithin(entry.Index) == within) {
        Put(*kept++, index.Column(entry.Index), entry.Value);
      } else {
        *copy++ = entry;
      }
    }
    std::memmove(entries_ + places_[row], group.data(), count * sizeof(ElementEntry));
    return copy;
  }

  std::size_t End(const Places& groups, std::size_t g) const {
    return g + 1 < groups.size() ? groups[g + 1] : total_;
  }

  ModelData& data_;
  ElementArena& arena_;
  Places places_;  // by row; first the counts, then where the row's next entry goes
  ElementEntry* entries_ = nullptr;
  std::size_t total_ = 0;
};

}  // namespace

void FillRowLists(StoredModel& model) { RowLists(model).Fill(); }

}  // namespace quarvel::model
