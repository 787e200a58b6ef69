// The shortest text of a double that reads back to the same bits.
#pragma once

#include <cstddef>
#include <string>

namespace quarvel::text {

// Appends as few characters as ParseNumber, and every other correct conversion, needs to give the same
// double back: "0.1", "-0", "1e+10", "5e-324". Plain where that is no longer than with an exponent. The
// value must be finite.
void AppendShortestText(std::string& out, double value);

// The same in at most `room` characters where leaving out the zero in front of the point achieves that
// (".0123456789").
void AppendShortestText(std::string& out, double value, std::size_t room);

}  // namespace quarvel::text
