#include "simplify/simplification_log.h"

#include <utility>

#include "platform/log_file.h"

namespace quarvel::simplify {
namespace {

constexpr int kExtensionCharacters = 4;
constexpr std::string_view kHeadingStart = "Log file for simplification";

#ifdef _WIN32
constexpr std::string_view kUnsavedLog = "\\newmodel.log";
#else
constexpr std::string_view kUnsavedLog = "/newmodel.log";
#endif

// True for a byte that goes on with the character of the byte before it.
bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u; }

std::string_view WithoutLastCharacter(std::string_view utf8) {
  while (!utf8.empty() && IsContinuation(utf8.back())) utf8.remove_suffix(1);
  if (!utf8.empty()) utf8.remove_suffix(1);
  return utf8;
}

}  // namespace

std::string BesideModel(std::string_view path) {
  for (int i = 0; i < kExtensionCharacters; ++i) path = WithoutLastCharacter(path);
  return std::string(path) + ".log";
}

std::string LogFileName(std::string_view file_location) {
  if (!file_location.empty()) return BesideModel(file_location);
  return platform::StateFolder().append(kUnsavedLog);
}

std::string LogHeading(std::string_view file_location) {
  if (file_location.empty()) return std::string(kHeadingStart) + "s of unsaved model";
  return std::string(kHeadingStart) + " of " + std::string(file_location);
}

void SimplificationLog::Open(const std::string& path, const std::string& file_location) {
  if (has_file()) {
    const bool beside =
        file_location.empty() || platform::FolderOf(path) == platform::FolderOf(file_location);
    const std::string_view replaces = beside ? std::string_view() : kHeadingStart;
    file_ =
        std::make_unique<platform::OutputFile>(platform::OpenLog({path, file_location, replaces}));
  } else {
    DropKept();
  }
  store_.settings().LogFileNumber = 1;
}

void SimplificationLog::Append(std::string_view line) {
  if (!is_open()) return;
  constexpr std::string_view kLineEnd = "\r\n";
  if (has_file()) {
    file_->Write(line);
    file_->Write(kLineEnd);
  } else {
    kept_->append(line).append(kLineEnd);
  }
}

void SimplificationLog::AppendEmptyRow(model::RowType type, std::string_view name) {
  if (is_open()) Append("Removed empty row:  " + model::TypeText(type) + " " + std::string(name));
}

void SimplificationLog::Close() {
  store_.settings().LogFileNumber = 0;
  const std::unique_ptr<platform::OutputFile> file = std::move(file_);
  if (file) file->Close();
}

void SimplificationLog::Abandon() {
  store_.settings().LogFileNumber = 0;
  file_.reset();
}

}  // namespace quarvel::simplify
