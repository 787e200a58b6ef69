// The library's read, with every allocation failing in turn: error 7 and an empty store, or all of it.

#include <cstdint>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "mps/read_file.h"
#include "tests/memory/failing_allocations.h"
#include "tests/memory/trials.h"
#include "tests/support/test_paths.h"

namespace quarvel::testing {
namespace {

// With mistakes, records without coefficients and no end.
std::string SomeFile() {
  std::string text = "* A description that is longer than its own room\nNAME MADE\nROWS\n N COST\n";
  for (int i = 0; i < 40; ++i) text += " G R" + std::to_string(i) + '\n';
  text += " Q WRONG\nCOLUMNS\n";
  for (int j = 0; j < 40; ++j) {
    text += " C" + std::to_string(j) + " COST 1 R" + std::to_string(j % 39) + " 2\n";
  }
  return text + " C1 NONE 1\n EMPTY_WITH_A_LONG_NAME_OF_ITS_OWN COST 0\nRHS\n RHS R0 x\n";
}

struct Read {
  std::int64_t problems = 0;
  std::int32_t rows = 0;
  std::int32_t elements = 0;
  bool operator==(const Read&) const = default;
};

Read ReadOf(const mps::FileRead& read, const model::ModelStore& store) {
  std::int64_t problems = 0;
  for (const auto weight : {mps::ProblemWeight::kError, mps::ProblemWeight::kWarning}) {
    problems += read.problems.CountOf(weight);
  }
  return {problems, store.NumberOfRows(), store.NumberOfElements()};
}

TEST(ReadFileMemory, StoreIsEmptyOrWholeAtEveryFailedAllocation) {
  const TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  WriteWholeFile(path, SomeFile());
  model::ModelStore whole_store;
  const Read whole = ReadOf(mps::ReadFile(path, {}, whole_store), whole_store);
  ASSERT_EQ(whole.problems, 8);
  const auto attempt = [&](std::int64_t n, Shortage shortage) -> std::optional<std::string> {
    model::ModelStore store;
    mps::FileRead read;
    Outcome outcome;
    {
      const FailingAllocation failing(n, shortage);
      outcome = OutcomeOf([&] {
        read = mps::ReadFile(path, {}, store);
        return 0;
      });
      if (!failing.happened()) return std::nullopt;
    }
    const std::string broken = model::CheckModelData(store);
    if (!broken.empty()) return broken;
    if (outcome.error == 0) return ReadOf(read, store) == whole ? "" : "not whole, and no error";
    if (outcome.error != kOutOfMemory) return Text(outcome);
    const bool is_empty = store.NumberOfRows() == 0 && store.NumberOfColumns() == 0;
    return is_empty && store.settings().ReadMPSFileErr == 0 ? "" : "not empty";
  };
  Trials trials;
  trials.Run("a file with mistakes", attempt);
  trials.Expect(100);
}

}  // namespace
}  // namespace quarvel::testing
