#include "python/component/bindings.h"

#include <cstdint>
#include <map>
#include <utility>

#include "python/component/bound_call.h"

namespace quarvel::python {
namespace {

using std::int16_t;
using std::int32_t;
using Text = const std::string&;
using Path = const PathText&;
using Value = const model::Variant&;
using Key = std::pair<std::string_view, std::string_view>;
using Table = std::map<Key, Binding>;

constexpr Member kMembers[] = {
#include "python/members.inc"
};

// Hands a value back to a variable of the caller's; any other argument is only read.
void WriteBack(const py::object& given, const py::object& value) {
  if (IsVariant(given)) given.attr("value") = value;
}

// Runs `operation`, and `write_back` whatever becomes of it: a failure, too, leaves what it has written.
template <class Operation, class Write>
auto RunAndWriteBack(const Operation& operation, const Write& write_back) {
  try {
    const auto result = operation();
    write_back();
    return result;
  } catch (...) {
    write_back();
    throw;
  }
}

// As pywin32 has it, what is passed by address comes back behind the result.
py::object RowGradient(LPModel& model, Arguments given) {
  const auto row = FromPython<int32_t>(given[0]);
  auto gradient = FromPython<std::vector<double>>(given[1]);
  const auto result = RunAndWriteBack([&] { return model.RowGradient(row, gradient); },
                                      [&] { WriteBack(given[1], ToPython(gradient)); });
  return py::make_tuple(result, ToPython(gradient));
}

py::object RowBodyValue(LPModel& model, Arguments given) {
  const auto row = FromPython<int32_t>(given[0]);
  const auto point = FromPython<std::vector<double>>(given[1]);
  double answer = 0;
  const auto result = RunAndWriteBack([&] { return model.RowBodyValue(row, point, answer); },
                                      [&] { WriteBack(given[2], ToPython(answer)); });
  return py::make_tuple(result, ToPython(point), answer);
}

void AddVariables(Table& table) {
  table[{"strMPSFile", "get"}] = Bind([](LPModel& m) { return m.strMPSFile(); });
  table[{"strMPSFile", "let"}] = Bind([](LPModel& m, Path value) { m.strMPSFile(value.text); });
  table[{"ReadMPSFileErr", "get"}] = Bind([](LPModel& m) { return m.ReadMPSFileErr(); });
  table[{"ReadMPSFileErr", "let"}] =
      Bind([](LPModel& m, int16_t value) { m.ReadMPSFileErr(value); });
  table[{"frmViewEquationsIsShowing", "get"}] =
      Bind([](LPModel& m) { return m.frmViewEquationsIsShowing(); });
  table[{"frmViewEquationsIsShowing", "let"}] =
      Bind([](LPModel& m, bool value) { m.frmViewEquationsIsShowing(value); });
}

void AddColumnQueries(Table& table) {
  table[{"ColElementrow", "get"}] =
      Bind([](LPModel& m, int32_t j, int32_t k) { return m.ColElementrow(j, k); });
  table[{"ColElementvalue", "get"}] =
      Bind([](LPModel& m, int32_t j, int32_t k) { return m.ColElementvalue(j, k); });
  table[{"ColNumberElements", "get"}] =
      Bind([](LPModel& m, int32_t j) { return m.ColNumberElements(j); });
  table[{"ColUpperBound", "get"}] = Bind([](LPModel& m, int32_t j) { return m.ColUpperBound(j); });
  table[{"ColLowerBound", "get"}] = Bind([](LPModel& m, int32_t j) { return m.ColLowerBound(j); });
  table[{"ColName", "get"}] = Bind([](LPModel& m, int32_t j) { return m.ColName(j); });
  table[{"ColType", "get"}] = Bind([](LPModel& m, int32_t j) { return m.ColType(j); });
}

void AddRowQueries(Table& table) {
  table[{"RowEquation", "get"}] = Bind([](LPModel& m, int32_t i) { return m.RowEquation(i); });
  table[{"ElementValue", "get"}] =
      Bind([](LPModel& m, int32_t i, int32_t j) { return m.ElementValue(i, j); });
  table[{"RowElementCol", "get"}] =
      Bind([](LPModel& m, int32_t i, int32_t k) { return m.RowElementCol(i, k); });
  table[{"RowElementValue", "get"}] =
      Bind([](LPModel& m, int32_t i, int32_t k) { return m.RowElementValue(i, k); });
  table[{"RowName", "get"}] = Bind([](LPModel& m, int32_t i) { return m.RowName(i); });
  table[{"RowNumberElements", "get"}] =
      Bind([](LPModel& m, int32_t i) { return m.RowNumberElements(i); });
  table[{"RowType", "get"}] = Bind([](LPModel& m, int32_t i) { return m.RowType(i); });
  table[{"RowLowerBound", "get"}] = Bind([](LPModel& m, int32_t i) { return m.RowLowerBound(i); });
  table[{"RowUpperBound", "get"}] = Bind([](LPModel& m, int32_t i) { return m.RowUpperBound(i); });
  table[{"NonBindingRowIndex", "get"}] =
      Bind([](LPModel& m, int32_t i) { return m.NonBindingRowIndex(i); });
  table[{"BindingRowIndex", "get"}] =
      Bind([](LPModel& m, int32_t i) { return m.BindingRowIndex(i); });
  table[{"RowGradient", "method"}] = {"long, SAFEARRAY(double): short", 2, RowGradient};
  table[{"RowBodyValue", "method"}] = {"long, SAFEARRAY(double), double: short", 3, RowBodyValue};
}

void AddModelQueries(Table& table) {
  table[{"FileLocation", "get"}] = Bind([](LPModel& m) { return m.FileLocation(); });
  table[{"NumberOfElements", "get"}] = Bind([](LPModel& m) { return m.NumberOfElements(); });
  table[{"NumberOfColumns", "get"}] = Bind([](LPModel& m) { return m.NumberOfColumns(); });
  table[{"NumberOfRows", "get"}] = Bind([](LPModel& m) { return m.NumberOfRows(); });
  table[{"NumberOfBindingRows", "get"}] = Bind([](LPModel& m) { return m.NumberOfBindingRows(); });
  table[{"NumberOfNonBindingRows", "get"}] =
      Bind([](LPModel& m) { return m.NumberOfNonBindingRows(); });
  table[{"ModelDescription", "get"}] = Bind([](LPModel& m) { return m.ModelDescription(); });
  table[{"ModelName", "get"}] = Bind([](LPModel& m) { return m.ModelName(); });
  table[{"NumNonBindingRows", "get"}] = Bind([](LPModel& m) { return m.NumNonBindingRows(); });
  table[{"NumBindingRows", "get"}] = Bind([](LPModel& m) { return m.NumBindingRows(); });
  table[{"ViewEquationsWindowIsShowing", "method"}] =
      Bind([](LPModel& m) { return m.ViewEquationsWindowIsShowing(); });
}

void AddWrites(Table& table) {
  table[{"SetColUpperBound", "let"}] =
      Bind([](LPModel& m, int32_t j, Value value) { m.SetColUpperBound(j, value); });
  table[{"SetColLowerBound", "let"}] =
      Bind([](LPModel& m, int32_t j, Value value) { m.SetColLowerBound(j, value); });
  table[{"SetColName", "let"}] =
      Bind([](LPModel& m, int32_t j, Value value) { m.SetColName(j, value); });
  table[{"SetColType", "let"}] =
      Bind([](LPModel& m, int32_t j, Value value) { m.SetColType(j, value); });
  table[{"SetModelDescription", "let"}] =
      Bind([](LPModel& m, Value value) { m.SetModelDescription(value); });
  table[{"SetModelName", "let"}] = Bind([](LPModel& m, Value value) { m.SetModelName(value); });
  table[{"SetRowName", "let"}] =
      Bind([](LPModel& m, int32_t i, Value value) { m.SetRowName(i, value); });
  table[{"SetRowElementValue", "let"}] = Bind(
      [](LPModel& m, int32_t i, int32_t k, Value value) { m.SetRowElementValue(i, k, value); });
  table[{"SetRowType", "let"}] =
      Bind([](LPModel& m, int32_t i, Value value) { m.SetRowType(i, value); });
  table[{"SetRowLowerBound", "let"}] =
      Bind([](LPModel& m, int32_t i, Value value) { m.SetRowLowerBound(i, value); });
  table[{"SetRowUpperBound", "let"}] =
      Bind([](LPModel& m, int32_t i, Value value) { m.SetRowUpperBound(i, value); });
}

void AddEdits(Table& table) {
  table[{"DeleteRow", "method"}] =
      Bind([](LPModel& m, int32_t row) { return m.DeleteRow(row); }, Lock::kFree);
  table[{"DeleteColumn", "method"}] =
      Bind([](LPModel& m, int32_t col) { return m.DeleteColumn(col); }, Lock::kFree);
  table[{"DeleteElement", "method"}] =
      Bind([](LPModel& m, int32_t row, int32_t ele) { return m.DeleteElement(row, ele); });
  table[{"MakeNewModel", "method"}] = Bind([](LPModel& m) { m.MakeNewModel(); }, Lock::kFree);
  table[{"AddElement", "method"}] =
      Bind([](LPModel& m, int32_t row, int32_t col, double val) { m.AddElement(row, col, val); });
  table[{"AddRow", "method"}] = Bind([](LPModel& m, Text name) { return m.AddRow(name); });
  table[{"AddColumn", "method"}] = Bind([](LPModel& m, Text name) { return m.AddColumn(name); });
  table[{"SetDefaultToPlusMinusInfinity", "method"}] =
      Bind([](LPModel& m, bool val) { m.SetDefaultToPlusMinusInfinity(val); });
}

void AddJobs(Table& table) {
  const auto free = Lock::kFree;
  table[{"ReadMPSFile", "method"}] = Bind([](LPModel& m) { return m.ReadMPSFile(); }, free);
  table[{"StartFileReding", "method"}] = Bind([](LPModel& m) { return m.StartFileReding(); }, free);
  table[{"SaveAsMPSFile", "method"}] = Bind([](LPModel& m) { return m.SaveAsMPSFile(); }, free);
  table[{"SaveMPSFile", "method"}] =
      Bind([](LPModel& m, Path path) { return m.SaveMPSFile(path.text); }, free);
  table[{"SimplifyMPSModel", "method"}] = Bind([](LPModel& m) { m.SimplifyMPSModel(); }, free);
  table[{"DisplayAuthor", "method"}] = Bind([](LPModel& m) { m.DisplayAuthor(); }, free);
  table[{"NewMPSModel", "method"}] = Bind([](LPModel& m) { m.NewMPSModel(); }, free);
  table[{"ViewEquations", "method"}] =
      Bind([](LPModel& m, bool editing) { m.ViewEquations(editing); }, free);
  table[{"ViewCol", "method"}] =
      Bind([](LPModel& m, int32_t col, bool editing) { m.ViewCol(col, editing); }, free);
  table[{"ViewRow", "method"}] =
      Bind([](LPModel& m, int32_t row, bool editing) { m.ViewRow(row, editing); }, free);
  table[{"ViewNonBindingRow", "method"}] =
      Bind([](LPModel& m, int32_t row, bool editing) { m.ViewNonBindingRow(row, editing); }, free);
  table[{"ViewBindingRow", "method"}] =
      Bind([](LPModel& m, int32_t row, bool editing) { m.ViewBindingRow(row, editing); }, free);
}

Table MakeTable() {
  Table table;
  AddVariables(table);
  AddColumnQueries(table);
  AddRowQueries(table);
  AddModelQueries(table);
  AddWrites(table);
  AddEdits(table);
  AddJobs(table);
  return table;
}

}  // namespace

std::span<const Member> Members() { return kMembers; }

const Binding* FindBinding(std::string_view name, std::string_view kind) {
  static const Table table = MakeTable();
  const auto found = table.find(Key(name, kind));
  return found == table.end() ? nullptr : &found->second;
}

}  // namespace quarvel::python
