// bench_glpk read FILE FORMAT | write FILE OUT FORMAT: the library's own reader and writer. FORMAT
// is fixed (columns) or free (blanks).

#include <cstdio>
#include <memory>
#include <string_view>

#include <glpk.h>

#include "bench/stopwatch.h"

namespace {

using quarvel::bench::PrintResult;
using quarvel::bench::SecondsOf;
using Problem = std::unique_ptr<glp_prob, decltype(&glp_delete_prob)>;

int Format(std::string_view text) { return text == "free" ? GLP_MPS_FILE : GLP_MPS_DECK; }

bool Report(glp_prob* problem, double seconds) {
  PrintResult("seconds", seconds);
  PrintResult("columns", glp_get_num_cols(problem));
  return true;
}

bool Read(const char* path, int format) {
  const Problem problem(glp_create_prob(), &glp_delete_prob);
  bool good = false;
  const double seconds =
      SecondsOf([&] { good = glp_read_mps(problem.get(), format, nullptr, path) == 0; });
  return good && Report(problem.get(), seconds);
}

bool Write(const char* path, const char* out, int format) {
  const Problem problem(glp_create_prob(), &glp_delete_prob);
  if (glp_read_mps(problem.get(), format, nullptr, path) != 0) return false;
  bool good = false;
  const double seconds =
      SecondsOf([&] { good = glp_write_mps(problem.get(), format, nullptr, out) == 0; });
  return good && Report(problem.get(), seconds);
}

}  // namespace

int main(int argc, char** argv) {
  glp_term_out(GLP_OFF);
  const std::string_view job = argc > 1 ? argv[1] : "";
  if (job == "read" && argc == 4) return Read(argv[2], Format(argv[3])) ? 0 : 1;
  if (job == "write" && argc == 5) return Write(argv[2], argv[3], Format(argv[4])) ? 0 : 1;
  std::fputs("usage: bench_glpk read FILE fixed|free | write FILE OUT fixed|free\n", stderr);
  return 2;
}
