#include "tests/support/wide_file.h"

#include <array>
#include <cstddef>
#include <vector>

namespace quarvel::testing {
namespace {

using Words = std::vector<std::string>;

const Words kWideRowNames = {"COST", "LIM", "DEM", "BAL",      "other",    "A B",
                             "R",    "$D",  "5",   "\xC3\x84", "'MARKER'", "a long name of a row"};
const Words kWideColumnNames = {"X",  "x",  "Y",   "z",   "X 1", "$Z",
                                "*S", "12", "RHS", "MAX", "R",   "\xE4"};
const Words kSets = {"R", "R", "R", "ONE", "S 2", "", "", "5"};
const Words kWideNumbers = {"1",     "2.5",  "-3",  "0",    "-0",        "7",   "1E10",
                            "-1e10", "1e30", "Inf", "-inf", "+Infinity", "1D2", "1,5",
                            "$5",    "x",    "-1",  ".5",   "-",         "12",  "1e-400"};
const Words kOddLines = {"",
                         "   ",
                         "\t \t",
                         "* remark",
                         "   * remark",
                         "  *S         COST              1.",
                         "OBJSENSE",
                         "objsense MAX",
                         "OBJSENS minimize now",
                         "    max",
                         "MAX",
                         "OBJSENSEMAX",
                         "OBJSENSEMIN or so",
                         "OBJNAME",
                         "OBJNAME\nBOUNDS",
                         "OBJNAME dem",
                         "    other and more",
                         "QUADOBJ",
                         "SOS1 set",
                         "INDICATORS",
                         "BASIS",
                         "basis of this",
                         "    X X 2",
                         "LAZYCONS",
                         "USERCUTS too",
                         "NAME other",
                         "NAME  one of many words in it FREE",
                         "NAME m FREE ",
                         "X COST 3",
                         "R LIM 4",
                         "N EXTRA",
                         "UP R X 4",
                         "    M 'MARKER' 'INTORG'",
                         "    M 'MARKER' 'INTEND' $ end",
                         "    M         'MARKER'                 'SOSORG'",
                         "    M 'MARKER' 'OTHER' x",
                         "    X 'MARKER' 'INTORG'",
                         "    'MARKER' 'MARKER' 1 2",
                         " A",
                         "                                                               far out",
                         "\x1A",
                         "    X         COST              1.   LIM               2."};

class WideFile {
 public:
  explicit WideFile(const std::function<std::uint32_t(std::uint32_t)>& choose) : choose_(choose) {}

  std::string Make() {
    style_ = choose_(4);
    oddness_ = choose_(3) * 6;
    Start();
    Header("ROWS");
    for (std::uint32_t k = 2 + choose_(6); k > 0; --k) {
      rows_.push_back(Pick(kWideRowNames));
      Line({Pick({"N", "E", "L", "G", "l"}), rows_.back()});
    }
    Header("COLUMNS");
    for (std::uint32_t k = 1 + choose_(8); k > 0; --k) {
      if (choose_(6) == 5)
        text_ += Pick({"    M 'MARKER' 'INTORG'\n", "    M 'MARKER' 'INTEND'\n"});
      columns_.push_back(Pick(kWideColumnNames));
      Line(Pairs(columns_.back()));
    }
    for (std::uint32_t k = choose_(5); k > 0; --k) Section();
    if (choose_(8) != 0) Header("ENDATA");
    if (choose_(8) == 0) text_ += Pick({"\n\n", "  \x1A", "more\n", "\n* more\n\n"});
    return text_;
  }

 private:
  const std::string& Pick(const Words& words) {
    return words[choose_(static_cast<std::uint32_t>(words.size()))];
  }
  // Nothing is odd, and nothing goes on, where only 0 is chosen any more.
  bool IsOdd() { return choose_(60) >= 60 - oddness_; }

