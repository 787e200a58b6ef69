// The interface as it was promised to hosts, member by member, typed by hand: what the component's
// own files are held to.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace quarvel::automation {

struct InterfaceRow {
  std::uint32_t id;
  std::string_view kind;  // "get", "let", "set" or "method"
  std::string_view name;
  std::string_view arguments;  // "RowNum 32-bit integer, Answer double by reference"
  std::string_view result;     // empty for none
  std::string_view help;       // empty for none
};

// In the interface's order.
std::span<const InterfaceRow> InterfaceTable();

}  // namespace quarvel::automation
