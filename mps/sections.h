// The dialect of MPS files, and nothing else: what each line means in each section, and what can be
// wrong with it.
//
// Lines are split at spaces only and upper-cased; a line whose first character is not a space may
// be a section header: NAME, ROWS, COLUMNS, RHS, RANGES, BOUNDS, ENDATA. Everything else is a data
// line:
//
//   before ROWS  "*" lines make up the description, anything else is passed over
//   NAME         [name]; the line is then also a data line of the section it stands in
//   ROWS         type name                        type E, G, L or N
//   COLUMNS      column row value [row value]     a column may be taken up again later
//                name 'MARKER' 'INTORG'           columns from here on are integer
//                name 'MARKER' 'INTEND'           columns from here on are continuous
//   RHS          set row value [row value]        the set's name is ignored, every set is applied
//   RANGES       set row value [row value]        after RHS: a range takes the bounds as they are
//   BOUNDS       code set column [value]          LO UP FX need the value; FR MI PL ignore one
//   ENDATA       ends the file; so does its end
//
// Numbers are those of text::ParseNumber. A zero coefficient adds no element. Right-hand sides: E
// both bounds, L upper (lower becomes absent), G lower, N nothing. A range R moves one bound of a
// row:
//
//   G  upper = lower + |R|     E, R > 0   upper = lower + R
//   L  lower = upper - |R|     E, R <= 0  lower = lower - R  (reversed bounds, reported at the end)
//   N  nothing
//
// Bounds: LO and UP set that bound and nothing else, FX both, FR none, MI no lower, PL no upper.
// What types and codes are stands in model/record_types.h and model/bound_code.h.
//
// Every problem is asked about; No ends the read, Yes passes over the rest of the line after a
// failed check of the line, over the pair after a failed check of a pair.
#pragma once

#include <array>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "model/bound_code.h"
#include "model/record_types.h"
#include "mps/line_source.h"
#include "mps/read_problem.h"
#include "mps/section.h"

namespace quarvel::mps {

// Where what the lines say goes. Numbers of rows and columns are the sink's own, from 1; 0 is none.
// A name is given as the token of the line that it is.
template <class Sink>
concept RecordSink = requires(Sink sink, const SourceLine& line, std::size_t token,
                              std::string_view text, std::int32_t number, double value) {
  sink.SetModelName(text);
  sink.AddDescription(text);  // one line of it
  sink.BeginSection();
  { sink.HasRows() } -> std::same_as<bool>;
  { sink.HasColumns() } -> std::same_as<bool>;
  { sink.FindRow(line, token) } -> std::same_as<std::int32_t>;
  { sink.FindColumn(line, token) } -> std::same_as<std::int32_t>;
  // The column that is the first token of the line, for elements to come.
  { sink.TakeUpColumn(line) } -> std::same_as<std::int32_t>;
  { sink.AddColumn(line, model::ColumnType{}) } -> std::same_as<std::int32_t>;
  // With the bounds of a row without right-hand side.
  sink.AddRow(line, token, model::RowType{});
  sink.AddElement(number, number, value);  // row, column
  { sink.Row(number).Type } -> std::convertible_to<model::RowType>;
  { sink.Row(number).LowerBound } -> std::convertible_to<double>;
  { sink.Row(number).UpperBound } -> std::convertible_to<double>;
  { sink.Column(number).LowerBound } -> std::convertible_to<double>;
  { sink.Column(number).UpperBound } -> std::convertible_to<double>;
};

// A sink may also hear of the values that the lines give, once they have been used: of coefficients of 0
// the token, of right-hand sides the token that names the row.
template <class Sink>
concept HearsValues = requires(Sink sink, const SourceLine& line, std::size_t token,
                               std::int32_t number, const model::BoundsChange& change,
                               double value) {
  sink.HearZero(line, token);
  sink.HearRhs(line, token, number, value);
  sink.HearBound(line, number, change, value);
};

// `Ask` puts a problem to the user and says whether the read goes on.
template <RecordSink Sink, std::predicate<const ReadProblem&> Ask>
class Sections {
 public:
  // The sink must outlive this.
  Sections(Sink& sink, Ask ask) : sink_(sink), ask_(std::move(ask)) {}

