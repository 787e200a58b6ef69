// Turns a model, with what its file said beside it, into a file from which both come back bit for bit:
// for every reader of free columns, and as long as all fits for readers of fixed ones too.
//
// Every value is the shortest text that reads back to the same double (text/shortest_text.h). Rows,
// columns and coefficients stand in the model's order, those without coefficients too. Lines end in
// CR LF; the sections stand in this order:
//
//   NAME        always; the model's name from column 15
//   * text      one line for each line of the description, then kConstantNote where the objective has a
//               constant
//   OBJSENSE    MIN or MAX on a line of its own, where the file said it
//   ROWS        every row. One that limits nothing stands as N when it is the objective or comes behind
//               it; before it, as G with an absent limit, since readers take the first N for the objective
//   COLUMNS     one coefficient a line, integer columns in place between markers; a column without
//               coefficients has a 0 at the objective, or at the first row
//   RHS         what is not 0; of the objective minus its constant. The header stands in every file: some
//               readers (lp_solve among them) end the last column at it
//   RANGES      see exact_limits.h
//   BOUNDS      what readers do not agree on without a line: LO unless it is 0, UP unless there is none,
//               PL where an integer column has no upper bound (some readers take 1), MI before the UP of a
//               column without lower bound, LO 0 behind a negative UP (which frees the lower bound
//               for some), FR, FX
//   ENDATA
//
// RANGES and BOUNDS without lines have no header. Sets without a name of their own are called RHS, RANGE and
// BOUND.
//
// A name of up to 8 characters is padded to 10, a value of up to 12 stands at the right end of 12, so that
// a file whose names and values all fit has its fields where fixed columns have them. Names with blanks
// are only kept in such a file.
//
// What is not kept all the same: exact_losses.h.
//
// Cost: one pass over the model, lines gathered in one buffer, no allocation for a line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "model/bound_code.h"
#include "model/model_store.h"
#include "mps/file_facts.h"
#include "mps/long_field.h"

namespace quarvel::mps {

// A line of comment for people. Whoever reads the description back leaves it out (DropConstantNote).
inline constexpr std::string_view kConstantNote =
    "The constant of the objective is minus its right-hand side.";
void DropConstantNote(std::string& description);

// The names that sets have where the file did not say any.
inline constexpr std::string_view kRhsSet = "RHS";
inline constexpr std::string_view kRangesSet = "RANGE";
inline constexpr std::string_view kBoundsSet = "BOUND";

// Whether the name of some row or column has a blank, which free columns cannot keep.
bool NeedsFixedColumns(const model::ModelData& data);

class ExactWriter {
 public:
  // Both must outlive the writer and stay as they are. What memory writing needs is taken here, but for
  // lines of a length beyond reason.
  ExactWriter(const model::ModelStore& store, const FileFacts& facts);

  // Hands all of the file to `take`, piece by piece. Raises what that raises.
  void Write(const std::function<void(std::string_view)>& take);

  // Of what was written: the first field that does not stand where fixed columns have it. Its names live as
  // long as the writer and what it was given.
  const std::optional<LongField>& long_field() const { return long_field_; }

 private:
  void WriteTexts();
  void WriteSense();
  void WriteRows();
  void WriteColumns();
  void WriteMarker(bool integers);
  void WriteColumn(const model::ColumnRecord& column);
  void WriteRightHandSides();
  void WriteRanges();
  void WriteBounds();
  void WriteBoundsOf(const model::ColumnRecord& column);
  void WriteUpperBound(const model::ColumnRecord& column);

  // An entry of COLUMNS, RHS or RANGES.
  void WriteEntry(LongFieldKind kind, std::string_view name, std::string_view row, double value);
  void WriteBound(model::BoundCode code, const model::ColumnRecord& column);
  void WriteBound(model::BoundCode code, const model::ColumnRecord& column, double value);
  void BeginBound(model::BoundCode code);
  void Header(std::string_view header, bool& is_due);
  void AppendName(std::string_view name);
  // `field`: what it is, where it turns out to be long.
  void AppendValue(double value, const LongField& field);
  void NoteLong(const LongField& field);
  void WriteLine(std::string_view prefix, std::string_view rest = {});
  void EndLine();
  void HandOver();

  const model::ModelData& data_;
  const FileFacts& facts_;
  std::int32_t objective_;
  std::string marker_;  // a name that no column has
  std::string rhs_set_;
  std::string ranges_set_;
  std::string bounds_set_;
  const std::function<void(std::string_view)>* take_ = nullptr;
  bool bounds_due_ = true;  // the header
  std::optional<LongField> long_field_;
  std::string lines_;  // not yet handed over
  std::string value_;
};

}  // namespace quarvel::mps
