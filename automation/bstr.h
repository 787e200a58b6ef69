// Owns one BSTR. Inside the component text is UTF-8; at the interface it is UTF-16 of counted
// length, and a null BSTR is the empty text.
#pragma once

#include <new>
#include <string>
#include <string_view>
#include <utility>

#include <windows.h>
#include <oleauto.h>

#include "text/encoding.h"

namespace quarvel::automation {

class Bstr {
 public:
  Bstr() = default;
  // Raises std::bad_alloc when there is no memory.
  explicit Bstr(std::string_view utf8) {
    const std::u16string units = text::Utf8ToUtf16(utf8);
    if (units.size() > kLongest) throw std::bad_alloc();
    text_ = SysAllocStringLen(reinterpret_cast<const OLECHAR*>(units.data()),
                              static_cast<UINT>(units.size()));
    if (text_ == nullptr) throw std::bad_alloc();
  }
  Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  ~Bstr() { SysFreeString(text_); }

  BSTR get() const { return text_; }
  // Where a call is to put a text; the one held so far is freed.
  BSTR* Receive() {
    SysFreeString(std::exchange(text_, nullptr));
    return &text_;
  }
  BSTR Detach() { return std::exchange(text_, nullptr); }

 private:
  // The length of a longer one, counted in bytes, has more than 31 bits.
  static constexpr std::size_t kLongest = 0x3FFFFFF0;

  BSTR text_ = nullptr;
};

// The text as UTF-8; units that are no valid UTF-16 become the replacement character.
inline std::string Utf8FromBstr(BSTR text) {
  return text::Utf16ToUtf8({reinterpret_cast<const char16_t*>(text), SysStringLen(text)});
}

}  // namespace quarvel::automation
