#include "tests/support/transcript.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <span>
#include <utility>

#include "model/about.h"
#include "tests/support/run_quarvel.h"
#include "tests/support/shell_line.h"

namespace quarvel {
namespace {

namespace fs = std::filesystem;
using hosts::Screen;

constexpr std::string_view kPrompt = "$ ";

// Where results are shown. With colors they are shown there a second time.
struct Place {
  std::string_view title;
  Screen screen;
};
constexpr Place kPlaces[] = {
    {"pipe", {}},
    {"80 columns", {.is_terminal = true, .width = 80, .height = 24}},
    {"200 columns", {.is_terminal = true, .width = 200, .height = 50}},
};

struct Mark {
  std::string_view bytes;
  std::string_view shown;
};
// The first that fits counts.
constexpr std::size_t kColors = 10;  // of them, before those of other bytes
constexpr Mark kMarks[] = {{"\x1b[1m", "{bold}"},
                           {"\x1b[2m", "{dim}"},
                           {"\x1b[0m", "{plain}"},
                           {"\x1b[1;31m", "{bold red}"},
                           {"\x1b[1;32m", "{bold green}"},
                           {"\x1b[1;35m", "{bold purple}"},
                           {"\x1b[1;36m", "{bold blue}"},
                           {"\x1b[31m", "{red}"},
                           {"\x1b[32m", "{green}"},
                           {"\x1b[33m", "{yellow}"},
                           {"\x1b", "{ESC}"},
                           {"\r", "{CR}"}};

void ReplaceAll(std::string& text, std::string_view what, std::string_view with) {
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + with.size())) {
    text.replace(at, what.size(), with);
  }
}

// The current folder, for a while.
class FolderVisit {
 public:
  explicit FolderVisit(const std::string& folder) {
    fs::current_path(std::u8string(folder.begin(), folder.end()));
  }
  ~FolderVisit() { fs::current_path(before_); }
  FolderVisit(const FolderVisit&) = delete;
  FolderVisit& operator=(const FolderVisit&) = delete;

 private:
  const fs::path before_ = fs::current_path();
};

// A text of several lines: each behind `start`, and a word where the last one does not end.
std::string Lines(std::string_view text, std::string_view start) {
  std::string lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const bool ends = end != std::string_view::npos;
    lines.append(start).append(text.substr(0, end)).append(ends ? "\n" : "(no line end)\n");
    text.remove_prefix(ends ? end + 1 : text.size());
  }
  return lines;
}

Outcome RunLine(const ShellLine& line, const Screen& screen, const HostFolder& folder) {
  std::vector<std::string> words = line.words;
  if (words.size() == 2 && words[0] == "cat") {
    std::string file = folder.Read(words[1]);
    ReplaceAll(file, "\r\n", "\n");
    return {0, file, ""};
  }
  if (words.empty() || words[0] != "quarvel") return {127, "", "not a command of transcripts\n"};
  words.erase(words.begin());
  const std::string input = line.input.empty() ? "" : folder.Read(line.input);
  Outcome run = RunQuarvelOn(line.output.empty() ? screen : Screen(), words, input);
  if (!line.output.empty()) folder.Write(line.output, std::exchange(run.out, ""));
  return run;
}

// What a reader of the transcript sees of it.
std::string Shown(const Outcome& run, const HostFolder& folder) {
  std::string text = Lines(run.out, "") + Lines(run.err, "2> ");
  if (run.status != 0) text += "(exit status " + std::to_string(run.status) + ")\n";
  std::string path = folder.Path("");
  path.pop_back();
  ReplaceAll(text, path, "FOLDER");
  const std::u8string native =
      fs::path(std::u8string(path.begin(), path.end())).make_preferred().u8string();
  ReplaceAll(text, std::string(native.begin(), native.end()), "FOLDER");
  ReplaceAll(text, "quarvel " + std::string(model::ProductVersion()), "quarvel VERSION");
  for (const Mark& mark : kMarks) ReplaceAll(text, mark.bytes, mark.shown);
  return text;
}

