// The lists of binding and of non-binding rows while making them anew is deferred.
//
// A removal, or a type that makes a row binding or takes that from it, has both lists made anew
// from the rows that there are then. All that is kept of that is how many rows there were: what a
// list holds of them follows from their types. A row that gets its first type is appended to what
// is there, so that it stands behind the rows that were listed.
#pragma once

#include <cstdint>
#include <vector>

#include "model/model_data.h"

namespace quarvel::model {

class DeferredRowIndexes {
 public:
  bool due() const { return due_; }

  // Both lists are to be made anew from rows 1..rows as they are when somebody looks.
  void Rebuild(std::int32_t rows) noexcept {
    due_ = true;
    listed_ = rows;
    appended_.clear();
  }
  // Row `number` gets its first type, and `last` is listed. False, with nothing done, when the
  // lists have to be made before: the row is listed by what it was without a type.
  bool Append(std::int32_t number, std::int32_t last, RowType type);

  // Nothing is due; the lists stay as they are.
  void Forget() noexcept {
    due_ = false;
    appended_.clear();
  }
  // Makes the lists, of data without gaps. Nothing is due then.
  void CatchUp(ModelData& data);
  // The same; false when there is no memory for it, and they are due still.
  bool TryToCatchUp(ModelData& data) noexcept;

 private:
  struct Appended {
    std::int32_t row;
    bool binds;
  };

  bool due_ = false;
  std::int32_t listed_ = 0;
  std::vector<Appended> appended_;
};

// Lists row `last` by that type at the end of its list.
void AppendToRowIndex(ModelData& data, std::int32_t last, bool binds);

}  // namespace quarvel::model
