#include <ostream>

#ifdef _WIN32
#include "hosts/library_search.h"
#endif
#include "hosts/program.h"
#include "hosts/standard_output.h"
#include "platform/console/console_system.h"

namespace {

namespace hosts = quarvel::hosts;

hosts::WriteResult WriteStandardError(std::string_view bytes) {
  quarvel::platform::console::WriteError(bytes);
  return hosts::WriteResult::kWritten;
}

}  // namespace

int main(int argc, char** argv) {
#ifdef _WIN32
  hosts::RestrictLibrarySearch();
#endif
  hosts::PrepareStandardOutput();
  hosts::OutputBuffer out_buffer(hosts::WriteStandardOutput);
  hosts::OutputBuffer err_buffer(WriteStandardError);
  std::ostream out(&out_buffer);
  std::ostream err(&err_buffer);
  err << std::unitbuf;
  const hosts::Streams streams = {
      quarvel::platform::console::ReadInputLine, out, err, true, hosts::ReadStandardInput,
      hosts::Screen::OfStandardOutput()};
  int status = hosts::RunProgram([&] { return hosts::CommandLineWords(argc, argv); }, streams);
  if (out_buffer.Finish() == hosts::WriteResult::kFailed) {
    err << "quarvel: standard output could not be written\n";
    if (status == hosts::kGood) status = hosts::kProblem;
  }
  return status;
}
