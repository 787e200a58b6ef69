// Reads a file into a store without a desktop, a box or a question: what there is to say comes back as
// data. The component's own read, which asks, is read_driver.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "model/model_store.h"
#include "mps/file_facts.h"
#include "mps/file_problem.h"
#include "mps/given_value.h"
#include "mps/line_source.h"
#include "mps/section.h"
#include "mps/wide_options.h"
#include "platform/byte_source.h"

namespace quarvel::mps {

enum class FileDialect : std::uint8_t {
  kWide,       // wide_dialect.h
  kComponent,  // sections.h alone: what the component reads
};

struct ReadOptions {
  FileDialect dialect = FileDialect::kWide;
  // Of the wide dialect alone; wide_options.h says what they are.
  FileColumns columns = FileColumns::kByLine;
  std::string objective = {};
  bool negative_upper_frees_lower = false;
  // Columns that the file gives no lower bound have none, instead of 0.
  bool infinite_default_bounds = false;
  // How many problems of each code come back as data; all are counted.
  std::size_t kept_of_each = FileProblems::kUsuallyKept;
  // Whether rows and columns are looked at, when all lines are read, for problems of their own: one
  // without elements, limits that are reversed or make another type. Without that the store's row lists
  // stay deferred, which who looks at none saves.
  bool looks_at_records = true;
  // Gives the bytes, in place of those of the file at `path`, which is then a name only. Called again
  // where lines are to be shown, and may then give null. It may raise what opening a file raises.
  std::function<std::unique_ptr<platform::ByteSource>()> open = {};
  // Hears each problem as it is met, with the line as the reader has it (maybe in upper case); false
  // ends the read. It must not touch the store.
  std::function<bool(const FileProblem&)> on_problem = {};
  // Called now and then with the bytes that are done and those of the file; false ends the read. It
  // must not touch the store.
  std::function<bool(std::uint64_t done, std::uint64_t all)> on_progress = {};
  // Hears of each line once it is used, as it was used, with the section it stands in and that of the
  // next line; the store's fill() has what it made. It must not change the store.
  std::function<void(const SourceLine& line, Section section, Section next)> on_line = {};
  // Hears of each sense of the objective, right-hand side, range and bound that a line of the wide dialect
  // gives, once the store's fill() has it, before on_line or on_passed_line of that line; a later line
  // may give it again. It must not change the store.
  HearGivenValue on_value = {};
  // Hears of each line that the wide dialect passes over, or that is none of the sections': a comment, a
  // line of another set, OBJSENSE. It must not change the store.
  std::function<void(const SourceLine& line, Section section)> on_passed_line = {};
};

enum class ReadOutcome : std::uint8_t {
  kRead,     // to its end; with problems, the model is what the other lines say
  kFailed,   // the file could not be opened or read
  kRefused,  // on_problem ended it
  kStopped,  // on_progress ended it
};

struct FileRead {
  ReadOutcome outcome = ReadOutcome::kFailed;
  FileFacts facts;  // in the component dialect without sense, constant and names of sets
  FileProblems problems;
};

// Reads the file at `path` in place of what the store holds; its settings strMPSFile, ReadMPSFileErr,
// EndLineMissing, LinesRead and DefaultToPlusMinusInfinity are those of this read, FileLocation stays. A
// line with an error is passed over, or that pair of it. When the outcome is not kRead the store is
// empty. Raises 7 without memory, and what a callback raises; the store is empty then.
//
// Cost: one pass over the bytes; a second one, over the lines only, when there are problems to show.
FileRead ReadFile(const std::string& path, const ReadOptions& options, model::ModelStore& store);

}  // namespace quarvel::mps
