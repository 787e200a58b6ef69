#include "hosts/made_file.h"

#include "hosts/packing/file_bytes.h"
#include "hosts/streams.h"
#include "platform/file_replacement.h"
#include "platform/files.h"

namespace quarvel::hosts {

bool IsSameFile(const std::string& a, const std::string& b) {
  return a == b || platform::IsSameFile(a, b);
}

void WriteMadeFile(const std::string& path, std::string_view bytes) {
  try {
    platform::FileReplacement file(path);
    file.output().Write(bytes);
    file.Commit();
  } catch (const AutomationError& error) {
    if (IsFolder(path)) throw CommandError(kProblem, path + ": it is a folder, not a file");
    throw CommandError(kProblem, path + ": " + error.description());
  }
}

}  // namespace quarvel::hosts
