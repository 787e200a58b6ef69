// Rows and columns are one kind of thing, a record. What differs between the two stands here, in
// one table, so that whatever can be done to both is written once.
//
// Its operations are those of the model's interface, with the same 0-based numbers, errors and
// costs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/model_interface.h"

namespace quarvel::model {

class ModelStore;

struct RecordKind {
  // What it is called: "row", "Row", "Rows".
  std::string_view noun;
  std::string_view title;
  std::string_view plural;
  // What its elements stand at: columns for a row.
  const RecordKind& other;
  std::string_view first_type;  // of one that a user adds

  std::int32_t (ModelQueries::*count)() const;
  std::string (ModelQueries::*name)(std::int32_t) const;
  std::string (ModelQueries::*type)(std::int32_t) const;
  double (ModelQueries::*lower)(std::int32_t) const;
  double (ModelQueries::*upper)(std::int32_t) const;
  std::int32_t (ModelQueries::*elements)(std::int32_t) const;
  // Of an element: the number of the other record, the value.
  std::int32_t (ModelQueries::*element_at)(std::int32_t, std::int32_t) const;
  double (ModelQueries::*element_value)(std::int32_t, std::int32_t) const;

  void (ModelEdits::*set_name)(std::int32_t, const Variant&);
  void (ModelEdits::*set_type)(std::int32_t, const Variant&);
  void (ModelEdits::*set_lower)(std::int32_t, const Variant&);
  void (ModelEdits::*set_upper)(std::int32_t, const Variant&);
  std::int16_t (ModelEdits::*add)(std::string_view name);
  std::int16_t (ModelEdits::*remove)(std::int32_t);

  // 1-based, 0 for none. Constant time.
  std::int32_t (*find)(const ModelStore& store, std::string_view name);
};

extern const RecordKind kRowKind;
extern const RecordKind kColumnKind;

// Whether the model has a record of that number.
bool HasRecord(const ModelQueries& model, const RecordKind& kind, std::int32_t number);

}  // namespace quarvel::model
