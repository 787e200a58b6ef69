#include "mps/name_losses.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "model/record_number.h"
#include "mps/line_reader.h"
#include "mps/read_back.h"
#include "text/encoding.h"
#include "text/upper_case.h"
#include "text/visible_text.h"

namespace quarvel::mps {
namespace {

using model::ModelData;

// More than a line has beside two names: its blanks and the longest text of a value.
constexpr std::size_t kBesideNames = 512;

bool HasLine(const model::RowRecord& row) { return row.ElementCount() > 0 || HasLimitLine(row); }
bool HasLine(const model::ColumnRecord& column) {
  return column.ElementCount() > 0 || HasBoundLine(column);
}

// What most names are: they read back as they are.
bool IsPlain(std::string_view name) {
  return !name.empty() && name.front() != '$' && std::all_of(name.begin(), name.end(), [](char c) {
    return c > ' ' && c <= '~' && text::UpperCaseAscii(c) == c;
  });
}

struct NameRules {
  FileLayout layout;
  bool blanks_are_kept;
  bool names_are_distinct;  // none needs to be looked up

  template <class Record>
  bool HasLine(const Record& record) const {
    return layout == FileLayout::kFree || mps::HasLine(record);
  }
  bool LosesBlank(std::string_view name) const {
    if (name.find(' ') == name.npos) return false;
    return !blanks_are_kept || name.front() == ' ' || name.back() == ' ';
  }
};

// The names of all rows, or of all columns.
template <class Records>
class NameCheck {
 public:
  // `find` gives the number of the first record of a name.
  template <class Find>
  NameCheck(const NameRules& rules, std::string_view what, const Records& records,
            std::int32_t count, Losses& losses, const Find& find)
      : rules_(rules), what_(what), records_(records), losses_(losses) {
    bool plain = true;
    for (std::int32_t number = 1; number <= count; ++number) {
      if (!rules_.HasLine(records_[number])) continue;
      const std::string_view name = records_[number].Name;
      longest_ = std::max(longest_, name.size());
      if (name.size() + kBesideNames > LineReader::kLongestLine) {
        Add(LossKind::kLongLine, number, "has a name that is too long for a line");
      }
      if (!rules_.names_are_distinct && find(name) != number) AddTwice(number);
      if (!IsPlain(name)) plain = Check(number) && plain;
    }
    if (!plain) FindTwiceInUpperCase(count);
  }

  std::size_t longest() const { return longest_; }

 private:
  void Add(LossKind kind, std::int32_t number, std::string_view words) {
    losses_.Add(kind, [&] {
      return Loss{what_, model::Public(number), records_[number].Name, std::string(words)};
    });
  }
  void AddTwice(std::int32_t number) {
    Add(LossKind::kNameTwice, number, "has the name of another " + std::string(what_));
  }

  // False for a name that is not in upper case.
  bool Check(std::int32_t number) {
    const std::string_view name = records_[number].Name;
    if (name.empty()) return Add(LossKind::kEmptyName, number, "has no name"), true;
    if (rules_.LosesBlank(name)) Add(LossKind::kBlankInName, number, "has a blank in its name");
    if (name.find('\t') != name.npos) {
      Add(LossKind::kBlankInName, number, "has a tab in its name, which is read as a blank");
    }
    if (name.front() == '$') {
      Add(LossKind::kCommentName, number, "has a name that begins with $, which begins a comment");
    }
    if (name.find_first_of("\r\n") != name.npos) {
      Add(LossKind::kLineEnd, number, "has a line end in its name");
    } else if (!text::IsValidUtf8(name)) {
      Add(LossKind::kNotUtf8, number, "has a name that is not UTF-8");
    } else if (HasControlCharacter(name)) {
      Add(LossKind::kControlCharacter, number,
          "has a control character in its name, which other programs may not take");
    }
    const std::string upper_case = text::UpperCase(name);
    if (upper_case == name) return true;
    Add(LossKind::kNameCase, number, "reads back as " + upper_case);
    return false;
  }

  void FindTwiceInUpperCase(std::int32_t count) {
    std::vector<std::pair<std::string, std::int32_t>> names;
    for (std::int32_t number = 1; number <= count; ++number) {
      if (!rules_.HasLine(records_[number])) continue;
      names.emplace_back(text::UpperCase(records_[number].Name), number);
    }
    std::sort(names.begin(), names.end());
    for (std::size_t k = 1; k < names.size(); ++k) {
      const auto& [name, number] = names[k];
      const auto& [before, number_before] = names[k - 1];
      if (name != before) continue;
      if (records_[number].Name != records_[number_before].Name) AddTwice(number);
    }
  }

