// What the program does against limits of address space, in processes of their own.
#ifndef _WIN32

#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>
#include <new>
#include <string>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "hosts/packing/file_bytes.h"
#include "hosts/packing/packing.h"
#include "hosts/stack_room.h"
#include "tests/support/run_quarvel.h"
#include "tests/support/sanitizers.h"

namespace quarvel {
namespace {

constexpr std::size_t kKilobyte = 1024;

// What the system says of this process, in kilobytes.
std::size_t OwnSize(const std::string& what) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    std::size_t size = 0;
    if (word == what && status >> size) return size;
  }
  return 0;
}

void LimitFurtherSpace(std::size_t kilobytes) {
  const rlim_t most = (OwnSize("VmSize:") + kilobytes) * kKilobyte;
  const rlimit limit = {most, most};
  setrlimit(RLIMIT_AS, &limit);
}

bool LacksMemory(const std::function<void()>& action) {
  try {
    action();
  } catch (const std::bad_alloc&) {
    return true;
  }
  return false;
}

// The status that the action gives to a process of its own; -1 when a signal ends that.
int StatusOf(const std::function<bool()>& action) {
  const pid_t process = fork();
  if (process == 0) _exit(action() ? 0 : 1);
  int status = 0;
  EXPECT_EQ(waitpid(process, &status, 0), process);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(ClaimStack, HasTheStackGrown) {
  constexpr std::size_t kLeast = 512;
  EXPECT_EQ(StatusOf([] { return hosts::ClaimStack() && OwnSize("VmStk:") >= kLeast; }), 0);
}

TEST(ClaimStack, SaysWhereThereIsNoRoom) {
  EXPECT_EQ(StatusOf([] {
              LimitFurtherSpace(256);
              return !hosts::ClaimStack();
            }),
            0);
}

TEST(ClaimStack, LeavesAStackThatMayNotBeAsLarge) {
  EXPECT_EQ(StatusOf([] {
              constexpr rlimit kSmall = {256 * kKilobyte, 256 * kKilobyte};
              setrlimit(RLIMIT_STACK, &kSmall);
              return hosts::ClaimStack();
            }),
            0);
}

TEST(PackedFiles, TellLackingMemoryFromDamage) {
  if (kAddressSanitizer) {
    GTEST_SKIP() << "the sanitizer ends the program where a library's memory lacks";
  }
  if (hosts::PackingOfSuffix("m.zst")->pack == nullptr) GTEST_SKIP() << "built without zstd";
  // One block of five bytes as they are, in a frame whose window takes 128 MB.
  static constexpr char kFrame[] = "\x28\xB5\x2F\xFD\x00\x88\x29\x00\x00hello";
  const HostFolder folder;
  const std::string path = folder.Write("wide.zst", std::string(kFrame, sizeof kFrame - 1));
  const auto read = [&path] {
    char buffer[8] = {};
    const auto bytes =
        hosts::Unpacked(std::make_unique<platform::FileBytes>(platform::InputFile(path)));
    return bytes->Read(buffer, sizeof buffer);
  };
  EXPECT_EQ(StatusOf([&] { return read() == 5; }), 0);
  EXPECT_EQ(StatusOf([&] {
              LimitFurtherSpace(32 * kKilobyte);
              return LacksMemory(read);
            }),
            0);
}

}  // namespace
}  // namespace quarvel

#endif
