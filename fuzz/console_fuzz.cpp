// A user at a terminal, whose typed lines are the input's: boxes of every kind with words from a file,
// lines of text, forms, and whole reads, saves and simplifications that ask through them. Every
// answer is one that the box has, an end of input is the cautious one, and what is printed cannot
// steer the terminal.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include "component/lp_model.h"
#include "fuzz/choices.h"
#include "fuzz/folder.h"
#include "fuzz/printed_text.h"
#include "model/model_check.h"
#include "platform/automation_error.h"
#include "platform/basic_controls.h"
#include "platform/console/console_desktop.h"
#include "platform/form.h"
#include "platform/program_search.h"
#include "tests/support/naive_writer.h"
#include "tests/support/save_comparison.h"

namespace {

using namespace quarvel;
using namespace quarvel::platform;
using fuzz::Choices;
using fuzz::Require;

constexpr int kMostLines = 60;

// Standard error goes to a file in memory while one of these lives.
class CaughtErrors {
 public:
  CaughtErrors() : memory_(memfd_create("errors", MFD_CLOEXEC)), kept_(dup(STDERR_FILENO)) {
    dup2(memory_, STDERR_FILENO);
  }
  ~CaughtErrors() {
    Restore();
    close(memory_);
    close(kept_);
  }
  CaughtErrors(const CaughtErrors&) = delete;
  CaughtErrors& operator=(const CaughtErrors&) = delete;

  // What was printed; standard error is itself again.
  std::string Take() {
    Restore();
    std::string text(static_cast<std::size_t>(lseek(memory_, 0, SEEK_END)), ' ');
    const ssize_t read = pread(memory_, text.data(), text.size(), 0);
    text.resize(static_cast<std::size_t>(std::max<ssize_t>(read, 0)));
    return text;
  }

 private:
  void Restore() const { dup2(kept_, STDERR_FILENO); }

  int memory_;
  int kept_;
};

// Work with a bar, whose caption and values are the input's, up to its end or an answer that stops it.
class frmWork : public Form {
 public:
  explicit frmWork(Desktop& desktop) : Form(desktop, "frmWork") {
    cmdStop.is_stop = true;
    cmdStop.on_click = [this] { stopped = true; };
  }
  ProgressBar bar{*this, "pbr", {}};
  Button cmdStop{*this, "cmdStop", {}};
  bool stopped = false;
};

class Terminal {
 public:
  Terminal(Choices& choose, const TemporaryFolder& folder) : choose_(choose), folder_(folder) {
    desktop_.set_interactive(choose_(8) != 0);
    desktop_.set_shows_progress(choose_(2) == 0);
    desktop_.set_progress_delay(0);
    desktop_.set_line_source([this] { return Typed(); });
  }

  // What is wrong with it all.
  std::string Run() {
    Prepare();
    for (int step = 0; step < 30 && !choose_.at_end() && fault_.empty(); ++step) {
      try {
        Step();
      } catch (const AutomationError& error) {
        if (error.run_time_error() == RunTimeError::kInternalError) fault_ = "an error of our own";
      } catch (const std::exception& error) {
        fault_ = std::string("raised ") + error.what();
      }
    }
    // A file may hold a pair twice, and what then becomes of the lists is nothing of the console's.
    return fault_.empty() && whole_ ? model::CheckModelData(model_.store()) : fault_;
  }

 private:
  void Prepare() {
    const testing::Choice choose = [this](std::uint32_t bound) { return choose_(bound); };
    const bool whole = choose_(2) == 0;
    const std::string file =
        whole ? testing::WriteNaively(testing::ChooseKeptModel(choose)).text : choose_.Until(0);
    WriteWholeFile(folder_.File("a.mps"), file);
  }