  void Start() {
    while (choose_(3) == 2) text_ += Pick({"* a model\n", "*\n", "    note\n", "a note\n", "\n"});
    if (choose_(3) != 0) text_ += Pick({"NAME  m\n", "name\n", "NAME m FREE\n", "NAME a b\n"});
    while (IsOdd()) text_ += Pick(kOddLines) + "\n";
  }

  void Header(std::string word) {
    if (choose_(12) == 0) word += Pick({" x", "  ", "\there", " R LIM 4"});
    if (choose_(12) == 0) word = Pick({"rhs", "Ranges", "bounds", "COLUMNS", "ROWS"});
    text_ += word + Pick({"\n", "\n", "\n", "\r\n", "\r"});
  }

  void Section() {
    const std::uint32_t kind = choose_(5);
    Header(Pick({kind == 0 ? "RANGES" : kind < 3 ? "RHS" : "BOUNDS"}));
    for (std::uint32_t k = choose_(6); k > 0; --k) {
      if (kind < 3) {
        Line(Pairs(Pick(kSets)));
      } else {
        Bound();
      }
    }
  }

  // As of fixed columns, from field 1 on.
  Words Pairs(const std::string& name) {
    Words fields = {IsOdd() ? "Q" : "", name, Row(), Number()};
    if (choose_(2) == 0) fields.insert(fields.end(), {Row(), Number()});
    return fields;
  }

  void Bound() {
    Words fields = {Pick({"UP", "LO", "FX", "FR", "MI", "PL", "BV", "LI", "UI", "SC", "SI", "XX"}),
                    Pick(kSets), IsOdd() ? Pick(kWideColumnNames) : Pick(columns_)};
    if (choose_(6) == 0) {
      fields.push_back(Pick({"Inf", "-inf", "+Infinity", "1E10", "-1e30"}));
    } else if (choose_(4) != 0) {
      fields.push_back(Number());
    }
    if (IsOdd()) fields.insert(fields.end(), {"more", "1"});
    Line(fields);
  }

  const std::string& Row() { return IsOdd() ? Pick(kWideRowNames) : Pick(rows_); }
  std::string Number() {
    return IsOdd() ? Pick(kWideNumbers) : Pick({"1", "2.5", "-3", "0", "12"});
  }

  void Line(const Words& fields) {
    if (IsOdd()) text_ += Pick(kOddLines) + "\n";
    const std::uint32_t style = IsOdd() ? choose_(4) : style_;
    std::string line = style == 3   ? Between(fields, "\t")
                       : style == 2 ? Fixed(fields)
                                    : Between(fields, " ");
    if (IsOdd()) line += Pick({" $", " $ more", "  $more words", "   tail", " 4"});
    if (IsOdd()) line = line.substr(choose_(4));
    text_ += line + "\n";
  }

  std::string Between(const Words& fields, const std::string& blank) {
    std::string line = blank;
    for (const std::string& field : fields) {
      if (!field.empty()) line += field + std::string(1 + choose_(2), blank[0]);
    }
    return line;
  }

  std::string Fixed(const Words& fields) {
    static constexpr std::array<std::size_t, 6> kStarts = {1, 4, 14, 24, 39, 49};
    std::string line;
    std::size_t shift = 0;
    if (IsOdd()) shift = choose_(3);
    for (std::size_t field = 0; field < fields.size() && field < kStarts.size(); ++field) {
      // A line of a letter beyond ASCII has more bytes than columns.
      if (line.size() < kStarts[field] + shift) line.resize(kStarts[field] + shift, ' ');
      line += fields[field];
    }
    if (IsOdd()) line.resize(63, ' '), line += "behind";
    return line;
  }

  const std::function<std::uint32_t(std::uint32_t)>& choose_;
  std::uint32_t style_ = 0;    // 0 and 1: blanks, 2: fixed columns, 3: tabs
  std::uint32_t oddness_ = 0;  // of sixty things so many are odd
  Words rows_;
  Words columns_;
  std::string text_;
};

}  // namespace

std::string MakeWideFile(const std::function<std::uint32_t(std::uint32_t)>& choose) {
  return WideFile(choose).Make();
}

}  // namespace quarvel::testing
