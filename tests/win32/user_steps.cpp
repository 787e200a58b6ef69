#include "tests/win32/user_steps.h"

#include <cstdio>
#include <utility>

#include <gtest/gtest.h>

#include "platform/win32/automation_name.h"

namespace quarvel::platform::win32 {
namespace {

constexpr UINT kStepTurnMs = 10;
constexpr ULONGLONG kStepPatienceMs = 10000;

UserSteps* current = nullptr;

BOOL CALLBACK TellWindow(HWND window, LPARAM) {
  if (!IsWindowVisible(window)) return TRUE;
  // The text of a message box stands under this number.
  const HWND words = GetDlgItem(window, 0xFFFF);
  std::fprintf(stderr, "  there is [%ls] %ls\n", TextOf(window).c_str(),
               words == nullptr ? L"" : TextOf(words).c_str());
  return TRUE;
}

void GiveUp(const std::string& what) {
  std::fprintf(stderr, "the user waits in vain: %s\n", what.c_str());
  EnumThreadWindows(GetCurrentThreadId(), TellWindow, 0);
  std::fflush(stderr);
  ExitProcess(1);
}

struct Search {
  const std::wstring& wanted;
  HWND found;
};

BOOL CALLBACK MatchTitle(HWND window, LPARAM data) {
  auto& search = *reinterpret_cast<Search*>(data);
  if (!IsWindowVisible(window) || TextOf(window) != search.wanted) return TRUE;
  search.found = window;
  return FALSE;
}

BOOL CALLBACK MatchName(HWND window, LPARAM data) {
  auto& search = *reinterpret_cast<Search*>(data);
  wchar_t text[256];
  const auto atom = reinterpret_cast<UINT_PTR>(GetPropW(window, kNameProperty));
  if (atom == 0 || GlobalGetAtomNameW(static_cast<ATOM>(atom), text, 256) == 0) return TRUE;
  if (search.wanted != text) return TRUE;
  search.found = window;
  return FALSE;
}

}  // namespace

UserSteps::UserSteps() : timer_(SetTimer(nullptr, 0, kStepTurnMs, OnTimer)) { current = this; }

UserSteps::~UserSteps() {
  KillTimer(nullptr, timer_);
  current = nullptr;
}

void UserSteps::Until(std::string what, std::function<bool()> step) {
  steps_.push_back({std::move(what), std::move(step), 0});
}

void UserSteps::Then(std::string what, std::function<void()> step) {
  Until(std::move(what), [step = std::move(step)] {
    step();
    return true;
  });
}

void CALLBACK UserSteps::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
  if (current != nullptr) current->Play();
}

void UserSteps::Play() {
  // A step may open a window whose own loop plays the steps after it.
  if (steps_.empty()) {
    if (GetTickCount64() - last_played_ms_ > kStepPatienceMs) GiveUp("nothing is left to do");
    return;
  }
  last_played_ms_ = GetTickCount64();
  Step step = std::move(steps_.front());
  steps_.pop_front();
  if (step.begun_ms == 0) step.begun_ms = GetTickCount64();
  if (GetTickCount64() - step.begun_ms > kStepPatienceMs) GiveUp(step.what);
  if (!step.run()) steps_.push_front(std::move(step));
}

HWND FindTopWindow(const std::wstring& title) {
  Search search = {title, nullptr};
  EnumThreadWindows(GetCurrentThreadId(), MatchTitle, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND FindControl(HWND top, const std::wstring& name) {
  Search search = {name, nullptr};
  EnumChildWindows(top, MatchName, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

std::wstring ClipboardText() {
  if (!OpenClipboard(nullptr)) {
    ADD_FAILURE() << "the clipboard cannot be opened";
    return {};
  }
  const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
  const auto* const text = static_cast<const wchar_t*>(GlobalLock(memory));
  const std::wstring copied = text != nullptr ? text : L"";
  if (text != nullptr) GlobalUnlock(memory);
  CloseClipboard();
  return copied;
}

void PressBoxButton(HWND box, int id) { PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(id), 0); }

void PressKey(HWND window, WPARAM key) {
  PostMessageW(window, WM_KEYDOWN, key, 1);
  PostMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

}  // namespace quarvel::platform::win32
