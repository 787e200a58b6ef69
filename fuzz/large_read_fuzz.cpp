// Large models, whose shape the input says: more rows than those whose lists are filled directly, and
// columns that go through them in steps, so that the row lists are filled group by group. Read by
// the component and by the plain reader side by side; a host looks in the middle.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/choices.h"
#include "tests/support/read_comparison.h"
#include "tests/support/test_paths.h"

namespace {

using quarvel::fuzz::Choices;

constexpr std::uint32_t kFewRows = 4096;
constexpr std::uint32_t kMostElements = 20'000;

std::string Number(std::uint32_t number) { return std::to_string(number); }

// A column that names every so many rows from one on, around the end.
struct Column {
  std::uint32_t first;
  std::uint32_t step;
  std::uint32_t count;
};

std::vector<Column> ChooseColumns(Choices& choose, std::uint32_t rows) {
  std::vector<Column> columns;
  std::uint32_t elements = 0;
  do {
    Column column = {};
    column.first = choose(rows);
    column.step = choose(2) == 0 ? 1 + choose(4) : 1 + choose(rows);
    column.count = 1 + choose(2000);
    columns.push_back(column);
    elements += column.count;
  } while (elements < kMostElements && !choose.at_end());
  return columns;
}

std::string FileOf(std::uint32_t rows, const std::vector<Column>& columns) {
  std::string text = "ROWS\n";
  for (std::uint32_t i = 0; i < rows; ++i) text += " G R" + Number(i) + "\n";
  text += "COLUMNS\n";
  std::uint32_t j = 0;
  for (const Column& column : columns) {
    const std::string name = " C" + Number(j++) + " R";
    for (std::uint32_t k = 0; k < column.count; ++k) {
      const std::uint32_t row = (column.first + k * column.step) % rows;
      text += name + Number(row) + " " + Number(k % 7 + 1) + "\n";
    }
  }
  return text + "ENDATA\n";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quarvel::testing;
  static const quarvel::TemporaryFolder folder;
  Choices choose(data, size);
  const std::uint32_t rows = kFewRows - 64 + choose(6000);
  const std::uint32_t look = choose(400);
  ReadPlan plan;
  plan.looks = [look](std::int64_t point) { return point == look; };
  plan.lower_bounds_absent = choose(2) == 1;
  ReadComparison readers(folder.File("model.mps"));
  quarvel::fuzz::Require(readers.Read(FileOf(rows, ChooseColumns(choose, rows)), plan));
  return 0;
}
