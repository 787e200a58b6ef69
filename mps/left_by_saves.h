// What a save that was ended has left beside a model's file. A file that can only be written in place is
// torn when the process or the power ends in the middle; the backup or the temporary file is whole then.
#pragma once

#include <string>
#include <vector>

namespace quarvel::mps {

// The backup and the temporary files beside that file, or beside what the link leads to, that end as a
// model does, in alphabetical order. Nothing is changed; what cannot be read is left out, and so is what a
// save that goes on has open.
std::vector<std::string> WholeCopiesBeside(const std::string& path);

}  // namespace quarvel::mps
