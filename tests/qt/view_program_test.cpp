// The programs `quarvel`, which has no windows, and `quarvel-view`, as they are started by a user.
#include <array>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <sys/wait.h>

#include "tests/support/test_paths.h"

namespace quarvel {
namespace {

constexpr std::string_view kNoDisplay =
    "quarvel: there is no display to show windows on; \"quarvel rows\" prints a model\n";
constexpr std::string_view kWithoutDisplay =
    "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM ";

struct ProgramRun {
  int status = -1;
  std::string text;  // of both streams
};

ProgramRun RunShell(const std::string& command) {
  ProgramRun run;
  FILE* const pipe = popen(("{ " + command + "; } 2>&1 </dev/null").c_str(), "r");
  if (pipe == nullptr) return run;
  std::array<char, 4096> bytes;
  while (const std::size_t count = std::fread(bytes.data(), 1, bytes.size(), pipe)) {
    run.text.append(bytes.data(), count);
  }
  run.status = WEXITSTATUS(pclose(pipe));
  return run;
}

std::string Quoted(const std::string& word) { return '\'' + word + '\''; }

class ViewProgram : public ::testing::Test {
 protected:
  TemporaryFolder folder_;
  std::string quarvel_ = Quoted(QUARVEL_PROGRAM);
  std::string viewer_ = Quoted(QUARVEL_PROGRAM "-view");
  std::string model_ = Quoted(SourceFolder() + "/examples/diet.mps");
};

TEST_F(ViewProgram, SaysThatThereIsNoDisplay) {
  for (const std::string& command : {quarvel_ + " view ", viewer_ + ' '}) {
    const ProgramRun run = RunShell(std::string(kWithoutDisplay) + command + model_);
    EXPECT_EQ(run.status, 1) << command;
    EXPECT_EQ(run.text, kNoDisplay) << command;
  }
}

TEST_F(ViewProgram, SaysThatADisplayDoesNotAnswer) {
  const ProgramRun run =
      RunShell(std::string(kWithoutDisplay) + "env DISPLAY=:65000 " + quarvel_ + " view --edit");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.text, kNoDisplay);
}

TEST_F(ViewProgram, IsGivenTheFileAsItIsNamed) {
  std::filesystem::copy_file(QUARVEL_PROGRAM, folder_.File("quarvel"));
  const std::string viewer = folder_.File("quarvel-view");
  WriteWholeFile(viewer, "#!/bin/sh\nprintf '<%s>' \"$@\"\nexit 7\n");
  std::filesystem::permissions(viewer, std::filesystem::perms::owner_all);
  const ProgramRun run =
      RunShell(Quoted(folder_.File("quarvel")) + " view --edit -- " + Quoted("--no such.mps"));
  EXPECT_EQ(run.status, 7);
  EXPECT_EQ(run.text, "<--edit><--><--no such.mps>");
}

TEST_F(ViewProgram, HelpsAsTheCommandDoes) {
  const ProgramRun run = RunShell(viewer_ + " --help");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.text, RunShell(quarvel_ + " view --help").text);
  EXPECT_TRUE(run.text.starts_with("Usage: quarvel view")) << run.text;
}

TEST_F(ViewProgram, IsMissedWhereItIsNotInstalled) {
  std::filesystem::copy_file(QUARVEL_PROGRAM, folder_.File("quarvel"));
  const ProgramRun run = RunShell(Quoted(folder_.File("quarvel")) + " view " + model_);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.text, "quarvel: the viewer is not installed: there is no " +
                          folder_.File("quarvel-view") +
                          ", which a build with Qt 6 makes; \"quarvel rows\" prints a model\n");
}

TEST_F(ViewProgram, SaysWhichOfItsLibrariesAreMissing) {
  std::filesystem::copy_file(QUARVEL_PROGRAM, folder_.File("quarvel"));
  const std::string viewer = folder_.File("quarvel-view");
  std::string bytes = ReadWholeFile(QUARVEL_PROGRAM "-view");
  const std::string_view known = "libQt6Widgets.so.6";
  const std::size_t at = bytes.find(known);
  ASSERT_NE(at, std::string::npos);
  bytes.replace(at, known.size(), "libQt6Nowhere.so.6");
  WriteWholeFile(viewer, bytes);
  std::filesystem::permissions(viewer, std::filesystem::perms::owner_all);
  const ProgramRun run = RunShell(Quoted(folder_.File("quarvel")) + " view " + model_);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.text, "quarvel: " + viewer +
                          " needs what is not installed: libQt6Nowhere.so.6; Debian's package "
                          "libqt6widgets6 has Qt 6; \"quarvel rows\" prints a model\n");
}

TEST_F(ViewProgram, IsNotTakenWhereItDoesNotStart) {
  std::filesystem::copy_file(QUARVEL_PROGRAM, folder_.File("quarvel"));
  WriteWholeFile(folder_.File("quarvel-view"), "");
  const ProgramRun run = RunShell(Quoted(folder_.File("quarvel")) + " view " + model_);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.text,
            "quarvel: " + folder_.File("quarvel-view") + " does not start: Permission denied\n");
}

// Only who looks at a model needs the toolkit.
TEST_F(ViewProgram, AloneLoadsTheToolkit) {
  EXPECT_EQ(RunShell("ldd " + quarvel_ + " | grep -c Qt").text, "0\n");
  EXPECT_NE(RunShell("ldd " + viewer_ + " | grep -c Qt").text, "0\n");
}

}  // namespace
}  // namespace quarvel
