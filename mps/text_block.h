// Text that a writer gathers until it hands it over. As a string is, but room behind it may be written to
// in place, which is not filled first.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

namespace quarvel::mps {

class TextBlock {
 public:
  explicit TextBlock(std::size_t room)
      : bytes_(std::make_unique_for_overwrite<char[]>(room)), room_(room) {}

  std::size_t size() const { return size_; }
  std::string_view view() const { return {bytes_.get(), size_}; }
  void clear() { size_ = 0; }

  // So many bytes behind the text, whatever they hold. Valid until the next call; Take makes the first of
  // them text.
  char* Room(std::size_t count) {
    if (room_ - size_ < count) [[unlikely]]
      Grow(count);
    return bytes_.get() + size_;
  }
  void Take(std::size_t count) { size_ += count; }

  TextBlock& operator+=(std::string_view text) {
    text.copy(Room(text.size()), text.size());
    Take(text.size());
    return *this;
  }
  TextBlock& operator+=(char c) {
    *Room(1) = c;
    Take(1);
    return *this;
  }
  void append(std::size_t count, char c) {
    std::memset(Room(count), c, count);
    Take(count);
  }

 private:
  void Grow(std::size_t count) {
    const std::size_t room = std::max(size_ + count, 2 * room_);
    auto grown = std::make_unique_for_overwrite<char[]>(room);
    std::memcpy(grown.get(), bytes_.get(), size_);
    bytes_ = std::move(grown);
    room_ = room;
  }

  std::unique_ptr<char[]> bytes_;
  std::size_t room_;
  std::size_t size_ = 0;
};

}  // namespace quarvel::mps
