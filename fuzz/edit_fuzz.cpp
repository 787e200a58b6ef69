// Edit operations chosen by the input, on the component and on the naive model side by side.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/support/edit_operations.h"

namespace {

using quarvel::testing::ChooseDeletion;
using quarvel::testing::ChooseOperation;
using quarvel::testing::EditComparison;
using quarvel::testing::EditOperation;
using quarvel::testing::EditStyle;

// The bytes of an input as choices; what lies beyond its end is 0.
class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  bool at_end() const { return next_ >= size_; }
  std::uint32_t Choose(std::uint32_t bound) {
    const std::uint32_t byte = at_end() ? 0u : data_[next_];
    ++next_;
    return byte % bound;
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
  std::size_t next_ = 0;
};

[[noreturn]] void Report(const std::string& fault, const std::string& history) {
  std::fprintf(stderr, "%s\nafter:\n%s", fault.c_str(), history.c_str());
  std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Bytes bytes(data, size);
  const auto choose = [&bytes](std::uint32_t bound) { return bytes.Choose(bound); };
  const EditStyle style = {.duplicates = choose(2) == 0};
  EditComparison models;
  std::string history;
  for (int step = 0; step < 400 && !bytes.at_end(); ++step) {
    // Looking completes what was deferred, so not every step is looked at.
    const std::uint32_t kind = choose(8);
    const EditOperation operation = kind < 2 ? ChooseDeletion(choose, models.naive())
                                             : ChooseOperation(choose, models.naive(), style);
    history += operation.text + "\n";
    std::string fault = models.Apply(operation);
    if (fault.empty() && kind == 7) fault = models.CompareState();
    if (!fault.empty()) Report(fault, history);
  }
  if (const std::string fault = models.CompareState(); !fault.empty()) Report(fault, history);
  return 0;
}
