#include "inspect/solution_lines.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

constexpr std::string_view kBlanks = " \t";

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Takes the first word off the text.
std::string_view TakeWord(std::string_view& text) {
  text = Trimmed(text);
  const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
  text.remove_prefix(word.size());
  return word;
}

// Takes the last word off the text.
std::string_view TakeLastWord(std::string_view& text) {
  text = Trimmed(text);
  const std::string_view word = text.substr(text.find_last_of(kBlanks) + 1);
  text.remove_suffix(word.size());
  return word;
}

std::optional<std::int64_t> Count(std::string_view text) {
  const std::optional<double> number = text::ParseNumber(text);
  constexpr double kMost = 1e15;
  if (!number || *number < 0 || *number > kMost) return std::nullopt;
  const auto count = static_cast<std::int64_t>(*number);
  if (static_cast<double>(count) != *number) return std::nullopt;
  return count;
}

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

// Gives the value of that name to the user, or says that it is none.
std::string TakeValue(std::int64_t line, std::string_view name, std::string_view value,
                      SolutionUser& user) {
  const std::optional<double> number = text::ParseNumber(Trimmed(value));
  if (!number) return Quoted(Trimmed(value)) + " is not a number";
  user.Take({.line = line, .name = Trimmed(name), .value = *number});
  return {};
}

class PairLines : public SolutionLines {
 public:
  std::string Use(std::string_view line, std::int64_t number, SolutionUser& user) override {
    const std::string_view text = Trimmed(line);
    if (text.empty() || text.starts_with('#') || text.starts_with("=obj=")) return {};
    // "X1 = 3" and "X1 =3" have both; names may hold "=".
    const std::size_t equals = text.rfind('=');
    if (equals != std::string_view::npos) {
      return TakeValue(number, text.substr(0, equals), text.substr(equals + 1), user);
    }
    const std::size_t blank = text.find_first_of(kBlanks);
    if (blank == std::string_view::npos) return Quoted(text) + " is not NAME VALUE or NAME=VALUE";
    return TakeValue(number, text.substr(0, blank), text.substr(blank), user);
  }
};

// Columns of text: number 0-5, name 7-18, state 20-21, activity 23-35. A longer name stands alone on its
// line, and the rest below it.
class GlpsolReportLines : public SolutionLines {
 public:
  static constexpr std::string_view kRanges = " - SENSITIVITY ANALYSIS REPORT";

  std::string Use(std::string_view line, std::int64_t number, SolutionUser& user) override {
    if (line.starts_with("Columns:")) {
      std::string_view rest = line.substr(line.find(':') + 1);
      columns_ = Count(TakeWord(rest)).value_or(-1);
    }
    if (number == 1 && line.find(kRanges) != std::string_view::npos) {
      return "a sensitivity report holds no solution: glpsol writes one with --output or --write";
    }
    if (line.find("Column name") != std::string_view::npos) {
      state_ = State::kRule;
    } else if (state_ == State::kRule) {
      state_ = State::kValues;
    } else if (state_ == State::kValues) {
      return UseValue(line, number, user);
    }
    return {};
  }

  std::string End() override { return state_ == State::kBefore ? "there are no columns" : ""; }

 private:
  static constexpr std::size_t kName = 7;
  static constexpr std::size_t kNameWidth = 12;
  static constexpr std::size_t kState = 20;
  static constexpr std::size_t kActivity = 23;
  static constexpr std::size_t kActivityWidth = 13;
  enum class State : std::uint8_t { kBefore, kRule, kValues, kBehind };

  std::string UseValue(std::string_view line, std::int64_t number, SolutionUser& user) {
    if (Trimmed(line).empty()) {
      state_ = State::kBehind;
      return MissingValue();
    }
    const std::string_view value = From(line, kActivity).substr(0, kActivityWidth);
    const bool goes_on = Trimmed(line.substr(0, kState)).empty();
    if (goes_on == name_.empty()) {
      return goes_on ? Quoted(line) + " is no line of a column" : MissingValue();
    }
    if (goes_on) return TakeValue(number, std::exchange(name_, {}), value, user);
    if (text::ParseNumber(value)) {
      return TakeValue(number, From(line, kName).substr(0, kNameWidth), value, user);
    }
    name_ = Trimmed(From(line, kName));
    return name_.empty() ? Quoted(line) + " is no line of a column" : "";
  }

  std::string MissingValue() const { return name_.empty() ? "" : "there is no value of " + name_; }

  static std::string_view From(std::string_view line, std::size_t place) {
    return line.substr(std::min(place, line.size()));
  }

