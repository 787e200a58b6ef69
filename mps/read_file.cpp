#include "mps/read_file.h"

#include <string_view>
#include <utility>

#include "mps/column_order.h"
#include "mps/exact_writer.h"
#include "mps/given_values.h"
#include "mps/line_source.h"
#include "mps/line_texts.h"
#include "mps/model_sink.h"
#include "mps/name_spellings.h"
#include "mps/sections.h"
#include "mps/watched_sink.h"
#include "mps/wide_dialect.h"
#include "text/upper_case.h"

namespace quarvel::mps {
namespace {

// Whether a file that begins with that line, as the line reader gives it out in UTF-8, is UTF-16: it has the mark
// of that, or one of its first two characters is 0.
bool IsUtf16(std::string_view line) {
  if (line.starts_with("\xC3\xBF\xC3\xBE") || line.starts_with("\xC3\xBE\xC3\xBF")) return true;
  const auto goes_on = [line](std::size_t at) { return (line[at] & 0xC0) == 0x80; };
  std::size_t second = 1;
  while (second < line.size() && goes_on(second)) ++second;
  return second < line.size() && (line[0] == '\0') != (line[second] == '\0');
}

class FileRun {
 public:
  FileRun(const std::string& path, const ReadOptions& options, model::ModelStore& store)
      : path_(path),
        options_(options),
        store_(store),
        source_(store.fill()),
        hear_([this](FileProblem problem) { Tell(std::move(problem)); }),
        values_(hear_, options.on_value),
        spellings_(hear_),
        sink_(store.fill(), source_),
        sections_(sink_, Hear{*this}),
        wide_({options.columns, text::UpperCase(options.objective),
               options.negative_upper_frees_lower},
              sink_, read_.facts, values_, spellings_, hear_),
        order_(sink_, hear_) {
    read_.problems = FileProblems(options.kept_of_each);
    sink_.TellUppers(read_.facts);
    if (IsWide()) sink_.Watch(values_, spellings_);
  }

  FileRead Run() {
    try {
      Begin();
      ReadAll();
      End();
    } catch (...) {
      Drop();
      RaiseGuarded();
    }
    return std::move(read_);
  }

 private:
  static constexpr std::int64_t kLinesBetweenCalls = 4096;

  struct Hear {
    FileRun& run;
    bool operator()(const ReadProblem& problem) const { return run.Hears(problem); }
  };

  void Begin() {
    model::ModelSettings& settings = store_.settings();
    settings.strMPSFile = path_;
    settings.ReadMPSFileErr = 0;
    settings.EndLineMissing = false;
    settings.LinesRead = 0;
    settings.DefaultToPlusMinusInfinity = options_.infinite_default_bounds;
    sink_.DropRecords();
    sink_.DropTexts();
    read_.outcome = ReadOutcome::kRead;
  }

  void ReadAll() {
    try {
      ReadLines();
      if (goes_on_) Check();
    } catch (const AutomationError& error) {
      if (error.run_time_error() == RunTimeError::kOutOfMemory) throw;
      NoteFailure(error);
    }
  }

  void ReadLines() {
    if (options_.open) {
      source_.Open(options_.open());
    } else {
      source_.Open(path_);
    }
    if (IsWide()) source_.WatchTabs();
    SourceLine& line = source_.line();
    while (goes_on_ && source_.Next(sections_.section())) {
      if (line.number() == next_look_ && !LookUp(line)) break;
      if (!Use(line)) break;
    }
    read_.facts.lines = line.number();
    if (goes_on_) EndLines(line);
    // What is packed tells at its end only whether it was whole.
    if (goes_on_ && options_.open) source_.SkipRest();
    source_.Close();
  }

  // At the first line, and every so many lines; false when the read is to end.
  [[gnu::noinline]] bool LookUp(const SourceLine& line) {
    if (line.number() == 1) {
      next_look_ = kLinesBetweenCalls;
      if (IsWide()) CheckEncoding(line);
      return true;
    }
    next_look_ += kLinesBetweenCalls;
    return Progress();
  }

  bool IsWide() const { return options_.dialect == FileDialect::kWide; }

  static void CheckEncoding(const SourceLine& line) {
    if (line.too_long() || !IsUtf16(line.text())) return;
    throw AutomationError(0, "", "The text is in UTF-16; UTF-8 and ASCII are read.");
  }

