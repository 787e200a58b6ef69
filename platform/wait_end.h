// How a program that listens for Ctrl-C ends its waits for other programs.
#pragma once

namespace quarvel::platform {

// Whether the user has said to stop; null where nobody listens for that. Once it gives true, a call that
// waits at a pipe and is interrupted fails, in the place of being made again. POSIX systems alone ask.
inline bool (*is_wait_over)() = nullptr;

}  // namespace quarvel::platform
