// Rows and columns are one kind of thing, a record. What differs between the two stands here, in
// one table, so that whatever can be done to both is written once.
//
// All numbers are 0-based and mean what the operations of LPModel mean by them; so do errors and
// costs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quarvel {

class LPModel;
class Variant;
struct ModelData;

struct RecordKind {
  // What it is called: "row", "Row", "Rows".
  std::string_view noun;
  std::string_view title;
  std::string_view plural;
  // What its elements stand at: columns for a row.
  const RecordKind& other;
  std::string_view first_type;  // of one that a user adds

  std::int32_t (LPModel::*count)() const;
  std::string (LPModel::*name)(std::int32_t) const;
  std::string (LPModel::*type)(std::int32_t) const;
  double (LPModel::*lower)(std::int32_t) const;
  double (LPModel::*upper)(std::int32_t) const;
  std::int32_t (LPModel::*elements)(std::int32_t) const;
  // Of an element: the number of the other record, the value.
  std::int32_t (LPModel::*element_at)(std::int32_t, std::int32_t) const;
  double (LPModel::*element_value)(std::int32_t, std::int32_t) const;

  void (LPModel::*set_name)(std::int32_t, const Variant&);
  void (LPModel::*set_type)(std::int32_t, const Variant&);
  void (LPModel::*set_lower)(std::int32_t, const Variant&);
  void (LPModel::*set_upper)(std::int32_t, const Variant&);
  std::int16_t (LPModel::*add)(std::string_view name);
  std::int16_t (LPModel::*remove)(std::int32_t);

  // 1-based, 0 for none. Constant time.
  std::int32_t (*find)(const ModelData& data, std::string_view name);
};

extern const RecordKind kRowKind;
extern const RecordKind kColumnKind;

// Whether the model has a record of that number.
bool HasRecord(const LPModel& model, const RecordKind& kind, std::int32_t number);

}  // namespace quarvel
