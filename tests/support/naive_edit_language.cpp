#include "tests/support/naive_edit_language.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <utility>
#include <vector>

#include "text/numbers.h"
#include "text/upper_case.h"

namespace quarvel::testing {
namespace {

using Records = std::vector<NaiveRecord>;

constexpr double kNoLower = -1e10;
constexpr double kNoUpper = 1e10;

// --- words ---

// A word as a line must have it.
std::string Quoted(const std::string& word) {
  if (!word.empty() && word.find_first_of(" \"\\\n#") == std::string::npos) return word;
  std::string quoted = "\"";
  for (const char c : word) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c == '\n' ? "\\n" : std::string(1, c);
  }
  return quoted + '"';
}

template <std::size_t kCount>
std::string OneOf(const Choice& choose, const std::array<const char*, kCount>& words) {
  return words[choose(kCount)];
}

// Mostly a record of the list: by name, by name in small letters, by number.
std::string ChooseRecord(const Choice& choose, const Records& records) {
  const auto count = static_cast<std::uint32_t>(records.size());
  if (count == 0 || choose(12) == 0) return OneOf<4>(choose, {"NOWHERE", "-1", "999", ""});
  const std::uint32_t number = choose(count);
  const std::string& name = records[number].Name;
  switch (choose(4)) {
    case 0:
      return std::to_string(number);
    case 1: {
      std::string small = name;
      for (char& c : small) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
      }
      return small;
    }
    default:
      return name;
  }
}

std::string ChooseNewName(const Choice& choose) {
  if (choose(3) != 0) return "N" + std::to_string(choose(30));
  return OneOf<10>(
      choose, {"small", "two words", "", "R0", "C0", "LONGER_THAN_EIGHT", "äö", "1", "A\nB", "#A"});
}

std::string ChooseValue(const Choice& choose) {
  return OneOf<12>(choose, {"1", "2.5", "-3", "1e3", "0", "abc", "1e999", "-.125", "12345678.875",
                            "inf", "-INF", "+inf"});
}

std::optional<double> ValueOf(const std::string& word) { return text::ParseNumber(word); }

std::optional<double> BoundOf(const std::string& word) {
  const std::string upper = text::UpperCase(word);
  if (upper == "INF" || upper == "+INF") return kNoUpper;
  if (upper == "-INF") return kNoLower;
  return ValueOf(word);
}

// The public number; -1 for a word that is neither a name nor a number of the list.
std::int32_t Find(const Records& records, const std::string& word) {
  for (const std::string& name : {word, text::UpperCase(word)}) {
    for (std::size_t i = 0; i < records.size(); ++i) {
      if (records[i].Name == name) return static_cast<std::int32_t>(i);
    }
  }
  if (word.empty() || word.find_first_not_of("0123456789") != std::string::npos) return -1;
  const std::int64_t number = std::strtoll(word.c_str(), nullptr, 10);
  return number < static_cast<std::int64_t>(records.size()) ? static_cast<std::int32_t>(number)
                                                            : -1;
}

// The public number of the row's first element at the column; -1 for none.
std::int32_t ElementAt(const NaiveModel& model, std::int32_t row, std::int32_t column) {
  if (row < 0 || column < 0) return -1;
  const std::vector<NaiveEntry>& elements = model.Rows[static_cast<std::size_t>(row)].Elements;
  for (std::size_t k = 0; k < elements.size(); ++k) {
    if (elements[k].Index == column + 1) return static_cast<std::int32_t>(k);
  }
  return -1;
}

// --- lines ---

// Runs a change; false when the model refused it. A warning refuses nothing.
template <class Change>
bool Accepts(NaiveModel& model, const Change& change) {
  model.boxes.clear();
  change();
  for (const std::string& box : model.boxes) {
    if (!box.starts_with("The name you entered had more than")) return false;
  }
  return true;
}

NaiveEditLine Line(const std::string& command, const std::vector<std::string>& words,
                   std::function<bool(NaiveModel& model)> apply) {
  std::string text = command;
  for (const std::string& word : words) text += " " + Quoted(word);
  return {std::move(text), std::move(apply)};
}

