// A file of any bytes, checked. Text, JSON and SARIF tell the same; what is printed cannot steer a
// terminal; the exit status is that of what was found. Lint finds exactly the pairs, the far sizes and
// the unbounded integers that a look at each coefficient finds, no row for a multiple that is none, and
// each row that another one is to the last bit. A model that a file does not keep is never clean.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "fuzz/choices.h"
#include "fuzz/json_text.h"
#include "fuzz/printed_text.h"
#include "inspect/lint.h"
#include "mps/exact_losses.h"
#include "mps/read_file.h"
#include "tests/support/run_quarvel.h"
#include "text/encoding.h"

namespace {

using namespace quarvel;
using fuzz::Require;
using mps::FileProblem;
using mps::FileProblemCode;

using Entries = std::map<std::int32_t, double>;

// Empty for a record that has a pair twice.
template <class Record>
Entries EntriesOf(const Record& record) {
  Entries entries;
  for (const model::ElementEntry& entry : record.Elements) entries[entry.Index] = entry.Value;
  if (entries.size() != static_cast<std::size_t>(record.ElementCount())) entries.clear();
  return entries;
}

bool AreMultiples(const Entries& a, const Entries& b) {
  constexpr double kTolerance = 1e-10;
  if (a.size() != b.size()) return false;
  const double factor = b.begin()->second / a.begin()->second;
  return std::equal(a.begin(), a.end(), b.begin(), [factor](const auto& x, const auto& y) {
    const double expected = x.second * factor;
    return x.first == y.first && std::fabs(y.second - expected) <= kTolerance * std::fabs(expected);
  });
}

class NaiveLint {
 public:
  NaiveLint(const model::ModelData& data, const mps::FileFacts& facts) : data_(data) {
    for (std::int32_t j = 1; j <= data.NumberOfColumns; ++j) {
      Look(data.Columns[j]);
      const bool is_unbounded = data.Columns[j].Type == model::ColumnType::kInteger &&
                                data.Columns[j].UpperBound >= model::BoundLimit;
      if (is_unbounded && !facts.SaysUpper(j)) ++counts_[FileProblemCode::kIntegerWithoutUpper];
    }
    for (std::int32_t i = 1; i <= data.NumberOfRows; ++i) {
      if (AreFarApart(data.Rows[i])) ++counts_[FileProblemCode::kRowScale];
    }
  }

  std::string Compare(const mps::FileProblems& found) {
    for (const FileProblemCode code :
         {FileProblemCode::kPairTwice, FileProblemCode::kIntegerWithoutUpper,
          FileProblemCode::kRowScale, FileProblemCode::kColumnScale}) {
      if (counts_[code] != found.CountOf(code)) {
        return "another number of " + std::string(mps::TraitsOf(code).id);
      }
    }
    return CompareRows(found);
  }

 private:
  template <class Record>
  static bool AreFarApart(const Record& record) {
    double smallest = HUGE_VAL;
    double largest = 0;
    for (const model::ElementEntry& entry : record.Elements) {
      smallest = std::min(smallest, std::fabs(entry.Value));
      largest = std::max(largest, std::fabs(entry.Value));
    }
    return largest > smallest * 1e9;
  }
  void Look(const model::ColumnRecord& column) {
    Entries met;
    for (const model::ElementEntry& entry : column.Elements) {
      if (met.count(entry.Index) > 0) ++counts_[FileProblemCode::kPairTwice];
      met[entry.Index] = entry.Value;
    }
    if (AreFarApart(column)) ++counts_[FileProblemCode::kColumnScale];
  }

