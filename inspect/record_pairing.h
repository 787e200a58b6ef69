// Which record of model A is which of model B: those of the same name belong together, the first of a
// name with the first, the second with the second.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "model/one_based.h"

namespace quarvel::inspect {

// The records of one kind in one model, numbered from 1.
struct NamedRecords {
  std::int32_t count = 0;
  std::function<std::string_view(std::int32_t number)> name_of;
  std::function<std::int32_t(std::string_view name)> find;  // the first of that name, 0 for none
};

class RecordPairing {
 public:
  // One look-up for each record of A behind the first that does not stand at the same number in B; a pass
  // over B where A has a name twice.
  RecordPairing(const NamedRecords& a, const NamedRecords& b);

  // The number of the same record in the other model, 0 when it has none. A number of no record
  // raises 9.
  std::int32_t InB(std::int32_t number) const { return in_b_[number]; }
  std::int32_t InA(std::int32_t number) const { return in_a_[number]; }
  // Whether every record has the same number in both models, so that no number is to be looked up.
  bool is_same() const { return same_ == in_b_.size() && same_ == in_a_.size(); }

 private:
  // Pairs records from the first on as long as names are the same in the same order: models are mostly
  // compared with what was made of them.
  void PairSameOrder(const NamedRecords& a, const NamedRecords& b);
  // The next record of B that has the name of its first and belongs to none yet; 0 for none.
  std::int32_t TakeNextOfName(std::int32_t first, const NamedRecords& b);

  std::int32_t same_ = 0;  // so many, from the first on, have the same number in both
  model::OneBased<std::int32_t> in_b_;
  model::OneBased<std::int32_t> in_a_;
  // For each record of B the next of its name, 0 for none; a first one names the next that is not
  // taken. Absent until it is needed.
  model::OneBased<std::int32_t> next_of_name_;
};

}  // namespace quarvel::inspect
