// Texts on a page of HTML. Names, paths and lines of a file may hold anything: whatever goes through here is
// shown as it stands and can be no tag, no attribute's end and no script.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quarvel::hosts {

// Nobody reads more of a name.
inline constexpr std::size_t kMostLettersOfName = 100;

// The text as a page shows it: & < > " and ' are written as references, what would turn the direction of
// its neighbours or is no text is shown as an escape (text/visible_text.h; text that is not UTF-8 is taken
// as Windows-1252), and what is longer than `most` characters ends in "...".
std::string Html(std::string_view text, std::size_t most = kMostLettersOfName);

class HtmlTable {
 public:
  struct Column {
    std::string_view heading;
    bool is_number = false;
  };

  HtmlTable(std::string_view caption, std::vector<Column> columns);

  // A line of as many texts as there are columns, the first of which is its heading.
  void Add(const std::vector<std::string>& texts);
  // "... 12 more patterns", when there are so many.
  void AddMore(std::int64_t count, std::string_view noun);
  bool empty() const { return body_.empty(); }
  // Within a frame that scrolls where the table is wider than the page.
  std::string Text() const;

 private:
  std::string caption_;
  std::vector<Column> columns_;
  std::string body_;
};

// A part of the page with its heading; nothing when it has no contents.
std::string HtmlPart(std::string_view id, std::string_view heading, const std::string& contents);

}  // namespace quarvel::hosts
