// Which right-hand sides, ranges and bounds a file has given so far. One that is given again counts, and
// is told with the line before that gave it (W415); so are a number too small for a double (W416) and a
// coefficient of 0 (W423). Who wants to hears of every value, and of the sense of the objective.
//
// Memory: 8 bytes for each row that has a right-hand side or a range, or stands before one that has, 16
// bytes in the same way for each column with a bound.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "mps/given_value.h"
#include "mps/wide_report.h"
#include "platform/large_pages.h"

namespace quarvel::mps {

class GivenValues {
 public:
  // Both must outlive this; `on_value` may be empty.
  GivenValues(const HearProblem& hear, const HearGivenValue& on_value)
      : hear_(hear), on_value_(on_value) {}

  // The line gives a row or column of that number, whose name in the line is `word`, that value.
  void NoteRhs(const SourceLine& line, std::string_view word, std::int32_t row, double value) {
    Note(rhs_lines_, line, word, row);
    if (on_value_) [[unlikely]]
      on_value_(line, {.kind = GivenValue::Kind::kRhs, .number = row, .value = value});
  }
  void NoteRange(const SourceLine& line, std::string_view word, std::int32_t row, double value) {
    Note(range_lines_, line, word, row);
    if (on_value_) [[unlikely]]
      on_value_(line, {.kind = GivenValue::Kind::kRange, .number = row, .value = value});
  }
  void NoteBounds(const SourceLine& line, std::string_view word, std::int32_t column,
                  BoundsGiven given) {
    BoundLines& last = At(bound_lines_, column);
    const bool again = (given.lower && last.lower != 0) || (given.upper && last.upper != 0);
    if (again) [[unlikely]]
      TellBounds(line, word, last, given);
    if (given.lower) last.lower = line.number();
    if (given.upper) last.upper = line.number();
    if (on_value_) [[unlikely]]
      on_value_(line, {.kind = GivenValue::Kind::kBounds, .number = column, .bounds = given});
  }
  void NoteSense(const SourceLine& line, ObjectiveSense sense) const {
    if (on_value_) on_value_(line, {.kind = GivenValue::Kind::kSense, .sense = sense});
  }
  // The line of COLUMNS gives a coefficient of 0, which is that word, in the row of that name.
  void NoteZero(const SourceLine& line, std::string_view word, std::string_view row) const {
    if (!CheckZero(line, word)) {
      TellOf(hear_, FileProblemCode::kZeroCoefficient, line, word, std::string(row),
             "no element of column " + std::string(line[1]));
    }
  }
  // The word was read as that value.
  void CheckNumber(const SourceLine& line, std::string_view word, double value) const {
    if (value == 0 && word != "0") [[unlikely]]
      CheckZero(line, word);
  }

 private:
  // Of those that set the bounds last; 0 for none.
  struct BoundLines {
    std::int64_t lower = 0;
    std::int64_t upper = 0;
  };

  template <class Entry>
  using Table = std::vector<Entry, platform::TableAllocator<Entry>>;

  template <class Entry>
  static Entry& At(Table<Entry>& lines, std::int32_t number) {
    const auto place = static_cast<std::size_t>(number);
    if (place >= lines.size()) [[unlikely]]
      lines.resize(place + 1);
    return lines[place];
  }
  void Note(Table<std::int64_t>& lines, const SourceLine& line, std::string_view word,
            std::int32_t number) {
    const std::int64_t last = std::exchange(At(lines, number), line.number());
    if (last != 0) [[unlikely]]
      Tell(line, word, {last});
  }
  void TellBounds(const SourceLine& line, std::string_view word, const BoundLines& last,
                  BoundsGiven given) const;
  void Tell(const SourceLine& line, std::string_view word, std::vector<std::int64_t> lines) const;
  // Of a word that was read as 0: true when it is another number, which is told.
  bool CheckZero(const SourceLine& line, std::string_view word) const;

  const HearProblem& hear_;
  const HearGivenValue& on_value_;
  Table<std::int64_t> rhs_lines_;    // by row
  Table<std::int64_t> range_lines_;  // by row
  Table<BoundLines> bound_lines_;    // by column
};

}  // namespace quarvel::mps
