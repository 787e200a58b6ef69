#include "tests/mps/mps_file_generator.h"

#include <algorithm>
#include <cstddef>

#include "text/upper_case.h"

namespace quarvel::mps {
namespace {

using namespace std::string_literals;

// Names that are not what a reader expects first: lengths around machine words, letters of both
// encodings, control characters.
const std::vector<std::string> kOddNames = {
    "R\xC3\xA4um",          // UTF-8
    "Stra\xDF"s + "e\xE4",  // Windows-1252
    "\x80uro",              // Windows-1252, beyond Latin-1
    "a\0b"s,                // a NUL byte
    "t\tab",
    "'MARKER'",
    "rows",
    "*star",
    "seven_7",
    "eight_88",
    "nine_9999",
    "sixteen_16161616",
    "seventeen_1717171",
    std::string(63, 'w'),
    std::string(64, 'x'),
    std::string(65, 'y'),
    std::string(300, 'z'),
};

const std::vector<std::string> kNumbers = {"1",     "-1",       "2.5",   "-.5",    "+3.",   "1e3",
                                           "1D-2",  "-2.25E+1", "0.1",   "123456", "7e-12", "1e10",
                                           "-1e10", "9.9e9",    "2e300", "1E5",    "3",     "10"};
const std::vector<std::string> kBadNumbers = {"one",   "inf", "NaN", "0x1F", "1e999", "1,5",
                                              "1.2.3", "--1", "1e",  "",     "+",     "\xD9\xA3"};

}  // namespace

std::string MpsFileGenerator::Make(int lines, int mistakes) {
  mistakes_ = mistakes;
  line_end_ = static_cast<int>(Below(4));
  text_.clear();
  MakeNames(lines);
  Head();
  std::vector<std::uint32_t> sections = {0, 1, 2, 3, 4};
  if (Mistake()) std::swap(sections[Below(5)], sections[Below(5)]);
  if (Mistake()) sections.erase(sections.begin() + Below(5));
  if (Mistake()) sections.push_back(Below(5));
  for (const std::uint32_t section : sections) Section(section);
  if (!Chance(20)) Header("ENDATA");
  if (Chance(10)) Line(Noise());
  // The last line needs no end.
  if (Chance(30)) text_.erase(text_.find_last_not_of("\r\n") + 1);
  return text_;
}

void MpsFileGenerator::MakeNames(int lines) {
  row_names_.clear();
  row_types_.clear();
  column_names_.clear();
  const std::uint32_t rows = 1 + Below(static_cast<std::uint32_t>(lines / 3 + 2));
  for (std::uint32_t i = 0; i < rows; ++i) {
    row_names_.push_back((Chance(50) ? "R" : "row") + std::to_string(i));
    row_types_.push_back(Pick({"N", "L", "G", "E", "l", "e"}));
  }
  const std::uint32_t columns = 1 + Below(static_cast<std::uint32_t>(lines + 1));
  for (std::uint32_t j = 0; j < columns; ++j) column_names_.push_back("x" + std::to_string(j));
  if (Chance(40)) row_names_[Below(rows)] = Pick(kOddNames);
  if (Chance(40)) column_names_[Below(columns)] = Pick(kOddNames);
  if (Mistake()) row_names_[Below(rows)] = row_names_[Below(rows)];
}

void MpsFileGenerator::Head() {
  if (Chance(20)) text_ += "\xEF\xBB\xBF";
  while (Chance(40)) Line("*" + std::string(Below(3), ' ') + Noise());
  if (Chance(70)) Header("NAME" + std::string(Below(12), ' ') + (Chance(80) ? " model two" : ""));
  while (Chance(40)) Line(Chance(20) ? "*" : "*  text \xFC  ");
  if (Chance(20)) Line(Noise());
}

void MpsFileGenerator::Section(std::uint32_t number) {
  switch (number) {
    case 0:
      return Rows();
    case 1:
      return Columns();
    case 2:
      return RowValues("RHS");
    case 3:
      return RowValues("RANGES");
    default:
      return Bounds();
  }
}

void MpsFileGenerator::Rows() {
  Header("ROWS");
  for (std::size_t i = 0; i < row_names_.size(); ++i) {
    DataLine({Mistake() ? "R" : row_types_[i], row_names_[i]});
  }
}

void MpsFileGenerator::Columns() {
  Header("COLUMNS");
  bool integer = false;
  // Without mistakes every row gets an element.
  const std::size_t count = std::max(column_names_.size(), row_names_.size());
  for (std::size_t j = 0; j < count; ++j) {
    if (Chance(10)) Marker(integer = !integer);
    ColumnLines(column_names_[j % column_names_.size()], static_cast<std::uint32_t>(j));
    // Another column is taken up again.
    if (Chance(5)) ColumnLines(Pick(column_names_), Below(100));
  }
  if (integer && !Mistake()) Marker(false);
}

void MpsFileGenerator::ColumnLines(const std::string& column, std::uint32_t number) {
  const std::size_t rows = row_names_.size();
  const std::uint32_t lines = 1 + Below(3);
  for (std::uint32_t i = 0; i < lines; ++i) {
    Words words = {column};
    const std::uint32_t pairs = 1 + Below(2);
    for (std::uint32_t k = 0; k < pairs; ++k) {
      // The first pair covers the rows one after the other and never has the value 0.
      const bool first = i == 0 && k == 0;
      const Words pair = Pair(first ? row_names_[number % rows] : Pick(row_names_));
      words.insert(words.end(), pair.begin(), pair.end());
      if ((!first && Chance(5)) || (first && Mistake())) words.back() = Chance(50) ? "0" : "-0.0";
    }
    DataLine(words);
  }
}

void MpsFileGenerator::Marker(bool integer) {
  const std::string name = Mistake() ? Pick(column_names_) : "M" + std::to_string(Below(1000));
  DataLine({name, Chance(50) ? "'MARKER'" : "'marker'",
            Mistake() ? "'OTHER'"
            : integer ? "'INTORG'"
                      : "'intend'"});
}

void MpsFileGenerator::RowValues(const std::string& header) {
  if (Chance(20)) return;
  Header(header);
  const std::uint32_t lines = Below(static_cast<std::uint32_t>(row_names_.size()) + 2);
  for (std::uint32_t i = 0; i < lines; ++i) {
    Words words = {Pick({"RHS", "set2", "R0"})};
    const std::uint32_t pairs = 1 + Below(2);
    for (std::uint32_t k = 0; k < pairs; ++k) {
      const std::uint32_t row = Below(static_cast<std::uint32_t>(row_names_.size()));
      const Words pair = Pair(row_names_[row]);
      words.insert(words.end(), pair.begin(), pair.end());
      // The range of an equality must not be negative.
      const std::string type = text::UpperCase(row_types_[row]);
      if (header == "RANGES" && type == "E" && !Mistake()) words.back() = Chance(50) ? "4" : "0";
    }
    DataLine(words);
  }
}

void MpsFileGenerator::Bounds() {
  if (Chance(20)) return;
  Header("BOUNDS");
  const std::uint32_t lines = Below(static_cast<std::uint32_t>(column_names_.size()) + 2);
  for (std::uint32_t i = 0; i < lines; ++i) {
    const std::string& column = Pick(column_names_);
    switch (Below(4)) {
      case 0:
        DataLine({Chance(50) ? "LO" : "up", "B", column, Mistake() ? Number() : "0"});
        break;
      case 1:
        DataLine({Mistake() ? "BV" : "fx", "B", column, Mistake() ? Pick(kBadNumbers) : Number()});
        break;
      case 2:
        DataLine({"FR", "B2", column});
        break;
      default:
        DataLine({Chance(50) ? "PL" : "MI", "B", column, Number()});
        if (Mistake()) DataLine({"LO", "B", column, "1", "2"});
    }
  }
}

MpsFileGenerator::Words MpsFileGenerator::Pair(const std::string& row) {
  return {Mistake() ? "none" : row, Mistake() ? Pick(kBadNumbers) : Number()};
}

std::string MpsFileGenerator::Number() { return Pick(kNumbers); }

std::string MpsFileGenerator::Noise() {
  std::string text;
  const std::uint32_t size = Below(40);
  for (std::uint32_t i = 0; i < size; ++i)
    text += static_cast<char>(Below(4) ? 32 + Below(96) : Below(256));
  return text;
}

void MpsFileGenerator::DataLine(Words words) {
  if (Mistake()) {
    switch (Below(5)) {
      case 0:
        words.pop_back();
        break;
      case 1:
        words.push_back(Pick(column_names_));
        break;
      case 2:
        return Line(Noise());
      case 3:
        return Line("* remark in a section");
      default:
        return Line(std::string(Below(4), ' '));
    }
  }
  if (Chance(5)) Line("");
  std::string text(1 + Below(5), ' ');
  for (std::string word : words) {
    if (Chance(10)) word = text::UpperCase(word);
    text += word + std::string(Chance(70) ? 2 : 1 + Below(12), ' ');
  }
  if (Chance(70)) text.erase(text.find_last_not_of(' ') + 1);
  Line(text);
}

void MpsFileGenerator::Header(std::string keyword) {
  if (Chance(20)) {
    std::transform(keyword.begin(), keyword.end(), keyword.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  }
  if (Chance(10)) keyword += " and more";
  Line((Mistake() ? " " : "") + keyword);
}

void MpsFileGenerator::Line(const std::string& text) {
  static const Words kEnds = {"\n", "\r\n", "\r"};
  // Noise holds line ends of its own; a file keeps to one kind or mixes them.
  text_ += text + (line_end_ == 3 ? Pick(kEnds) : kEnds[static_cast<std::size_t>(line_end_)]);
}

}  // namespace quarvel::mps