  // The section that the next line stands in.
  Section section() const { return section_; }
  // The type of the columns to come.
  model::ColumnType column_type() const { return column_type_; }
  // An ENDATA line was used.
  bool has_ended() const { return has_ended_; }

  // Uses a line; false when the file ends with it or a problem was answered No.
  bool Use(SourceLine& line) {
    if (!line.is_split() && !Split(line)) return goes_on_;
    if (line.text().empty()) return true;
    if (line.text()[0] != ' ') {
      const Header header = UseHeader(line);
      if (header != Header::kNone) return header == Header::kUsedUp;
    }
    UseDataLine(line);
    return goes_on_;
  }

  // Uses a line that is split and known to be a data line, whatever it begins with.
  bool UseData(const SourceLine& line) {
    UseDataLine(line);
    return goes_on_;
  }
  // The same of one that stands in COLUMNS.
  bool UseColumnData(const SourceLine& line) {
    UseColumn(line);
    return goes_on_;
  }

 private:
  // A row's number and a value, or row 0 after a problem.
  struct Pair {
    std::int32_t row = 0;
    double value = 0;
  };
  enum class Header { kNone, kUsedUp, kEnd };

  static std::string_view WithoutSpacesAround(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
  }

  // Of a line that comes alone; false when it has no tokens to use.
  bool Split(SourceLine& line) {
    if (line.too_long()) {
      Report(line, ReadProblemCode::kLineTooLong);
      return false;
    }
    if (section_ == Section::kStart && line.text().starts_with('*')) {
      sink_.AddDescription(WithoutSpacesAround(line.text().substr(1)));
      return false;
    }
    line.Split();
    return true;
  }

  void UseDataLine(const SourceLine& line) {
    switch (section_) {
      case Section::kStart:
        break;
      case Section::kRows:
        UseRow(line);
        break;
      case Section::kColumns:
        UseColumn(line);
        break;
      case Section::kRhs:
        UsePairs(line, ReadProblemCode::kRhsBeforeRows, kApplyRightHandSide);
        break;
      case Section::kRanges:
        UsePairs(line, ReadProblemCode::kRangesBeforeRows, kApplyRange);
        break;
      case Section::kBounds:
        UseBound(line);
        break;
    }
  }

  Header UseHeader(const SourceLine& line) {
    static constexpr std::array<std::pair<std::string_view, Section>, 5> kHeaders = {{
        {"ROWS", Section::kRows},
        {"COLUMNS", Section::kColumns},
        {"RHS", Section::kRhs},
        {"RANGES", Section::kRanges},
        {"BOUNDS", Section::kBounds},
    }};
    const std::string_view keyword = line[1];
    for (const auto& [known, section] : kHeaders) {
      if (keyword != known) continue;
      section_ = section;
      sink_.BeginSection();
      return Header::kUsedUp;
    }
    if (keyword == "ENDATA") {
      has_ended_ = true;
      return Header::kEnd;
    }
    // A NAME line goes on as a data line of its section, which before ROWS means nothing.
    if (keyword == "NAME" && line.token_count() > 1) sink_.SetModelName(line[2]);
    return Header::kNone;
  }

  void UseRow(const SourceLine& line) {
    if (line.token_count() != 2) return Report(line, ReadProblemCode::kRowTokens);
    const model::RowType type = model::RowTypeOf(line[1]);
    if (!model::TraitsOf(type).in_files()) return Report(line, ReadProblemCode::kRowType, 1);
    if (sink_.FindRow(line, 2) != 0) return Report(line, ReadProblemCode::kRowTwice, 2, line[2]);
    sink_.AddRow(line, 2, type);
  }

  void UseColumn(const SourceLine& line) {
    if (!CheckPairs(line, ReadProblemCode::kColumnsBeforeRows)) return;
    std::int32_t column = sink_.TakeUpColumn(line);
    if (column == 0) {
      if (line[2] == "'MARKER'") return UseMarker(line[3]);
      column = sink_.AddColumn(line, column_type_);
    }
    for (std::size_t first = 2; first < line.token_count() && column != 0; first += 2) {
      const Pair pair = ReadPair(line, first);
      if (!goes_on_) return;
      // A question was asked: a host may have deleted columns meanwhile, this one too.
      if (pair.row == 0) column = sink_.FindColumn(line, 1);
      if (pair.row != 0 && pair.value != 0) sink_.AddElement(pair.row, column, pair.value);
      if constexpr (HearsValues<Sink>) {
        if (pair.row != 0 && pair.value == 0) sink_.HearZero(line, first + 1);
      }
    }
  }

