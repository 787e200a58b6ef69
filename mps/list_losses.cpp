#include "mps/list_losses.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "model/record_number.h"

namespace quarvel::mps {
namespace {

using model::ElementEntry;
using model::ModelData;

// Sums of these differ where the elements do, in whatever order they come.
std::uint64_t SumOf(std::int32_t column, double value) {
  constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;
  constexpr std::uint64_t kOther = 0xBF58476D1CE4E5B9;
  std::uint64_t sum =
      std::bit_cast<std::uint64_t>(value) + static_cast<std::uint64_t>(column) * kOdd;
  sum = (sum ^ (sum >> 30)) * kOther;
  return sum ^ (sum >> 31);
}

class ListCheck {
 public:
  ListCheck(const ModelData& data, Losses& losses)
      : data_(data), losses_(losses), sums_(static_cast<std::size_t>(data.NumberOfRows) + 1) {}

  bool Run() {
    for (std::int32_t j = 1; j <= data_.NumberOfColumns; ++j) TakeColumn(j);
    for (std::int32_t i = 1; i <= data_.NumberOfRows; ++i) CheckRow(i);
    return same_;
  }

 private:
  void TakeColumn(std::int32_t j) {
    for (const ElementEntry& entry : data_.Columns[j].Elements) {
      if (entry.Index < 1 || entry.Index > data_.NumberOfRows) {
        Add("column", j, data_.Columns[j].Name, "has an element at a row that is not there");
      } else {
        sums_[static_cast<std::size_t>(entry.Index)] += SumOf(j, entry.Value);
      }
    }
  }

  void CheckRow(std::int32_t i) {
    std::uint64_t sum = 0;
    for (const ElementEntry& entry : data_.Rows[i].Elements) sum += SumOf(entry.Index, entry.Value);
    if (sum == sums_[static_cast<std::size_t>(i)]) return;
    Add("row", i, data_.Rows[i].Name, "has other elements than the columns have at it");
  }

  void Add(const char* what, std::int32_t number, const std::string& name, const char* words) {
    same_ = false;
    losses_.Add(LossKind::kListsDiffer, [&] {
      return Loss{what, model::Public(number), name,
                  words + std::string(": of a pair with several elements one was deleted with its "
                                      "row or column")};
    });
  }

  const ModelData& data_;
  Losses& losses_;
  std::vector<std::uint64_t> sums_;  // by row, of what the columns have there
  bool same_ = true;
};

}  // namespace

bool AddListLosses(const model::ModelStore& store, Losses& losses) {
  return store.looks().KnowsListsAlike() || ListCheck(store.data(), losses).Run();
}

}  // namespace quarvel::mps
