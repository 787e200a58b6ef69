// Two models, of which the second mostly is the first after some edits, compared. The differences are those
// that a plain look at both, name by name, finds; a model does not differ from itself; the script of a diff
// makes the first model the second, as long as the language of edits has words for it, and then no
// difference is left.

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/choices.h"
#include "fuzz/json_text.h"
#include "inspect/compare.h"
#include "mps/read_file.h"
#include "tests/support/naive_edit_language.h"
#include "tests/support/naive_wide_reader.h"
#include "tests/support/naive_writer.h"
#include "tests/support/run_quarvel.h"
#include "tests/support/save_comparison.h"
#include "tests/support/wide_file.h"

namespace {

using namespace quarvel::testing;
using quarvel::fuzz::Choices;
using quarvel::fuzz::Require;
using quarvel::inspect::DifferenceKind;
namespace mps = quarvel::mps;
namespace inspect = quarvel::inspect;

struct Side {
  explicit Side(const std::string& text) : file(text), reader({}, model) { reader.Read(text); }

  std::string file;
  NaiveModel model;
  NaiveWideReader reader;
};

using Counts = std::map<DifferenceKind, std::int64_t>;
using Values = std::map<std::string, std::vector<double>>;  // of a column, by the name of the row
using ByName = std::map<std::string, const NaiveRecord*>;

ByName ByNameOf(const std::vector<NaiveRecord>& records) {
  ByName by_name;
  for (const NaiveRecord& record : records) by_name[record.Name] = &record;
  return by_name;
}

class NaiveDiff {
 public:
  NaiveDiff(const Side& a, const Side& b) : a_(a), b_(b) {
    using enum DifferenceKind;
    const bool maximizes_a = a.reader.facts.sense == mps::ObjectiveSense::kMaximize;
    const bool maximizes_b = b.reader.facts.sense == mps::ObjectiveSense::kMaximize;
    Count(kModelName, a.model.ModelName != b.model.ModelName);
    Count(kDescription, a.model.ModelDescription != b.model.ModelDescription);
    Count(kObjectiveSense, maximizes_a != maximizes_b);
    Count(kObjective, a.reader.facts.objective != b.reader.facts.objective);
    Count(kObjectiveConstant,
          a.reader.facts.objective_constant != b.reader.facts.objective_constant);
    CompareRecords(a.model.Rows, b.model.Rows, kRowWent);
    CompareRecords(a.model.Columns, b.model.Columns, kColumnWent);
    CompareElements();
  }

  Counts counts;

 private:
  void Count(DifferenceKind kind, bool differs) {
    if (differs) ++counts[kind];
  }
  static double Lower(const NaiveRecord& record) { return std::max(record.LowerBound, -1e10); }
  static double Upper(const NaiveRecord& record) { return std::min(record.UpperBound, 1e10); }

  // The kinds of columns stand in the order of those of rows.
  void CompareRecords(const std::vector<NaiveRecord>& a, const std::vector<NaiveRecord>& b,
                      DifferenceKind went) {
    const auto kind = [went](int place) {
      return static_cast<DifferenceKind>(static_cast<int>(went) + place);
    };
    const ByName in_a = ByNameOf(a);
    const ByName in_b = ByNameOf(b);
    for (const auto& [name, record] : in_a) {
      const auto other = in_b.find(name);
      Count(kind(0), other == in_b.end());
      if (other == in_b.end()) continue;
      Count(kind(2), record->Type != other->second->Type);
      Count(kind(3), Lower(*record) != Lower(*other->second));
      Count(kind(4), Upper(*record) != Upper(*other->second));
    }
    for (const auto& [name, record] : in_b) Count(kind(1), in_a.count(name) == 0);
  }

  static Values ValuesOf(const NaiveModel& model, const NaiveRecord& column) {
    Values values;
    for (const NaiveEntry& entry : column.Elements) {
      values[model.Rows[static_cast<std::size_t>(entry.Index - 1)].Name].push_back(entry.Value);
    }
    return values;
  }

  void CompareElements() {
    const ByName columns_of_b = ByNameOf(b_.model.Columns);
    const ByName rows_of_a = ByNameOf(a_.model.Rows);
    const ByName rows_of_b = ByNameOf(b_.model.Rows);
    for (const NaiveRecord& column : a_.model.Columns) {
      const auto other = columns_of_b.find(column.Name);
      if (other == columns_of_b.end()) continue;
      Values in_a = ValuesOf(a_.model, column);
      Values in_b = ValuesOf(b_.model, *other->second);
      std::set<std::string> rows;
      for (const auto& [row, values] : in_a) rows.insert(row);
      for (const auto& [row, values] : in_b) rows.insert(row);
      for (const std::string& row : rows) {
        if (rows_of_a.count(row) > 0 && rows_of_b.count(row) > 0) ComparePair(in_a[row], in_b[row]);
      }
    }
  }

  void ComparePair(const std::vector<double>& a, const std::vector<double>& b) {
    for (std::size_t k = 0; k < std::max(a.size(), b.size()); ++k) {
      Count(DifferenceKind::kElementWent, k >= b.size());
      Count(DifferenceKind::kElementCame, k >= a.size());
      Count(DifferenceKind::kElementValue, k < a.size() && k < b.size() && a[k] != b[k]);
    }
  }

