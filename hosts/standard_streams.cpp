#include "hosts/standard_streams.h"

#include <algorithm>
#include <utility>

#include "hosts/program.h"
#include "hosts/standard_output.h"
#include "platform/console/console_system.h"

namespace quarvel::hosts {
namespace {

WriteResult WriteStandardError(std::string_view bytes) {
  platform::console::WriteError(bytes);
  return WriteResult::kWritten;
}

}  // namespace

int RunOnStandardStreams(const std::function<std::vector<std::string>()>& words,
                         std::function<int(Session&)> view, int failure) {
  PrepareStandardStreams();
  OutputBuffer out_buffer(WriteStandardOutput);
  OutputBuffer err_buffer(WriteStandardError);
  std::ostream out(&out_buffer);
  std::ostream err(&err_buffer);
  err << std::unitbuf;
  const Streams streams = {.read_line = platform::console::ReadInputLine,
                           .out = out,
                           .err = err,
                           .terminal = true,
                           .read_bytes = platform::console::ReadInputBytes,
                           .screen = Screen::OfStandardOutput(),
                           .view = std::move(view)};
  const int status = RunProgram(words, streams, failure);
  if (out_buffer.Finish() == WriteResult::kFailed) {
    err << "quarvel: standard output could not be written\n";
    return std::max(status, failure);
  }
  return status;
}

}  // namespace quarvel::hosts
