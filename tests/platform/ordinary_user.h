// The rights of an ordinary user in tests that may run as root. POSIX systems alone.
#pragma once

#ifndef _WIN32

#include <gtest/gtest.h>
#include <sys/types.h>
#include <unistd.h>

namespace quarvel::platform {

inline constexpr uid_t kNobody = 65534;

// For a scope. Where the tests do not run as root, nothing changes.
class OrdinaryUser {
 public:
  OrdinaryUser() {
    if (before_ == 0 && seteuid(kNobody) != 0) ADD_FAILURE() << "still root";
  }
  ~OrdinaryUser() {
    if (before_ == 0 && seteuid(before_) != 0) ADD_FAILURE() << "no longer root";
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  const uid_t before_ = geteuid();
};

}  // namespace quarvel::platform

#endif