  // False when the file ends with the line. Nearly all are plain lines of COLUMNS, which take a shorter way to
  // the same.
  bool Use(SourceLine& line) {
    if (!takes_short_way_ || !wide_.IsPlainColumnLine(line)) return UseAny(line);
    const bool goes_on = sections_.UseColumnData(line);
    if (!order_.IsOfLast(sink_.ColumnOf(line)) || spellings_.Wants(line)) {
      CheckColumn(line, WideDialect::Verdict::kLine);
    }
    return goes_on;
  }

  bool UseAny(SourceLine& line) {
    const bool goes_on = UseAsItStands(line);
    takes_short_way_ = sections_.section() == Section::kColumns && IsWide() && !options_.on_line;
    return goes_on;
  }

  [[gnu::noinline]] bool UseAsItStands(SourceLine& line) {
    const Section section = sections_.section();
    const WideDialect::Verdict verdict =
        IsWide() ? wide_.Look(line, section) : WideDialect::Verdict::kLine;
    bool goes_on = true;
    if (verdict == WideDialect::Verdict::kLine) {
      goes_on = sections_.Use(line);
    } else if (verdict == WideDialect::Verdict::kData) {
      goes_on = sections_.UseData(line);
    }
    if (section == Section::kColumns && IsWide()) CheckColumn(line, verdict);
    if (verdict == WideDialect::Verdict::kNothing) {
      if (options_.on_passed_line) options_.on_passed_line(line, section);
    } else if (options_.on_line) [[unlikely]] {
      options_.on_line(line, section, sections_.section());
    }
    return goes_on;
  }

  [[gnu::noinline]] void CheckColumn(const SourceLine& line, WideDialect::Verdict verdict) {
    const std::int32_t column = sink_.ColumnOf(line);
    if (column != 0) {
      if (spellings_.Wants(line)) CheckSpellings(line, column);
      order_.Use(line, column, sections_.column_type());
    } else if (verdict == WideDialect::Verdict::kData && IsMarkerLine(line)) {
      order_.UseMarker(line);
    }
  }

  // Of one that is used and is no line of a column.
  bool IsMarkerLine(const SourceLine& line) const {
    const std::size_t count = line.token_count();
    return sink_.HasRows() && (count == 3 || count == 5) && line[2] == "'MARKER'";
  }

  // Looks the rows up again: to hear of them as they are found costs plain files too.
  void CheckSpellings(const SourceLine& line, std::int32_t column) {
    for (std::size_t token = 2; token < line.token_count(); token += 2) {
      const std::int32_t row = sink_.FindRow(line, token);
      if (row != 0) spellings_.UseRow(line, line[token], row);
    }
    spellings_.UseColumn(line, line[1], column, sink_.IsNewColumn(line));
  }

  void EndLines(SourceLine& line) {
    read_.facts.has_endata = sections_.has_ended();
    if (IsWide()) FinishWide();
    if (!read_.facts.has_endata) Tell({FileProblemCode::kMissingEndata, line.number()});
    while (IsWide() && goes_on_ && sections_.has_ended() && source_.Next(Section::kStart)) {
      if (wide_.IsTextBehindEnd(line)) break;
    }
  }

  void FinishWide() {
    wide_.Finish();
    order_.Finish();
  }

  bool Progress() {
    if (!options_.on_progress || options_.on_progress(source_.bytes_read(), source_.file_size())) {
      return true;
    }
    goes_on_ = false;
    read_.outcome = ReadOutcome::kStopped;
    return false;
  }

  // To the sections a bound with a word too many is one without its value.
  FileProblemCode CodeOfLine(const ReadProblem& problem) {
    const bool has_more =
        problem.code == ReadProblemCode::kBoundWithoutValue && source_.line().token_count() > 4;
    return has_more ? FileProblemCode::kTokens : CodeOf(problem.code);
  }

  bool Hears(const ReadProblem& problem) {
    FileProblem told{.code = CodeOfLine(problem), .line = problem.line, .item = problem.item};
    if (problem.line != 0 && (options_.on_problem || read_.problems.WillKeep(told.code))) {
      const SourceLine& line = source_.line();
      const bool has_token = problem.token != 0 && problem.token <= line.token_count();
      ShowPlace(line, has_token ? line[problem.token] : std::string_view(), told);
    }
    return Tell(std::move(told));
  }

  bool Tell(FileProblem problem) {
    if (goes_on_ && options_.on_problem && !options_.on_problem(problem)) {
      goes_on_ = false;
      read_.outcome = ReadOutcome::kRefused;
    }
    read_.problems.Add(std::move(problem));
    return goes_on_;
  }

