// The project's own sources, as the tests of its structure read them.
#pragma once

#include <map>
#include <string>

namespace quarvel {

// Every C++ file of the rooms, the tests, the fuzz targets and the benchmarks: its text by its path
// from the project's root. Read once.
const std::map<std::string, std::string>& ProjectSources();

}  // namespace quarvel
