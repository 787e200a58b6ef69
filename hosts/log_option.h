// The file that --log names.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace quarvel::hosts {

// What is wrong with the name for a command with these operands; empty when nothing is, as with "-", which is
// standard output. The log is not packed, and would be
// lost, or something else, where it is a model, the backup of one (a failed save may have left it as
// all that is whole), or bears the name of a temporary file. The files need not exist.
std::string ObjectionToLog(const std::string& log, std::span<const std::string> operands);

// Writes it as a log beside the model of that path is written (platform/log_file.h), in place of any file
// of the name; what is named as an open file, such as /dev/stderr, is gone on with. Raises what that
// raises.
void WriteLog(const std::string& log, const std::string& model, std::string_view text);

}  // namespace quarvel::hosts
