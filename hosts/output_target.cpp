#include "hosts/output_target.h"

#include <array>
#include <cstdint>

#include "platform/automation_error.h"
#include "platform/files.h"
#include "platform/system_names.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

const Packing* PackingOfFile(const std::string& path) {
  std::array<char, kPackingBytes> first = {};
  std::size_t size = 0;
  platform::InputFile file(path);
  for (std::size_t count = 1; count > 0 && size < first.size(); size += count) {
    count = file.Read(first.data() + size, first.size() - size);
  }
  return PackingOfBytes({first.data(), size});
}

}  // namespace

OutputTarget TargetOf(const std::string& path, const std::string& own) {
  OutputTarget target = {.path = path, .packing = PackingOfSuffix(path)};
  if (path == kStandardOutput) {
    target.is_standard_output = true;
    return target;
  }
  target.in_place = platform::FileExists(path) && !platform::IsNameOfOpenFile(path) &&
                    (path == own || platform::IsSameFile(path, own));
  if (!target.in_place) return target;
  target.path = own;
  if (target.packing == nullptr) target.packing = PackingOfFile(own);
  return target;
}

void StandardOutputSink::Write(std::string_view bytes) {
  if (is_stopped_()) {
    throw AutomationError(static_cast<std::int32_t>(RunTimeError::kDeviceIoError), "", "stopped");
  }
  if (!streams_.screen.is_terminal) {
    streams_.out << bytes;
    return;
  }
  while (!bytes.empty()) {
    const std::size_t end = bytes.find("\r\n");
    streams_.out << text::VisibleText(bytes.substr(0, end));
    if (end == std::string_view::npos) return;
    streams_.out << '\n';
    bytes.remove_prefix(end + 2);
  }
}

}  // namespace quarvel::hosts