  void UseMarker(std::string_view marker) {
    for (const model::ColumnTypeTraits& known : model::kColumnTypes) {
      if (known.marker == marker) column_type_ = known.type;
    }
  }

  template <class Apply>
  void UsePairs(const SourceLine& line, ReadProblemCode before_rows, Apply apply) {
    if (!CheckPairs(line, before_rows)) return;
    for (std::size_t first = 2; first < line.token_count() && goes_on_; first += 2) {
      const Pair pair = ReadPair(line, first);
      if (pair.row == 0) continue;
      apply(sink_.Row(pair.row), pair.value);
      if constexpr (HearsValues<Sink>) {
        if (section_ == Section::kRhs) sink_.HearRhs(line, first, pair.row, pair.value);
      }
    }
  }

  static constexpr auto kApplyRightHandSide = [](auto&& row, double value) {
    model::TraitsOf(row.Type).right_hand_side.Apply(row, value);
  };

  static constexpr auto kApplyRange = [](auto&& row, double range) {
    switch (model::TraitsOf(row.Type).range) {
      case model::RangeEffect::kNothing:
        break;
      case model::RangeEffect::kSetsUpper:
        row.UpperBound = row.LowerBound + std::fabs(range);
        break;
      case model::RangeEffect::kSetsLower:
        row.LowerBound = row.UpperBound - std::fabs(range);
        break;
      case model::RangeEffect::kBySign:
        if (range > 0) {
          row.UpperBound = row.LowerBound + range;
        } else {
          row.LowerBound -= range;
        }
        break;
    }
  };

  void UseBound(const SourceLine& line) {
    if (!sink_.HasColumns()) return Report(line, ReadProblemCode::kBoundsBeforeColumns);
    if (line.token_count() < 3) return Report(line, ReadProblemCode::kTokens);
    const model::BoundCodeTraits* const code = model::FindBoundCode(line[1]);
    if (code == nullptr) return Report(line, ReadProblemCode::kBoundCode, 1);
    double value = 0;
    if (code->needs_value) {
      if (line.token_count() != 4) return Report(line, ReadProblemCode::kBoundWithoutValue);
      if (!line.Number(4, value)) {
        return Report(line, ReadProblemCode::kNotNumeric, 4);
      }
    }
    const std::int32_t column = sink_.FindColumn(line, 3);
    if (column == 0) return Report(line, ReadProblemCode::kNoSuchColumn, 3, line[3]);
    code->change.Apply(sink_.Column(column), value);
    if constexpr (HearsValues<Sink>) sink_.HearBound(line, column, code->change, value);
  }

  bool CheckPairs(const SourceLine& line, ReadProblemCode before_rows) {
    const bool tokens = line.token_count() == 3 || line.token_count() == 5;
    if (tokens && sink_.HasRows()) return true;
    Report(line, tokens ? before_rows : ReadProblemCode::kTokens);
    return false;
  }

  [[gnu::always_inline]] Pair ReadPair(const SourceLine& line, std::size_t first_token) {
    double value;
    if (!line.Number(first_token + 1, value)) {
      Report(line, ReadProblemCode::kNotNumeric, first_token + 1);
      return {};
    }
    const std::int32_t row = sink_.FindRow(line, first_token);
    if (row == 0) Report(line, ReadProblemCode::kNoSuchRow, first_token, line[first_token]);
    return {row, value};
  }

  [[gnu::cold, gnu::noinline]] void Report(const SourceLine& line, ReadProblemCode code,
                                           std::size_t token = 0, std::string_view item = {}) {
    goes_on_ = ask_(ReadProblem{code, line.number(), std::string(item), std::nullopt, token});
  }

  Sink& sink_;
  Ask ask_;
  Section section_ = Section::kStart;
  model::ColumnType column_type_ = model::ColumnType::kContinuous;
  bool has_ended_ = false;
  bool goes_on_ = true;  // false once a problem was answered No
};

}  // namespace quarvel::mps
