// What a user sees who types some command lines: a transcript, which people read and tests compare.
//
//     $ quarvel rows diet.mps --limit 2        # a remark
//     -- pipe
//     Index  Name ...
//     -- 80 columns, 200 columns
//     {bold}Index  Name ...{plain}
//     2> quarvel: what stands on standard error
//     (exit status 1)
//
// Each line is typed into a pipe and into terminals of 80 and 200 columns, each with and without colors.
// What is the same everywhere stands there once, without "--". The marks of colors ({bold}, {red} ... {plain})
// are there where a terminal takes colors; without them nothing else may differ, or the outputs stand there
// one by one.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quarvel {

class HostFolder;

// Its command lines, without "$ ".
std::vector<std::string> TranscriptLines(std::string_view transcript);

// What stands before the first command line, and then each command line with what it prints. For each
// manner of showing results the lines run one after the other in a new folder, which `fill` fills and which
// is the current folder meanwhile. "cat FILE" shows a file that was written. In the place of the folder's
// path stands FOLDER, in that of the program's version VERSION.
std::string TranscriptAnew(std::string_view transcript,
                           const std::function<void(const HostFolder&)>& fill);

}  // namespace quarvel
