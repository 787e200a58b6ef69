#ifdef _WIN32

#include <filesystem>

#include <windows.h>
#include <gtest/gtest.h>

#include "hosts/library_search.h"
#include "tests/support/test_paths.h"

namespace quarvel::hosts {
namespace {

namespace fs = std::filesystem;

bool IsLoadedByName(const wchar_t* name) {
  const HMODULE library = LoadLibraryW(name);
  if (library != nullptr) FreeLibrary(library);
  return library != nullptr;
}

TEST(LibrarySearch, LeavesOutTheCurrentFolder) {
  const TemporaryFolder folder;
  const fs::path before = fs::current_path();
  wchar_t self[MAX_PATH] = {};
  ASSERT_NE(GetModuleFileNameW(nullptr, self, MAX_PATH), 0u);
  fs::current_path(fs::path(std::u8string(folder.path().begin(), folder.path().end())));
  fs::copy_file(self, L"planted.dll");
  const bool found_before = IsLoadedByName(L"planted.dll");
  RestrictLibrarySearch();
  const bool found_after = IsLoadedByName(L"planted.dll");
  const bool system_found = IsLoadedByName(L"version.dll");
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
  SetDllDirectoryW(nullptr);
  fs::current_path(before);
  EXPECT_TRUE(found_before);
  EXPECT_FALSE(found_after);
  EXPECT_TRUE(system_found);
}

}  // namespace
}  // namespace quarvel::hosts

#endif
