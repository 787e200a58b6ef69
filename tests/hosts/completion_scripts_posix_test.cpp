// The scripts in their shells, with the program that they ask.
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "hosts/completion_scripts.h"
#include "tests/hosts/shell_output_posix.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

struct Completed {
  const char* words;  // a Bash array of those behind the program's name; the last is typed
  const char* candidates;
};

constexpr Completed kCommon[] = {
    {"ro", "rows\nrow\n"},
    {"rows diet.mps --equ", "--equations\n"},
    {"rows --color ''", "auto\nalways\nnever\n"},
    {"row diet.mps CAL", "CALORIES\nCALCIUM\n"},
    {"row 'with blanks.mps' ''", "ONE\n"},
    {"evaluate diet.mps COST BR", "BREAD=\n"},
    {"rows diet.mps --type ''", "E\nG\nL\nN\nR\n"},
    {"check --only E90", "E901\n"},
    {"edit diet.mps out.mps -c delete-e", "delete-element\n"},
    {"polish ''", ""},
};

class CompletionScriptsTest : public ::testing::Test {
 protected:
  CompletionScriptsTest() {
    folder_.Example("diet.mps");
    folder_.Write("point.txt", "");
    folder_.Write("packed.MPS.gz", "");
    folder_.Write("with blanks.mps", "ROWS\n N ONE\nCOLUMNS\n X ONE 1\nENDATA\n");
    ShellOutput("mkdir '" + folder_.Path("models") + "'");
    for (const hosts::CompletionScript& script : hosts::CompletionScripts()) {
      const std::string shell(script.shell);
      folder_.Write("script." + shell, RunQuarvel({"completion", shell}).out);
    }
  }

  // What `program`, with the script read by it, prints in the folder; "quarvel" is the program. The
  // folder's name is not ASCII, which fish takes apart where no locale says what it is.
  std::string Run(const std::string& shell, const std::string& program) const {
    folder_.Write("run", program);
    return ShellOutput("cd '" + folder_.Path("") +
                       "' && LC_ALL=C.UTF-8 quarvel='" QUARVEL_PROGRAM "' " + shell +
                       " ./run 2>&1");
  }

  std::string InBash(const std::string& words, const std::string& after = "") const {
    return Run("bash", "compopt() { :; }\n. ./script.bash\nCOMP_WORDS=(\"$quarvel\" " + words +
                           ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_quarvel\n" + after +
                           "[ ${#COMPREPLY[@]} = 0 ] || printf '%s\\n' \"${COMPREPLY[@]}\"\n");
  }

  const HostFolder folder_;
};

TEST_F(CompletionScriptsTest, AreKnownByTheirShells) {
  EXPECT_EQ(Run("bash", "set -e\nbash -n script.bash\n. ./script.bash\ncomplete -p quarvel\n"),
            "complete -F _quarvel quarvel\n");
  const Outcome run = RunQuarvel({"completion", "csh"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err,
            "quarvel: completion knows bash, zsh, fish, not csh\n"
            "quarvel: \"quarvel completion --help\" tells more\n");
}

TEST_F(CompletionScriptsTest, CompleteInBash) {
  if (!HasProgram("bash")) GTEST_SKIP() << "there is no bash: cmake/setup.sh shells installs it";
  for (const Completed& c : kCommon) EXPECT_EQ(InBash(c.words), c.candidates) << c.words;
  // As Readline takes apart what is typed.
  EXPECT_EQ(InBash("rows --color = ne"), "never\n");
  EXPECT_EQ(InBash("rows --color ="), "auto\nalways\nnever\n");
  EXPECT_EQ(InBash("why diet.mps --log = po"), "point.txt\n");
  EXPECT_EQ(InBash("row with\\\\\\ blanks.mps ''"), "ONE\n");
}

TEST_F(CompletionScriptsTest, CompleteFilesInBash) {
  if (!HasProgram("bash")) GTEST_SKIP() << "there is no bash: cmake/setup.sh shells installs it";
  const std::string sorted =
      "IFS=$'\\n' COMPREPLY=($(printf '%s\\n' \"${COMPREPLY[@]}\" | LC_ALL=C sort))\n";
  EXPECT_EQ(InBash("rows ''", sorted), "diet.mps\nmodels\npacked.MPS.gz\nwith blanks.mps\n");
  EXPECT_EQ(InBash("why diet.mps po"), "point.txt\n");
  EXPECT_EQ(InBash("rows po"), "");
}

TEST_F(CompletionScriptsTest, CompleteInFish) {
  if (!HasProgram("fish")) GTEST_SKIP() << "there is no fish: cmake/setup.sh shells installs it";
  const std::string start = "set -x PATH (dirname $quarvel) $PATH\nsource script.fish\n";
  for (const Completed& c : kCommon) {
    std::string words = c.words;
    if (words.ends_with("''")) words.resize(words.size() - 2);
    std::string quoted;
    for (const char ch : words) quoted += ch == '\'' ? std::string("\\'") : std::string(1, ch);
    const std::string program =
        start + "complete -C 'quarvel " + quoted + "' | string replace -r '\\t.*' '' | sort\n";
    const std::string sorted =
        ShellOutput("printf '%s' '" + std::string(c.candidates) + "' | LC_ALL=C.UTF-8 sort");
    EXPECT_EQ(Run("fish", program), sorted) << c.words;
  }
  EXPECT_EQ(Run("fish", start + "complete -C 'quarvel rows '\n"),
            "diet.mps\nmodels/\npacked.MPS.gz\nwith blanks.mps\n");
  EXPECT_EQ(Run("fish", start + "complete -C 'quarvel why --log=po'\n"), "--log=point.txt\n");
}

// zsh itself, with its own completion replaced where it would draw on a terminal.
TEST_F(CompletionScriptsTest, CompleteInZsh) {
  if (!HasProgram("zsh")) GTEST_SKIP() << "there is no zsh: cmake/setup.sh shells installs it";
  const std::string start =
      "setopt extendedglob\ncompdef() { }\ncompset() { files=1 }\n"
      "_files() { if [[ $1 == -g ]]; then print -l -- ${~2}; else print files; fi }\n"
      "compadd() { print -l -- \"${(@P)@[-1]}\" }\n. ./script.zsh\n";
  for (const Completed& c : kCommon) {
    const std::string program =
        start + "words=($quarvel " + c.words + ")\nCURRENT=$#words\n_quarvel\n";
    EXPECT_EQ(Run("zsh -f", program), c.candidates) << c.words;
  }
  EXPECT_EQ(Run("zsh -f", start + "words=($quarvel rows '')\nCURRENT=3\n_quarvel\n"),
            "diet.mps\npacked.MPS.gz\nwith blanks.mps\n");
  EXPECT_EQ(Run("zsh -f", start + "words=($quarvel why --log '')\nCURRENT=4\n_quarvel\n"),
            "files\n");
}

}  // namespace
}  // namespace quarvel
