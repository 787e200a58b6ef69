// What README.md, docs/command.md and examples/README.md promise: their command lines run, the output that stands
// beside some of them is theirs, and the program in C++ compiles as it stands and prints what is said.

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/run_quarvel.h"

// The main() of README's program, compiled under this name.
int ReadmeExample();

namespace quarvel {
namespace {

namespace fs = std::filesystem;

using TextLines = std::vector<std::string>;

TextLines LinesOf(const std::string& file) {
  std::istringstream text(ReadWholeFile(SourceFolder() + "/" + file));
  TextLines lines;
  for (std::string line; std::getline(text, line);) {
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

// The blocks between ```KIND and ```, each as its text.
std::vector<std::string> Blocks(const std::string& file, const std::string& kind) {
  std::vector<std::string> blocks;
  bool inside = false;
  for (const std::string& line : LinesOf(file)) {
    if (inside && line == "```") {
      inside = false;
    } else if (inside) {
      blocks.back() += line + "\n";
    } else if (line == "```" + kind) {
      blocks.emplace_back();
      inside = true;
    }
  }
  return blocks;
}

// The words of a command line; two blanks end it, as its description follows there.
TextLines WordsOf(const std::string& line) {
  TextLines words(1);
  char quote = '\0';
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (quote != '\0' && line[i] == quote) {
      quote = '\0';
    } else if (quote != '\0') {
      words.back() += line[i];
    } else if (line[i] == '"' || line[i] == '\'') {
      quote = line[i];
    } else if (line[i] != ' ') {
      words.back() += line[i];
    } else if (i + 1 < line.size() && line[i + 1] == ' ') {
      break;
    } else {
      words.emplace_back();
    }
  }
  return words;
}

// Runs commands in a folder that has the examples where the texts say.
class Readme : public ::testing::Test {
 protected:
  Readme() {
    fs::create_directory(here_ / "examples");
    for (const auto& entry : fs::directory_iterator(SourceFolder() + "/examples")) {
      if (entry.is_regular_file()) fs::copy(entry.path(), here_ / "examples");
    }
    fs::copy(here_ / "examples/diet.mps", here_ / "in.mps");
    fs::current_path(here_);
  }
  ~Readme() override { fs::current_path(before_); }

  Outcome Run(const std::string& line) const {
    TextLines words = WordsOf(line);
    EXPECT_EQ(words.front(), "quarvel") << line;
    words.erase(words.begin());
    return RunQuarvel(words);
  }

  const HostFolder folder_;
  const fs::path before_ = fs::current_path();
  const fs::path here_ = [this] {
    const std::string path = folder_.Path("");
    return fs::path(std::u8string(path.begin(), path.end()));
  }();
};

constexpr const char* kFiles[] = {"README.md", "docs/command.md", "examples/README.md"};
constexpr std::string_view kIndent = "    ";

TEST_F(Readme, NamesCommandLinesThatRun) {
  for (const char* file : kFiles) {
    int run = 0;
    for (const std::string& line : LinesOf(file)) {
      if (!line.starts_with(std::string(kIndent) + "quarvel ")) continue;
      const std::string command = line.substr(kIndent.size());
      if (command.starts_with("quarvel view ")) continue;  // keyboard_journey runs it
      const bool finds = command.find("check examples/mistakes.mps") < command.size() ||
                         command.starts_with("quarvel why ");
      const int status = finds ? 1 : 0;
      const Outcome outcome = Run(command);
      EXPECT_EQ(outcome.status, status) << command << "\n" << outcome.err;
      ++run;
    }
    EXPECT_GE(run, 4) << file;
  }
}

TEST_F(Readme, ShowsWhatCommandsPrint) {
  for (const std::string& block : Blocks("README.md", "console")) {
    std::istringstream text(block);
    std::string run;
    for (std::string line; std::getline(text, line);) {
      if (line.starts_with("$ ")) run += line + "\n" + Run(line.substr(2)).out;
    }
    EXPECT_EQ(block, run);
  }
  EXPECT_FALSE(Blocks("README.md", "console").empty());
}

TEST_F(Readme, HasAProgramThatPrintsWhatIsSaid) {
  ::testing::internal::CaptureStdout();
  const int status = ReadmeExample();
  const std::string printed = ::testing::internal::GetCapturedStdout();
  EXPECT_EQ(status, 0);
  EXPECT_EQ(std::vector<std::string>{printed}, Blocks("README.md", "text"));
}

}  // namespace
}  // namespace quarvel
