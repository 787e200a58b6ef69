// The transcripts in tests/transcripts: what each command shows in a pipe and on terminals of 80 and 200
// columns, with and without colors. With QUARVEL_WRITE_TRANSCRIPTS=1 in the environment their command lines
// are run and what they show goes into the files instead. To add a line, write it into the file behind
// "$ " and do that; then read what came.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/commands.h"
#include "tests/support/run_quarvel.h"
#include "tests/support/shell_line.h"
#include "tests/support/transcript.h"

namespace quarvel {
namespace {

namespace fs = std::filesystem;

std::string TranscriptPath(std::string_view command) {
  return SourceFolder() + "/tests/transcripts/" + std::string(command) + ".txt";
}

void CopyModels(const HostFolder& folder, const std::string& from) {
  for (const auto& entry : fs::directory_iterator(std::u8string(from.begin(), from.end()))) {
    if (!entry.is_regular_file()) continue;
    const std::string name = entry.path().filename().string();
    folder.Write(name, ReadWholeFile(std::string(from).append("/").append(name)));
  }
}

// 300 rows and columns, of which each has two elements beside each other: a band in a picture.
std::string BandModel() {
  constexpr int kCount = 300;
  const auto number = [](int i) { return std::to_string(i % kCount); };
  std::string text = "NAME BAND\nROWS\n N COST\n";
  for (int i = 0; i < kCount; ++i) text.append(" L R").append(number(i)).append("\n");
  text += "COLUMNS\n";
  for (int i = 0; i < kCount; ++i) {
    text.append(" X")
        .append(number(i))
        .append(" R")
        .append(number(i))
        .append(" 1 R")
        .append(number(i + 1))
        .append(" 2\n");
  }
  return text + "ENDATA\n";
}

// The examples, the models of the transcripts, and band.mps.
void FillFolder(const HostFolder& folder) {
  CopyModels(folder, SourceFolder() + "/examples");
  CopyModels(folder, SourceFolder() + "/tests/transcripts/models");
  folder.Write("band.mps", BandModel());
}

TEST(Transcripts, AreThereForEachCommand) {
  for (const hosts::Command& command : hosts::Commands()) {
    const std::string name(command.name);
    SCOPED_TRACE(name);
    ASSERT_TRUE(fs::exists(TranscriptPath(name))) << "write its lines into tests/transcripts";
    const std::vector<std::string> lines = TranscriptLines(ReadWholeFile(TranscriptPath(name)));
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [&name](const std::string& line) {
      const std::vector<std::string> words = TakeShellLineApart(line).words;
      return words.size() > 1 && words[0] == "quarvel" && words[1] == name;
    }));
  }
}

TEST(Transcripts, AreWhatIsShown) {
  const bool writes = std::getenv("QUARVEL_WRITE_TRANSCRIPTS") != nullptr;
  for (const auto& entry : fs::directory_iterator(SourceFolder() + "/tests/transcripts")) {
    if (!entry.is_regular_file()) continue;
    const std::string path = TranscriptPath(entry.path().stem().string());
    const std::string transcript = ReadWholeFile(path);
    const std::string anew = TranscriptAnew(transcript, FillFolder);
    if (writes) {
      WriteWholeFile(path, anew);
    } else {
      EXPECT_EQ(anew, transcript) << path;
    }
  }
  if (writes) GTEST_SKIP() << "the transcripts were written, and compared with nothing";
}

}  // namespace
}  // namespace quarvel
