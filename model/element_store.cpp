#include "model/element_store.h"

#include <algorithm>
#include <utility>

namespace quarvel::model {

ElementStore::ElementStore(const ElementStore& other) { *this = other; }

ElementStore& ElementStore::operator=(const ElementStore& other) {
  if (this == &other) return *this;
  ElementStore copy;
  if (other.size_ > 0) {
    copy.Grow(other.size_);
    std::copy(other.begin(), other.end(), copy.data_);
    copy.size_ = other.size_;
  }
  *this = std::move(copy);
  return *this;
}

ElementStore::ElementStore(ElementStore&& other) noexcept
    : data_(std::exchange(other.data_, nullptr)),
      size_(std::exchange(other.size_, 0)),
      capacity_(std::exchange(other.capacity_, 0)) {}

ElementStore& ElementStore::operator=(ElementStore&& other) noexcept {
  if (this == &other) return *this;
  FreeOwned();
  data_ = std::exchange(other.data_, nullptr);
  size_ = std::exchange(other.size_, 0);
  capacity_ = std::exchange(other.capacity_, 0);
  return *this;
}

void ElementStore::erase(iterator position) {
  std::copy(position + 1, end(), position);
  --size_;
  if (size_ == 0) *this = ElementStore();
}

void ElementStore::resize(std::size_t size) {
  if (size == 0) {
    *this = ElementStore();
    return;
  }
  // A lent list has no capacity of its own, so growing it moves it; shrinking works in place.
  if (size > size_ && size > capacity_) Grow(size);
  if (size > size_) std::fill(data_ + size_, data_ + size, ElementEntry{});
  size_ = static_cast<std::uint32_t>(size);
}

void ElementStore::Lend(ElementEntry* data, std::size_t size) {
  FreeOwned();
  data_ = data;
  size_ = static_cast<std::uint32_t>(size);
  capacity_ = 0;
}

void ElementStore::Grow(std::size_t needed) {
  // Half as much again, so that a list that is appended to entry by entry is copied a constant
  // number of times.
  const std::size_t capacity = std::max<std::size_t>({needed, capacity_ + capacity_ / 2u, 4});
  auto* grown = new ElementEntry[capacity];
  std::copy(begin(), end(), grown);
  FreeOwned();
  data_ = grown;
  capacity_ = static_cast<std::uint32_t>(capacity);
}

ElementEntry* ElementArena::Take(std::size_t count) {
  if (static_cast<std::size_t>(end_ - next_) < count) AddBlock(count);
  ElementEntry* taken = next_;
  next_ += count;
  return taken;
}

void ElementArena::Release() {
  std::vector<platform::Table<ElementEntry>>().swap(blocks_);
  entries_ = 0;
  next_ = nullptr;
  end_ = nullptr;
}

void ElementArena::AppendElsewhere(ElementStore& list, const ElementEntry& entry) {
  const bool is_last = !list.owned() && (list.size() == 0 || list.end() == next_);
  if (!is_last) {
    list.push_back(entry);
    return;
  }
  // The list begins here, or has reached the end of its block and moves to the next one.
  if (next_ == end_) AddBlock(2 * list.size() + 1);
  ElementEntry* start = Take(list.size());
  std::copy(list.begin(), list.end(), start);
  list.Lend(start, list.size());
  *next_++ = entry;
  ++list.size_;
}

void ElementArena::AddBlock(std::size_t entries) {
  // From a mebibyte on, half as much again as there is: large enough to be rare and to stand on
  // large pages. What is not written to at the end of the last one takes no memory.
  constexpr std::size_t kLeast = std::size_t{1} << 16;
  constexpr std::size_t kUsualMost = std::size_t{1} << 20;
  const std::size_t size = std::max(entries, std::clamp(entries_ / 2, kLeast, kUsualMost));
  blocks_.push_back(platform::MakeTable<ElementEntry>(size));
  entries_ += size;
  next_ = blocks_.back().get();
  end_ = next_ + size;
}

}  // namespace quarvel::model
