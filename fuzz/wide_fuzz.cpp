// A file read in the wide dialect by the reader and by the plain one side by side: the same model, the
// same facts, the same problems in the same lines. The first byte chooses what the user says, and whether
// the others are the file itself or the choices of which it is made.

#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/choices.h"
#include "mps/read_file.h"
#include "tests/support/wide_comparison.h"
#include "tests/support/wide_file.h"

namespace {

using quarvel::fuzz::Choices;
using quarvel::fuzz::Require;
using quarvel::mps::FileColumns;
using quarvel::mps::ReadOptions;

ReadOptions OptionsOf(std::uint8_t byte) {
  ReadOptions options;
  if ((byte & 12) == 4) options.columns = FileColumns::kFixed;
  if ((byte & 12) == 8) options.columns = FileColumns::kFree;
  if ((byte & 16) != 0) options.objective = "other";
  options.negative_upper_frees_lower = (byte & 32) != 0;
  options.infinite_default_bounds = (byte & 64) != 0;
  return options;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  Choices choose(data + 1, size - 1);
  const bool is_made = (data[0] & 1) != 0;
  std::string file =
      is_made ? quarvel::testing::MakeWideFile([&choose](std::uint32_t n) { return choose(n); })
              : std::string();
  file += choose.Rest();
  Require(quarvel::testing::CompareWideReads(file, OptionsOf(data[0])), file);
  return 0;
}
