// Texts that are kept in tests/kept, as they were read and found right.
#pragma once

#include <string>
#include <string_view>

namespace quarvel {

// Expects `text` to be the kept file of that name. With QUARVEL_WRITE_TRANSCRIPTS=1 in the environment it goes
// into the file instead, and the test counts as skipped. A file that is not there is an empty one.
void ExpectKept(std::string_view name, const std::string& text);

}  // namespace quarvel