NaiveEditLine ChooseAddRow(const Choice& choose) {
  const std::string name = ChooseNewName(choose);
  const std::string letter = OneOf<8>(choose, {"N", "L", "G", "E", "R", "g", "X", ""});
  return Line("add-row", {name, letter}, [name, letter](NaiveModel& model) {
    return Accepts(model, [&] {
      if (model.AddRow(text::UpperCase(name)) == 0) return;
      const std::int32_t row = model.NumberOfRows - 1;
      const std::string type = text::UpperCase(letter);
      model.SetRowType(row, type);
      if (type == "N" || type == "L") model.SetRowLowerBound(row, kNoLower);
      if (type == "G" || type == "E" || type == "R") model.SetRowLowerBound(row, 0.0);
      if (type == "N" || type == "G") model.SetRowUpperBound(row, kNoUpper);
      if (type == "L" || type == "E" || type == "R") model.SetRowUpperBound(row, 0.0);
    });
  });
}

NaiveEditLine ChooseAddColumn(const Choice& choose) {
  const std::string name = ChooseNewName(choose);
  std::vector<std::string> words = {name};
  if (choose(2) == 0) words.push_back(OneOf<4>(choose, {"R", "I", "i", "X"}));
  return Line("add-column", words, [words](NaiveModel& model) {
    return Accepts(model, [&] {
      if (model.AddColumn(text::UpperCase(words[0])) == 0 || words.size() == 1) return;
      model.SetColType(model.NumberOfColumns - 1, text::UpperCase(words[1]));
    });
  });
}

NaiveEditLine ChooseElementLine(const Choice& choose, const NaiveModel& naive) {
  const std::string row = ChooseRecord(choose, naive.Rows);
  const std::string column = ChooseRecord(choose, naive.Columns);
  const std::string word = ChooseValue(choose);
  if (choose(2) == 0) {
    return Line("add-element", {row, column, word}, [=](NaiveModel& model) {
      const std::int32_t i = Find(model.Rows, row);
      const std::int32_t j = Find(model.Columns, column);
      const std::optional<double> value = ValueOf(word);
      if (i < 0 || j < 0 || !value || ElementAt(model, i, j) >= 0) return false;
      return Accepts(model, [&] { model.AddElement(i, j, *value); });
    });
  }
  return Line("set-element", {row, column, word}, [=](NaiveModel& model) {
    const std::int32_t i = Find(model.Rows, row);
    const std::int32_t k = ElementAt(model, i, Find(model.Columns, column));
    const std::optional<double> value = ValueOf(word);
    if (k < 0 || !value) return false;
    return Accepts(model, [&] { model.SetRowElementValue(i, k, *value); });
  });
}

NaiveEditLine ChooseDeletionLine(const Choice& choose, const NaiveModel& naive) {
  const std::string row = ChooseRecord(choose, naive.Rows);
  const std::string column = ChooseRecord(choose, naive.Columns);
  switch (choose(3)) {
    case 0:
      return Line("delete-row", {row}, [=](NaiveModel& model) {
        const std::int32_t i = Find(model.Rows, row);
        return i >= 0 && Accepts(model, [&] { model.DeleteRow(i); });
      });
    case 1:
      return Line("delete-column", {column}, [=](NaiveModel& model) {
        const std::int32_t j = Find(model.Columns, column);
        return j >= 0 && Accepts(model, [&] { model.DeleteColumn(j); });
      });
    default:
      return Line("delete-element", {row, column}, [=](NaiveModel& model) {
        const std::int32_t i = Find(model.Rows, row);
        const std::int32_t k = ElementAt(model, i, Find(model.Columns, column));
        return k >= 0 && Accepts(model, [&] { model.DeleteElement(i, k); });
      });
  }
}

NaiveEditLine ChooseNameLine(const Choice& choose, const NaiveModel& naive) {
  const std::string row = ChooseRecord(choose, naive.Rows);
  const std::string column = ChooseRecord(choose, naive.Columns);
  const std::string name = ChooseNewName(choose);
  if (choose(2) == 0) {
    return Line("rename-row", {row, name}, [=](NaiveModel& model) {
      const std::int32_t i = Find(model.Rows, row);
      return i >= 0 && Accepts(model, [&] { model.SetRowName(i, text::UpperCase(name)); });
    });
  }
  return Line("rename-column", {column, name}, [=](NaiveModel& model) {
    const std::int32_t j = Find(model.Columns, column);
    return j >= 0 && Accepts(model, [&] { model.SetColName(j, text::UpperCase(name)); });
  });
}

