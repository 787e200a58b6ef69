// The built program with the standard streams, and the limits, that a shell gives it.
#if !defined(_WIN32) && defined(QUARVEL_PROGRAM)

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "tests/hosts/shell_output_posix.h"
#include "tests/support/run_quarvel.h"
#include "tests/support/sanitizers.h"

namespace quarvel {
namespace {

class StandardStreams : public ::testing::Test {
 protected:
  // What the command prints in the folder, where $q is the program, and then its status.
  std::string Run(const std::string& command) const {
    return ShellOutput("cd '" + folder_.Path("") + "' && q='" QUARVEL_PROGRAM "' && { " + command +
                       "; echo status $?; }");
  }

  HostFolder folder_;
};

TEST_F(StandardStreams, ThatCannotBeReadKeepAnEditFromWriting) {
  folder_.Write("a.mps", kSmallModel);
  for (const char* const input : {"< .", "<&-", "0> other"}) {
    EXPECT_EQ(Run("\"$q\" edit a.mps a.mps 2>&1 " + std::string(input)),
              "quarvel: standard input: Device I/O error\nstatus 1\n")
        << input;
    EXPECT_EQ(folder_.Read("a.mps"), kSmallModel) << input;
  }
}

TEST_F(StandardStreams, ThatAreClosedGiveNoFileTheirPlace) {
  folder_.Write("a.mps", kSmallModel);
  for (const char* const closed : {">&-", "2>&-", "<&- >&- 2>&-"}) {
    Run("\"$q\" convert a.mps b.mps " + std::string(closed));
    EXPECT_TRUE(folder_.Read("b.mps").ends_with("ENDATA\r\n")) << closed;
    EXPECT_EQ(folder_.Read("b.mps").find("written"), std::string::npos) << closed;
  }
}

TEST_F(StandardStreams, ThatTakeNoModelAreNotSaidToHaveIt) {
  folder_.Write("a.mps", kSmallModel);
  EXPECT_EQ(Run("\"$q\" convert a.mps - 2>&1 > /dev/full"),
            "quarvel: standard output could not be written\nstatus 1\n");
  std::string model = "ROWS\n N C\nCOLUMNS\n";
  for (int i = 0; i < 40'000; ++i) model += " X" + std::to_string(i) + " C 1\n";
  folder_.Write("b.mps", model + "ENDATA\n");
  Run("\"$q\" convert b.mps - 2> told | head -1 > first");
  EXPECT_EQ(folder_.Read("told"), "");
}

TEST_F(StandardStreams, ThatTakeNoDifferencesAreTroubleAndNoDifference) {
  folder_.Write("a.mps", kSmallModel);
  folder_.Write("b.mps", "ROWS\n N C\nCOLUMNS\n X C 1\nENDATA\n");
  for (const char* const files : {"a.mps a.mps", "a.mps b.mps", "a.mps a.mps --json"}) {
    EXPECT_EQ(Run("\"$q\" diff " + std::string(files) + " 2>&1 > /dev/full"),
              "quarvel: standard output could not be written\nstatus 2\n")
        << files;
  }
}

TEST_F(StandardStreams, AreGoneOnWithUnderNamesOfTheirOwn) {
  folder_.Write("a.mps", kSmallModel);
  // A name as /dev/stdout is, but in a folder where nothing is lost if it is replaced.
  std::filesystem::create_symlink("/proc/self/fd/1", folder_.Path("stdout"));
  EXPECT_EQ(Run("{ echo first; \"$q\" convert a.mps stdout 2> told; echo last; } > all.txt"),
            "status 0\n");
  const std::string all = folder_.Read("all.txt");
  EXPECT_TRUE(all.starts_with("first\n")) << all;
  EXPECT_NE(all.find("ENDATA\r\n"), std::string::npos) << all;
  EXPECT_TRUE(all.ends_with("last\n")) << all;
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.Path("stdout")));
}

TEST_F(StandardStreams, OutliveALimitOfSizes) {
  std::string model = "ROWS\n N C\nCOLUMNS\n";
  for (int i = 0; i < 200; ++i) model += " X" + std::to_string(i) + " C 1\n";
  folder_.Write("a.mps", model + "ENDATA\n");
  EXPECT_EQ(Run("ulimit -f 1; \"$q\" convert a.mps b.mps 2>&1"),
            "quarvel: b.mps: Disk full: the file grows over a limit of this process or of the file "
            "system\nquarvel: b.mps was not written\nstatus 1\n");
  EXPECT_EQ(Run("ls -A"), "a.mps\nstatus 0\n");
  EXPECT_EQ(Run("(ulimit -f 0; \"$q\" check a.mps > /dev/null)"), "status 0\n");
}

// From the first limit under which the system's loader starts the program, which has statuses of its own
// (127) where it cannot: whatever fails first then, it is told.
TEST_F(StandardStreams, AreToldOfAnyLackOfMemory) {
  if (kAddressSanitizer) GTEST_SKIP() << "the sanitizer takes all of the address space";
  folder_.Write("a.mps", kSmallModel);
  folder_.Write("each",
                "seen=loader\n"
                "for limit in $(seq 6000 32 14000); do\n"
                "  told=$( (ulimit -v $limit; exec \"$q\" $command) 2>&1)\n"
                "  case $?:$told in\n"
                "    0:\"$whole\") now=whole;;\n"
                "    $lacks:'quarvel: Out of memory') now=lacks;;\n"
                "    127:*) now=loader;;\n"
                "    *) echo \"$limit: $? $told\"; now=$seen;;\n"
                "  esac\n"
                "  [ $now = $seen ] || echo $now\n"
                "  seen=$now\n"
                "done\n");
  EXPECT_EQ(Run("command='info a.mps' lacks=1; whole=$(\"$q\" $command); . ./each"),
            "lacks\nwhole\nstatus 0\n");
  EXPECT_EQ(Run("command='diff a.mps a.mps' lacks=2; whole=$(\"$q\" $command); . ./each"),
            "lacks\nwhole\nstatus 0\n");
}

}  // namespace
}  // namespace quarvel

#endif
