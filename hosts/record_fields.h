// What a list shows of a row or a column. One table, from which come the columns of a list, its order,
// its JSON and its comma-separated values.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "component/lp_model.h"
#include "hosts/printing.h"
#include "model/record_kind.h"

namespace quarvel::hosts {

// The records that are listed, with what is known of all of them.
class ListedModel {
 public:
  // `objective` is the name of the row that is the objective; where it is empty, the first row that
  // binds nothing is. All must outlive this.
  ListedModel(const LPModel& model, const model::RecordKind& kind, std::string_view objective);

  const LPModel& model;
  const model::RecordKind& kind;

  bool is_rows() const { return &kind == &model::kRowKind; }
  std::int32_t count() const { return (model.*kind.count)(); }
  // Of a column; 0 where it has none. The first call looks at the whole objective.
  double ObjectiveCoefficient(std::int32_t column) const;

 private:
  std::int32_t objective_;  // a row, or none: -1
  mutable std::vector<double> coefficients_;
};

using FieldValue = std::variant<std::int32_t, double, Bound, std::string>;

struct RecordField {
  std::string_view key;      // on the command line, and in the first line of comma-separated values
  std::string_view heading;  // of a table
  std::string_view json;
  bool of_rows;
  bool of_columns;
  bool is_left;       // stands at the left of its column
  std::size_t width;  // of a table that nobody measures; names are always measured
  FieldValue (*value)(const ListedModel& listed, std::int32_t index);

  bool IsOf(const model::RecordKind& kind) const {
    return &kind == &model::kRowKind ? of_rows : of_columns;
  }
};

using RecordFields = std::vector<const RecordField*>;

// Of a list that chooses no others.
RecordFields UsualFields(const model::RecordKind& kind, bool equations);
// Those with these keys, which have commas between them. Raises a CommandError of status kUsage that
// says what the option takes.
RecordFields FieldsOf(const model::RecordKind& kind, std::string_view keys,
                      std::string_view option);
// The keys of a kind, with commas and blanks between them.
std::string FieldKeys(const model::RecordKind& kind);
bool IsName(const RecordField& field);
bool IsEquation(const RecordField& field);

// As a table has it: no bound is "inf" or "-inf".
std::string ShownText(const FieldValue& value);
// As comma-separated values have it (RFC 4180): all digits of a number, "inf" and "-inf" for no bound,
// text as it is, quoted where it must be.
void AppendCsv(std::string& csv, const FieldValue& value);
void AppendJsonField(std::string& json, const RecordField& field, const FieldValue& value);

}  // namespace quarvel::hosts
