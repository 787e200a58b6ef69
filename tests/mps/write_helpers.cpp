#include "tests/mps/write_helpers.h"

#include <stdexcept>

#include "mps/mps_writer.h"
#include "platform/files.h"
#include "tests/support/test_paths.h"

namespace quarvel::mps {

Lines WrittenModel::Section(std::string_view header) const {
  constexpr std::string_view kLineEnd = "\r\n";
  Lines section;
  bool inside = false;
  std::string_view rest = text;
  for (std::size_t end = rest.find(kLineEnd); end != rest.npos; end = rest.find(kLineEnd)) {
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end + kLineEnd.size());
    if (inside && !line.starts_with(' ')) return section;
    if (inside) section.emplace_back(line);
    inside = inside || line == header;
  }
  throw std::out_of_range("no section " + std::string(header) + " in\n" + text);
}

WrittenModel HandMadeModel::Write() const {
  std::string written;
  MpsWriter writer(model.store().data());
  writer.Write([&written](std::string_view piece) { written += piece; });
  return {written, writer.standard()};
}

std::string GoldenFile(std::string_view name) {
  return ReadWholeFile(SourceFolder() + "/tests/mps/golden/" + std::string(name));
}

}  // namespace quarvel::mps
