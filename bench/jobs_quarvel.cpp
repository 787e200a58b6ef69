// bench_quarvel JOB ARGUMENT...: one job of the component, timed inside.
//
// Every job that starts from a file reads it with ReadMPSFile, the way a host does: file dialog,
// bounds dialog, progress window. Work that the component puts off is looked at before the clock
// stops, so that it counts.

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/bench_desktop.h"
#include "bench/edit_jobs.h"
#include "bench/query_walks.h"
#include "bench/times.h"
#include "component/lp_model.h"
#include "inspect/compare.h"
#include "inspect/lint.h"
#include "inspect/write_file.h"
#include "mps/read_file.h"

namespace quarvel::bench {
namespace {

using Arguments = std::span<char*>;

void Require(bool good, const char* what) {
  if (!good) throw std::runtime_error(what);
}

std::int32_t Number(std::string_view text) {
  std::int32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  Require(error == std::errc() && end == text.data() + text.size() && value > 0,
          "not a positive number");
  return value;
}

// A model and its user.
struct Session {
  BenchDesktop desktop;
  LPModel model{desktop};

  Times Read(const char* path) {
    desktop.file = path;
    return TimesOf([this] {
      Require(model.ReadMPSFile() == -1, "the file was not read");
      model.store().data();  // the row lists, where they are deferred
    });
  }

  void PrintSize() const {
    PrintResult("rows", model.NumberOfRows());
    PrintResult("columns", model.NumberOfColumns());
    PrintResult("elements", model.NumberOfElements());
    PrintResult("questions", desktop.questions());
  }
};

void Read(Arguments arguments) {
  Session session;
  PrintTimes(session.Read(arguments[0]));
  session.PrintSize();
}

// The read that the library and the commands have, as data and in the wide dialect.
void ReadAsData(Arguments arguments) {
  Session session;
  mps::FileRead read;
  PrintTimes(TimesOf([&] { read = mps::ReadFile(arguments[0], {}, session.model.store()); }));
  Require(read.outcome == mps::ReadOutcome::kRead, "the file was not read");
  session.PrintSize();
}

// What `quarvel check` does but for printing.
void Check(Arguments arguments) {
  Session session;
  model::ModelStore& store = session.model.store();
  mps::FileRead read;
  PrintTimes(TimesOf([&] {
    read = mps::ReadFile(arguments[0], {}, store);
    inspect::Lint(store, read.facts, read.problems);
  }));
  Require(read.outcome == mps::ReadOutcome::kRead, "the file was not read");
  session.PrintSize();
}

// What `quarvel diff` does but for printing: two reads and the comparison.
void Diff(Arguments arguments) {
  Session a;
  Session b;
  const Times reads = TimesOf([&] {
    mps::ReadFile(arguments[0], {}, a.model.store());
    mps::ReadFile(arguments[1], {}, b.model.store());
  });
  inspect::Differences differences(0);
  const Times comparison =
      TimesOf([&] { differences = inspect::Compare(a.model.store(), b.model.store(), {}, 0); });
  PrintTimes(reads + comparison);
  PrintResult("comparison", comparison.seconds);
  PrintResult("differences", static_cast<double>(differences.count()));
  Require(differences.CountOf(inspect::DifferenceKind::kRowWent) == 0 &&
              differences.CountOf(inspect::DifferenceKind::kColumnWent) == 0,
          "the models have other rows or columns");
  b.PrintSize();
}

void Write(Arguments arguments) {
  Session session;
  session.Read(arguments[0]);
  PrintTimes(TimesOf(
      [&] { Require(session.model.SaveMPSFile(arguments[1]) == -1, "the file was not written"); }));
  session.PrintSize();
}

// What `quarvel convert` does with a model that it has: the write, and the receipt, which reads it again.
void WriteWithReceipt(Arguments arguments) {
  Session session;
  const mps::FileRead read = mps::ReadFile(arguments[0], {}, session.model.store());
  inspect::FileWrite write;
  PrintTimes(TimesOf([&] {
    write = inspect::WriteFile(session.model.store(), read.facts, arguments[1],
                               {.layout = mps::FileLayout::kFixed, .allow_changes = true});
  }));
  Require(write.receipt.is_read_again, "the file was not written and read again");
  session.PrintSize();
}

// The component's write of the model, and a read of what it wrote: what a receipt cannot do without.
void WriteAndRead(Arguments arguments) {
  Session session;
  session.Read(arguments[0]);
  Session back;
  PrintTimes(TimesOf([&] {
    Require(session.model.SaveMPSFile(arguments[1]) == -1, "the file was not written");
    mps::ReadFile(arguments[1], {}, back.model.store());
  }));
  back.PrintSize();
}

void Query(Arguments arguments) {
  Session session;
  session.Read(arguments[0]);
  RunQueryWalk(session.model);
}

void Loop(Arguments arguments) {
  Session session;
  session.Read(arguments[0]);
  RunPlainWalk(session.model);
}

void Simplify(Arguments arguments) {
  Session session;
  session.Read(arguments[0]);
  PrintTimes(TimesOf([&] {
    session.model.SimplifyMPSModel();
    session.model.store().data();
  }));
  session.PrintSize();
}

// DeleteRow spread over the model; `look` is what a host asks for after each.
template <class Look>
void DeleteRowsOf(Session& session, std::int32_t deletions, const Look& look) {
  LPModel& model = session.model;
  Require(model.NumberOfRows() > deletions, "the model has too few rows");
  const std::int32_t step = model.NumberOfRows() / deletions;
  PrintTimes(TimesOf([&] {
    for (std::int32_t k = 0; k < deletions; ++k) {
      model.DeleteRow(k * (step - 1));
      look();
    }
    model.store().data();
  }));
  session.PrintSize();
}

void DeleteRows(Arguments arguments) {
  Session session;
  session.Read(arguments[0]);
  DeleteRowsOf(session, Number(arguments[1]), [] {});
}

void DeleteRowsLookingAtRows(Arguments arguments) {
  Session session;
  session.Read(arguments[0]);
  const std::int32_t last = session.model.NumberOfRows() - Number(arguments[1]) - 1;
  DeleteRowsOf(session, Number(arguments[1]), [&] { session.model.RowNumberElements(last); });
}

void DeleteRowsLookingAtColumns(Arguments arguments) {
  Session session;
  session.Read(arguments[0]);
  DeleteRowsOf(session, Number(arguments[1]), [&] { session.model.ColNumberElements(0); });
}

// Fixed-width names side by side, made before the clock starts.
class Names {
 public:
  Names(char letter, std::int32_t count) {
    for (std::int32_t k = 0; k < count; ++k) {
      const std::string digits = std::to_string(k);
      text_ += letter;
      text_.append(kWidth - 1 - digits.size(), '0');
      text_ += digits;
    }
  }
  std::string_view operator[](std::int32_t number) const {
    return std::string_view(text_).substr(static_cast<std::size_t>(number) * kWidth, kWidth);
  }

