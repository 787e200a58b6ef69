// The names of the operations that the tables of this folder go through, each table by its own.
// covered_operations_test.cpp holds them to be all that LPModel has.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quarvel::testing {

std::vector<std::string> NamesOfEdits();
std::vector<std::string> NamesOfQueries();
std::vector<std::string> NamesOfReads();
std::vector<std::string> NamesOfSaves();
std::vector<std::string> NamesOfSimplifications();
std::vector<std::string> NamesOfViews();

// An entry of a table is named "Operation" or "Operation, what is special".
template <class Table>
std::vector<std::string> OperationsIn(const Table& table) {
  std::vector<std::string> names;
  for (const auto& entry : table) {
    const std::string_view name = entry.name;
    names.emplace_back(name.substr(0, name.find(',')));
  }
  return names;
}

}  // namespace quarvel::testing
