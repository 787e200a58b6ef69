#include "tests/mps/odd_models.h"

#include <iterator>
#include <random>
#include <set>

#include "text/numbers.h"

namespace quarvel::mps {
namespace {

using Names = std::vector<std::string>;

struct Dice {
  std::mt19937 engine;
  double oddness;

  bool IsOdd() { return std::uniform_real_distribution<>(0, 1)(engine) < oddness; }
  template <class Values>
  auto Pick(const Values& values) {
    return values[engine() % std::size(values)];
  }
  int Below(int limit) { return static_cast<int>(engine() % static_cast<unsigned>(limit)); }
};

const char* const kOddRecordNames[] = {
    "'MARKER'", "INT",  "INTEND", "ROWS",     "ENDATA",   "*X",        "a",  "B C", "",
    "N\nX",     "T\tX", "\xE4",   "\xC3\x84", "\xC3\xA4", "NINECHARS", "R1", "RHS", "-1"};
const double kGoodValues[] = {1, -3.5, 0.1, 12, 250, -0.0001220703, 1e9};
const double kOddValues[] = {0,
                             -0.0,
                             1e-12,
                             1.0 / 3,
                             1e15,
                             1e300,
                             12345678.12345678,
                             0.3,
                             1.1e-10,
                             4.9e-11,
                             -1e-5,
                             123456789012345.678};
const double kOddBounds[] = {
    0,       -5,     5,     model::BoundLimit, -model::BoundLimit, 0.1,   0.3, 1e-12, 2e10, -2e10,
    1.0 / 3, -1e300, 1e300, 9999999999.999998, -9999999999.999998, 1e-300};

std::string AnyName(Dice& dice, const char* stem, int number) {
  return dice.IsOdd() ? dice.Pick(kOddRecordNames) : stem + std::to_string(number);
}

void AddAnyRow(Dice& dice, ModelBuilder& build, const std::string& name) {
  const double value = dice.Pick(kGoodValues);
  if (dice.IsOdd()) {
    const char type = dice.Pick("NGLER");
    build.RowWithin(name, type == '\0' ? ModelBuilder::kNoType : type, dice.Pick(kOddBounds),
                    dice.Pick(kOddBounds));
  } else if (dice.Below(4) == 0) {
    build.Ranged(name, value, value + 2);
  } else {
    build.Row(name, "NGLE"[dice.Below(4)], value);
  }
}

void AddAnyColumn(Dice& dice, ModelBuilder& build, const std::string& name, bool integer) {
  const bool odd = dice.IsOdd();
  const double lower = odd ? dice.Pick(kOddBounds) : dice.Below(2) * -2.0;
  const double upper = odd ? dice.Pick(kOddBounds) : dice.Pick(kGoodValues) + 10;
  build.Column(name, lower, upper, integer ? 'I' : 'R');
}

template <class Records>
void AppendRecords(Names& lines, const Records& records, bool with_elements) {
  for (const auto& record : records) {
    std::string line = std::string(record.Name) + ' ' + model::TypeText(record.Type);
    for (const double bound : {record.LowerBound, record.UpperBound}) {
      line += ' ' + text::RoundTripText(bound);
    }
    for (const model::ElementEntry& element : record.Elements) {
      if (!with_elements) break;
      line += " " + std::to_string(element.Index) + ':' + text::RoundTripText(element.Value);
    }
    lines.push_back(line);
  }
}

}  // namespace

void BuildOddModel(unsigned seed, double oddness, ModelBuilder& build) {
  Dice dice{std::mt19937(seed), oddness};
  if (dice.IsOdd()) build.Name(dice.Pick(kOddRecordNames));
  if (dice.IsOdd()) build.Description(std::string("D\r\n") + dice.Pick(kOddRecordNames));
  std::set<std::string> rows;
  std::set<std::string> columns;
  for (int i = 0; i < 3; ++i) {
    const std::string name = AnyName(dice, "R", i);
    if (rows.insert(name).second) AddAnyRow(dice, build, name);
  }
  for (int j = 0; j < 4; ++j) {
    const std::string name = AnyName(dice, "C", j);
    if (!columns.insert(name).second) continue;
    AddAnyColumn(dice, build, name, dice.IsOdd() || j == 3);
    for (const std::string& row : rows) {
      if (dice.IsOdd()) continue;
      build.Element(name, row, dice.IsOdd() ? dice.Pick(kOddValues) : dice.Pick(kGoodValues));
      if (dice.IsOdd()) build.Element(name, row, dice.Pick(kGoodValues));
    }
  }
}

std::vector<std::string> Everything(const model::ModelData& data) {
  Names lines = {data.ModelName, data.ModelDescription};
  AppendRecords(lines, data.Rows, true);
  AppendRecords(lines, data.Columns, true);
  return lines;
}

}  // namespace quarvel::mps
