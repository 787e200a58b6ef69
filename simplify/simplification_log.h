// Names and texts of the file that records what a simplification did: UTF-8 lines that end in CR
// LF, the first of them naming the model, then one line for each row or column that was converted,
// removed or decided on.
#pragma once

#include <string>
#include <string_view>

namespace quarvel {

// `path` with its last four characters replaced by ".log": the extension is taken to be a point and
// three letters, so that "model.data" gives "model..log". A shorter path gives ".log".
std::string BesideModel(std::string_view path);

// Where the log of a model stored at `file_location` goes. A model without a file has its log in a
// folder of the component's: that of the DLL on Windows, the user's state folder elsewhere. Raises
// when that cannot be had.
std::string LogFileName(std::string_view file_location);

// Its first line, without the line end.
std::string LogHeading(std::string_view file_location);

}  // namespace quarvel
