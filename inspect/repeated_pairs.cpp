#include "inspect/repeated_pairs.h"

namespace quarvel::inspect {

RepeatedPairs RepeatedPairsOf(const model::ModelStore& store) {
  const model::ModelData& data = store.data();
  RepeatedPairs pairs;
  model::OneBased<std::int32_t> last_column;  // that had a coefficient in the row
  last_column.Resize(data.NumberOfRows);
  for (std::int32_t c = 1; c <= data.NumberOfColumns; ++c) {
    for (const model::ElementEntry& entry : data.Columns[c].Elements) {
      std::int32_t& last = last_column[entry.Index];
      if (last == c) ++pairs.try_emplace({entry.Index, c}, 1).first->second;
      last = c;
    }
  }
  return pairs;
}

}  // namespace quarvel::inspect
