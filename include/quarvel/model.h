// One linear or mixed-integer model in memory: its rows, columns and coefficients, by number and by
// name, and what its file says beside them.
//
// Numbers of rows, columns and elements start at 0, as those of the automation component do; one that
// there is none of is Error kIndex. Adding appends; removing moves the numbers behind down by one. All
// text is UTF-8. Names are told apart letter by letter; files are read with their names in upper case.
//
// Calls on one model come from one thread at a time, and two models share nothing.
//
// Cost: constant, or logarithmic after a removal, unless something else is said. A loop of removals
// costs a few passes over the model in all.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "quarvel/error.h"
#include "quarvel/export.h"

namespace quarvel {

// A lower bound of -kNoBound or less is none, and so is an upper one of kNoBound or more.
inline constexpr double kNoBound = 1e10;

// The limits of a row's activity, or of a column's value, as the model stores them.
struct Bounds {
  double lower = -kNoBound;
  double upper = kNoBound;

  bool has_lower() const { return lower > -kNoBound; }
  bool has_upper() const { return upper < kNoBound; }
  bool operator==(const Bounds&) const = default;
};

// Which limits a row has; each is the letter that stands for it in files. Of a row that was given its
// bounds here it always says what these say.
enum class RowType : char {
  kFree = 'N',     // none: an objective
  kGreater = 'G',  // a lower one
  kLess = 'L',     // an upper one
  kEqual = 'E',    // both, and they are equal
  kRanged = 'R',   // both
};

enum class ColumnType : char { kContinuous = 'R', kInteger = 'I' };

// One coefficient in the list of a row, where `index` is that of the column, or of a column, where it
// is that of the row.
struct Element {
  std::int32_t index = 0;
  double value = 0;
  bool operator==(const Element&) const = default;
};

enum class ObjectiveSense : std::uint8_t { kNotSaid, kMinimize, kMaximize };

// What a file says beside the rows and columns. The component's dialect says none of it.
struct Facts {
  ObjectiveSense sense = ObjectiveSense::kNotSaid;
  // The name of the row that is the objective, which has the type kFree. Empty: the first of that
  // type is it.
  std::string objective = {};
  // What is added to the objective.
  double objective_constant = 0;
  // The names of the sets of right-hand sides, ranges and bounds; empty where they have none.
  std::string rhs_set = {};
  std::string ranges_set = {};
  std::string bounds_set = {};
  bool operator==(const Facts&) const = default;
};

class ModelAccess;

class QUARVEL_API Model {
 public:
  // Without rows, columns, name and facts.
  Model();
  ~Model();
  // A model that was moved from can be assigned to and destroyed, and nothing else.
  Model(Model&& other) noexcept;
  Model& operator=(Model&& other) noexcept;

  // Another model with all that this one holds. Costs a pass over it, and its memory.
  Model Copy() const;

  // --- the model as a whole ---
  std::int32_t row_count() const;
  std::int32_t column_count() const;
  std::int32_t element_count() const;
  std::string name() const;
  // Lines joined by CR LF.
  std::string description() const;
  // The file that it was read from or written to last; empty when there is none.
  std::string path() const;
  Facts facts() const;

  void set_name(std::string_view name);
  void set_description(std::string_view description);
  // Error kValue for a constant that is not finite, and an objective that is no row of the type kFree.
  void set_facts(const Facts& facts);

  // --- rows ---
  // The first of that name; nothing when there is none.
  std::optional<std::int32_t> FindRow(std::string_view name) const;
  std::string NameOfRow(std::int32_t row) const;
  RowType TypeOfRow(std::int32_t row) const;
  Bounds BoundsOfRow(std::int32_t row) const;
  std::int32_t ElementsInRow(std::int32_t row) const;
  // Element k of the row's list, from 0.
  Element RowElement(std::int32_t row, std::int32_t k) const;

  // --- columns ---
  std::optional<std::int32_t> FindColumn(std::string_view name) const;
  std::string NameOfColumn(std::int32_t column) const;
  ColumnType TypeOfColumn(std::int32_t column) const;
  Bounds BoundsOfColumn(std::int32_t column) const;
  std::int32_t ElementsInColumn(std::int32_t column) const;
  Element ColumnElement(std::int32_t column, std::int32_t k) const;

  // The first coefficient of the row at the column; 0 when there is none. Walks the row's list.
  double Coefficient(std::int32_t row, std::int32_t column) const;

  // --- changing ---
  // Names: Error kName for one that is empty, has a blank, or that a record of the kind has already.
  // Bounds: infinities and what is beyond kNoBound are none, and stored as -kNoBound and kNoBound; Error
  // kValue for NaN, and for a lower one of plus or an upper one of minus infinity. Bounds that no value
  // keeps, the lower above the upper, are taken. The type of a row follows from its bounds.
  // Numbers that adding gives are those of what was added.
  std::int32_t AddRow(std::string_view name, const Bounds& bounds = {});
  std::int32_t AddColumn(std::string_view name, const Bounds& bounds = {.lower = 0},
                         ColumnType type = ColumnType::kContinuous);
  // Appends a coefficient; one that stands there already is not looked for. Error kValue for a value
  // that is not finite. A value of 0 is stored like any other.
  void AddElement(std::int32_t row, std::int32_t column, double value);
  // The first coefficient of the row at the column gets that value; it is appended when there is none.
  // Walks the lists of both.
  void SetCoefficient(std::int32_t row, std::int32_t column, double value);
  // The objective of the facts stays the objective.
  void RenameRow(std::int32_t row, std::string_view name);
  void RenameColumn(std::int32_t column, std::string_view name);
  void SetRowBounds(std::int32_t row, const Bounds& bounds);
  void SetColumnBounds(std::int32_t column, const Bounds& bounds);
  // Error kValue for what is none of the types.
  void SetColumnType(std::int32_t column, ColumnType type);

  // --- removing ---
  // Coefficients go with their row. An objective that goes is none of the facts any more.
  void RemoveRow(std::int32_t row);
  // Coefficients go with their column, and so do the rows that have no other, as with the component.
  void RemoveColumn(std::int32_t column);
  // Element k of the row's list; a row whose only one it is goes.
  void RemoveElement(std::int32_t row, std::int32_t k);

 private:
  friend class ModelAccess;
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

// A whole list. Costs its length.
QUARVEL_API std::vector<Element> ElementsOfRow(const Model& model, std::int32_t row);
QUARVEL_API std::vector<Element> ElementsOfColumn(const Model& model, std::int32_t column);
// " + 3*X + 1*Y  <=  4". Costs the length of the row's list.
QUARVEL_API std::string EquationOfRow(const Model& model, std::int32_t row);
// The sum of the row's coefficients times the values of their columns: point[j] is that of column j.
// Error kIndex for a point of fewer values than there are columns. Costs the length of the row's list.
QUARVEL_API double ActivityOfRow(const Model& model, std::int32_t row,
                                 std::span<const double> point);

}  // namespace quarvel
