// QUARVEL_API marks what a program may use of the library. Nothing else of it can be linked against
// where it is shared.
#pragma once

#if defined(_WIN32) && defined(QUARVEL_BUILDING)
#define QUARVEL_API __declspec(dllexport)
#elif defined(_WIN32) && defined(QUARVEL_SHARED)
#define QUARVEL_API __declspec(dllimport)
#elif defined(__GNUC__)
#define QUARVEL_API __attribute__((visibility("default")))
#else
#define QUARVEL_API
#endif
