// The name of a record, in 15 bytes: up to 14 bytes of text stand in place, a longer text in a block that the
// name owns. A model holds one for each of its rows and columns, and what it takes is what a read waits
// for: with std::string a record would be half as large again.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>

namespace quarvel::model {

class NameText {
 public:
  static constexpr std::size_t kMostInPlace = 14;

  NameText() = default;
  // Raises std::bad_alloc.
  NameText(std::string_view text) {  // NOLINT(google-explicit-constructor): it is a text
    if (text.size() <= kMostInPlace) [[likely]] {
      text.copy(bytes_.data(), text.size());
      size_ = static_cast<std::uint8_t>(text.size());
    } else {
      TakeBlock(text);
    }
  }
  ~NameText() { FreeBlock(); }
  NameText(const NameText& other) : NameText(other.view()) {}
  NameText(NameText&& other) noexcept : bytes_(other.bytes_), size_(other.size_) {
    other.size_ = 0;
  }
  NameText& operator=(const NameText& other) { return *this = NameText(other); }
  NameText& operator=(NameText&& other) noexcept {
    if (this == &other) return *this;
    FreeBlock();
    bytes_ = other.bytes_;
    size_ = other.size_;
    other.size_ = 0;
    return *this;
  }
  // Without memory for it the name stays as it was.
  NameText& operator=(std::string_view text) { return *this = NameText(text); }

  const char* data() const { return IsInPlace() ? bytes_.data() : GetBlock().text; }
  std::size_t size() const { return IsInPlace() ? size_ : GetBlock().size; }
  bool empty() const { return size_ == 0; }
  // Valid until the name is assigned to or moved.
  std::string_view view() const {
    if (IsInPlace()) [[likely]]
      return {bytes_.data(), size_};
    const Block block = GetBlock();
    return {block.text, block.size};
  }
  // NOLINTBEGIN(google-explicit-constructor): it is a text
  operator std::string_view() const { return view(); }
  operator std::string() const { return std::string(view()); }
  // NOLINTEND(google-explicit-constructor)

  friend bool operator==(const NameText& a, const NameText& b) { return a.view() == b.view(); }
  friend bool operator==(const NameText& a, std::string_view b) { return a.view() == b; }
  friend std::string operator+(std::string text, const NameText& name) {
    return std::move(text.append(name.view()));
  }
  friend std::ostream& operator<<(std::ostream& out, const NameText& name);

 private:
  struct Block {
    char* text;
    std::uint32_t size;
  };
  static constexpr std::uint8_t kInBlock = 0xFF;

  bool IsInPlace() const { return size_ != kInBlock; }
  // Stored without the alignment that a Block needs.
  Block GetBlock() const {
    Block block;
    std::memcpy(&block.text, bytes_.data(), sizeof block.text);
    std::memcpy(&block.size, bytes_.data() + sizeof block.text, sizeof block.size);
    return block;
  }
  void TakeBlock(std::string_view text);
  void FreeBlock() {
    if (!IsInPlace()) [[unlikely]]
      delete[] GetBlock().text;
  }

  std::array<char, kMostInPlace> bytes_{};  // the text, or a block's address and size
  std::uint8_t size_ = 0;                   // of the text in place, or kInBlock
};

}  // namespace quarvel::model
