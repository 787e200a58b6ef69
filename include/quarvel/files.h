// Reading a model and writing it. Nothing is printed or asked: what there is to say comes back as data.
// desktop.h has the ways that ask.
//
// Paths are UTF-8, on Windows too. Functions that are given here are called from within the call they are
// given to, and may look at no model that it works on; what they throw ends the call, which throws it
// again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "quarvel/export.h"
#include "quarvel/model.h"

namespace quarvel {

// --- reading ---

enum class Severity : std::uint8_t {
  kError,    // the line, or a pair of it, is passed over; the model may be another than was meant
  kAdapted,  // read in spite of the plain dialect
  kWarning,  // legal and risky, or passed over
};

// One thing that there is to say about a file. The texts of `code`, `name` and `expected` live as long as
// the program; code and name never change from version to version, the words may.
struct Problem {
  Severity severity = Severity::kError;
  std::string_view code = {};  // "E110": docs/problems.md has an entry for each
  std::string_view name = {};  // "no-such-row"
  std::int64_t line = 0;       // from 1; 0 for a problem of no line
  std::int32_t column = 0;     // where in the line, in characters from 1; 0: the whole line
  std::int32_t length = 0;     // of what is meant there, in characters
  std::string text = {};       // the line, as far as it is shown
  std::string item = {};       // the name of the row or column that it is about
  std::string message = {};    // as a sentence without its place: "no row of this name: PROTIEN"
  std::string_view expected = {};  // what would be accepted; empty where that goes without saying
};

enum class Dialect : std::uint8_t {
  kWide,       // what files in use hold: docs/dialect.md
  kComponent,  // what the automation component reads
};

// How the words of a line are told apart where names have blanks; of the wide dialect alone.
enum class FieldColumns : std::uint8_t { kByLine, kFixed, kFree };

struct ReadOptions {
  Dialect dialect = Dialect::kWide;
  // Columns that the file gives no lower bound have none, instead of 0.
  bool infinite_default_bounds = false;
  // Looks at the whole model once it is read, for what is legal and risky.
  bool lint = false;

  // Of the wide dialect alone.
  FieldColumns columns = FieldColumns::kByLine;
  std::string objective = {};  // the name of the row that is it; empty: as the file says
  bool negative_upper_frees_lower = false;

  // How many problems of each code come back; all are counted.
  std::size_t kept_of_each = 20;
  // Hears each problem as it is met, with the line as far as it is known then; false ends the read.
  std::function<bool(const Problem&)> on_problem = {};
  // Called now and then with the bytes that are done and those of the file (0 when that is not known);
  // false ends the read.
  std::function<bool(std::uint64_t done, std::uint64_t all)> on_progress = {};
};

enum class ReadOutcome : std::uint8_t {
  kRead,     // to its end; with errors, the model is what the other lines say
  kFailed,   // the file could not be opened or read: a problem says why
  kRefused,  // on_problem ended it
  kStopped,  // on_progress ended it
};

struct ReadResult {
  ReadOutcome outcome = ReadOutcome::kFailed;
  std::vector<Problem> problems = {};  // the first of each code, in the order of the file
  std::int64_t errors = 0;             // how many there are of each severity
  std::int64_t adapted = 0;
  std::int64_t warnings = 0;
  std::int64_t lines = 0;   // that were read, ENDATA included
  bool has_endata = false;  // a file that ends before it may be cut off

  bool is_read() const { return outcome == ReadOutcome::kRead; }
  // Read, and no line of it was passed over as an error.
  bool is_good() const { return is_read() && errors == 0; }
};

// Reads the file in place of what the model holds. When the outcome is not kRead the model is empty.
// Cost: one pass over the bytes, and one over the lines where there are problems to show.
QUARVEL_API ReadResult ReadFile(const std::string& path, Model& model,
                                const ReadOptions& options = {});
// The same of a text, such as a program makes or gets from elsewhere; the model then has no path.
QUARVEL_API ReadResult ReadText(std::string_view text, Model& model,
                                const ReadOptions& options = {});

// --- writing ---

enum class Layout : std::uint8_t {
  kExact,      // bit for bit, with the facts: docs/exact-files.md
  kComponent,  // as the automation component saves: 12 characters a value, no facts
};

enum class WriteStage : std::uint8_t { kWriting, kVerifying };

struct WriteOptions {
  Layout layout = Layout::kExact;
  // Writes also what reads back with other limits, bounds, types or another objective.
  bool allow_changes = false;
  // Writes only what reads back as it is.
  bool strict = false;
  // Called now and then with the part of the stage that is done, 0 to 1; false gives up, and nothing is
  // replaced.
  std::function<bool(WriteStage stage, double part)> on_progress = {};
};

enum class LossWeight : std::uint8_t {
  kBreaks,   // the file would be no model any more, or one of other records: never written
  kChanges,  // limits, bounds, types or the objective would be others
  kNoted,    // the model is the same to whoever solves it, but for digits
};

// What a layout does not keep of a model: all losses of one kind.
struct Loss {
  LossWeight weight = LossWeight::kNoted;
  std::string_view name = {};  // "row-limits"; lives as long as the program and never changes
  std::int64_t count = 0;
  std::vector<std::string> sentences = {};  // of the first three
};

enum class WriteOutcome : std::uint8_t {
  kWritten,
  kNothing,  // there are no coefficients, and a file without them is no model
  kLosses,   // what the layout loses is not allowed
  kNotSame,  // read again it was not what it should be: see `unexpected`
  kFailed,   // see `failure`; on_progress may have given up
};

// What was written, and what of it came back when it was read again.
struct Receipt {
  WriteOutcome outcome = WriteOutcome::kFailed;
  std::int64_t rows = 0;
  std::int64_t columns = 0;
  std::int64_t elements = 0;
  // False where that cannot be read again (a pipe, a device); the next three are not known then.
  bool is_read_again = false;
  std::int64_t equal_rows = 0;  // with their names, types and bounds
  std::int64_t equal_columns = 0;
  std::int64_t equal_elements = 0;
  std::vector<Loss> losses = {};             // the worst first
  std::vector<std::string> unexpected = {};  // what differs and is no loss
  // Every name and value stands where fixed columns have it.
  bool fits_fixed_columns = true;
  std::string failure = {};  // the system's words
  std::string notes = {};    // what a failure left in files, each note behind a line end

  bool is_written() const { return outcome == WriteOutcome::kWritten; }
  // Written, and the file gives back all there is.
  bool is_whole() const;
};

// Writes the model beside the file, reads that again and compares it with the model, and has it take the
// file's place: the file is the old one or the new one, whole. The path becomes the model's.
// Cost: a write, a read and a comparison; meanwhile twice the memory of the model.
QUARVEL_API Receipt WriteFile(Model& model, const std::string& path,
                              const WriteOptions& options = {});
// The same to a text, which is left alone unless the outcome is kWritten; the model keeps its path.
QUARVEL_API Receipt WriteText(const Model& model, std::string& text,
                              const WriteOptions& options = {});

}  // namespace quarvel
