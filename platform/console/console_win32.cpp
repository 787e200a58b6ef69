#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <iostream>
#include <new>

#include <windows.h>

#include "platform/automation_error.h"
#include "platform/console/console_system.h"
#include "text/encoding.h"

namespace quarvel::platform::console {
namespace {

// The system calls the handler on a thread of its own and passes it no context.
std::atomic<int> interrupt_count = 0;
std::atomic<bool> next_is_noted = false;
int watch_count = 0;
int count_at_first_watch = 0;
std::atomic<HANDLE> waiting_thread = nullptr;  // it waits for standard input

BOOL WINAPI NoteInterrupt(DWORD event) {
  // What is not handled here ends the program.
  if (event != CTRL_C_EVENT || !next_is_noted.exchange(false)) return FALSE;
  ++interrupt_count;
  if (const HANDLE thread = waiting_thread) CancelSynchronousIo(thread);
  return TRUE;
}

// A handle of this thread that others may use, for the time of the program.
HANDLE OwnThread() {
  static const HANDLE thread = [] {
    const HANDLE process = GetCurrentProcess();
    HANDLE own = nullptr;
    DuplicateHandle(process, GetCurrentThread(), process, &own, 0, FALSE, DUPLICATE_SAME_ACCESS);
    return own;
  }();
  return thread;
}

// What a Ctrl-C ends at a console may come back before the handler was called.
void WaitForHandler() {
  constexpr int kMostTurns = 100;
  constexpr DWORD kTurnMs = 10;
  for (int turn = 0; turn < kMostTurns && !InterruptNoted(); ++turn) Sleep(kTurnMs);
}

bool IsConsole(DWORD which) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(which), &mode) != 0;
}

void WriteToConsole(std::string_view text) {
  const std::u16string units = text::Utf8ToUtf16(text);
  const std::wstring wide(units.begin(), units.end());
  DWORD written = 0;
  WriteConsoleW(GetStdHandle(STD_ERROR_HANDLE), wide.data(), static_cast<DWORD>(wide.size()),
                &written, nullptr);
}

// Without memory for UTF-16; what is told of that lack is ASCII.
void WriteAsciiToConsole(std::string_view text) {
  DWORD written = 0;
  WriteConsoleA(GetStdHandle(STD_ERROR_HANDLE), text.data(), static_cast<DWORD>(text.size()),
                &written, nullptr);
}

TerminalSize SizeOf(DWORD stream) {
  CONSOLE_SCREEN_BUFFER_INFO info = {};
  if (GetConsoleScreenBufferInfo(GetStdHandle(stream), &info) == 0) return {};
  return {.width = static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1),
          .height = static_cast<std::size_t>(info.srWindow.Bottom - info.srWindow.Top + 1)};
}

std::optional<std::string> ReadFromConsole() {
  std::u16string line;
  std::array<wchar_t, 512> piece;
  while (!line.ends_with(u'\n')) {
    DWORD count = 0;
    const BOOL read = ReadConsoleW(GetStdHandle(STD_INPUT_HANDLE), piece.data(),
                                   static_cast<DWORD>(piece.size()), &count, nullptr);
    if (read == 0 || count == 0) return std::nullopt;
    line.append(piece.begin(), piece.begin() + count);
  }
  // Ctrl-Z at the start of a line is how a Windows user ends the input.
  if (line.starts_with(u'\x1A')) return std::nullopt;
  line.resize(line.find_last_not_of(u"\r\n") + 1);
  return text::Utf16ToUtf8(line);
}

}  // namespace

bool InputIsTerminal() { return IsConsole(STD_INPUT_HANDLE); }

bool ErrorIsTerminal() { return IsConsole(STD_ERROR_HANDLE); }

bool OutputIsTerminal() { return IsConsole(STD_OUTPUT_HANDLE); }

TerminalSize OutputSize() { return SizeOf(STD_OUTPUT_HANDLE); }

TerminalSize ErrorSize() { return SizeOf(STD_ERROR_HANDLE); }

bool OutputTakesColors() {
  constexpr DWORD kTakesCodes = 0x0004;  // ENABLE_VIRTUAL_TERMINAL_PROCESSING, since Windows 10
  const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD mode = 0;
  return GetConsoleMode(output, &mode) != 0 && SetConsoleMode(output, mode | kTakesCodes) != 0;
}

void WriteError(std::string_view text) {
  if (!ErrorIsTerminal()) {
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fflush(stderr);
    return;
  }
  try {
    WriteToConsole(text);
  } catch (const std::bad_alloc&) {
    WriteAsciiToConsole(text);
  }
}

std::optional<std::string> ReadInputLine() {
  if (InputIsTerminal()) return ReadFromConsole();
  std::string line;
  const bool has_line = static_cast<bool>(std::getline(std::cin, line));
  // The stream gives out the start of a line whose rest could not be read.
  const bool has_failed = std::ferror(stdin) != 0;
  if (!has_line || has_failed) {
    std::cin.clear();
    std::clearerr(stdin);
    if (has_failed) RaiseRunTimeError(RunTimeError::kDeviceIoError);
    return std::nullopt;
  }
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

std::size_t ReadInputBytes(char* buffer, std::size_t capacity) {
  constexpr std::size_t kMost = std::size_t{1} << 20;
  DWORD count = 0;
  const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
  const auto wanted = static_cast<DWORD>(std::min(capacity, kMost));
  SetLastError(ERROR_SUCCESS);
  waiting_thread = OwnThread();
  const bool is_read = !InterruptNoted() && ReadFile(input, buffer, wanted, &count, nullptr) != 0;
  const DWORD error = GetLastError();
  waiting_thread = nullptr;
  if (error == ERROR_OPERATION_ABORTED) WaitForHandler();
  if (InterruptNoted()) RaiseRunTimeError(RunTimeError::kDeviceIoError);
  if (is_read) return count;
  if (error == ERROR_BROKEN_PIPE) return 0;
  RaiseRunTimeError(RunTimeError::kDeviceIoError);
}

bool InterruptNoted() { return watch_count > 0 && interrupt_count != count_at_first_watch; }

InterruptWatch::InterruptWatch() : count_at_start_(interrupt_count) {
  if (watch_count++ > 0) return;
  count_at_first_watch = interrupt_count;
  next_is_noted = true;
  SetConsoleCtrlHandler(NoteInterrupt, TRUE);
}

InterruptWatch::~InterruptWatch() {
  if (--watch_count == 0) SetConsoleCtrlHandler(NoteInterrupt, FALSE);
}

bool InterruptWatch::Arrived() const { return interrupt_count != count_at_start_; }

}  // namespace quarvel::platform::console

#endif
