#include "tests/automation/registry_snapshot.h"

#include <algorithm>

#include "text/encoding.h"

namespace quarvel::automation {
namespace {

std::string ShownText(const std::wstring& text) {
  return text::Utf16ToUtf8(std::u16string(text.begin(), text.end()));
}

void AddValues(HKEY key, const std::string& prefix, std::vector<std::string>& lines) {
  for (DWORD i = 0;; ++i) {
    std::wstring name(256, L'\0');
    std::wstring data(4096, L'\0');
    auto name_length = static_cast<DWORD>(name.size());
    auto bytes = static_cast<DWORD>(data.size() * sizeof(wchar_t));
    DWORD type = 0;
    if (RegEnumValueW(key, i, name.data(), &name_length, nullptr, &type,
                      reinterpret_cast<BYTE*>(data.data()), &bytes) != ERROR_SUCCESS) {
      return;
    }
    name.resize(name_length);
    data.resize(bytes / sizeof(wchar_t));
    std::replace(data.begin(), data.end(), L'\0', L';');
    lines.push_back(prefix + " [" + ShownText(name) + "] " + std::to_string(type) + " " +
                    ShownText(data));
  }
}

void AddKey(HKEY parent, const std::wstring& path, const std::string& shown,
            std::vector<std::string>& lines) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
  lines.push_back(shown);
  AddValues(key, shown, lines);
  for (DWORD i = 0;; ++i) {
    std::wstring name(256, L'\0');
    auto length = static_cast<DWORD>(name.size());
    if (RegEnumKeyExW(key, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      break;
    }
    name.resize(length);
    AddKey(key, name, shown + "\\" + ShownText(name), lines);
  }
  RegCloseKey(key);
}

}  // namespace

std::vector<std::string> RegistrySnapshot(HKEY root, const std::wstring& path) {
  std::vector<std::string> lines;
  AddKey(root, path, ShownText(path), lines);
  std::sort(lines.begin(), lines.end());
  return lines;
}

}  // namespace quarvel::automation
