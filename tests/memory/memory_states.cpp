#include "tests/memory/memory_states.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "tests/support/model_builder.h"

namespace quarvel::testing {
namespace {

std::string Numbered(std::string_view before, int number) {
  return std::string(before) + std::to_string(number);
}

// Rows R0.. and columns C0.., each row with the columns beside the diagonal.
void MakeBand(LPModel& model, int rows, int columns) {
  ModelBuilder builder(model);
  static constexpr std::string_view kTypes = "NLGE";
  for (int i = 0; i < rows; ++i) {
    builder.Row(Numbered("R", i), kTypes[static_cast<std::size_t>(i) % kTypes.size()], i);
  }
  for (int j = 0; j < columns; ++j) builder.Column(Numbered("C", j));
  for (int i = 0; i < rows; ++i) {
    for (int j = i; j < i + 3; ++j) {
      builder.Element(Numbered("C", j % columns), Numbered("R", i), 1 + i + j);
    }
  }
}

// Column C1 is all that three of the rows have.
void MakeRowsOfOneColumn(LPModel& model) {
  ModelBuilder builder(model);
  for (int i = 0; i < 6; ++i) builder.Row(Numbered("ROW", i), 'L', i);
  for (int j = 0; j < 3; ++j) builder.Column(Numbered("COL", j));
  for (int i = 0; i < 6; ++i) builder.Element(i % 2 == 0 ? "COL0" : "COL1", Numbered("ROW", i), 2);
  builder.Element("COL2", "ROW2", 3);
}

void MakePairsTwice(LPModel& model) {
  MakeSmall(model);
  ModelBuilder builder(model);
  builder.Element("C1", "R0", 7).Element("C1", "R1", 8).Element("C0", "R0", 9);
  builder.Row("ONE", 'N').Element("C0", "ONE", 1);
  builder.Row("TWO", 'E').Element("C0", "TWO", 1).Element("C0", "TWO", 2);
}

// At the point where arrays, lists and indexes of names have to grow.
void MakeFull(LPModel& model) {
  constexpr int kFull = 48;
  MakeBand(model, kFull, kFull);
  model.AddElement(0, 5, 1);
}

// A read has filled the lists of the columns alone so far.
void MakeHalfRead(LPModel& model, int rows, int columns) {
  model::ModelFill fill = model.store().fill();
  fill.Begin();
  const model::Bounds bounds = {0, model::BoundLimit};
  for (int i = 0; i < rows; ++i) {
    const std::string name = Numbered("R", i);
    fill.AppendRow(model::NameKey::Of(name), name, model::RowType::kLess, bounds);
  }
  for (int j = 0; j < columns; ++j) {
    const std::string name = Numbered("C", j);
    fill.AppendColumn(model::NameKey::Of(name), name, model::ColumnType::kContinuous, bounds);
    for (int i = j; i < j + 3; ++i) fill.AppendElement(i % rows + 1, j + 1, 1 + i);
  }
}

// A row and a column that all others share, with gaps in them, whose places have been looked up.
void MakeLongLists(LPModel& model) {
  constexpr int kLong = 80;
  ModelBuilder builder(model);
  for (int i = 0; i < kLong; ++i) builder.Row(Numbered("R", i), 'L', i).Column(Numbered("C", i));
  for (int i = 0; i < kLong; ++i) builder.Element("C2", Numbered("R", i), 1 + i);
  for (int j = 3; j < kLong; ++j) builder.Element(Numbered("C", j), "R0", 1 + j);
  model.DeleteRow(9);
  model.DeleteColumn(7);
  for (int walk = 0; walk < 20; ++walk) {
    model.RowElementValue(0, 40);
    model.ColElementvalue(2, 40);
  }
}

// The rows of a model, or their columns, without a look since.
void DeleteSomeRows(LPModel& model) {
  model.DeleteRow(4);
  model.DeleteRow(2);
}

}  // namespace

void MakeSmall(LPModel& model) { MakeBand(model, 6, 5); }

const NamedState kManyRowsHalfRead = {"half read, large",
                                      [](LPModel& model) { MakeHalfRead(model, 5000, 6); }};

const std::vector<NamedState>& States() {
  static const std::vector<NamedState> states = {
      {"nothing", [](LPModel&) {}},
      {"new", [](LPModel& model) { model.MakeNewModel(); }},
      {"small", MakeSmall},
      {"full", MakeFull},
      {"rows of one column", MakeRowsOfOneColumn},
      {"pairs twice", MakePairsTwice},
      {"rows deleted",
       [](LPModel& model) {
         MakeSmall(model);
         DeleteSomeRows(model);
       }},
      {"rows deleted, pairs twice",
       [](LPModel& model) {
         MakePairsTwice(model);
         DeleteSomeRows(model);
       }},
      {"columns deleted",
       [](LPModel& model) {
         MakeFull(model);
         model.DeleteColumn(7);
         model.DeleteColumn(3);
       }},
      {"rows without types deleted",
       [](LPModel& model) {
         MakeSmall(model);
         for (int i = 0; i < 9; ++i) model.AddRow(Numbered("NEW", i));
         DeleteSomeRows(model);
       }},
      {"names twice",
       [](LPModel& model) {
         MakeSmall(model);
         ChangeFields(model, [](model::ModelData& data) {
           data.Rows[2].Name = data.Rows[5].Name;
           data.Columns[1].Name = data.Columns[4].Name;
         });
       }},
      {"long lists", MakeLongLists},
      {"half read", [](LPModel& model) { MakeHalfRead(model, 6, 5); }},
  };
  return states;
}

}  // namespace quarvel::testing
