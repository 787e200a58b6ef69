// Random MPS files: mostly right, with mistakes of every kind at a chosen rate.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace quarvel::mps {

class MpsFileGenerator {
 public:
  explicit MpsFileGenerator(std::uint32_t seed) : random_(seed) {}

  // `lines`: about so many columns and entries. `mistakes`: of a hundred items, so many are wrong;
  // with 0 the file can be read without a question. Any line ends, spacing, case and encoding.
  std::string Make(int lines, int mistakes);

  // 0..bound-1, the same on every system.
  std::uint32_t Below(std::uint32_t bound) { return static_cast<std::uint32_t>(random_() % bound); }
  bool Chance(int percent) { return Below(100) < static_cast<std::uint32_t>(percent); }

 private:
  using Words = std::vector<std::string>;

  bool Mistake() { return Chance(mistakes_); }
  const std::string& Pick(const Words& words) {
    return words[Below(static_cast<std::uint32_t>(words.size()))];
  }

  void MakeNames(int lines);
  void Head();
  void Rows();
  void Columns();
  void ColumnLines(const std::string& column, std::uint32_t number);
  void Marker(bool integer);
  void RowValues(const std::string& header);
  void Bounds();
  void Section(std::uint32_t number);

  Words Pair(const std::string& row);
  std::string Number();
  std::string Noise();
  // Turns words into a line, with the mistakes that any line may have.
  void DataLine(Words words);
  void Header(std::string keyword);
  void Line(const std::string& text);

  std::mt19937 random_;
  int mistakes_ = 0;
  int line_end_ = 0;
  Words row_names_;
  Words row_types_;
  Words column_names_;
  std::string text_;
};

}  // namespace quarvel::mps
