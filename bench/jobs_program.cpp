// bench_program COMMAND WORD...: one command of the program `quarvel`, timed inside: all that it does, its
// output included, but for the start of the process.

#include <cstdio>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "bench/times.h"
#include "hosts/program.h"
#include "hosts/streams.h"

int main(int argc, char** argv) {
  const std::span<char*> all(argv, static_cast<std::size_t>(argc));
  const std::vector<std::string> words(all.begin() + 1, all.end());
  std::ostringstream out;
  std::ostringstream err;
  const quarvel::hosts::Streams streams = {{}, out, err};
  int status = 0;
  const quarvel::bench::Times times =
      quarvel::bench::TimesOf([&] { status = quarvel::hosts::RunProgram(words, streams); });
  if (status == quarvel::hosts::kGood) {
    quarvel::bench::PrintTimes(times);
    return 0;
  }
  std::fputs(err.str().c_str(), stderr);
  return 1;
}
