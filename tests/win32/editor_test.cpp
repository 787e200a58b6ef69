// Which program opens a text, and what stands in its way.
#include "platform/win32/editor.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <tlhelp32.h>

#include "tests/support/test_paths.h"

namespace quarvel::platform::win32 {
namespace {

namespace fs = std::filesystem;

std::wstring SystemFolder() {
  wchar_t folder[MAX_PATH] = {};
  EXPECT_NE(GetSystemDirectoryW(folder, MAX_PATH), 0u);
  return folder;
}

TEST(Editor, IsTheSystemsOwnWithItsFolder) {
  const auto command = EditorOf("C:\\m\\a model.log");
  ASSERT_TRUE(command);
  EXPECT_EQ(command->program, SystemFolder() + L"\\notepad.exe");
  EXPECT_EQ(command->line, L"\"" + command->program + L"\" \"C:\\m\\a model.log\"");
  EXPECT_EQ(command->folder, SystemFolder());
}

TEST(Editor, GetsTheFullNameOfAFile) {
  for (const char* path : {"model.log", "/p", "-p", "\xC3\xA4 b.log"}) {
    const auto command = EditorOf(path);
    ASSERT_TRUE(command) << path;
    const std::size_t file = command->line.find(L"\" \"") + 3;
    EXPECT_EQ(command->line.substr(file + 1, 2), L":\\") << path;
  }
}

TEST(Editor, IsNotStartedForANameThatNoCommandLineCanHold) {
  EXPECT_FALSE(EditorOf("C:\\m\\a\" /p \"b.log"));
  EXPECT_FALSE(EditorOf("C:\\m\\" + std::string(40000, 'x') + ".log"));
  EXPECT_FALSE(StartEditor("C:\\m\\a\" /p \"b.log"));
}

// The programs of that name that this one has started.
std::vector<DWORD> Children(const std::wstring& name) {
  std::vector<DWORD> found;
  const HANDLE all = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  PROCESSENTRY32W entry = {};
  entry.dwSize = sizeof(entry);
  for (BOOL more = Process32FirstW(all, &entry); more; more = Process32NextW(all, &entry)) {
    const bool ours = entry.th32ParentProcessID == GetCurrentProcessId();
    if (ours && name == entry.szExeFile) found.push_back(entry.th32ProcessID);
  }
  CloseHandle(all);
  return found;
}

// The file of a program, which ends.
std::wstring EndAndTellFile(DWORD id) {
  const HANDLE process =
      OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id);
  wchar_t file[MAX_PATH] = {};
  DWORD size = MAX_PATH;
  EXPECT_TRUE(QueryFullProcessImageNameW(process, 0, file, &size));
  TerminateProcess(process, 0);
  WaitForSingleObject(process, 10'000);
  CloseHandle(process);
  return file;
}

TEST(Editor, IsNotTheProgramOfItsNameInTheCurrentFolder) {
  const TemporaryFolder folder;
  const fs::path before = fs::current_path();
  wchar_t self[MAX_PATH] = {};
  ASSERT_NE(GetModuleFileNameW(nullptr, self, MAX_PATH), 0u);
  fs::current_path(fs::path(std::u8string(folder.path().begin(), folder.path().end())));
  fs::copy_file(fs::path(self).parent_path() / L"quarvel.exe", L"notepad.exe");
  WriteWholeFile(folder.File("model.log"), "a log");
  const bool started = StartEditor("model.log");
  const std::vector<DWORD> editors = Children(L"notepad.exe");
  fs::current_path(before);
  EXPECT_TRUE(started);
  ASSERT_EQ(editors.size(), 1u);
  const std::wstring file = EndAndTellFile(editors[0]);
  EXPECT_EQ(_wcsicmp(file.c_str(), (SystemFolder() + L"\\notepad.exe").c_str()), 0)
      << fs::path(file);
}

}  // namespace
}  // namespace quarvel::platform::win32
