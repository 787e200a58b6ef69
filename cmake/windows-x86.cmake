# Cross-building for Windows with Debian's mingw-w64.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR X86)
set(triple i686-w64-mingw32)
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")
# Doubles are computed as everywhere else, not with the 80 bits of the x87 unit. The stack is realigned
# because 32-bit callers of other compilers align it to 4 bytes only.
string(APPEND CMAKE_CXX_FLAGS_INIT " -msse2 -mfpmath=sse -mstackrealign")
