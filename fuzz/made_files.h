// Models and points that the input makes, as programs write them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/choices.h"

namespace quarvel::fuzz {

// Names with index texts, of several rows each, and one that is markup.
inline std::string MakeFamilies(Choices& choose) {
  static const std::array<const char*, 6> kForms = {"FLOW[", "X_03_",  "cap(",
                                                    "a.b.",  "<b>&\"", "R"};
  static const std::array<const char*, 6> kNumbers = {"1", "-2.5", "0", "1e-9", "1e9", "12345.678"};
  const std::uint32_t rows = 1 + choose(6);
  const std::uint32_t columns = 1 + choose(8);
  const auto name = [&choose](char kind, std::uint32_t number) {
    return kForms[choose(kForms.size())] + std::string(1, kind) + std::to_string(number);
  };
  std::vector<std::string> row_names;
  std::string text = "NAME F\nROWS\n";
  for (std::uint32_t i = 0; i < rows; ++i) {
    row_names.push_back(name('r', i));
    text += std::string(" ") + "NLGE"[choose(4)] + " " + row_names.back() + "\n";
  }
  text += "COLUMNS\n";
  for (std::uint32_t i = 0; i < columns; ++i) {
    const std::string column = name('c', i);
    if (choose(8) == 0)
      text += choose(2) == 0 ? " M 'MARKER' 'INTORG'\n" : " M 'MARKER' 'INTEND'\n";
    for (std::uint32_t k = choose(4); k > 0; --k) {
      text += " " + column + " " + row_names[choose(rows)] + " " + kNumbers[choose(6)] + "\n";
    }
  }
  text += "RHS\n";
  for (std::uint32_t k = choose(4); k > 0; --k) {
    text += " RHS " + row_names[choose(rows)] + " " + kNumbers[choose(6)] + "\n";
  }
  return text + "ENDATA\n";
}

// The first lines of each kind of file that solvers write.
inline std::string ChoosePoint(Choices& choose) {
  static const std::array<const char*, 8> kStarts = {
      "# a point\nX 2\n\n Y = -1.5\nC0 = 3\nz 1e3\n=obj= 4\n",
      "Problem:    DIET\nRows:       1\nColumns:    2\nNon-zeros:  3\nStatus:     OPTIMAL\n"
      "Objective:  COST = 1956.25 (MINimum)\n\n"
      "   No. Column name  St   Activity     Lower bound   Upper bound    Marginal\n"
      "------ ------------ -- ------------- ------------- ------------- -------------\n"
      "     1 X            NU            35             0            35         -44.5 \n"
      "     2 Y\n                    B        5.38158             0             7 \n\n",
      "c Status: OPTIMAL\ns bas 2 2 f f 10\ni 1 b 1 0\nj 1 l 2 0\nj 2 b -1.5 0\ne o f\n",
      "\nValue of objective function: 4\n\nActual values of the variables:\nX     2\nY    -1.5\n\n"
      "Actual values of the constraints:\nR1   3\n",
      "Optimal - objective value 4.00000000\n      0 X                 2                 0\n"
      "      1 Y              -1.5                 1\n",
      "Model status\nOptimal\n\n# Primal solution values\nFeasible\nObjective 4\n# Columns 2\nX 2\n"
      "Y -1.5\n# Rows 1\nR1 3\n",
      "Columns\n    Index Status        Lower        Upper       Primal         Dual  Name\n"
      "       0  BS              0          inf            2            0  X\nRows\n",
      ""};
  return kStarts[choose(kStarts.size())] + choose.Until(0);
}

}  // namespace quarvel::fuzz
