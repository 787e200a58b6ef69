#include "inspect/dialect_points.h"

namespace quarvel::inspect {
namespace {

constexpr std::array<ReaderReading, kReaders> Readings(std::string_view quarvel,
                                                       std::string_view glpsol,
                                                       std::string_view lp_solve,
                                                       std::string_view cbc) {
  return {{{"quarvel", quarvel}, {"glpsol", glpsol}, {"lp_solve", lp_solve}, {"cbc", cbc}}};
}

constexpr std::string_view kRefuses = "refuses the file";

constexpr std::array<DialectTraits, 32> kDialects = {{
    {DialectPoint::kObjectiveSense, "objective-sense", "OBJSENSE",
     Readings("a fact beside the model", kRefuses,
              "takes the sense from the line below, in free columns only",
              "minimizes whatever stands in the line below; refuses a sense in the same line")},
    {DialectPoint::kSecondFreeRow, "second-free-row", "N rows after the first",
     Readings("a row like any other", "left out of what is solved", "left out", "left out")},
    {DialectPoint::kIntegerWithoutBounds, "integer-without-bounds",
     "integer columns that BOUNDS does not name",
     Readings("no upper bound", "upper bound 1", "no upper bound", "upper bound 1")},
    {DialectPoint::kIntegerWithLowerOnly, "integer-with-lower-only",
     "integer columns that BOUNDS gives a lower bound alone, by LO or MI",
     Readings("no upper bound", "upper bound 1", "no upper bound", "no upper bound")},
    {DialectPoint::kPairTwice, "pair-twice", "a row given twice by one column",
     Readings("two coefficients", kRefuses, kRefuses, kRefuses)},
    {DialectPoint::kObjectiveConstant, "objective-constant", "a right-hand side of the objective",
     Readings("taken off the objective", "added to the objective", "added to the objective",
              "taken off the objective")},
    {DialectPoint::kSetWithoutName, "set-without-name", "lines without the name of a set",
     Readings("reads them", "reads them in fixed columns with a warning, refuses them in free ones",
              "reads them", "reads them in fixed columns, refuses them in free ones")},
    {DialectPoint::kSecondRhsSet, "second-rhs-set", "a second set of right-hand sides",
     Readings("applies the first set alone", kRefuses, "applies every set",
              "applies the first set alone")},
    {DialectPoint::kSecondRangesSet, "second-ranges-set", "a second set of ranges",
     Readings("applies the first set alone", kRefuses, "applies every set",
              "applies the first set alone")},
    {DialectPoint::kSecondBoundsSet, "second-bounds-set", "a second set of bounds",
     Readings("applies the first set alone", kRefuses, "applies every set",
              "applies the first set alone")},
    {DialectPoint::kRangeOfFreeRow, "range-of-free-row", "a range of an N row",
     Readings("passes over it", "passes over it with a warning", "passes over it", kRefuses)},
    {DialectPoint::kNegativeUpper, "negative-upper",
     "a negative UP without a lower bound before it",
     Readings("the lower bound stays 0", "the lower bound stays 0", "the lower bound stays 0",
              "takes the lower bound away")},
    {DialectPoint::kSemiContinuous, "semi-continuous", "SC bounds",
     Readings("an upper bound alone", kRefuses, "a semi-continuous column", "reads it")},
    {DialectPoint::kLargeNumber, "large-number",
     "an upper bound or limit of 1E+10 or more, or a lower one of -1E+10 or less",
     Readings("no limit", "a number like any other", "a number, and no limit from 1E+30 on",
              "a number, and no limit from 1E+27 on")},
    {DialectPoint::kMissingEndata, "missing-endata", "no ENDATA line",
     Readings("reads what is there", kRefuses, kRefuses, kRefuses)},
    {DialectPoint::kGivenAgain, "given-again", "a right-hand side or bound given again",
     Readings("the last one counts", kRefuses, "the last one counts", kRefuses)},
    {DialectPoint::kRangeAgain, "range-again", "a range given again",
     Readings("the last one counts", kRefuses,
              "the first one of an L row counts, the last one of a G row", kRefuses)},
    {DialectPoint::kHeaderAgain, "header-again", "NAME or a section for a second time",
     Readings("reads both", kRefuses, "reads both, but no ROWS behind COLUMNS", kRefuses)},
    {DialectPoint::kSectionOrder, "section-order", "a section behind one that should follow it",
     Readings("reads them in any order", kRefuses,
              "reads RHS, RANGES and BOUNDS in any order, refuses another", kRefuses)},
    {DialectPoint::kColumnAgain, "column-again", "a column taken up again behind another",
     Readings("one column", kRefuses, kRefuses, "reads it")},
    {DialectPoint::kSmallHeader, "small-header", "a header in small letters",
     Readings("the same as in capitals", kRefuses, kRefuses, kRefuses)},
    {DialectPoint::kOtherLetters, "other-letters",
     "a name that stands above in other letters, small or capital",
     Readings("the same name", "another column in COLUMNS, refuses the file elsewhere",
              "another column in COLUMNS and BOUNDS; what is said of a row is left out",
              "another column in COLUMNS, refuses the file elsewhere")},
    {DialectPoint::kMissingName, "missing-name", "no NAME line before the first section",
     Readings("reads the model", kRefuses, "reads the model", "reads a model without rows")},
    {DialectPoint::kMissingRhs, "missing-rhs", "no RHS line, with right-hand sides or without",
     Readings("reads the model", "reads the model",
              "leaves the last column out unless BOUNDS names it", kRefuses)},
    {DialectPoint::kSemiInteger, "semi-integer", "SI bounds",
     Readings("an integer column with an upper bound alone", kRefuses,
              "a semi-continuous integer column", kRefuses)},
    {DialectPoint::kInfiniteBound, "infinite-bound", "a bound that is INF or INFINITY",
     Readings("no bound", kRefuses, "no bound", kRefuses)},
    {DialectPoint::kInfiniteRange, "infinite-range", "a range of an E row of 1E+30 or more in size",
     Readings("no limit on that side", "a number like any other", "passes over it with a warning",
              "a number like any other, and no range at 1E+300")},
    {DialectPoint::kDExponent, "d-exponent", "a number with D for its exponent",
     Readings("the same as with E", kRefuses, kRefuses, kRefuses)},
    {DialectPoint::kSmallCode, "small-code",
     "the type of a row or code of a bound in small letters",
     Readings("the same as in capitals", kRefuses,
              "the same as in capitals in free columns, refuses the file in fixed ones", kRefuses)},
    {DialectPoint::kSmallMarker, "small-marker", "a marker in small letters",
     Readings("the same as in capitals", kRefuses,
              "passes over 'intorg' and 'intend' with a warning, refuses 'marker'", kRefuses)},
    {DialectPoint::kFirstColumn, "first-column", "data that begin in column 1",
     Readings("a line like any other", kRefuses,
              "refuses the file; a name that is a header begins its section",
              "refuses the file; a name that is a header begins its section")},
    {DialectPoint::kTab, "tab", "tabs between words",
     Readings(
         "blanks", "blanks in free columns, refuses the file in fixed ones",
         "blanks in free columns; next to a blank or at the start of a line refuses the file or "
         "loses what is behind; refuses the file in fixed ones",
         "blanks; refuses the file at the start of a line")},
}};

}  // namespace

std::span<const DialectTraits> DialectTable() { return kDialects; }

const DialectTraits& TraitsOf(DialectPoint point) {
  return kDialects[static_cast<std::size_t>(point)];
}

}  // namespace quarvel::inspect
