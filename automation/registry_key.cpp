#include "automation/registry_key.h"

namespace quarvel::automation {
namespace {

void Require(LSTATUS status) {
  if (status != ERROR_SUCCESS) throw RegistryFailure{status};
}

DWORD BytesOf(const std::wstring& text) {
  return static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
}

}  // namespace

RegistryKey RegistryKey::Create(HKEY parent, const std::wstring& path, bool& made) {
  RegistryKey key;
  DWORD disposition = 0;
  Require(RegCreateKeyExW(parent, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                          KEY_READ | KEY_WRITE, nullptr, &key.key_, &disposition));
  made = disposition == REG_CREATED_NEW_KEY;
  return key;
}

RegistryKey RegistryKey::OpenToRead(HKEY parent, const std::wstring& path) {
  RegistryKey key;
  const LSTATUS status = RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key.key_);
  if (status != ERROR_FILE_NOT_FOUND) Require(status);
  return key;
}

void RegistryKey::SetText(const std::wstring& name, const std::wstring& text) {
  Require(RegSetValueExW(key_, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                         BytesOf(text)));
}

void RegistryKey::SetTexts(const std::wstring& name, const std::vector<std::wstring>& texts) {
  std::wstring block;
  for (const std::wstring& text : texts) block += text + L'\0';
  Require(RegSetValueExW(key_, name.c_str(), 0, REG_MULTI_SZ,
                         reinterpret_cast<const BYTE*>(block.c_str()), BytesOf(block)));
}

std::vector<std::wstring> RegistryKey::Texts(const std::wstring& name) const {
  std::vector<std::wstring> texts;
  DWORD size = 0;
  if (RegGetValueW(key_, nullptr, name.c_str(), RRF_RT_REG_MULTI_SZ, nullptr, nullptr, &size) !=
      ERROR_SUCCESS) {
    return texts;
  }
  std::wstring block(size / sizeof(wchar_t), L'\0');
  Require(
      RegGetValueW(key_, nullptr, name.c_str(), RRF_RT_REG_MULTI_SZ, nullptr, block.data(), &size));
  for (std::size_t start = 0; start < block.size() && block[start] != L'\0';) {
    texts.emplace_back(block.c_str() + start);
    start += texts.back().size() + 1;
  }
  return texts;
}

DWORD RegistryKey::CountSubkeys() const {
  DWORD count = 0;
  Require(RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr));
  return count;
}

DWORD RegistryKey::CountValues() const {
  DWORD count = 0;
  Require(RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &count,
                           nullptr, nullptr, nullptr, nullptr));
  return count;
}

void DeleteKeyTree(HKEY parent, const std::wstring& path) {
  const LSTATUS status = RegDeleteTreeW(parent, path.c_str());
  if (status != ERROR_FILE_NOT_FOUND) Require(status);
}

}  // namespace quarvel::automation