  State state_ = State::kBefore;
  std::string name_;  // that stood alone on the line before
};

// "s bas|ipt|mip rows columns ...", then "j number [state] value ..." for each column.
class GlpsolRawLines : public SolutionLines {
 public:
  std::string Use(std::string_view line, std::int64_t number, SolutionUser& user) override {
    const std::string_view what = TakeWord(line);
    if (what == "s") {
      has_state_ = TakeWord(line) == "bas";
      TakeWord(line);
      columns_ = Count(TakeWord(line)).value_or(-1);
    }
    if (what != "j") return {};
    const std::string_view column = TakeWord(line);
    if (has_state_) TakeWord(line);
    const std::string_view value = TakeWord(line);
    const std::optional<std::int64_t> j = Count(column);
    if (!j || *j < 1 || *j > columns_) return Quoted(column) + " is no number of a column";
    const std::optional<double> parsed = text::ParseNumber(value);
    if (!parsed) return Quoted(value) + " is not a number";
    user.Take({.line = number, .number = *j, .value = *parsed});
    return {};
  }

 private:
  bool has_state_ = false;
};

// A heading, then name and value of each column up to an empty line; as often as there are solutions.
class LpSolveLines : public SolutionLines {
 public:
  static constexpr std::string_view kHeading = "Actual values of the variables:";
  // "infeasible" or "unbounded", in place of values.
  static constexpr std::string_view kNone = "This problem is ";

  std::string Use(std::string_view line, std::int64_t number, SolutionUser& user) override {
    if (!in_values_ && line.starts_with(kNone)) outcome_ = Trimmed(line);
    if (line.starts_with(kHeading)) {
      user.Begin(SolutionKind::kLpSolve);
      in_values_ = has_values_ = true;
      return {};
    }
    std::string_view name = line;
    const std::string_view value = TakeLastWord(name);
    if (value.empty()) in_values_ = false;
    return in_values_ ? TakeValue(number, name, value, user) : "";
  }

  std::string End() override {
    if (has_values_) return {};
    if (!outcome_.empty()) return "there is no solution in it: " + Quoted(outcome_);
    return "there are no values of the variables";
  }

 private:
  std::string outcome_;  // that came without values
  bool in_values_ = false;
  bool has_values_ = false;
};

// A line about the outcome, then "[**] number name value reduced-cost". Numbers start again where the
// columns follow the rows.
class CbcLines : public SolutionLines {
 public:
  std::string Use(std::string_view line, std::int64_t number, SolutionUser& user) override {
    if (number == 1 || Trimmed(line).empty()) return {};
    std::string_view rest = Trimmed(line);
    if (rest.starts_with("**")) rest.remove_prefix(2);
    const std::string_view place = TakeWord(rest);
    TakeLastWord(rest);
    const std::string_view value = TakeLastWord(rest);
    const std::optional<std::int64_t> index = Count(place);
    if (!index || Trimmed(rest).empty()) return Quoted(line) + " is no line of a column";
    if (*index <= last_) user.Begin(SolutionKind::kCbc);
    last_ = *index;
    return TakeValue(number, rest, value, user);
  }

 private:
  std::int64_t last_ = -1;
};

// "# Primal solution values", then "# Columns N" with N names and values, or "# Columns -N" with N names,
// values and numbers of those that are not 0.
class HighsLines : public SolutionLines {
 public:
  static constexpr std::string_view kHeading = "# Primal solution values";

  std::string Use(std::string_view line, std::int64_t number, SolutionUser& user) override {
    if (line.starts_with('#')) {
      UseHeading(line);
      return {};
    }
    if (!in_columns_ || Trimmed(line).empty()) return {};
    std::string_view name = line;
    if (is_sparse_) TakeLastWord(name);
    const std::string_view value = TakeLastWord(name);
    return TakeValue(number, name, value, user);
  }

  std::string End() override { return has_columns_ ? "" : "there are no primal values"; }

 private:
  void UseHeading(std::string_view line) {
    constexpr std::string_view kColumns = "# Columns";
    if (line.starts_with(kHeading)) {
      is_primal_ = true;
    } else if (!line.starts_with(kColumns)) {
      is_primal_ = is_primal_ && line.starts_with("# Rows");
    }
    in_columns_ = is_primal_ && line.starts_with(kColumns);
    if (!in_columns_) return;
    has_columns_ = true;
    const std::string_view count = Trimmed(line.substr(kColumns.size()));
    is_sparse_ = count.starts_with('-');
    if (!is_sparse_) columns_ = Count(count).value_or(-1);
  }

