#include "hosts/list_options.h"

#include "hosts/arguments.h"

namespace quarvel::hosts {
namespace {

// A list that is given again goes on.
bool AppendList(std::string& target, std::string_view value) {
  if (!target.empty()) target += ',';
  target += value;
  return !value.empty();
}

bool SetText(std::string& target, std::string_view value) {
  target = value;
  return !value.empty();
}

constexpr Option kOptions[] = {
    {kMatch, "--match", "", "PATTERN",
     "only names like it: * any characters, ? one, [A-F] one\nof these, \\* the character itself; "
     "in either case; may be\ngiven many times",
     [](Arguments& a, std::string_view v) {
       a.list.patterns.emplace_back(v);
       return !v.empty();
     }},
    {kType, "--type", "", "LIST",
     "only these types, with commas between them; may be given\nmany times",
     [](Arguments& a, std::string_view v) { return AppendList(a.list.types, v); }},
    {kInteger, "--integer", "", "", "only integer columns",
     [](Arguments& a, std::string_view) { return a.list.is_integer = true; }},
    {kFree, "--free", "", "", "only those without any bound",
     [](Arguments& a, std::string_view) { return a.list.is_free = true; }},
    {kFixed, "--fixed", "", "", "only those whose bounds are equal",
     [](Arguments& a, std::string_view) { return a.list.is_fixed = true; }},
    {kEmpty, "--empty", "", "", "only those without elements",
     [](Arguments& a, std::string_view) { return a.list.is_empty = true; }},
    {kSort, "--sort", "", "[-]KEY",
     "in the order of a column of the list; -KEY: from the other end",
     [](Arguments& a, std::string_view v) { return SetText(a.list.sort, v); }},
    {kFields, "--columns", "", "LIST",
     "what is shown of each, with commas between them; may be\ngiven many times",
     [](Arguments& a, std::string_view v) { return AppendList(a.list.columns, v); }},
    {kCsv, "--csv", "", "", "print comma-separated values, with all digits",
     [](Arguments& a, std::string_view) { return a.list.csv = true; }},
    {kFull, "--full", "", "", "print all on a terminal too, where long lists are cut",
     [](Arguments& a, std::string_view) { return a.full = true; }},
};

}  // namespace

std::span<const Option> ListOptions() { return kOptions; }

}  // namespace quarvel::hosts
