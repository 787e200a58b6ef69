#include "tests/support/save_comparison.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <set>
#include <utility>

#include "model/model_check.h"
#include "tests/support/model_builder.h"
#include "tests/support/naive_simplify.h"
#include "tests/support/naive_writer.h"
#include "tests/support/read_comparison.h"
#include "tests/support/test_paths.h"

namespace quarvel::testing {
namespace {

constexpr std::string_view kNoElements = "No elements in the model.  Aborting save.";
constexpr std::string_view kNotStandard =
    "The file written is not a standard MPS file, since at least one of the row or column names or "
    "element values was too long";
constexpr std::string_view kOldFile = "what the file held\n";
constexpr std::string_view kOldBackup = "what an older save left\n";

// A multiple of 1/8 that every picture holds exactly.
double ChooseKeptNumber(const Choice& choose) {
  return (static_cast<double>(choose(4000)) - 2000) / 8;
}

double ChooseBits(const Choice& choose) {
  std::uint64_t bits = 0;
  for (int byte = 0; byte < 8; ++byte) bits = bits << 8 | choose(256);
  return std::bit_cast<double>(bits);
}

double ChooseDouble(const Choice& choose) {
  static constexpr std::array<double, 14> kEdges = {
      0,    -0.0,   1e10,         -1e10,         1e11,      -1e11,         123456789012.5,
      1e15, 1e-300, 0.1234567891, -1234567890.5, 99999999., 1.797693e+308, 9999999999.99999};
  switch (choose(4)) {
    case 0:
      return kEdges[choose(kEdges.size())];
    case 1:
      return ChooseBits(choose);
    default:
      return ChooseKeptNumber(choose);
  }
}

std::string ChooseAnyName(const Choice& choose, const std::string& plain) {
  static const std::array<std::string, 10> kOdd = {
      "",          "EIGHTCHR", "NINE_CHAR", "ÄÖÜäöüßé", "ÄÖÜäöüßéñ",
      "two words", "'MARKER'", "lower",     "\xFF",     "a_name_of_more_than_sixteen_bytes"};
  switch (choose(6)) {
    case 0:
      return kOdd[choose(kOdd.size())];
    case 1: {
      std::string bytes(choose(12), ' ');
      for (char& byte : bytes) byte = static_cast<char>(choose(256));
      return bytes;
    }
    default:
      return plain;
  }
}

std::string ChooseKeptName(const Choice& choose, const std::string& plain) {
  static const std::array<std::string, 4> kSuffixes = {"", "", "_LONGER_THAN_EIGHT", "ÄÖÜ"};
  return plain + kSuffixes[choose(kSuffixes.size())];
}

std::string ChooseDescription(const Choice& choose, bool kept) {
  static const std::array<std::string, 6> kLines = {"one", "Two Words", "é",
                                                    "",    " blank",    "\r\n\r\n"};
  std::string description;
  for (std::uint32_t lines = choose(4); lines > 0; --lines) {
    if (!description.empty()) description += "\r\n";
    description += kLines[choose(kept ? 3U : static_cast<std::uint32_t>(kLines.size()))];
  }
  return description;
}

void GiveKeptRowBounds(const Choice& choose, NaiveRecord& row) {
  static const std::array<std::string, 5> kTypes = {"N", "L", "G", "E", "R"};
  row.Type = kTypes[choose(kTypes.size())];
  const double a = ChooseKeptNumber(choose);
  row.LowerBound = row.Type == "N" || row.Type == "L" ? -1e10 : a;
  row.UpperBound = row.Type == "N" || row.Type == "G" ? 1e10 : a;
  if (row.Type == "R") row.UpperBound = a + (1 + choose(200)) / 8.0;
}

void GiveKeptColumnBounds(const Choice& choose, NaiveRecord& column) {
  column.Type = choose(3) == 0 ? "I" : "R";
  const double a = ChooseKeptNumber(choose);
  const double b = a + (1 + choose(200)) / 8.0;
  const std::array<std::pair<double, double>, 6> bounds = {
      {{0, 1e10}, {0, a < 0 ? -a : a}, {a, 1e10}, {a, b}, {a, a}, {-1e10, 1e10}}};
  const auto& [lower, upper] = bounds[choose(bounds.size())];
  column.LowerBound = lower;
  // A lower bound of 0 is not written: above a negative upper one it would come back all the same.
  column.UpperBound = upper;
}

void AddRecords(NaiveModel& model, std::uint32_t rows, std::uint32_t columns) {
  model.Rows.resize(rows);
  model.Columns.resize(columns);
  model.NumberOfRows = static_cast<std::int32_t>(rows);
  model.NumberOfColumns = static_cast<std::int32_t>(columns);
}

}  // namespace

NaiveModel ChooseAnyModel(const Choice& choose) {
  static const std::array<std::string, 6> kTypes = {"N", "L", "G", "E", "R", ""};
  NaiveModel model;
  const std::uint32_t rows = choose(7);
  AddRecords(model, rows, choose(7));
  model.ModelName = choose(2) == 0 ? ChooseAnyName(choose, "MODEL") : "";
  model.ModelDescription = ChooseDescription(choose, false);
  for (NaiveRecord& row : model.Rows) {
    row = {ChooseAnyName(choose, "R" + std::to_string(&row - model.Rows.data())),
           kTypes[choose(kTypes.size())],
           ChooseDouble(choose),
           ChooseDouble(choose),
           {}};
    if (choose(6) == 0) row.UpperBound = row.LowerBound;
  }
  for (NaiveRecord& column : model.Columns) {
    column = {ChooseAnyName(choose, "C" + std::to_string(&column - model.Columns.data())),
              choose(3) == 0 ? "I" : "R",
              ChooseDouble(choose),
              ChooseDouble(choose),
              {}};
    if (choose(6) == 0) column.UpperBound = column.LowerBound;
  }
  for (std::uint32_t elements = rows == 0 ? 0 : choose(16); elements > 0; --elements) {
    if (model.Columns.empty()) break;
    const auto column = choose(static_cast<std::uint32_t>(model.Columns.size()));
    model.AddElement(static_cast<std::int32_t>(choose(rows)), static_cast<std::int32_t>(column),
                     ChooseDouble(choose));
  }
  model.RebuildRowIndexes();
  return model;
}

NaiveModel ChooseKeptModel(const Choice& choose) {
  NaiveModel model;
  const std::uint32_t rows = 1 + choose(6);
  const std::uint32_t columns = 1 + choose(6);
  AddRecords(model, rows, columns);
  model.ModelName = choose(2) == 0 ? ChooseKeptName(choose, "MODEL") : "";
  model.ModelDescription = ChooseDescription(choose, true);
  for (NaiveRecord& row : model.Rows) {
    row.Name = ChooseKeptName(choose, "R" + std::to_string(&row - model.Rows.data()));
    GiveKeptRowBounds(choose, row);
  }
  for (NaiveRecord& column : model.Columns) {
    column.Name = ChooseKeptName(choose, "C" + std::to_string(&column - model.Columns.data()));
    GiveKeptColumnBounds(choose, column);
  }
  std::set<std::pair<std::uint32_t, std::uint32_t>> pairs;  // of column and row
  for (std::uint32_t i = 0; i < rows; ++i) pairs.emplace(i % columns, i);
  for (std::uint32_t j = 0; j < columns; ++j) pairs.emplace(j, j % rows);
  for (std::uint32_t more = choose(12); more > 0; --more) {
    const std::uint32_t column = choose(columns);
    pairs.emplace(column, choose(rows));
  }
  for (const auto& [column, row] : pairs) {
    const double value = ChooseKeptNumber(choose);
    model.AddElement(static_cast<std::int32_t>(row), static_cast<std::int32_t>(column),
                     value == 0 ? 1 : value);
  }
  model.RebuildRowIndexes();
  return model;
}

NaiveModel AsReadBack(const NaiveModel& model) {
  NaiveModel read = model;
  read.NumberOfElements = 0;
  std::stable_partition(read.Columns.begin(), read.Columns.end(),
                        [](const NaiveRecord& column) { return column.Type != "I"; });
  for (NaiveRecord& row : read.Rows) row.Elements.clear();
  std::int32_t j = 0;
  for (NaiveRecord& column : read.Columns) {
    const std::vector<NaiveEntry> elements = std::exchange(column.Elements, {});
    for (const NaiveEntry& entry : elements) read.AddElement(entry.Index - 1, j, entry.Value);
    ++j;
  }
  read.RebuildRowIndexes();
  return read;
}

SavePlan ChooseSavePlan(const Choice& choose) {
  SavePlan plan;
  plan.own_file = choose(2) == 0;
  plan.old_file = plan.own_file || choose(2) == 0;
  plan.old_backup = choose(2) == 0;
  return plan;
}

void SaveComparison::Prepare(const NaiveModel& model, const SavePlan& plan) {
  for (const auto& entry : std::filesystem::directory_iterator(ToPath(folder_.path()))) {
    std::filesystem::remove(entry.path());
  }
  desktop_.Clear();
  written_ = model.NumberOfElements == 0 ? "" : WriteNaively(model).text;
  if (plan.old_file) WriteWholeFile(path_, kOldFile);
  if (plan.old_backup) WriteWholeFile(backup_, kOldBackup);
}

std::string SaveComparison::Save(const NaiveModel& model, const SavePlan& plan) {
  Prepare(model, plan);
  LPModel component(desktop_);
  const std::string before = plan.own_file ? path_ : folder_.File("elsewhere.mps");
  ChangeFields(component, [&](model::ModelData& data) {
    Fill(data, model);
    data.FileLocation = before;
  });
  if (component.SaveMPSFile(path_) != -1) return "result of SaveMPSFile";
  const bool refused = model.NumberOfElements == 0;
  std::vector<std::string> boxes;
  if (refused) boxes.emplace_back(kNoElements);
  if (!refused && !WriteNaively(model).standard) boxes.emplace_back(kNotStandard);
  if (std::string fault = CompareTalk(boxes); !fault.empty()) return fault;
  if (std::string fault = CompareFiles(plan, refused); !fault.empty()) return fault;
  NaiveModel after = model;
  after.FileLocation = refused ? before : path_;
  return Dump(component.store().data()) == Dump(after) ? "" : "the model was changed";
}

std::string SaveComparison::CompareTalk(const std::vector<std::string>& expected) const {
  std::vector<std::string> told;
  for (const platform::ShownBox& box : desktop_.boxes()) told.push_back(box.text);
  return told == expected ? "" : "boxes: " + (told.empty() ? "none" : told.front());
}

std::string SaveComparison::CompareFiles(const SavePlan& plan, bool refused) const {
  const std::string is = ReadWholeFile(path_);
  if (is != written_) return "the file holds:\n" + is + "\nnot:\n" + written_;
  std::string kept_backup(plan.old_backup && !plan.own_file ? kOldBackup : "");
  // A save that is refused leaves the backup that it made.
  if (refused && plan.own_file) kept_backup = kOldFile;
  std::set<std::string> expected = {"model.mps"};
  if (!kept_backup.empty()) expected.insert("model.bkp");
  // A file that had the backup's name, and is none, is kept.
  const bool is_moved = plan.old_backup && plan.own_file;
  if (is_moved) expected.insert("model.bkp.1");
  std::set<std::string> found;
  for (const auto& entry : std::filesystem::directory_iterator(ToPath(folder_.path()))) {
    found.insert(entry.path().filename().string());
  }
  if (!refused && found != expected) return "another number of files is left";
  if (is_moved && ReadWholeFile(backup_ + ".1") != kOldBackup) return "a foreign file is lost";
  if (kept_backup.empty()) return "";
  return ReadWholeFile(backup_) == kept_backup ? "" : "the backup holds something else";
}

std::string SaveComparison::ReadBack(const NaiveModel& model, bool is_kept) {
  ReadComparison readers(path_);
  if (std::string fault = readers.Read(written_, {}); !fault.empty()) return fault;
  if (!is_kept) return "";
  for (const std::string& problem : readers.Problems()) return "read back: " + problem;
  NaiveModel expected = AsReadBack(model);
  expected.strMPSFile = path_;
  const std::string is = Dump(readers.naive());
  return is == Dump(expected) ? "" : "read back:\n" + is + "\nnot:\n" + Dump(expected);
}

}  // namespace quarvel::testing
