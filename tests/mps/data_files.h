// What the tests of the real models share.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace quarvel::mps {

// "folder/name" of every file, sorted.
std::vector<std::string> DataFiles();
std::string PathOf(const std::string& data_file);

// How many questions of each kind, with what differs between them cut off.
using Questions = std::map<std::string, int>;
Questions KindsOf(const std::vector<std::string>& problems);

inline constexpr const char* kEmptyRow = "Warning: no elements for row ";
inline constexpr const char* kEmptyColumn = "Warning: no elements for column ";
inline constexpr const char* kEmptyItems =
    "Quarvel.dll error: rows or columns with no elements, as noted in warnings.";
inline constexpr const char* kNoRow = "MPS file read error: no match for row name (line ";
inline constexpr const char* kNoColumn = "MPS file read error: no match for variable name (line ";
inline constexpr const char* kTokens = "MPS file read error: improper number of tokens (line ";
inline constexpr const char* kTooFew = "MPS file error: too few tokens (line ";

}  // namespace quarvel::mps