  const Side& a_;
  const Side& b_;
};

std::string ChooseText(Choices& choose) {
  const auto number = [&choose](std::uint32_t n) { return choose(n); };
  switch (choose(4)) {
    case 0:
      return MakeWideFile(number);
    case 1:
      return WriteNaively(ChooseAnyModel(number)).text;
    default:
      return WriteNaively(ChooseKeptModel(number)).text;
  }
}

std::string Edited(const NaiveModel& start, Choices& choose) {
  const auto number = [&choose](std::uint32_t n) { return choose(n); };
  NaiveModel model = start;
  for (std::uint32_t k = choose(20); k > 0; --k) {
    NaiveModel next = model;
    const bool is_good = ChooseEditLine(number, model).apply(next);
    const bool is_whole =
        std::all_of(next.Columns.begin(), next.Columns.end(), [&next](const NaiveRecord& column) {
          return std::all_of(column.Elements.begin(), column.Elements.end(),
                             [&](const NaiveEntry& e) { return e.Index <= next.NumberOfRows; });
        });
    if (is_good && is_whole) model = next;
  }
  return WriteNaively(model).text;
}

class Files {
 public:
  Files(const Side& a, const Side& b)
      : a_(folder_.Write("a.mps", a.file)), b_(folder_.Write("b.mps", b.file)) {}

  std::string CountFault(const Counts& expected) const {
    quarvel::model::ModelStore a;
    quarvel::model::ModelStore b;
    const mps::FileRead read_a = mps::ReadFile(a_, {}, a);
    const mps::FileRead read_b = mps::ReadFile(b_, {}, b);
    Counts counts;
    const auto count = [&counts](const inspect::Difference& d) {
      if (!inspect::IsNote(d.kind)) ++counts[d.kind];
    };
    inspect::Compare(a, b, {}, count);
    inspect::CompareFacts(read_a.facts, read_b.facts, {}, count);
    for (std::size_t k = 0; k < inspect::kDifferenceKinds; ++k) {
      const auto kind = static_cast<DifferenceKind>(k);
      const auto found = expected.find(kind);
      if (counts[kind] == (found == expected.end() ? 0 : found->second)) continue;
      return "another number of " + std::string(inspect::NameOf(kind));
    }
    return "";
  }

  std::string CommandFault(bool differ) const {
    if (Diff({a_, a_, "--quiet"}).status != 0) return "it differs from itself";
    if (Diff({b_, b_, "--script"}).out != "") return "a script from it to itself";
    const quarvel::Outcome json = Diff({a_, b_, "--json"});
    if (json.status != (differ ? 1 : 0)) return "not the status of what differs";
    return quarvel::fuzz::JsonText::IsValid(json.out) ? "" : "no JSON";
  }

  // Empty too when there is no script, which `must_be` forbids. `b` has elements: without any there is
  // nothing to write.
  std::string ScriptFault(bool must_be) const {
    const quarvel::Outcome script = Diff({a_, b_, "--script"});
    if (script.status == 2) {
      if (script.err.empty() || !script.out.empty()) return "no script, and no word about it";
      return must_be ? "no script" : "";
    }
    const std::string made = folder_.Path("c.mps");
    const quarvel::Outcome edit = quarvel::RunQuarvel(
        {"edit", a_, made, "--layout", "free", "--on-error", "continue", "--allow-missing-endata"},
        script.out);
    if (edit.status != 0) {
      // A file may not be able to say what the other one says: names that begin with "$", for one.
      const bool is_told = edit.err.find("was not written") != std::string::npos;
      return is_told && !must_be ? "" : "the script is refused:\n" + script.out + edit.err;
    }
    const quarvel::Outcome left = Diff({b_, made});
    return left.status == 0 ? "" : "a difference is left:\n" + left.out + script.out;
  }

 private:
  static quarvel::Outcome Diff(std::vector<std::string> words) {
    words.insert(words.begin(), "diff");
    words.insert(words.end(), {"--on-error", "continue"});
    return quarvel::RunQuarvel(words);
  }

  quarvel::HostFolder folder_{quarvel::HostFolder::Place::kInMemory};
  std::string a_;
  std::string b_;
};

// So plain that no word is missing: names in capitals, each pair once, an objective.
bool HasWords(const Side& a, const Side& b, const NaiveDiff& diff) {
  const auto is_plain = [](const NaiveRecord& record) {
    std::set<std::int32_t> met;
    for (const NaiveEntry& entry : record.Elements) {
      if (!met.insert(entry.Index).second) return false;
    }
    return std::all_of(record.Name.begin(), record.Name.end(), [](unsigned char c) {
      return std::isupper(c) != 0 || std::isdigit(c) != 0 || c == '_';
    });
  };
  for (const Side* side : {&a, &b}) {
    const NaiveModel& model = side->model;
    if (!std::all_of(model.Rows.begin(), model.Rows.end(), is_plain)) return false;
    if (!std::all_of(model.Columns.begin(), model.Columns.end(), is_plain)) return false;
    if (side->reader.facts.objective.empty() || model.NumberOfElements == 0) return false;
  }
  for (const DifferenceKind kind :
       {DifferenceKind::kModelName, DifferenceKind::kDescription, DifferenceKind::kRowWent,
        DifferenceKind::kRowCame, DifferenceKind::kRowType}) {
    if (diff.counts.count(kind) > 0) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Choices choose(data, size);
  const Side a(ChooseText(choose));
  const bool is_edited = choose(4) != 0;
  const Side b(is_edited ? Edited(a.model, choose) : ChooseText(choose));
  const std::string both = a.file + "--- and ---\n" + b.file;
  const NaiveDiff diff(a, b);
  const Files files(a, b);
  Require(files.CountFault(diff.counts), both);
  Require(files.CommandFault(!diff.counts.empty()), both);
  if (b.model.NumberOfElements != 0) {
    Require(files.ScriptFault(HasWords(a, b, diff)), both);
  }
  return 0;
}
