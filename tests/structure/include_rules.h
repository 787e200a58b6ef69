// What a source of a room may include. The rooms form a stack and includes go downwards only:
//
//   hosts, automation, api -> component -> viewer -> inspect -> simplify -> mps -> model -> platform -> text
//
// The folders inside platform/ are drawers and system parts. Only hosts and tests include a drawer,
// and only these folders, and sources of hosts named *_win32 or *_posix, use headers beyond the
// standard library's: a toolkit in its own drawer, the Windows headers in platform/win32 and in
// drawers' and hosts' sources named *_win32, COM in automation and such sources of hosts.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quarvel {

// One line for every include of `source` that breaks a rule: "model/a.cpp:12 includes ...".
// `path` is relative to the project's root and says which rules hold. Folders that are no rooms
// (tests, fuzz, bench) may include everything.
std::vector<std::string> IncludeViolations(std::string_view path, std::string_view source);

// Files of one room that include each other in a circle, one line for each circle that a search finds:
// "model/a.h -> model/b.h -> model/a.h". `sources` is the text of every file by its path.
std::vector<std::string> IncludeCircles(const std::map<std::string, std::string>& sources);

// The rooms, the lowest first.
const std::vector<std::string_view>& Rooms();

}  // namespace quarvel
