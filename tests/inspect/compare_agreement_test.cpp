// Random models, compared once more in a plain way: by maps from what a record or pair is called to what
// stands there.
#include <algorithm>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "inspect/compare.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/model_builder.h"
#include "tests/support/test_length.h"
#include "text/numbers.h"

namespace quarvel::inspect {
namespace {

using Lines = std::vector<std::string>;
using Keys = std::vector<std::string>;  // of records, by their numbers

// The names of all records; those that have one name are told apart by a number: "X#0", "X#1".
template <class Records>
Keys KeysOf(const Records& records) {
  std::map<std::string, int> seen;
  Keys keys = {""};
  for (const auto& record : records) {
    const std::string name(record.Name);
    keys.push_back(name + "#" + std::to_string(seen[name]++));
  }
  return keys;
}

struct PlainRecord {
  std::string type;
  double lower;
  double upper;
};
using PlainRecords = std::map<std::string, PlainRecord>;

template <class Records>
PlainRecords PlainRecordsOf(const Records& records) {
  const Keys keys = KeysOf(records);
  PlainRecords plain;
  for (std::int32_t i = 1; i <= records.size(); ++i) {
    plain[keys[static_cast<std::size_t>(i)]] = {model::TypeText(records[i].Type),
                                                records[i].LowerBound, records[i].UpperBound};
  }
  return plain;
}

struct PlainModel {
  explicit PlainModel(const model::ModelData& data)
      : rows(PlainRecordsOf(data.Rows)), columns(PlainRecordsOf(data.Columns)) {
    const Keys row_keys = KeysOf(data.Rows);
    const Keys column_keys = KeysOf(data.Columns);
    for (std::int32_t c = 1; c <= data.Columns.size(); ++c) {
      for (const auto& entry : data.Columns[c].Elements) {
        elements[{row_keys[static_cast<std::size_t>(entry.Index)],
                  column_keys[static_cast<std::size_t>(c)]}]
            .push_back(entry.Value);
      }
    }
  }

