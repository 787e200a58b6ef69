#include "platform/win32/file_dialogs.h"

#include <algorithm>
#include <vector>

#include <cderr.h>
#include <commdlg.h>

#include "platform/win32/wide_text.h"

namespace quarvel::platform::win32 {
namespace {

// The longest path that Windows knows, and its end.
constexpr std::size_t kPathRoom = 32768;

bool Ask(FileDialog::Kind kind, OPENFILENAMEW& request) {
  return (kind == FileDialog::Kind::kOpen ? GetOpenFileNameW(&request)
                                          : GetSaveFileNameW(&request)) != FALSE;
}

// These dialogs take full paths only. Empty for none.
std::wstring FullPath(std::string_view folder) {
  if (folder.empty()) return {};
  const std::wstring given = ToWide(folder);
  std::wstring full(kPathRoom, L'\0');
  const DWORD length =
      GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
  full.resize(length < full.size() ? length : 0);
  return full;
}

DWORD FlagsOf(FileDialog::Kind kind) {
  constexpr DWORD kBoth = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST;
  return kBoth | (kind == FileDialog::Kind::kOpen ? OFN_FILEMUSTEXIST : OFN_OVERWRITEPROMPT);
}

}  // namespace

std::wstring SystemFilter(std::string_view filter) {
  if (filter.empty()) return {};
  std::wstring parts = ToWide(filter);
  std::replace(parts.begin(), parts.end(), L'|', L'\0');
  parts += L'\0';
  return parts;
}

std::wstring SystemExtension(std::string_view extension) {
  if (extension.starts_with('.')) extension.remove_prefix(1);
  return ToWide(extension);
}

std::string ChooseFile(const FileDialog& dialog, HWND owner) {
  const std::wstring filter = SystemFilter(dialog.filter);
  const std::wstring extension = SystemExtension(dialog.default_extension);
  const std::wstring folder = FullPath(dialog.folder);
  const std::wstring title = ToWide(dialog.title);
  // Everything else in Windows takes a slash between folders, but not these dialogs.
  std::wstring offered = ToWide(dialog.file_name);
  std::replace(offered.begin(), offered.end(), L'/', L'\\');
  std::vector<wchar_t> path(kPathRoom);
  if (offered.size() < path.size()) std::copy(offered.begin(), offered.end(), path.begin());
  OPENFILENAMEW request = {};
  request.lStructSize = sizeof(request);
  request.hwndOwner = owner;
  request.lpstrFilter = filter.empty() ? nullptr : filter.c_str();
  request.nFilterIndex = 1;
  request.lpstrFile = path.data();
  request.nMaxFile = static_cast<DWORD>(path.size());
  request.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
  request.lpstrTitle = title.empty() ? nullptr : title.c_str();
  request.lpstrDefExt = extension.empty() ? nullptr : extension.c_str();
  request.Flags = FlagsOf(dialog.kind);
  bool chosen = Ask(dialog.kind, request);
  if (!chosen && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
    // A name that the dialog cannot offer is no reason to show none.
    path[0] = L'\0';
    chosen = Ask(dialog.kind, request);
  }
  return chosen ? ToUtf8(path.data()) : std::string();
}

}  // namespace quarvel::platform::win32
