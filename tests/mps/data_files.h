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

inline constexpr const char* kTextEmptyRow = "Warning: no elements for row ";
inline constexpr const char* kTextEmptyColumn = "Warning: no elements for column ";
inline constexpr const char* kTextEmptyItems =
    "Quarvel.dll error: rows or columns with no elements, as noted in warnings.";
inline constexpr const char* kTextNoRow = "MPS file read error: no match for row name (line ";
inline constexpr const char* kTextNoColumn =
    "MPS file read error: no match for variable name (line ";
inline constexpr const char* kTextWrongTokens =
    "MPS file read error: improper number of tokens (line ";
inline constexpr const char* kTextTooFew = "MPS file error: too few tokens (line ";

}  // namespace quarvel::mps
