// What the library that is loaded before a program does at its calls of the file system. Only calls
// on files below the folder QUARVEL_FAULT_FOLDER count, from 1. QUARVEL_FAULTS says what happens at
// which, in words that commas part:
//   12=error:28   the 12th call fails with errno 28 and does nothing (a close closes all the same)
//   12+=error:28  and so does every later one that an error of that kind meets: one that needs room
//                 when it is that there is none, else one that changes something
//   12=short      a write takes only half of its bytes
//   12=half       the process is killed when half of the bytes are written
//   12=before:9   signal 9 comes before the call
//   12=after:9    and after it
// QUARVEL_FAULT_RECORD names a file that tells of each call that counts (tests/faults/recorded_calls.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quarvel::faults {

// A call as it is about to be made. What does not apply is left as it is here.
struct Call {
  std::string_view kind;
  // The file, by its name in the folder that really holds it.
  std::string path{};
  // The new name of a rename or a link; what a symbolic link leads to.
  std::string new_path{};
  int descriptor = -1;
  // What the call changes in the folder or the file, or only asks.
  bool changes = true;
  // Whether it may need room on the disk.
  bool needs_room = false;
  // The place in the file; the flags of an open; the length of a truncation; a mode.
  std::int64_t number = 0;
  // What is written.
  const void* bytes = nullptr;
};

struct Fault {
  int error = 0;
  bool is_short = false;
  bool kills_half_way = false;
  int signal_after = 0;
};

// Whether the call is on a file below the folder.
bool Counts(const Call& call);

// Counts the call and gives what is to happen to it. A signal before it has come already.
Fault NextFault(const Call& call);

// Tells the record of a call that was made, and raises what is to come after it.
void Finish(const Call& call, const Fault& fault, std::int64_t result);

// Ends the process as a loss of power would: nothing of it runs any more.
[[noreturn]] void Kill();

// The name of a file in the folder that really holds it; where `follows`, a link's own target. A
// relative name stands below the folder that `folder` is open on (or AT_FDCWD).
std::string RealPath(int folder, const char* path, bool follows);

// What a descriptor is open on.
std::string PathOf(int descriptor);

}  // namespace quarvel::faults