 private:
  static constexpr std::size_t kWidth = 11;
  std::string text_;
};

// A column whose deletion empties as many rows as asked for, in a model that has others as well.
void DeleteColumn(Arguments arguments) {
  Session session;
  LPModel& model = session.model;
  session.Read(arguments[0]);
  const std::int32_t emptied = Number(arguments[1]);
  const std::int32_t kept = model.NumberOfRows();
  const std::int32_t column = model.NumberOfColumns();
  const Names names('X', emptied);
  Require(model.AddColumn("XCOLUMN") == -1, "the column was not added");
  for (std::int32_t k = 0; k < emptied; ++k) {
    Require(model.AddRow(names[k]) == -1, "a row was not added");
    model.AddElement(kept + k, column, 1);
  }
  PrintTimes(TimesOf([&] {
    model.DeleteColumn(column);
    model.store().data();
  }));
  Require(model.NumberOfRows() == kept, "the emptied rows are still there");
  session.PrintSize();
}

void AddManyRows(Arguments arguments) {
  Session session;
  const std::int32_t count = Number(arguments[0]);
  const Names names('R', count);
  PrintTimes(TimesOf([&] {
    for (std::int32_t k = 0; k < count; ++k) session.model.AddRow(names[k]);
  }));
  Require(session.model.NumberOfRows() == count, "some rows were not added");
  session.PrintSize();
}

struct Job {
  std::string_view name;
  std::size_t arguments;
  void (*run)(Arguments);
};

constexpr Job kJobs[] = {
    {"read", 1, Read},
    {"read-file", 1, ReadAsData},
    {"check", 1, Check},
    {"diff", 2, Diff},
    {"write", 2, Write},
    {"write-with-receipt", 2, WriteWithReceipt},
    {"write-and-read", 2, WriteAndRead},
    {"query", 1, Query},
    {"loop", 1, Loop},
    {"simplify", 1, Simplify},
    {"delete-rows", 2, DeleteRows},
    {"delete-rows-looking-at-rows", 2, DeleteRowsLookingAtRows},
    {"delete-rows-looking-at-columns", 2, DeleteRowsLookingAtColumns},
    {"delete-column", 2, DeleteColumn},
    {"add-rows", 1, AddManyRows},
};

int RunJob(Arguments arguments) {
  const std::string_view name = arguments.empty() ? "" : arguments[0];
  for (const Job& job : kJobs) {
    if (job.name != name || job.arguments + 1 != arguments.size()) continue;
    job.run(arguments.subspan(1));
    return 0;
  }
  if (arguments.size() == 2 && RunEditJob(name, Number(arguments[1]))) return 0;
  std::fputs(
      "usage: bench_quarvel read|read-file|check|query|loop|simplify FILE\n"
      "       bench_quarvel write|write-with-receipt|write-and-read FILE OUT\n"
      "       bench_quarvel delete-rows|delete-column FILE ROWS\n"
      "       bench_quarvel delete-rows-looking-at-rows|delete-rows-looking-at-columns FILE ROWS\n"
      "       bench_quarvel add-rows ROWS\n",
      stderr);
  for (const char* job : kEditJobs) std::fprintf(stderr, "       bench_quarvel %s SIZE\n", job);
  return 2;
}

}  // namespace
}  // namespace quarvel::bench

int main(int argc, char** argv) {
  try {
    return quarvel::bench::RunJob(std::span(argv, static_cast<std::size_t>(argc)).subspan(1));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench_quarvel: %s\n", error.what());
    return 1;
  }
}
