#include "mps/read_back.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "mps/mps_writer.h"
#include "text/encoding.h"
#include "text/numbers.h"
#include "text/picture.h"

namespace quarvel::mps {
namespace {

double Read(const std::string& text) {
  return text::ParseNumber(text).value_or(std::numeric_limits<double>::quiet_NaN());
}

// LO and FX records go over to general text where a picture does not fit.
double FixedReadBack(double value, bool name_fits) {
  if (HasFewDigits(value)) return value;
  const std::string picture = text::PictureText(value, text::Picture::kBound);
  return Read(name_fits && picture.size() <= kValueWidth ? picture : text::GeneralText(value));
}

double UpperReadBack(double value) {
  if (HasFewDigits(value)) return value;
  return Read(text::PictureText(value, text::Picture::kWideBound));
}

bool HasLowerLine(const model::Bounds& bounds) {
  const double lower = bounds.LowerBound;
  return lower != 0 && lower != bounds.UpperBound && lower != -model::BoundLimit;
}

}  // namespace

double LongValueReadBack(double value) {
  return Read(text::PictureText(value, text::Picture::kElement));
}

model::Bounds LimitsReadBack(const model::RowRecord& row) {
  const model::RowType in_file = model::RowTypeOf(model::TraitsOf(row.Type).file_letter);
  const model::RowTypeTraits& type = model::TraitsOf(in_file);
  model::Bounds limits = {type.FreshLower(), type.FreshUpper()};
  if (const std::optional<double> value = RightHandSideOf(row)) {
    type.right_hand_side.Apply(limits, ValueReadBack(*value));
  }
  if (row.Type == model::RowType::kRanged) {
    limits.UpperBound =
        limits.LowerBound + std::fabs(ValueReadBack(row.UpperBound - row.LowerBound));
  }
  return limits;
}

model::Bounds BoundsReadBack(const model::ColumnRecord& column) {
  const bool fits = text::CharacterCount(column.Name) <= kLongestFixedName;
  model::Bounds bounds = {0, model::BoundLimit};
  if (HasLowerLine(column)) bounds.LowerBound = FixedReadBack(column.LowerBound, fits);
  const double upper = column.UpperBound;
  if (upper == column.LowerBound) {
    bounds.LowerBound = bounds.UpperBound = FixedReadBack(upper, fits);
  } else if (upper != model::BoundLimit) {
    bounds.UpperBound = UpperReadBack(upper);
  } else if (column.LowerBound == -model::BoundLimit) {
    bounds.LowerBound = -model::BoundLimit;
  }
  return bounds;
}

bool HasLimitLine(const model::RowRecord& row) {
  return row.Type == model::RowType::kRanged || RightHandSideOf(row).has_value();
}

bool HasBoundLine(const model::ColumnRecord& column) {
  return HasLowerLine(column) || column.UpperBound != model::BoundLimit ||
         column.LowerBound == -model::BoundLimit || column.LowerBound == column.UpperBound;
}

}  // namespace quarvel::mps
