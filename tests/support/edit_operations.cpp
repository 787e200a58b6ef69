#include "tests/support/edit_operations.h"

#include <array>
#include <limits>
#include <utility>

#include "tests/support/edit_questions.h"
#include "tests/support/model_builder.h"
#include "text/numbers.h"

namespace quarvel::testing {
namespace {

using text::GeneralText;
using text::IntegerText;

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kGreatest = std::numeric_limits<std::int32_t>::max();

// --- arguments ---

struct NamedVariant {
  std::string text;
  model::Variant value;
};

// Mostly a number of the model, else one beside its ends, or one of the extremes.
std::int32_t ChooseIndex(const Choice& choose, std::int32_t count) {
  const std::array<std::int32_t, 6> odd = {-1, count, count + 1, 0, kLeast, kGreatest};
  if (count < 1 || choose(8) == 0) return odd[choose(odd.size())];
  return static_cast<std::int32_t>(choose(static_cast<std::uint32_t>(count)));
}

std::string ChooseName(const Choice& choose) {
  static const std::array<std::string, 14> kOdd = {"",
                                                   " ",
                                                   "A B",
                                                   "TAB\tTAB",
                                                   "ROW1",
                                                   "COL1",
                                                   "NINE_CHAR",
                                                   "EIGHTCHR",
                                                   "ÄÖÜäöüßé",
                                                   "ÄÖÜäöüßéñ",
                                                   "x",
                                                   "X",
                                                   "thirteen_long",
                                                   "a_name_of_more_than_sixteen_bytes"};
  const std::uint32_t kind = choose(8);
  if (kind == 0) return kOdd[choose(kOdd.size())];
  if (kind < 3) return "LONGER_NAME" + IntegerText(choose(40));
  return "N" + IntegerText(choose(60));
}

double ChooseNumber(const Choice& choose) {
  static constexpr std::array<double, 10> kNumbers = {0,     1,    -1,     2.5,  1e10,
                                                      -1e10, 1e11, 1e-300, -0.0, 1e300};
  return kNumbers[choose(kNumbers.size())];
}

NamedVariant ChooseVariant(const Choice& choose, const std::string& likely) {
  switch (choose(10)) {
    case 0:
      return {"empty", model::Variant()};
    case 1:
      return {"null", model::Variant::Null{}};
    case 2: {
      const bool value = choose(2) == 0;
      return {value ? "true" : "false", value};
    }
    case 3: {
      const auto value = std::int64_t{choose(7)} - 3;
      return {IntegerText(value), value};
    }
    case 4:
    case 5: {
      const double value = ChooseNumber(choose);
      return {GeneralText(value), value};
    }
    case 6: {
      static const std::array<const char*, 6> kTexts = {" 7.5 ", "abc",   "1E3",
                                                        "0x10",  "1e999", "."};
      const char* value = kTexts[choose(kTexts.size())];
      return {"\"" + std::string(value) + "\"", value};
    }
    default:
      return {"\"" + likely + "\"", likely};
  }
}

NamedVariant ChooseNumberVariant(const Choice& choose) {
  return ChooseVariant(choose, GeneralText(ChooseNumber(choose)));
}

NamedVariant ChooseTypeVariant(const Choice& choose) {
  static const std::array<std::string, 10> kTypes = {"N", "G", "L", "E", "R",
                                                     "I", "n", "r", "",  "NN"};
  return ChooseVariant(choose, kTypes[choose(kTypes.size())]);
}

// --- operations ---

// The same call on both models; what has no result gives 0.
template <class Call>
EditOperation Make(std::string text, Call call) {
  const auto run = [call](auto& model) -> std::int32_t {
    if constexpr (std::is_void_v<decltype(call(model))>) {
      call(model);
      return 0;
    } else {
      return call(model);
    }
  };
  return {std::move(text), run, run};
}

std::string Arguments(const std::string& name, std::int32_t a, const std::string& rest = "") {
  return name + "(" + IntegerText(a) + (rest.empty() ? "" : ", ") + rest + ")";
}

EditOperation ChooseBoundWrite(const Choice& choose, const NaiveModel& model) {
  const NamedVariant v = ChooseNumberVariant(choose);
  switch (choose(4)) {
    case 0: {
      const std::int32_t j = ChooseIndex(choose, model.NumberOfColumns);
      return Make(Arguments("SetColUpperBound", j, v.text),
                  [j, v](auto& m) { m.SetColUpperBound(j, v.value); });
    }
    case 1: {
      const std::int32_t j = ChooseIndex(choose, model.NumberOfColumns);
      return Make(Arguments("SetColLowerBound", j, v.text),
                  [j, v](auto& m) { m.SetColLowerBound(j, v.value); });
    }
    case 2: {
      const std::int32_t i = ChooseIndex(choose, model.NumberOfRows);
      return Make(Arguments("SetRowUpperBound", i, v.text),
                  [i, v](auto& m) { m.SetRowUpperBound(i, v.value); });
    }
    default: {
      const std::int32_t i = ChooseIndex(choose, model.NumberOfRows);
      return Make(Arguments("SetRowLowerBound", i, v.text),
                  [i, v](auto& m) { m.SetRowLowerBound(i, v.value); });
    }
  }
}

EditOperation ChooseTextWrite(const Choice& choose, const NaiveModel& model) {
  const std::int32_t i = ChooseIndex(choose, model.NumberOfRows);
  const std::int32_t j = ChooseIndex(choose, model.NumberOfColumns);
  const NamedVariant name = ChooseVariant(choose, ChooseName(choose));
  const NamedVariant type = ChooseTypeVariant(choose);
  switch (choose(8)) {
    case 0:
      return Make("SetModelName(" + name.text + ")",
                  [name](auto& m) { m.SetModelName(name.value); });
    case 1:
      return Make("SetModelDescription(" + name.text + ")",
                  [name](auto& m) { m.SetModelDescription(name.value); });
    case 2:
      return Make(Arguments("SetColName", j, name.text),
                  [j, name](auto& m) { m.SetColName(j, name.value); });
    case 3:
      return Make(Arguments("SetRowName", i, name.text),
                  [i, name](auto& m) { m.SetRowName(i, name.value); });
    case 4:
      return Make(Arguments("SetColType", j, type.text),
                  [j, type](auto& m) { m.SetColType(j, type.value); });
    default:
      return Make(Arguments("SetRowType", i, type.text),
                  [i, type](auto& m) { m.SetRowType(i, type.value); });
  }
}

// The number of coefficients in the row, 0 for a row that is not there.
std::int32_t ElementsInRow(const NaiveModel& model, std::int32_t i) {
  if (i < 0 || i >= model.NumberOfRows) return 0;
  return model.Rows[static_cast<std::size_t>(i)].ElementCount();
}

bool IsTaken(const NaiveModel& model, std::int32_t i, std::int32_t j) {
  if (i < 0 || i >= model.NumberOfRows) return false;
  for (const NaiveEntry& entry : model.Rows[static_cast<std::size_t>(i)].Elements) {
    if (entry.Index == j + 1) return true;
  }
  return false;
}

EditOperation ChooseElementWrite(const Choice& choose, const NaiveModel& model,
                                 const EditStyle& style) {
  const std::int32_t i = ChooseIndex(choose, model.NumberOfRows);
  const std::int32_t k = ChooseIndex(choose, ElementsInRow(model, i));
  const std::int32_t j = ChooseIndex(choose, model.NumberOfColumns);
  const bool may_add = style.duplicates || j == kGreatest || !IsTaken(model, i, j);
  if (may_add && choose(4) != 0) {
    const double value = ChooseNumber(choose);
    return Make(Arguments("AddElement", i, IntegerText(j) + ", " + GeneralText(value)),
                [i, j, value](auto& m) { m.AddElement(i, j, value); });
  }
  const NamedVariant v = ChooseNumberVariant(choose);
  return Make(Arguments("SetRowElementValue", i, IntegerText(k) + ", " + v.text),
              [i, k, v](auto& m) { m.SetRowElementValue(i, k, v.value); });
}

EditOperation ChooseAddition(const Choice& choose) {
  const std::string name = ChooseName(choose);
  if (choose(2) == 0) {
    return Make("AddRow(\"" + name + "\")", [name](auto& m) { return m.AddRow(name); });
  }
  return Make("AddColumn(\"" + name + "\")", [name](auto& m) { return m.AddColumn(name); });
}

EditOperation ChooseRest(const Choice& choose, const EditStyle& style) {
  const std::uint32_t kind = choose(12);
  if (kind == 0 && style.new_models) {
    return Make("MakeNewModel()", [](auto& m) { m.MakeNewModel(); });
  }
  if (kind == 1 && style.new_models) {
    return Make("ClearModel()", [](auto& m) { ClearModel(m); });
  }
  const bool value = kind % 2 == 0;
  return Make(
      value ? "SetDefaultToPlusMinusInfinity(true)" : "SetDefaultToPlusMinusInfinity(false)",
      [value](auto& m) { m.SetDefaultToPlusMinusInfinity(value); });
}

// --- questions ---

// A number or a name of something that is there.
EditOperation ChooseQuestion(const Choice& choose, const NaiveModel& model) {
  const std::string name = ChooseName(choose);
  const auto within = [&choose](std::int32_t count) {
    return static_cast<std::int32_t>(choose(static_cast<std::uint32_t>(count)));
  };
  const std::uint32_t kind = choose(4);
  if (kind == 0 && model.NumberOfRows > 0) {
    const std::int32_t i = within(model.NumberOfRows);
    return Make(Arguments("RowAnswers", i), [i](const auto& m) { return RowAnswers(m, i); });
  }
  if (kind == 1 && model.NumberOfColumns > 0) {
    const std::int32_t j = within(model.NumberOfColumns);
    return Make(Arguments("ColumnAnswers", j), [j](const auto& m) { return ColumnAnswers(m, j); });
  }
  if (kind == 2) {
    return Make("RowNamed(\"" + name + "\")", [name](const auto& m) { return RowNamed(m, name); });
  }
  return Make("ColumnNamed(\"" + name + "\")",
              [name](const auto& m) { return ColumnNamed(m, name); });
}

}  // namespace

EditOperation ChooseDeletion(const Choice& choose, const NaiveModel& model) {
  const std::int32_t i = ChooseIndex(choose, model.NumberOfRows);
  const std::int32_t j = ChooseIndex(choose, model.NumberOfColumns);
  const std::int32_t k = ChooseIndex(choose, ElementsInRow(model, i));
  switch (choose(6)) {
    case 5:
      return ChooseQuestion(choose, model);
    case 0:
    case 1:
      return Make(Arguments("DeleteRow", i), [i](auto& m) { return m.DeleteRow(i); });
    case 2:
    case 3:
      return Make(Arguments("DeleteColumn", j), [j](auto& m) { return m.DeleteColumn(j); });
    default:
      return Make(Arguments("DeleteElement", i, IntegerText(k)),
                  [i, k](auto& m) { return m.DeleteElement(i, k); });
  }
}

EditOperation ChooseOperation(const Choice& choose, const NaiveModel& model,
                              const EditStyle& style) {
  const std::uint32_t kind = choose(64);
  if (kind < 28) return ChooseElementWrite(choose, model, style);
  if (kind < 40) return ChooseAddition(choose);
  if (kind < 50) return ChooseTextWrite(choose, model);
  if (kind < 54) return ChooseBoundWrite(choose, model);
  if (kind == 54) return ChooseRest(choose, style);
  if (kind < 58) return ChooseQuestion(choose, model);
  // A model that has hardly grown is given the time to.
  const bool is_small = model.NumberOfElements < 12;
  return is_small && choose(4) != 0 ? ChooseElementWrite(choose, model, style)
                                    : ChooseDeletion(choose, model);
}

}  // namespace quarvel::testing
