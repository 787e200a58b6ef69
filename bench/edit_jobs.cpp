#include "bench/edit_jobs.h"

#include <cstddef>
#include <string>
#include <utility>

#include "bench/bench_desktop.h"
#include "bench/times.h"
#include "component/lp_model.h"

namespace quarvel::bench {
namespace {

std::string RowName(std::int32_t i) { return "R" + std::to_string(i); }
std::string ColumnName(std::int32_t j) { return "C" + std::to_string(j); }

struct Built {
  BenchDesktop desktop;
  LPModel model{desktop};

  // Rows that bind and columns, without coefficients.
  Built(std::int32_t rows, std::int32_t columns) {
    for (std::int32_t i = 0; i < rows; ++i) {
      model.AddRow(RowName(i));
      model.SetRowType(i, "L");
    }
    for (std::int32_t j = 0; j < columns; ++j) model.AddColumn(ColumnName(j));
    model.store().data();
  }
  // As many rows as columns, three coefficients in each of both.
  explicit Built(std::int32_t size) : Built(size, size) {
    for (std::int32_t i = 0; i < size; ++i) {
      for (std::int32_t k = 0; k < 3; ++k) model.AddElement(i, (i + k * 7) % size, k + 1);
    }
  }

  std::int32_t Row(std::int32_t i) const { return model.store().FindRow(RowName(i)) - 1; }
  std::int32_t Column(std::int32_t j) const { return model.store().FindColumn(ColumnName(j)) - 1; }
};

// What is deferred when the last edit is made counts too.
template <class Edits>
void Time(Built& built, const Edits& edits) {
  PrintTimes(TimesOf([&] {
    edits();
    built.model.store().data();
  }));
  PrintResult("elements", built.model.NumberOfElements());
}

void DeleteRowsByName(std::int32_t size) {
  Built built(size);
  Time(built, [&] {
    for (std::int32_t i = 1; i < size; ++i) built.model.DeleteRow(built.Row(i));
  });
}

void DeleteColumnsByName(std::int32_t size) {
  Built built(size);
  Time(built, [&] {
    for (std::int32_t j = 1; j < size; ++j) built.model.DeleteColumn(built.Column(j));
  });
}

void DeleteAndAdd(std::int32_t size) {
  Built built(size);
  LPModel& model = built.model;
  Time(built, [&] {
    for (std::int32_t i = 0; i < size; ++i) {
      model.DeleteRow(built.Row(i));
      model.AddRow(RowName(size + i));
      model.SetRowType(model.NumberOfRows() - 1, "L");
      model.AddElement(model.NumberOfRows() - 1, i % size, 1);
    }
  });
}

void DeleteRowsAndColumns(std::int32_t size) {
  Built built(size);
  Time(built, [&] {
    for (std::int32_t i = 0; i < size / 2; ++i) {
      built.model.DeleteRow(built.Row(i));
      built.model.DeleteColumn(built.Column(size - 1 - i));
    }
  });
}

void DeleteRowsAskingAboutColumns(std::int32_t size) {
  Built built(size);
  LPModel& model = built.model;
  std::int64_t sum = 0;
  Time(built, [&] {
    for (std::int32_t i = 0; i + 1 < size; ++i) {
      model.DeleteRow(model.NumberOfRows() / 2);
      sum += model.ColNumberElements(i);
    }
  });
  PrintResult("asked", static_cast<double>(sum));
}

// Each time the row in the middle of that column's list.
void DeleteRowsOfADenseColumn(std::int32_t size) {
  Built built(size, 1);
  LPModel& model = built.model;
  for (std::int32_t i = 0; i < size; ++i) model.AddElement(i, 0, 1);
  Time(built, [&] {
    for (std::int32_t i = 1; i < size; ++i) {
      model.DeleteRow(model.ColElementrow(0, model.ColNumberElements(0) / 2));
    }
  });
}

void DeleteBindingRows(std::int32_t size) {
  Built built(size);
  LPModel& model = built.model;
  Time(built, [&] {
    for (std::int32_t i = 1; i < size; ++i) {
      model.DeleteRow(model.BindingRowIndex(model.NumberOfBindingRows() / 2));
    }
  });
}

// Rows of one coefficient, each named twice by its column.
void SimplifyDisagreeingPairs(std::int32_t size) {
  Built built(size, size);
  LPModel& model = built.model;
  for (std::int32_t i = 0; i < size; ++i) model.AddElement(i, i, 1);
  model::ModelData data = model.store().data();
  for (model::ColumnRecord& column : data.Columns) {
    column.Elements.Append(model::ElementEntry(column.Elements.last()));
  }
  model.store().Take(std::move(data));
  std::string log;
  model.KeepLogIn(&log);
  Time(built, [&] { model.SimplifyMPSModel(); });
}

void ChangeRowTypes(std::int32_t size) {
  Built built(size);
  Time(built, [&] {
    for (std::int32_t i = 0; i < size; ++i) built.model.SetRowType(built.Row(i), "N");
    for (std::int32_t i = 0; i < size; ++i) built.model.SetRowType(built.Row(i), "G");
  });
}

// A row and a column with a coefficient for each of the others.
void FillDense(Built& built, std::int32_t size) {
  for (std::int32_t n = 1; n < size; ++n) {
    built.model.AddElement(0, n, 1);
    built.model.AddElement(n, 0, 1);
  }
}

void SetDenseColumn(std::int32_t size) {
  Built built(size, size);
  FillDense(built, size);
  Time(built, [&] {
    for (std::int32_t i = 1; i < size; ++i) built.model.SetRowElementValue(i, 0, i);
  });
}

void DeleteFromDenseRow(std::int32_t size) {
  Built built(size, size);
  FillDense(built, size);
  Time(built, [&] {
    for (std::int32_t j = 1; j + 1 < size; ++j) {
      const std::int32_t k = built.model.store().FindElement(1, built.Column(j) + 1);
      built.model.DeleteElement(0, k - 1);
    }
  });
}

// Each deletion wants to know whether the lists agree.
void AddToDenseLists(std::int32_t size) {
  Built built(size, size);
  LPModel& model = built.model;
  FillDense(built, size);
  Time(built, [&] {
    for (std::int32_t n = 1; n < size; ++n) {
      model.AddColumn("NEW" + ColumnName(n));
      model.AddElement(0, model.NumberOfColumns() - 1, 1);
      model.DeleteRow(model.NumberOfRows() - 1);
      model.AddRow("NEW" + RowName(n));
      model.AddElement(model.NumberOfRows() - 1, 0, 1);
    }
  });
}

// In the order of their names.
constexpr std::array kRuns = {
    DeleteRowsByName,     DeleteColumnsByName,          DeleteAndAdd,
    DeleteRowsAndColumns, DeleteRowsAskingAboutColumns, DeleteRowsOfADenseColumn,
    DeleteBindingRows,    SimplifyDisagreeingPairs,     ChangeRowTypes,
    SetDenseColumn,       DeleteFromDenseRow,           AddToDenseLists,
};
static_assert(kRuns.size() == kEditJobs.size());

}  // namespace

bool RunEditJob(std::string_view name, std::int32_t size) {
  for (std::size_t job = 0; job < kRuns.size(); ++job) {
    if (name != kEditJobs[job]) continue;
    kRuns[job](size);
    return true;
  }
  return false;
}

}  // namespace quarvel::bench