  void Check() {
    using enum FileProblemCode;
    const model::ModelData& data =
        options_.looks_at_records ? store_.data() : store_.looks().DataWithoutRowLists();
    if (data.NumberOfRows == 0) Tell({kNoRows});
    if (data.NumberOfColumns == 0) Tell({kNoColumns});
    if (data.NumberOfElements == 0) Tell({kNoElements});
    if (options_.looks_at_records) {
      CheckRecords(data.Columns, data.NumberOfColumns, kColumnBoundsReversed, kEmptyColumn);
      CheckRecords(data.Rows, data.NumberOfRows, kRowBoundsReversed, kEmptyRow);
    }
    for (std::int32_t r = data.NumberOfRows; r >= 1 && !IsWide(); --r) {
      if (data.Rows[r].Type == model::RowType::kFree) read_.facts.objective = data.Rows[r].Name;
    }
    if (options_.looks_at_records) CheckRowTypes(data);
    if (goes_on_) store_.DeriveRowTypes();
  }

  // What the limits of a row make of its type; seen while it still has the one that the file gives it.
  void CheckRowTypes(const model::ModelData& data) {
    for (std::int32_t r = 1; r <= data.NumberOfRows && goes_on_; ++r) {
      const model::RowRecord& row = data.Rows[r];
      const model::RowType type = model::RowTypeOf(row.LowerBound, row.UpperBound);
      const bool good =
          type == row.Type || type == model::RowType::kRanged || type == model::RowType::kEqual;
      if (good) continue;
      const bool is_free = type == model::RowType::kFree;
      Tell({.code = FileProblemCode::kRowTypeLost,
            .item = row.Name,
            .made = "the type " + model::TypeText(row.Type) + " becomes " + model::TypeText(type) +
                    (is_free ? ", which limits nothing" : "")});
    }
  }

  template <class Records>
  void CheckRecords(const Records& records, std::int32_t count, FileProblemCode reversed,
                    FileProblemCode empty) {
    for (std::int32_t number = 1; number <= count && goes_on_; ++number) {
      const auto& record = records[number];
      // The component compares what is stored, also for a bound that is absent.
      const bool is_reversed =
          IsWide() ? model::AreReversed(record) : record.LowerBound > record.UpperBound;
      if (is_reversed) Tell({.code = reversed, .item = record.Name});
      if (record.ElementCount() == 0) Tell({.code = empty, .item = record.Name});
    }
  }

  // Cannot fail.
  void Drop() {
    store_.fill().Begin();
    store_.Clear();
    store_.settings().ReadMPSFileErr = 0;
  }

  void NoteFailure(const AutomationError& error) {
    Tell({.code = FileProblemCode::kFailure, .item = path_, .failure = error});
    goes_on_ = false;
    read_.outcome = ReadOutcome::kFailed;
  }

  // What has no size may be no file that can be read again.
  std::unique_ptr<platform::ByteSource> OpenAgain() const {
    if (options_.open) return options_.open();
    if (source_.file_size() == 0) return nullptr;
    return std::make_unique<platform::FileBytes>(platform::InputFile(path_));
  }

  void End() {
    model::ModelSettings& settings = store_.settings();
    settings.EndLineMissing = !read_.facts.has_endata;
    settings.LinesRead = read_.facts.lines;
    if (read_.outcome != ReadOutcome::kRead) Drop();
    ShowLines([this] { return OpenAgain(); }, read_.problems);
    if (read_.outcome != ReadOutcome::kRead) return;
    DropConstantNote(settings.ModelDescription);
    settings.ReadMPSFileErr = -1;
  }

  const std::string& path_;
  const ReadOptions& options_;
  model::ModelStore& store_;
  FileRead read_;
  bool goes_on_ = true;
  bool takes_short_way_ = false;  // lines of COLUMNS that are plain; settled by each other line
  std::int64_t next_look_ = 1;
  LineSource source_;
  const HearProblem hear_;
  GivenValues values_;
  NameSpellings spellings_;
  WatchedSink sink_;
  Sections<WatchedSink, Hear> sections_;
  WideDialect wide_;
  ColumnOrder order_;
};

}  // namespace

FileRead ReadFile(const std::string& path, const ReadOptions& options, model::ModelStore& store) {
  return FileRun(path, options, store).Run();
}

}  // namespace quarvel::mps
