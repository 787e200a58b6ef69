#include "hosts/folded_text.h"

#include <algorithm>
#include <vector>

#include "text/cell_width.h"

namespace quarvel::hosts {
namespace {

constexpr std::size_t kLeastRoom = 20;  // behind an indent
constexpr std::string_view kExample = "  quarvel ";

std::size_t BlanksBefore(std::string_view line) {
  return std::min(line.find_first_not_of(' '), line.size());
}

// Where what an entry of a list says begins: behind the blanks that set it off. Text that is no entry
// begins where its first word does.
std::size_t StartOfWords(std::string_view line) {
  const std::size_t first = BlanksBefore(line);
  if (first == 0) return 0;
  const std::size_t gap = line.find("  ", first);
  if (gap == std::string_view::npos) return first;
  return std::min(line.find_first_not_of(' ', gap), line.size());
}

// Lines that are one paragraph or one entry, as one line.
struct Passage {
  std::string text;
  std::size_t indent = 0;  // of what follows its first line
  std::size_t widest = 0;
  std::string lines;  // as they were

  bool Takes(std::string_view line) const {
    const std::size_t blanks = BlanksBefore(line);
    return !line.empty() && !text.empty() && !(indent == 0 && text.ends_with(':')) &&
           !text.starts_with(kExample) && blanks == indent &&
           (blanks == 0 || BlanksBefore(text) < blanks);
  }
  void Add(std::string_view line) {
    if (text.empty()) {
      text = line;
      indent = StartOfWords(line);
    } else {
      text.append(" ").append(line.substr(BlanksBefore(line)));
    }
    widest = std::max(widest, text::CellCount(line));
    lines.append(line).append("\n");
  }
  std::string Folded(std::size_t width) const {
    if (widest <= width || text.starts_with(kExample)) return lines;
    return FoldedLine(text, width, indent) + '\n';
  }
};

}  // namespace

std::string FoldedLine(std::string_view line, std::size_t width, std::size_t indent) {
  if (width == 0 || text::CellCount(line) <= width || width < indent + kLeastRoom) {
    return std::string(line);
  }
  std::string folded;
  std::size_t used = 0;  // cells of the last line
  while (!line.empty()) {
    const std::size_t blanks = BlanksBefore(line);
    const std::size_t end = std::min(line.find(' ', blanks), line.size());
    const std::size_t cells = text::CellCount(line.substr(0, end));
    const bool is_at_start = used == 0 || used == indent;
    if (!is_at_start && used + cells > width) {
      folded.append("\n").append(indent, ' ').append(line.substr(blanks, end - blanks));
      used = indent + cells - blanks;
    } else {
      folded += line.substr(0, end);
      used += cells;
    }
    line.remove_prefix(end);
  }
  return folded;
}

std::string FoldedHelp(std::string_view help, std::size_t width) {
  if (width == 0) return std::string(help);
  std::string folded;
  Passage passage;
  while (!help.empty()) {
    const std::size_t end = std::min(help.find('\n'), help.size());
    const std::string_view line = help.substr(0, end);
    help.remove_prefix(std::min(end + 1, help.size()));
    if (!passage.Takes(line)) {
      folded += passage.Folded(width);
      passage = {};
    }
    if (line.empty()) {
      folded += '\n';
    } else {
      passage.Add(line);
    }
  }
  return folded + passage.Folded(width);
}

}  // namespace quarvel::hosts