std::string WithoutColors(std::string text) {
  for (const Mark& mark : std::span(kMarks).first<kColors>()) ReplaceAll(text, mark.shown, "");
  return text;
}

// What each line shows on a screen.
std::vector<std::string> ShownOn(const Screen& screen, const std::vector<std::string>& lines,
                                 const std::function<void(const HostFolder&)>& fill) {
  const HostFolder folder(HostFolder::Place::kInMemory);
  fill(folder);
  const FolderVisit visit(folder.Path(""));
  std::vector<std::string> shown;
  shown.reserve(lines.size());
  for (const std::string& line : lines) {
    shown.push_back(Shown(RunLine(TakeShellLineApart(line), screen, folder), folder));
  }
  return shown;
}

// Outputs that are the same, with the titles of the places where they are.
struct Block {
  std::string titles;
  std::string plain;
  std::string colored;

  bool Takes(const std::string& other_plain, const std::string& other_colored) const {
    return plain == other_plain && colored == other_colored;
  }
  // Colors where nobody takes them are worth a word.
  bool IsAlwaysColored() const { return WithoutColors(plain) != plain; }
};

// What one line shows everywhere, by place.
struct Sight {
  std::array<std::string, std::size(kPlaces)> plain;
  std::array<std::string, std::size(kPlaces)> colored;
};

std::vector<Block> BlocksOf(const Sight& sight) {
  std::vector<Block> blocks;
  for (std::size_t p = 0; p < std::size(kPlaces); ++p) {
    const bool joins = !blocks.empty() && blocks.back().Takes(sight.plain[p], sight.colored[p]);
    if (joins) {
      blocks.back().titles.append(", ").append(kPlaces[p].title);
    } else {
      blocks.push_back({std::string(kPlaces[p].title), sight.plain[p], sight.colored[p]});
    }
  }
  return blocks;
}

std::string BlockText(const Block& block, bool has_title) {
  std::string title = has_title ? "-- " + block.titles + '\n' : "";
  if (block.IsAlwaysColored()) title = "-- " + block.titles + ", with colors in any case\n";
  if (WithoutColors(block.colored) == WithoutColors(block.plain)) return title + block.colored;
  return title + block.plain + "-- " + block.titles + ", with colors\n" + block.colored;
}

}  // namespace

std::vector<std::string> TranscriptLines(std::string_view transcript) {
  std::vector<std::string> lines;
  while (!transcript.empty()) {
    const std::string_view line = transcript.substr(0, transcript.find('\n'));
    if (line.starts_with(kPrompt)) lines.emplace_back(line.substr(kPrompt.size()));
    transcript.remove_prefix(std::min(line.size() + 1, transcript.size()));
  }
  return lines;
}

std::string TranscriptAnew(std::string_view transcript,
                           const std::function<void(const HostFolder&)>& fill) {
  const std::vector<std::string> lines = TranscriptLines(transcript);
  std::vector<Sight> sights(lines.size());
  for (std::size_t p = 0; p < std::size(kPlaces); ++p) {
    Screen screen = kPlaces[p].screen;
    const std::vector<std::string> plain = ShownOn(screen, lines, fill);
    screen.takes_colors = screen.is_terminal;
    const std::vector<std::string> colored = ShownOn(screen, lines, fill);
    for (std::size_t i = 0; i < lines.size(); ++i) {
      sights[i].plain[p] = plain[i];
      sights[i].colored[p] = colored[i];
    }
  }
  std::string text(transcript.substr(0, transcript.find(kPrompt)));
  for (std::size_t i = 0; i < lines.size(); ++i) {
    text += (i == 0 ? "" : "\n") + std::string(kPrompt) + lines[i] + '\n';
    const std::vector<Block> blocks = BlocksOf(sights[i]);
    for (const Block& block : blocks) text += BlockText(block, blocks.size() > 1);
  }
  return text;
}

}  // namespace quarvel
