#include "mps/text_losses.h"

#include <string>
#include <string_view>
#include <vector>

#include "mps/exact_writer.h"
#include "mps/line_reader.h"
#include "mps/name_losses.h"
#include "mps/tokens.h"
#include "text/encoding.h"
#include "text/upper_case.h"

namespace quarvel::mps {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
// More than any line has before its text.
constexpr std::size_t kBeforeText = 32;

std::string_view WithoutSpacesAround(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string_view> LinesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  for (std::size_t end = text.find(kLineEnd); end != text.npos; end = text.find(kLineEnd)) {
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end + kLineEnd.size());
  }
  lines.push_back(text);
  return lines;
}

void Add(Losses& losses, LossKind kind, std::string_view words) {
  losses.Add(kind, [&words] { return Loss{{}, 0, {}, std::string(words)}; });
}

// What a text of one line may not have whatever it is for; false when it has some of it.
bool CheckLine(std::string_view line, std::string_view what, Losses& losses) {
  const std::string start(what);
  if (line.find_first_of(kLineEnd) != line.npos) {
    Add(losses, LossKind::kLineEnd, start + " has a line end within a line");
    return false;
  }
  if (!text::IsValidUtf8(line)) {
    Add(losses, LossKind::kNotUtf8, start + " is not UTF-8");
    return false;
  }
  if (line.size() + kBeforeText > LineReader::kLongestLine) {
    Add(losses, LossKind::kLongLine, start + " has a line that is too long to be read");
    return false;
  }
  if (HasControlCharacter(line)) {
    Add(losses, LossKind::kControlCharacter,
        start + " has a control character, which other programs may not take");
  }
  return true;
}

// Only the first word is read, in upper case.
void CheckName(const std::string& name, Losses& losses) {
  if (name.empty() || !CheckLine(name, "the model's name", losses)) return;
  const std::vector<std::string_view> words = SplitLine(name);
  const std::string back = words.empty() ? std::string() : text::UpperCase(words.front());
  if (back != name) {
    Add(losses, LossKind::kModelName,
        "the model's name \"" + name + "\" reads back as \"" + back + '"');
  }
}

// Lines lose the blanks around them. Those without text are lost at the start, and fixed columns have none
// at the end.
std::string DescriptionReadBack(const std::vector<std::string_view>& lines, std::size_t written) {
  std::string back;
  for (std::size_t i = 0; i < written; ++i) {
    if (!back.empty()) back += kLineEnd;
    back += WithoutSpacesAround(lines[i]);
  }
  DropConstantNote(back);
  return back;
}

void CheckDescription(const std::string& description, FileLayout layout, Losses& losses) {
  if (description.empty()) return;
  const std::vector<std::string_view> lines = LinesOf(description);
  bool good = true;
  for (const std::string_view line : lines) {
    good = good && CheckLine(line, "the model's description", losses);
  }
  if (!good) return;
  std::size_t written = lines.size();
  if (layout == FileLayout::kFixed) {
    while (written > 1 && WithoutSpacesAround(lines[written - 1]).empty()) --written;
  }
  if (DescriptionReadBack(lines, written) != description) {
    Add(losses, LossKind::kDescription,
        "the model's description loses blanks around its lines, or empty lines at its ends");
  }
}

}  // namespace

void AddTextLosses(const model::ModelSettings& model, FileLayout layout, Losses& losses) {
  CheckName(model.ModelName, losses);
  CheckDescription(model.ModelDescription, layout, losses);
}

}  // namespace quarvel::mps
