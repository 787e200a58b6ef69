// tour FILE.mps OUT.mps: reads a model, lists what there is to say about its file, looks at its rows,
// changes it and writes it.

#include <cstdint>
#include <exception>
#include <iostream>
#include <string>

#include "quarvel/quarvel.h"

namespace {

void ListProblems(const quarvel::ReadResult& read) {
  for (const quarvel::Problem& problem : read.problems) {
    std::cout << "line " << problem.line << ": " << problem.code << ": " << problem.message << '\n'
              << "    " << problem.text << '\n';
  }
}

void ListRows(const quarvel::Model& model) {
  for (std::int32_t row = 0; row < model.row_count(); ++row) {
    std::cout << model.NameOfRow(row) << ' ' << static_cast<char>(model.TypeOfRow(row));
    for (std::int32_t k = 0; k < model.ElementsInRow(row); ++k) {
      const quarvel::Element element = model.RowElement(row, k);
      std::cout << ' ' << model.NameOfColumn(element.index) << '=' << element.value;
    }
    std::cout << '\n';
  }
}

// The first column at most 10, and a row that says it is at least 1.
void Change(quarvel::Model& model) {
  quarvel::Bounds bounds = model.BoundsOfColumn(0);
  bounds.upper = 10;
  model.SetColumnBounds(0, bounds);
  const std::int32_t row = model.AddRow("AT_LEAST", {.lower = 1});
  model.AddElement(row, 0, 1);
}

int Tour(const std::string& in, const std::string& out) {
  quarvel::Model model;
  const quarvel::ReadResult read = quarvel::ReadFile(in, model);
  ListProblems(read);
  if (!read.is_good()) return 1;
  ListRows(model);

  const quarvel::Model before = model.Copy();
  Change(model);
  const quarvel::SimplifyResult simplified = quarvel::Simplify(model);
  std::cout << simplified.removed_rows << " row simplified away\n";
  quarvel::Compare(before, model, {}, [](const quarvel::Difference& difference) {
    std::cout << difference.kind << ": " << difference.before << " -> " << difference.after << '\n';
  });

  const quarvel::Receipt receipt = quarvel::WriteFile(model, out);
  if (!receipt.is_written()) {
    std::cerr << out << " was not written: " << receipt.failure << '\n';
    return 1;
  }
  std::cout << receipt.equal_rows << " of " << receipt.rows << " rows read back equal\n";
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: tour FILE.mps OUT.mps\n";
    return 2;
  }
  try {
    return Tour(argv[1], argv[2]);
  } catch (const std::exception& error) {
    std::cerr << "tour: " << error.what() << '\n';
    return 1;
  }
}
