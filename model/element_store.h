// The storage of one list of coefficients, 16 bytes when empty: a model holds one for each of its
// rows and columns. The entries stand in a block of the list's own, or are lent by an ElementArena
// that a read filled for the whole model; a lent list shrinks and changes in place and moves to a
// block of its own when it grows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "model/packed_double.h"
#include "platform/large_pages.h"

namespace quarvel::model {

// One nonzero coefficient as seen from a row (Index = column number) or from a column (Index = row
// number). Numbers are 1-based.
struct ElementEntry {
  std::int32_t Index;
  PackedDouble Value;
  bool operator==(const ElementEntry&) const = default;
};

class ElementStore {
 public:
  using iterator = ElementEntry*;
  using const_iterator = const ElementEntry*;

  ElementStore() = default;
  ~ElementStore() { FreeOwned(); }
  ElementStore(const ElementStore& other);
  ElementStore& operator=(const ElementStore& other);
  ElementStore(ElementStore&& other) noexcept;
  ElementStore& operator=(ElementStore&& other) noexcept;

  std::size_t size() const { return size_; }
  ElementEntry* data() { return data_; }
  const ElementEntry* data() const { return data_; }
  iterator begin() { return data_; }
  iterator end() { return data_ + size_; }
  const_iterator begin() const { return data_; }
  const_iterator end() const { return data_ + size_; }

  void push_back(const ElementEntry& entry) {
    MakeRoom();
    data_[size_++] = entry;
  }
  // The next push_back cannot fail.
  void MakeRoom() {
    if (size_ >= capacity_) Grow(size_ + 1u);  // a lent list has capacity 0 and moves
  }
  void erase(iterator position);
  void resize(std::size_t size);

  // Drops the contents and takes `size` entries at `data`, which their arena keeps alive.
  void Lend(ElementEntry* data, std::size_t size);

 private:
  friend class ElementArena;
  void Grow(std::size_t needed);
  void FreeOwned() {
    if (owned()) delete[] data_;
  }
  bool owned() const { return capacity_ > 0; }

  ElementEntry* data_ = nullptr;
  std::uint32_t size_ = 0;
  std::uint32_t capacity_ = 0;  // 0: nothing, or lent
};

// Memory for many lists that are filled once: large blocks, no bookkeeping for each list. It lives
// as long as any list may still use it (it belongs to the same ModelData) and is emptied with the
// model.
class ElementArena {
 public:
  // Appends to a list: in place when it is the list appended to last (or empty), which costs no
  // allocation of its own; a list that stands elsewhere grows by itself.
  void Append(ElementStore& list, const ElementEntry& entry) {
    if (list.end() == next_ && next_ != end_) {
      // Part by part: copied as a whole, an entry that was just put together is waited for.
      next_->Index = entry.Index;
      next_->Value = entry.Value;
      ++next_;
      ++list.size_;
    } else {
      AppendElsewhere(list, entry);
    }
  }
  // `count` entries side by side, not initialised.
  ElementEntry* Take(std::size_t count);
  // Gives all blocks back. No list may use them any more.
  void Release();

 private:
  void AppendElsewhere(ElementStore& list, const ElementEntry& entry);
  void AddBlock(std::size_t entries);

  std::vector<platform::Table<ElementEntry>> blocks_;
  ElementEntry* next_ = nullptr;
  ElementEntry* end_ = nullptr;
  std::size_t entries_ = 0;  // room of all blocks
};

}  // namespace quarvel::model