  std::string CompareRows(const mps::FileProblems& found) const {
    std::map<std::string, bool> told;
    for (const FileProblem& problem : found.kept()) {
      if (problem.code == FileProblemCode::kParallelRows) told[problem.item] = true;
    }
    for (std::int32_t i = 1; i <= data_.NumberOfRows; ++i) {
      const Entries row = EntriesOf(data_.Rows[i]);
      if (row.size() < 2 || data_.Rows[i].Type == model::RowType::kFree) continue;
      const bool is_told = told[data_.Rows[i].Name];
      bool is_multiple = false;
      bool is_same = false;
      for (std::int32_t k = 1; k < i; ++k) {
        const Entries other = EntriesOf(data_.Rows[k]);
        if (other.size() < 2 || data_.Rows[k].Type == model::RowType::kFree) continue;
        is_multiple = is_multiple || AreMultiples(other, row);
        is_same = is_same || other == row;
      }
      if (is_told && !is_multiple) return "a multiple of none: " + data_.Rows[i].Name;
      if (is_same && !is_told) return "the same row is not told: " + data_.Rows[i].Name;
    }
    return "";
  }

  const model::ModelData& data_;
  std::map<FileProblemCode, std::int64_t> counts_;
};

// Text of two bytes a character: it has the mark of that, or one of the first two characters is 0. These are bytes,
// unless the line is UTF-8.
bool IsOfTwoBytesEach(const std::string& bytes) {
  const std::string line = bytes.substr(0, bytes.find_first_of("\r\n"));
  if (line.starts_with("\xFF\xFE") || line.starts_with("\xFE\xFF")) return true;
  std::size_t second = 1;
  if (text::IsValidUtf8(line)) {
    while (second < line.size() && (line[second] & 0xC0) == 0x80) ++second;
  }
  return second < line.size() && (line[0] == 0) != (line[second] == 0);
}

std::string LintFault(const std::string& path, const std::string& bytes) {
  constexpr std::size_t kAll = 100000;
  model::ModelStore store;
  mps::FileRead read = mps::ReadFile(path, {.kept_of_each = kAll}, store);
  const bool is_refused = read.outcome == mps::ReadOutcome::kFailed;
  if (is_refused != IsOfTwoBytesEach(bytes)) return is_refused ? "refused" : "not refused";
  if (is_refused) return "";
  if (read.outcome != mps::ReadOutcome::kRead) return "not read";
  inspect::Lint(store, read.facts, read.problems);
  const std::string fault = NaiveLint(store.data(), read.facts).Compare(read.problems);
  if (!fault.empty()) return fault;
  const auto keeps = [&](mps::FileLayout layout) {
    return mps::LossesOf(store, read.facts, layout).groups().empty();
  };
  const bool is_kept = keeps(mps::FileLayout::kFixed) && keeps(mps::FileLayout::kFree);
  return is_kept || !read.problems.kept().empty() ? "" : "a loss, and no problem";
}

// The number of that member, which no text of a name can hold: quotes are escaped in it.
std::int64_t Member(const std::string& json, const std::string& name) {
  const std::size_t at = json.rfind("\"" + name + "\":");
  return at == json.npos ? -1 : std::stoll(json.substr(at + name.size() + 3));
}

std::string PrintFault(const std::string& path) {
  const Outcome text = RunQuarvel({"check", path, "--limit", "3"});
  const Outcome json = RunQuarvel({"check", path, "--limit", "3", "--json"});
  const Outcome sarif = RunQuarvel({"check", path, "--sarif"});
  if (fuzz::SteersTerminal(text.out, "\n")) return "text steers a terminal";
  if (!fuzz::JsonText::IsValid(json.out)) return "no JSON";
  if (!fuzz::JsonText::IsValid(sarif.out)) return "SARIF is no JSON";
  if (text.status != json.status || text.status != sarif.status) return "another status";
  const std::int64_t errors = Member(json.out, "errors");
  const std::int64_t warnings = Member(json.out, "warnings");
  const int expected = errors > 0 ? 1 : warnings > 0 ? 3 : 0;
  if (text.status != expected) return "not the status of what was found";
  const bool is_clean = text.out.find(": no problems; ") != text.out.npos;
  const bool has_none = errors + warnings + Member(json.out, "adapted") == 0;
  return has_none && !is_clean ? "not called clean" : "";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const HostFolder folder;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const std::string path = folder.Write("m.mps", bytes);
  Require(LintFault(path, bytes), bytes);
  Require(PrintFault(path), bytes);
  return 0;
}
