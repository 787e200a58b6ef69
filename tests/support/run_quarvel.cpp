#include "tests/support/run_quarvel.h"

#include <optional>
#include <sstream>

#include "hosts/program.h"
#include "platform/files.h"

namespace quarvel {

Outcome RunQuarvel(const std::vector<std::string>& words, std::string_view input) {
  return RunQuarvelOn({}, words, input);
}

Outcome RunQuarvelOn(const hosts::Screen& screen, const std::vector<std::string>& words,
                     std::string_view input) {
  std::istringstream in{std::string(input)};
  std::ostringstream out;
  std::ostringstream err;
  const auto read_line = [&in]() -> std::optional<std::string> {
    std::string line;
    if (!std::getline(in, line)) return std::nullopt;
    return line;
  };
  const auto read_bytes = [&in](char* buffer, std::size_t capacity) {
    in.read(buffer, static_cast<std::streamsize>(capacity));
    return static_cast<std::size_t>(in.gcount());
  };
  const int status = hosts::RunProgram(words, {read_line, out, err, false, read_bytes, screen});
  return {status, out.str(), err.str()};
}

std::string HostFolder::Example(std::string_view name) const {
  const std::string source = SourceFolder() + "/examples/" + std::string(name);
  return Write(name, ReadWholeFile(source));
}

std::string HostFolder::Write(std::string_view name, std::string_view bytes) const {
  WriteWholeFile(Path(name), bytes);
  return Path(name);
}

bool HostFolder::Has(std::string_view name) const { return platform::FileExists(Path(name)); }

std::string HostFolder::Expand(std::string_view text) const {
  std::string expanded;
  for (const char c : text) {
    if (c == '@') {
      expanded += Path("");
    } else {
      expanded += c;
    }
  }
  return expanded;
}

}  // namespace quarvel