NaiveEditLine ChooseTypeLine(const Choice& choose, const NaiveModel& naive) {
  const std::string row = ChooseRecord(choose, naive.Rows);
  const std::string column = ChooseRecord(choose, naive.Columns);
  const std::string letter = OneOf<8>(choose, {"N", "L", "G", "E", "R", "I", "r", "x"});
  if (choose(2) == 0) {
    return Line("set-row-type", {row, letter}, [=](NaiveModel& model) {
      const std::int32_t i = Find(model.Rows, row);
      return i >= 0 && Accepts(model, [&] { model.SetRowType(i, text::UpperCase(letter)); });
    });
  }
  return Line("set-column-type", {column, letter}, [=](NaiveModel& model) {
    const std::int32_t j = Find(model.Columns, column);
    return j >= 0 && Accepts(model, [&] { model.SetColType(j, text::UpperCase(letter)); });
  });
}

bool SetBound(NaiveModel& model, const std::vector<std::string>& words) {
  const std::int32_t j = Find(model.Columns, words[0]);
  const std::string code = text::UpperCase(words[1]);
  const bool needs_value = code == "LO" || code == "UP" || code == "FX";
  if (j < 0 || (!needs_value && code != "FR" && code != "MI" && code != "PL")) return false;
  if ((words.size() == 3) != needs_value) return false;
  const std::optional<double> value = needs_value ? BoundOf(words[2]) : 0;
  if (!value) return false;
  if (code == "LO" || code == "FX") model.SetColLowerBound(j, *value);
  if (code == "UP" || code == "FX") model.SetColUpperBound(j, *value);
  if (code == "FR" || code == "MI") model.SetColLowerBound(j, kNoLower);
  if (code == "FR" || code == "PL") model.SetColUpperBound(j, kNoUpper);
  return true;
}

NaiveEditLine ChooseBoundLine(const Choice& choose, const NaiveModel& naive) {
  if (choose(2) == 0) {
    std::vector<std::string> words = {
        ChooseRecord(choose, naive.Columns),
        OneOf<8>(choose, {"LO", "UP", "FX", "FR", "MI", "PL", "up", "XX"})};
    if (choose(3) != 0) words.push_back(ChooseValue(choose));
    return Line("set-bound", words, [words](NaiveModel& model) { return SetBound(model, words); });
  }
  const std::string row = ChooseRecord(choose, naive.Rows);
  const std::string low = ChooseValue(choose);
  const std::string high = ChooseValue(choose);
  return Line("set-row-bounds", {row, low, high}, [=](NaiveModel& model) {
    const std::int32_t i = Find(model.Rows, row);
    const std::optional<double> lower = BoundOf(low);
    const std::optional<double> upper = BoundOf(high);
    if (i < 0 || !lower || !upper) return false;
    model.SetRowLowerBound(i, *lower);
    model.SetRowUpperBound(i, *upper);
    return true;
  });
}

NaiveEditLine ChooseTextLine(const Choice& choose) {
  const std::string text =
      OneOf<6>(choose, {"", "PLANT", "two words", "line one\nline two", "quote \" and \\", "é"});
  if (choose(2) == 0) {
    return Line("set-name", {text}, [text](NaiveModel& model) {
      model.SetModelName(text);
      return true;
    });
  }
  return Line("set-description", {text}, [text](NaiveModel& model) {
    std::string lines;
    for (const char c : text) lines += c == '\n' ? "\r\n" : std::string(1, c);
    model.SetModelDescription(lines);
    return true;
  });
}

// What is no command, or one with words too many or too few, and what does nothing.
NaiveEditLine ChooseOddLine(const Choice& choose) {
  static constexpr std::array<std::pair<const char*, bool>, 10> kLines = {
      {{"", true},
       {"# set-name X", true},
       {"   ", true},
       {"fly", false},
       {"set-name", false},
       {"set-name A B", false},
       {"set-name \"A", false},
       {"set-objective-sense UP", false},
       {"set-objective-constant X", false},
       {"simplify now", false}}};
  const auto& [text, good] = kLines[choose(kLines.size())];
  return {text, [good = good](NaiveModel&) { return good; }};
}

}  // namespace

NaiveEditLine ChooseEditLine(const Choice& choose, const NaiveModel& model) {
  switch (choose(16)) {
    case 0:
      return ChooseOddLine(choose);
    case 1:
    case 2:
      return ChooseAddRow(choose);
    case 3:
    case 4:
      return ChooseAddColumn(choose);
    case 5:
    case 6:
      return ChooseDeletionLine(choose, model);
    case 7:
    case 8:
      return ChooseNameLine(choose, model);
    case 9:
      return ChooseTypeLine(choose, model);
    case 10:
    case 11:
      return ChooseBoundLine(choose, model);
    case 12:
      return ChooseTextLine(choose);
    default:
      return ChooseElementLine(choose, model);
  }
}

}  // namespace quarvel::testing
