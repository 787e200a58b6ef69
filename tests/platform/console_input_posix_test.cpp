// What the console makes of a standard input that cannot be read.
#ifndef _WIN32

#include <optional>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include "platform/automation_error.h"
#include "platform/console/console_system.h"
#include "tests/support/form_fixture.h"

namespace quarvel::platform {
namespace {

// Standard input is that descriptor, for a scope.
class StandardInputIs {
 public:
  explicit StandardInputIs(int descriptor) : before_(dup(STDIN_FILENO)) {
    EXPECT_EQ(dup2(descriptor, STDIN_FILENO), STDIN_FILENO);
    close(descriptor);
  }
  ~StandardInputIs() {
    dup2(before_, STDIN_FILENO);
    close(before_);
  }
  StandardInputIs(const StandardInputIs&) = delete;
  StandardInputIs& operator=(const StandardInputIs&) = delete;

 private:
  const int before_;
};

// A descriptor that gives those bytes and fails then: its other end went without having read all.
int FailingAfter(std::string_view bytes) {
  int ends[2] = {};
  EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
  EXPECT_EQ(write(ends[0], "unread", 6), 6);
  EXPECT_EQ(write(ends[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  close(ends[1]);
  return ends[0];
}

TEST(ReadInputLinePosix, TakesAFailureForNoEndAndGivesNoPartOfALine) {
  const StandardInputIs input(FailingAfter("one\ntw"));
  EXPECT_EQ(console::ReadInputLine(), "one");
  EXPECT_EQ(FailureOf([] { console::ReadInputLine(); }), 57);
}

TEST(ReadInputLinePosix, FailsWhereNothingCanBeRead) {
  for (const int flags : {O_RDONLY | O_DIRECTORY, O_WRONLY}) {
    const StandardInputIs input(open(flags == O_WRONLY ? "/dev/null" : "/", flags | O_CLOEXEC));
    EXPECT_EQ(FailureOf([] { console::ReadInputLine(); }), 57) << flags;
  }
}

}  // namespace
}  // namespace quarvel::platform

#endif