  PlainRecords rows;
  PlainRecords columns;
  std::map<std::pair<std::string, std::string>, std::vector<double>> elements;
};

std::string Values(double before, double after) {
  return " " + text::RoundTripText(before) + " " + text::RoundTripText(after);
}

void AddRecordLines(Lines& lines, const std::string& what, const PlainRecords& a,
                    const PlainRecords& b) {
  for (const auto& [key, record] : a) {
    const auto other = b.find(key);
    if (other == b.end()) {
      lines.push_back(what + "-went " + key);
      continue;
    }
    const PlainRecord& in_b = other->second;
    if (record.type != in_b.type) lines.push_back(what + "-type " + key);
    if (record.lower != in_b.lower) {
      lines.push_back(what + "-lower " + key + Values(record.lower, in_b.lower));
    }
    if (record.upper != in_b.upper) {
      lines.push_back(what + "-upper " + key + Values(record.upper, in_b.upper));
    }
  }
  for (const auto& [key, record] : b) {
    if (!a.contains(key)) lines.push_back(what + "-came " + key);
  }
}

// The differences of one pair: its k-th value in A and its k-th in B.
void AddElementLines(Lines& lines, const std::string& pair, const std::vector<double>& a,
                     const std::vector<double>& b) {
  for (std::size_t k = 0; k < std::max(a.size(), b.size()); ++k) {
    if (k >= b.size()) {
      lines.push_back("element-went" + pair + Values(a[k], 0));
    } else if (k >= a.size()) {
      lines.push_back("element-came" + pair + Values(0, b[k]));
    } else if (a[k] != b[k]) {
      lines.push_back("element-value" + pair + Values(a[k], b[k]));
    }
  }
}

Lines PlainLines(const PlainModel& a, const PlainModel& b) {
  Lines lines;
  AddRecordLines(lines, "row", a.rows, b.rows);
  AddRecordLines(lines, "column", a.columns, b.columns);
  auto all = a.elements;
  all.insert(b.elements.begin(), b.elements.end());
  const auto in_both = [](const PlainRecords& one, const PlainRecords& other,
                          const std::string& key) {
    return one.contains(key) && other.contains(key);
  };
  for (const auto& [pair, values] : all) {
    if (!in_both(a.rows, b.rows, pair.first) || !in_both(a.columns, b.columns, pair.second)) {
      continue;
    }
    const auto of = [&key = pair](const PlainModel& model) {
      const auto found = model.elements.find(key);
      return found == model.elements.end() ? std::vector<double>() : found->second;
    };
    AddElementLines(lines, " " + pair.first + " " + pair.second, of(a), of(b));
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

std::string KeyOf(const Keys& a, const Keys& b, RecordPair pair) {
  if (pair.a != 0 && pair.b != 0) {
    EXPECT_EQ(a[static_cast<std::size_t>(pair.a)], b[static_cast<std::size_t>(pair.b)]);
  }
  if (pair.a == 0 && pair.b == 0) return "";
  return " " +
         (pair.a != 0 ? a[static_cast<std::size_t>(pair.a)] : b[static_cast<std::size_t>(pair.b)]);
}

bool HasValues(DifferenceKind kind) {
  const std::string_view name = NameOf(kind);
  return name.starts_with("element") || name.ends_with("lower") || name.ends_with("upper");
}

Lines ComparedLines(const LPModel& a, const LPModel& b) {
  const Keys rows_a = KeysOf(a.store().data().Rows);
  const Keys rows_b = KeysOf(b.store().data().Rows);
  const Keys columns_a = KeysOf(a.store().data().Columns);
  const Keys columns_b = KeysOf(b.store().data().Columns);
  Lines lines;
  Compare(a.store(), b.store(), {}, [&](const Difference& d) {
    if (IsNote(d.kind)) return;
    std::string line(NameOf(d.kind));
    line += KeyOf(rows_a, rows_b, d.row) + KeyOf(columns_a, columns_b, d.column);
    lines.push_back(HasValues(d.kind) ? line + Values(d.before, d.after) : line);
  });
  std::sort(lines.begin(), lines.end());
  return lines;
}

class RandomModels {
 public:
  explicit RandomModels(std::uint32_t seed) : random_(seed) {}

  // A few records in a random order, some of one name, with few different values.
  void Fill(LPModel& model) {
    ModelBuilder builder(model);
    const Keys rows = SomeNames("R");
    const Keys columns = SomeNames("C");
    for (const std::string& row : rows) builder.RowWithin(row, "NGLE"[Draw(4)], Draw(2), Draw(3));
    for (const std::string& column : columns)
      builder.Column(column, Draw(2), Draw(3), "RI"[Draw(2)]);
    model::ModelStore& store = model.store();
    if (rows.empty() || columns.empty()) return;
    for (int i = Draw(12); i > 0; --i) {
      store.AddElement(Draw(store.NumberOfRows()) + 1, Draw(store.NumberOfColumns()) + 1, Draw(3));
    }
  }

 private:
  int Draw(int choices) { return std::uniform_int_distribution(0, choices - 1)(random_); }
  Keys SomeNames(const std::string& letter) {
    Keys names;
    for (int i = Draw(6); i > 0; --i) names.push_back(letter + std::to_string(Draw(5)));
    return names;
  }

  std::mt19937 random_;
};

TEST(CompareAgreement, FindsWhatAPlainComparisonFinds) {
  for (int i = 0; i < TestLength(2000); ++i) {
    platform::ScriptedDesktop desktop;
    LPModel a(desktop);
    LPModel b(desktop);
    RandomModels random(static_cast<std::uint32_t>(i));
    random.Fill(a);
    random.Fill(b);
    const Lines expected = PlainLines(PlainModel(a.store().data()), PlainModel(b.store().data()));
    ASSERT_EQ(ComparedLines(a, b), expected) << "models of seed " << i;
    ASSERT_EQ(Compare(a.store(), b.store()).none(), expected.empty()) << "models of seed " << i;
  }
}

}  // namespace
}  // namespace quarvel::inspect
