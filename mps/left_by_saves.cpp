#include "mps/left_by_saves.h"

#include <algorithm>
#include <exception>

#include "mps/backup.h"
#include "mps/end_line.h"
#include "platform/files.h"
#include "platform/system_names.h"
#include "platform/temporary_file.h"

namespace quarvel::mps {
namespace {

bool IsWholeFile(const std::string& path) {
  try {
    const auto there = platform::AskAboutName(path);
    if (!there || there->kind != platform::NameKind::kFile) return false;
    return HasEndLine(platform::LastBytes(path, kEndOfModel));
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace

std::vector<std::string> WholeCopiesBeside(const std::string& path) {
  const std::string file = platform::FinalName(path);
  std::vector<std::string> names = platform::TemporaryNamesBeside(file);
  for (const BackupManner manner : {BackupManner::kComponent, BackupManner::kBeside}) {
    names.push_back(Backup(path, manner).name());
  }
  std::erase_if(names, [&](const std::string& name) { return name == path || !IsWholeFile(name); });
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

}  // namespace quarvel::mps
