#include "platform/system_names.h"

#include "platform/automation_error.h"

namespace quarvel::platform {

std::optional<FileStamp> StampUnder(const std::string& path) {
  try {
    const auto named = AskAboutName(path);
    return named && named->kind == NameKind::kFile ? std::optional(named->stamp) : std::nullopt;
  } catch (const AutomationError&) {
    return std::nullopt;
  }
}

std::optional<FileStamp> StampBehind(const std::string& path) {
  try {
    return StampUnder(FinalName(path));
  } catch (const AutomationError&) {
    return std::nullopt;
  }
}

}  // namespace quarvel::platform
