#include "hosts/log_option.h"

#include <algorithm>

#include "hosts/input_bytes.h"
#include "hosts/made_file.h"
#include "hosts/output_target.h"
#include "hosts/packing/packing.h"
#include "mps/backup.h"
#include "platform/automation_error.h"
#include "platform/files.h"
#include "platform/log_file.h"
#include "platform/system_names.h"
#include "platform/temporary_file.h"

namespace quarvel::hosts {
namespace {

// Whether one of two files would be the other, if it is not already.
bool WouldBeSame(const std::string& a, const std::string& b) {
  if (IsSameFile(a, b)) return true;
  try {
    const std::string first = platform::FinalName(a);
    const std::string second = platform::FinalName(b);
    return platform::IsSameName(first.substr(platform::NameStart(first)),
                                second.substr(platform::NameStart(second))) &&
           platform::IsSameFile(platform::FolderOf(first), platform::FolderOf(second));
  } catch (const AutomationError&) {
    return false;
  }
}

// Without the number of a backup that is kept beside another one.
std::string WithoutNumber(const std::string& name) {
  const std::size_t point = name.find_last_not_of("0123456789");
  const bool has_number = point != std::string::npos && name[point] == '.';
  return has_number ? name.substr(0, point) : name;
}

bool IsBackupOf(const std::string& model, const std::string& log) {
  if (model == kStandardInput) return false;
  using enum mps::BackupManner;
  for (const auto manner : {kBeside, kComponent}) {
    const std::string name = mps::Backup(model, manner).name();
    if (WouldBeSame(name, log) || WouldBeSame(name, WithoutNumber(log))) return true;
  }
  return false;
}

}  // namespace

std::string ObjectionToLog(const std::string& log, std::span<const std::string> operands) {
  if (log == kStandardOutput) return "";
  const std::string start = "cannot keep the log in " + log + ", ";
  if (PackingOfSuffix(log) != nullptr) {
    return start + "whose name says that it is packed: a log is plain text";
  }
  if (platform::IsTemporaryName(log)) return start + "which is the name of a temporary file";
  const bool is_model =
      std::any_of(operands.begin(), operands.end(),
                  [&log](const std::string& operand) { return WouldBeSame(operand, log); });
  if (is_model) return start + "which is a model";
  const bool is_backup =
      std::any_of(operands.begin(), operands.end(),
                  [&log](const std::string& operand) { return IsBackupOf(operand, log); });
  return is_backup ? start + "which is the backup of a model" : "";
}

void WriteLog(const std::string& log, const std::string& model, std::string_view text) {
  const platform::LogPlace place = {log, model == kStandardInput ? "" : model, {}};
  platform::OutputFile output =
      platform::IsNameOfOpenFile(log) ? platform::OutputFile(log) : platform::OpenLog(place);
  output.Write(text);
  output.Close();
}

}  // namespace quarvel::hosts
