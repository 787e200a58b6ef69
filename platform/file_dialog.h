// What a file dialog shows (Desktop::ShowFileDialog).
#pragma once

#include <string>

namespace quarvel::platform {

struct FileDialog {
  enum class Kind { kOpen, kSave };
  Kind kind = Kind::kOpen;
  std::string title;
  // Pairs of words and patterns, all separated by "|": "MPS files (*.MPS)|*.MPS|all files
  // (*.*)|*.*".
  std::string filter;
  std::string default_extension;  // with its point; appended to a name that has no extension
  std::string file_name;          // the name offered at first
  // Where the user begins to look; empty leaves it to the platform.
  std::string folder = {};
};

}  // namespace quarvel::platform
