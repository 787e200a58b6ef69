// Lines of a file as they stand there, to be shown beside what is said of them.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "platform/byte_source.h"

namespace quarvel::inspect {

// The lines of these numbers (from 1), each as far as it is shown (mps::ShownOf). A pass over the lines up
// to the last of them; those that cannot be read are left out. `open` gives the bytes, or null for none.
std::map<std::int64_t, std::string> QuotedLines(
    const std::function<std::unique_ptr<platform::ByteSource>()>& open,
    const std::set<std::int64_t>& numbers);

}  // namespace quarvel::inspect
