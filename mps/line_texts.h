// The lines of a file that problems are about, as they stand there: a read has them in upper case.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

#include "mps/file_problem.h"
#include "mps/line_reader.h"
#include "mps/line_source.h"
#include "platform/byte_source.h"

namespace quarvel::mps {

// Gives the bytes of a file once more, or null.
using OpenBytes = std::function<std::unique_ptr<platform::ByteSource>()>;

// So much of a line or token is shown: its first 400 bytes, or up to three fewer where they would end
// within a character.
std::string_view ShownOf(std::string_view line);

// The part of the line that shows a problem: from its start, or from about 100 characters before the
// column where that stands further on than 200.
void ShowPart(std::string_view line, FileProblem& problem);
// Makes the line at hand, and `part` of its split_text(), the place of the problem. An empty part that lies
// nowhere in there: the whole line.
void ShowPlace(const SourceLine& line, std::string_view part, FileProblem& problem);

// Gives each kept problem of a line that line's text, and the token that it is about as it stands in
// there. A pass over the lines up to the last of them; `open` is not called when there is none. Null from
// `open`, or a failure, leaves the texts as they are.
void ShowLines(const OpenBytes& open, FileProblems& problems);

// The same for problems that are shown as they come, one pass over the lines for all that come in the
// order of their lines. For one whose line is behind the last a new pass begins, but not more often than a
// few times: it keeps the text that it has.
class LineTexts {
 public:
  // `open` is called at the first problem of a line, and for each new pass.
  explicit LineTexts(OpenBytes open) : open_(std::move(open)) {}

  void Show(FileProblem& problem);

 private:
  static constexpr int kMostPasses = 8;

  void BeginPass();

  OpenBytes open_;
  int passes_ = 0;
  std::unique_ptr<LineReader> reader_;  // null once there is nothing more to read
  Line line_;
  std::int64_t number_ = 0;
};

}  // namespace quarvel::mps