  const NameRules& rules_;
  std::string_view what_;
  const Records& records_;
  Losses& losses_;
  std::size_t longest_ = 0;
};

void AddToColumn(const ModelData& data, Losses& losses, LossKind kind, std::int32_t j,
                 std::string_view words) {
  losses.Add(kind, [&] {
    return Loss{"column", model::Public(j), data.Columns[j].Name, std::string(words)};
  });
}

bool HasIntegers(const ModelData& data) {
  for (std::int32_t j = 1; j <= data.NumberOfColumns; ++j) {
    if (data.Columns[j].Type == model::ColumnType::kInteger) return true;
  }
  return false;
}

// Integer columns stand behind the first marker, and all before the last.
bool ReadsAsMarkerLine(const model::ColumnRecord& column) {
  constexpr std::size_t kLongest = 6;
  if (column.Name.size() > kLongest) return false;
  const std::string name = text::UpperCase(column.Name);
  if (name == "INT") return column.Type != model::ColumnType::kInteger;
  return name == "INTEND";
}

// The first line of a column is a marker when its row has that name; the lines of markers are those
// of a column when there is one of their name before them.
void CheckMarkers(const ModelData& data, Losses& losses) {
  const bool has_markers = HasIntegers(data);
  for (std::int32_t j = 1; j <= data.NumberOfColumns; ++j) {
    const model::ColumnRecord& column = data.Columns[j];
    if (column.ElementCount() == 0) continue;
    const std::string_view row = data.Rows[column.Elements[1].Index].Name;
    if (row.size() == 8 && text::UpperCase(row) == "'MARKER'") {
      AddToColumn(data, losses, LossKind::kMarkerName, j,
                  "begins with an element at a row called 'MARKER', which reads as a marker");
    }
    if (has_markers && ReadsAsMarkerLine(column)) {
      AddToColumn(data, losses, LossKind::kMarkerName, j,
                  "has the name that stands in the lines of markers");
    }
  }
}

// The exact file has markers of a name that no column has.
void CheckMarkerRow(const model::ModelStore& store, Losses& losses) {
  const std::int32_t row = store.FindRow("'MARKER'");
  if (row == 0) return;
  losses.Add(LossKind::kMarkerName, [row] {
    return Loss{"row", model::Public(row), "'MARKER'", "has the name by which markers are known"};
  });
}

void CheckElementLines(const ModelData& data, Losses& losses) {
  for (std::int32_t j = 1; j <= data.NumberOfColumns; ++j) {
    const model::ColumnRecord& column = data.Columns[j];
    const bool too_long =
        std::any_of(column.Elements.begin(), column.Elements.end(), [&](const auto& element) {
          return column.Name.size() + data.Rows[element.Index].Name.size() + kBesideNames >
                 LineReader::kLongestLine;
        });
    if (!too_long) continue;
    AddToColumn(data, losses, LossKind::kLongLine, j,
                "has an element whose line would be too long to be read");
  }
}

}  // namespace

void AddNameLosses(const model::ModelStore& store, FileLayout layout, Losses& losses,
                   bool blanks_are_kept) {
  const ModelData& data = store.data();
  const NameRules rules = {layout, blanks_are_kept, store.looks().KnowsNamesDistinct()};
  const NameCheck rows(rules, "row", data.Rows, data.NumberOfRows, losses,
                       [&store](std::string_view name) { return store.FindRow(name); });
  const NameCheck columns(rules, "column", data.Columns, data.NumberOfColumns, losses,
                          [&store](std::string_view name) { return store.FindColumn(name); });
  if (layout == FileLayout::kFixed) {
    CheckMarkers(data, losses);
  } else {
    CheckMarkerRow(store, losses);
  }
  if (rows.longest() + columns.longest() + kBesideNames > LineReader::kLongestLine) {
    CheckElementLines(data, losses);
  }
}

bool HasControlCharacter(std::string_view text) {
  while (!text.empty()) {
    const text::Character character = text::FirstCharacter(text);
    const bool is_control =
        character.code < 0x20 || (character.code >= 0x7F && character.code < 0xA0);
    if (is_control) return true;
    text.remove_prefix(character.size);
  }
  return false;
}

}  // namespace quarvel::mps