  std::optional<std::string> Typed() {
    static const std::array<const char*, 16> kLines = {"y",   "n",    "c", "yes", "No", "cancel",
                                                       "",    "1",    "2", "all", "99", "ok",
                                                       " y ", "quit", "é", "NEW"};
    if (++lines_ > kMostLines || choose_.at_end()) return std::nullopt;
    const std::uint32_t kind = choose_(20);
    if (kind < kLines.size()) return kLines[kind];
    if (kind == 16) return folder_.File("a.mps");
    if (kind == 17) return folder_.File("b.mps");
    if (kind == 18) return fuzz::WithoutFolders(choose_.Until(0));
    return std::nullopt;
  }

  void Step() {
    switch (choose_(12)) {
      case 0:
        return static_cast<void>(model_.ReadMPSFile());
      case 1:
        return static_cast<void>(model_.SaveAsMPSFile());
      case 2:
        return static_cast<void>(model_.SaveMPSFile(folder_.File("b.mps")));
      case 3:
        return model_.SimplifyMPSModel();
      case 4:
        return model_.DisplayAuthor();
      case 5:
        return static_cast<void>(desktop_.InputBox(Words(), Words(), Words()));
      case 6:
        return static_cast<void>(desktop_.OpenInEditor(Words()));
      case 7:
        return static_cast<void>(model_.AddRow(Words()));
      case 8:
        return model_.SetRowName(0, Words());
      case 9:
        return Work();
      case 10:
        return Search();
      default:
        return Ask();
    }
  }

  void Work() {
    frmWork form(desktop_);
    form.bar.set_range(static_cast<float>(choose_(3)), static_cast<float>(choose_(200)));
    form.set_caption(Words());
    form.Show();
    for (std::uint32_t more = choose_(5); more > 0 && !form.stopped; --more) {
      form.bar.set_value(static_cast<float>(choose_(200)));
      desktop_.DoEvents();
      if (choose_(4) == 0) Ask();
    }
    form.Unload();
  }

  // A program that PATH leads to stands in a folder with a full name.
  void Search() {
    const std::string words = Words() + choose_.Until(0);
    setenv("PATH", words.substr(0, words.find('\0')).c_str(), 1);
    const std::string found = FindProgram(choose_(2) == 0 ? "sh" : Words());
    if (!found.empty() && !found.starts_with('/')) fault_ = "a program of the current folder";
    if (!SearchedFolders().starts_with('/')) fault_ = "a folder without its full name";
  }

  std::string Words() {
    static const std::array<const char*, 6> kWords = {"",    "ROW", "two\r\nlines",
                                                      "&OK", "é",   "\x1B[2J"};
    const std::uint32_t kind = choose_(8);
    return kind < kWords.size() ? kWords[kind] : choose_.Until(0);
  }

  void Ask() {
    static constexpr std::array<MsgBoxStyle, 4> kStyles = {MsgBoxStyle::kOk, MsgBoxStyle::kYesNo,
                                                           MsgBoxStyle::kYesNoExclamation,
                                                           MsgBoxStyle::kYesNoCancelExclamation};
    Box box = {
        .kind = static_cast<BoxKind>(choose_(12)), .statement = Words(), .question = Words()};
    box.style = kStyles[choose_(kStyles.size())];
    box.title = Words();
    const MsgBoxResult answer = desktop_.MsgBox(box);
    if (!box.look().Has(answer) && answer != box.look().when_closed) fault_ = "another answer";
  }

  Choices& choose_;
  const TemporaryFolder& folder_;
  ConsoleAnswers answers_;
  ConsoleDesktop desktop_{answers_};
  LPModel model_{desktop_};
  bool whole_ = false;
  int lines_ = 0;
  std::string fault_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const TemporaryFolder folder;
  fuzz::EmptyFolder(folder);
  const fuzz::InFolder inside(fuzz::PathOf(folder));  // what is typed may be a file's name
  Choices choose(data, size);
  CaughtErrors errors;
  std::string fault = Terminal(choose, folder).Run();
  const std::string printed = errors.Take();
  // The console itself goes back to redraw a line, and beeps.
  if (fault.empty() && fuzz::SteersTerminal(printed, "\n\r\a")) fault = "control characters";
  Require(fault, printed);
  return 0;
}
