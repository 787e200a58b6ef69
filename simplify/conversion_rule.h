// What the rules of pass 1 make of a row of one element: a bound of its column, nothing, or a question.
#pragma once

#include <string>
#include <string_view>

#include "model/model_data.h"

namespace quarvel::simplify {

// What the log says before the name of a row that became a bound.
inline constexpr std::string_view kConverted = "Converted row ";

// The question about a row that clashes with its column's bounds. Which answers count as a change
// differs between the two questions, and hosts know them this way.
struct ConflictQuestion {
  std::string_view title;
  std::string_view text_before_name;
  std::string_view text_after_name;
  std::string_view choices;
  std::string_view removed;  // log: Yes
  bool yes_changes;
  std::string_view converted_after_name;  // log: No
  std::string_view aborted;               // log: Cancel
  bool cancel_changes;
};

// What a row asks of its column: `lower` and `upper` are the row's bounds divided by the
// coefficient, whose sign is not looked at. 0 where its type has no such bound.
struct Implied {
  double lower;
  double upper;
  double column_lower;
  double column_upper;
};

// Which bounds of a row are taken over.
inline constexpr unsigned kTakesLower = 1;
inline constexpr unsigned kTakesUpper = 2;
inline constexpr unsigned kTakesBoth = kTakesLower | kTakesUpper;

// The first rule of a row's type whose test holds is applied: its bounds are taken over and the row
// is deleted, or its question is asked.
struct ConversionRule {
  model::RowType type;
  bool (*holds)(const Implied&);
  unsigned taken_bounds;
  std::string_view log_before_name;
  std::string_view log_after_name;
  const ConflictQuestion* question;
};

// The row has one element and a type that has rules.
bool MayConvert(const model::RowRecord& row);
// Of such a row and the bounds of its column. Raises 11 for a coefficient of 0, and 6 for a quotient
// that does not fit a double.
Implied ImpliedBy(const model::RowRecord& row, const model::Bounds& column);
// Null when there is none for it.
const ConversionRule* FindRule(model::RowType type, const Implied& implied);
// What is wrong with the bounds that the rule takes over from a row of that coefficient, as words behind the row's
// and in front of the column's name; empty when they say what the row does.
std::string AlteredBounds(const ConversionRule& rule, double coefficient);
// Gives the column those of the bounds.
void TakeBounds(unsigned taken_bounds, double lower, double upper, model::Bounds& column);

}  // namespace quarvel::simplify