  bool is_primal_ = false;
  bool in_columns_ = false;
  bool is_sparse_ = false;
  bool has_columns_ = false;
};

// "Columns", a line of titles, then "index [status] lower upper primal [dual] [type] [name]": without
// names columns are known by their index, from 0.
class HighsReportLines : public SolutionLines {
 public:
  static constexpr std::string_view kTitles = "    Index Status        Lower        Upper";

  std::string Use(std::string_view line, std::int64_t number, SolutionUser& user) override {
    if (line.starts_with("Columns")) {
      in_columns_ = true;
    } else if (line.starts_with("Rows") || Trimmed(line).empty()) {
      in_columns_ = false;
    } else if (in_columns_ && line.starts_with(kTitles)) {
      name_ = line.find("Name");
    } else if (in_columns_) {
      return UseValue(line, number, user);
    }
    return {};
  }

 private:
  std::string UseValue(std::string_view line, std::int64_t number, SolutionUser& user) const {
    std::string_view rest = line;
    const std::optional<std::int64_t> index = Count(TakeWord(rest));
    if (!index) return Quoted(line) + " is no line of a column";
    const std::string_view word = TakeWord(rest);
    if (!IsBound(word)) TakeWord(rest);
    TakeWord(rest);
    const std::string_view value = TakeWord(rest);
    if (name_ != std::string_view::npos) {
      return TakeValue(number, line.substr(std::min(name_, line.size())), value, user);
    }
    const std::optional<double> parsed = text::ParseNumber(value);
    if (!parsed) return Quoted(value) + " is not a number";
    user.Take({.line = number, .number = *index + 1, .value = *parsed});
    return {};
  }

  static bool IsBound(std::string_view word) {
    return word == "inf" || word == "-inf" || text::ParseNumber(word).has_value();
  }

  bool in_columns_ = false;
  std::size_t name_ = std::string_view::npos;  // where names start in a line
};

bool AnyStartsWith(std::span<const std::string> lines, std::string_view text) {
  return std::any_of(lines.begin(), lines.end(),
                     [text](const std::string& line) { return line.starts_with(text); });
}

bool IsGlpsolRaw(std::span<const std::string> lines) {
  for (const std::string& line : lines) {
    if (line.starts_with("s bas ") || line.starts_with("s mip ") || line.starts_with("s ipt ")) {
      return true;
    }
    if (line != "c" && !line.starts_with("c ")) return false;
  }
  return false;
}

}  // namespace

SolutionKind KindOf(std::span<const std::string> first_lines) {
  if (first_lines.empty()) return SolutionKind::kPairs;
  const std::string& first = first_lines.front();
  if (IsGlpsolRaw(first_lines)) return SolutionKind::kGlpsolRaw;
  const bool is_report = first.starts_with("Problem:") && AnyStartsWith(first_lines, "Rows:");
  if (is_report || first.find(GlpsolReportLines::kRanges) != std::string::npos) {
    return SolutionKind::kGlpsolReport;
  }
  if (first.find(" - objective value ") != std::string::npos) return SolutionKind::kCbc;
  if (first.starts_with("Model status") || AnyStartsWith(first_lines, HighsLines::kHeading)) {
    return SolutionKind::kHighs;
  }
  if (AnyStartsWith(first_lines, HighsReportLines::kTitles)) return SolutionKind::kHighsReport;
  if (AnyStartsWith(first_lines, "Value of objective function:") ||
      AnyStartsWith(first_lines, LpSolveLines::kHeading) ||
      AnyStartsWith(first_lines, LpSolveLines::kNone)) {
    return SolutionKind::kLpSolve;
  }
  return SolutionKind::kPairs;
}

std::unique_ptr<SolutionLines> MakeSolutionLines(SolutionKind kind) {
  switch (kind) {
    case SolutionKind::kPairs:
      return std::make_unique<PairLines>();
    case SolutionKind::kGlpsolReport:
      return std::make_unique<GlpsolReportLines>();
    case SolutionKind::kGlpsolRaw:
      return std::make_unique<GlpsolRawLines>();
    case SolutionKind::kLpSolve:
      return std::make_unique<LpSolveLines>();
    case SolutionKind::kCbc:
      return std::make_unique<CbcLines>();
    case SolutionKind::kHighs:
      return std::make_unique<HighsLines>();
    case SolutionKind::kHighsReport:
      return std::make_unique<HighsReportLines>();
  }
  return nullptr;
}

}  // namespace quarvel::inspect
