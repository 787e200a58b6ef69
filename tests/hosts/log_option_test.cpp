#include "hosts/log_option.h"

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "platform/automation_error.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

std::string Objection(const std::string& log, const std::string& what) {
  return "cannot keep the log in " + log + ", which is " + what;
}

TEST(ObjectionToLog, KnowsAModelByWhateverName) {
  const HostFolder folder;
  const std::string in = folder.Write("in.mps", kSmallModel);
  const Words operands = {in, folder.Path("out.mps")};
  EXPECT_EQ(hosts::ObjectionToLog(folder.Path("log"), operands), "");
  for (const char* const name : {"in.mps", "./in.mps", "out.mps", "./out.mps", ".//./out.mps"}) {
    const std::string log = folder.Path(name);
    EXPECT_EQ(hosts::ObjectionToLog(log, operands), Objection(log, "a model"));
  }
}

TEST(ObjectionToLog, KnowsTheBackupsOfWhatIsReadOrWritten) {
  const HostFolder folder;
  const std::string in = folder.Write("in.mps", kSmallModel);
  const std::vector<Words> commands = {{in, folder.Path("./in.mps")},
                                       {in, folder.Path("out.mps")},
                                       {folder.Path("out.mps"), in},
                                       {in}};
  for (const Words& operands : commands) {
    for (const char* const name : {"in.bkp", "./in.bkp", "in.bkp.1", "in.bkp.12"}) {
      const std::string log = folder.Path(name);
      EXPECT_EQ(hosts::ObjectionToLog(log, operands), Objection(log, "the backup of a model"));
    }
    for (const char* const name : {"in.log", "in.bkp.x", "in.bkp1", "1", "other.bkp"}) {
      EXPECT_EQ(hosts::ObjectionToLog(folder.Path(name), operands), "") << name;
    }
  }
}

TEST(ObjectionToLog, KnowsStandardOutputAndNamesOfPackedFiles) {
  EXPECT_EQ(hosts::ObjectionToLog("-", Words{"-"}), "");
  EXPECT_EQ(
      hosts::ObjectionToLog("x.log.gz", Words{"in.mps"}),
      "cannot keep the log in x.log.gz, whose name says that it is packed: a log is plain text");
}

TEST(ObjectionToLog, KnowsTemporaryFiles) {
  const std::string log = "a/.in.mps.quarvel-0~";
  EXPECT_EQ(hosts::ObjectionToLog(log, Words{"in.mps"}),
            Objection(log, "the name of a temporary file"));
}

Outcome Simplify(const HostFolder& folder, const std::string& log) {
  return RunQuarvel({"simplify", folder.Path("in.mps"), folder.Path("out.mps"), "--log", log});
}

TEST(LogOption, IsRefusedOverAFileThatIsNotThereYet) {
  const HostFolder folder;
  folder.Write("in.mps", kSmallModel);
  const Outcome run = Simplify(folder, folder.Path("./out.mps"));
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(run.err.starts_with(
      folder.Expand("quarvel: simplify cannot keep the log in @./out.mps, which is a model\n")));
  EXPECT_FALSE(folder.Has("out.mps"));
}

TEST(LogOption, IsRefusedWhereNothingIsSimplified) {
  const HostFolder folder;
  const std::string model = folder.Write("in.mps", kSmallModel);
  const std::string log = folder.Path("steps.txt");
  for (const Words& words : {Words{"info", model, "--log", log},
                             {"convert", model, folder.Path("out.mps"), "--log", log}}) {
    const Outcome run = RunQuarvel(words);
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(run.err.starts_with("quarvel: " + words[0] +
                                    " takes --log with --simplify, whose doings it lists\n"))
        << run.err;
  }
  EXPECT_EQ(RunQuarvel({"info", model, "--log", log, "--simplify"}).status, 0);
  EXPECT_NE(folder.Read("steps.txt").find("Converted row R2"), std::string::npos);
}

TEST(LogOption, SaysThatNothingWasWrittenWithoutIt) {
  const HostFolder folder;
  folder.Write("in.mps", kSmallModel);
  fs::create_directory(ToPath(folder.Path("log")));
  const Outcome run = Simplify(folder, folder.Path("log"));
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(run.err.ends_with(folder.Expand("; @out.mps was not written\n"))) << run.err;
  EXPECT_FALSE(folder.Has("out.mps"));
}

#ifndef _WIN32
TEST(LogOption, FollowsNoLinkAndWaitsForNobody) {
  const HostFolder folder;
  folder.Write("in.mps", kSmallModel);
  folder.Write("victim", "the user's");
  fs::create_symlink(folder.Path("victim"), folder.Path("link"));
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  for (const char* const name : {"link", "pipe", "/dev/full"}) {
    const Outcome run = Simplify(folder, *name == '/' ? name : folder.Path(name));
    EXPECT_EQ(run.status, 1) << name;
    EXPECT_NE(run.err.find("is that of a link, a pipe, a folder or a device"), std::string::npos)
        << run.err;
    EXPECT_FALSE(folder.Has("out.mps"));
  }
  EXPECT_EQ(folder.Read("victim"), "the user's");
}

TEST(LogOption, IsNoMoreReadableThanTheModel) {
  const HostFolder folder;
  const fs::perms is_private = fs::perms::owner_read | fs::perms::owner_write;
  folder.Write("old.log", "old");
  fs::permissions(folder.Write("in.mps", kSmallModel), is_private);
  for (const char* const name : {"new.log", "old.log"}) {
    EXPECT_EQ(Simplify(folder, folder.Path(name)).status, 0);
    EXPECT_EQ(fs::status(folder.Path(name)).permissions(), is_private) << name;
    EXPECT_TRUE(folder.Read(name).starts_with("Log file for simplification of "));
  }
}

TEST(LogOption, GoesOnWithWhatIsOpen) {
  const HostFolder folder;
  folder.Write("in.mps", kSmallModel);
  FILE* const all = fopen(folder.Path("all.txt").c_str(), "w");
  fputs("first\n", all);
  fflush(all);
  EXPECT_EQ(Simplify(folder, "/proc/self/fd/" + std::to_string(fileno(all))).status, 0);
  fputs("last\n", all);
  fclose(all);
  const std::string text = folder.Read("all.txt");
  EXPECT_TRUE(text.starts_with("first\nLog file for simplification of ")) << text;
  EXPECT_TRUE(text.ends_with("last\n")) << text;
}
#endif

}  // namespace
}  // namespace quarvel
