// bench_coinutils read FILE | write FILE OUT: the library's own reader and writer, with its
// defaults.

#include <cstdio>
#include <string_view>

#include <coin/CoinMpsIO.hpp>

#include "bench/stopwatch.h"

namespace {

using quarvel::bench::PrintResult;
using quarvel::bench::SecondsOf;

bool Report(const CoinMpsIO& model, double seconds) {
  PrintResult("seconds", seconds);
  PrintResult("columns", model.getNumCols());
  return true;
}

// The number of errors, which are to be none; the extension is part of the path.
bool ReadInto(CoinMpsIO& model, const char* path) {
  model.messageHandler()->setLogLevel(0);
  return model.readMps(path, "") == 0;
}

bool Read(const char* path) {
  CoinMpsIO model;
  bool good = false;
  const double seconds = SecondsOf([&] { good = ReadInto(model, path); });
  return good && Report(model, seconds);
}

bool Write(const char* path, const char* out) {
  CoinMpsIO model;
  if (!ReadInto(model, path)) return false;
  bool good = false;
  const double seconds = SecondsOf([&] { good = model.writeMps(out) == 0; });
  return good && Report(model, seconds);
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view job = argc > 1 ? argv[1] : "";
  if (job == "read" && argc == 3) return Read(argv[2]) ? 0 : 1;
  if (job == "write" && argc == 4) return Write(argv[2], argv[3]) ? 0 : 1;
  std::fputs("usage: bench_coinutils read FILE | write FILE OUT\n", stderr);
  return 2;
}
