// Random files of the wide dialect, with what makes lines odd: for the tests and the fuzzer.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace quarvel::testing {

// `choose` gives a number below its argument. Of words by blanks, of fixed columns or of both, of names
// that are short, long or have blanks; with headers in all spellings, comments, tabs, nameless and
// second sets, bounds of all codes, ranges by sign, and lines that make no sense.
std::string MakeWideFile(const std::function<std::uint32_t(std::uint32_t)>& choose);

}  // namespace quarvel::testing
