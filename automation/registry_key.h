// Owns one open key of the registry. Move-only. Failures are raised as RegistryFailure.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include <windows.h>

namespace quarvel::automation {

struct RegistryFailure {
  LSTATUS status;
};

class RegistryKey {
 public:
  RegistryKey() = default;
  // Takes over an open key.
  explicit RegistryKey(HKEY key) : key_(key) {}
  RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
  RegistryKey& operator=(RegistryKey&& other) noexcept {
    std::swap(key_, other.key_);
    return *this;
  }
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;
  ~RegistryKey() {
    if (key_ != nullptr) RegCloseKey(key_);
  }

  // `made` tells whether the key is new. Only the last part of `path` may be missing.
  static RegistryKey Create(HKEY parent, const std::wstring& path, bool& made);
  // An empty holder when there is no such key.
  static RegistryKey OpenToRead(HKEY parent, const std::wstring& path);

  HKEY get() const { return key_; }
  explicit operator bool() const { return key_ != nullptr; }

  // An empty `name` is the key's default value.
  void SetText(const std::wstring& name, const std::wstring& text);
  void SetTexts(const std::wstring& name, const std::vector<std::wstring>& texts);
  // Empty when there is no such value.
  std::vector<std::wstring> Texts(const std::wstring& name) const;

  DWORD CountSubkeys() const;
  DWORD CountValues() const;

 private:
  HKEY key_ = nullptr;
};

// Deletes the key with everything below it; nothing when there is none.
void DeleteKeyTree(HKEY parent, const std::wstring& path);

}  // namespace quarvel::automation
