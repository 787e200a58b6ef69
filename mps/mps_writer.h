// Turns a model into the text of an MPS file.
//
// Layout. Every line ends in CR LF; the sections stand in this order:
//
//   NAME        column 15: the model's name. No line for a model without a name.
//   * text      one line for each line of the description, without its blank lines at the end.
//   ROWS        " L  name" for each row with elements; a ranged row is written as G.
//   COLUMNS     "    column    row       value", one coefficient a line: first the columns that are
//               not integer, then all integer columns between one pair of INTORG and INTEND
//               markers.
//   RHS         "    RHS       row       value": the lower limit of rows E, G and R, the upper
//               limit of rows L, unless it is 0. Rows without elements have theirs too.
//   RANGES      "    RANGE     row       value": upper minus lower limit of each ranged row. No
//               header without ranged rows.
//   BOUNDS      " LO BOUND     column    value", likewise FX and UP, and " FR BOUND     column".
//               Nothing is written for a lower bound of 0 or -1E+10, nor for an upper bound of
//               +1E+10 on its own.
//   ENDATA
//
// ROWS and RHS stand there whenever the model has rows, COLUMNS and BOUNDS whenever it has columns.
//
// Names of up to 8 characters are padded to 10, values of up to 12 stand at the right end of 12.
// What is longer is written whole with two blanks around it, and the file is then not a standard
// one: readers of fixed columns cannot take it. A file also counts as not standard for any row with
// a long name, for any column whose name or lower bound is long (-1E+10 is), whether or not a line
// shows it, and for FR records.
//
// Cost: one pass over the model, lines gathered in one buffer, no allocation for a line.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "model/bound_code.h"
#include "model/model_data.h"
#include "model/one_based.h"
#include "mps/file_words.h"
#include "mps/long_field.h"
#include "mps/text_block.h"
#include "text/picture.h"
#include "text/short_picture.h"

namespace quarvel::mps {

// What the RHS section says of a row; nothing for a limit that reads back without a line.
std::optional<double> RightHandSideOf(const model::RowRecord& row);

class MpsWriter {
 public:
  // The data must outlive the writer, be settled and stay as it is. What memory writing needs is
  // taken here, but for lines of a length beyond reason.
  explicit MpsWriter(const model::ModelData& data);

  // Hands all of the file to `take`, piece by piece. Raises what that raises, and 9 for a coefficient at a
  // row that is not stored.
  void Write(const std::function<void(std::string_view)>& take);

  // False when a name, a value or a kind of record does not belong in a standard file.
  bool standard() const { return standard_; }
  // Of what was written: the first field that does not stand where fixed columns have it. A file that is not
  // standard may have none. Its names live as long as the data.
  const std::optional<LongField>& long_field() const { return long_field_; }

 private:
  // A name with what its place in the fixed columns takes.
  struct NameField {
    explicit NameField(std::string_view text);
    NameField(std::string_view text, std::size_t characters);
    std::string_view name;
    bool fits;
    std::size_t blanks;  // up to the next field, when it fits
  };
  // The name of a row as element lines show it. Coefficients stand in random rows: so few bytes for
  // each row stay in the processor's cache where the rows themselves do not.
  struct RowLabel {
    std::array<char, kLongestFixedName> padded;
    std::uint8_t length;  // kOnlyInRow where the name does not fit or is not ASCII
  };
  static constexpr std::uint8_t kOnlyInRow = 0xFF;

  void WriteName();
  void WriteDescription();
  void WriteRows();
  void WriteColumns();
  void WriteElements(const model::ColumnRecord& column);
  void WriteElement(const NameField& column, std::int32_t row_number, std::string_view value);
  void WriteRightHandSides();
  void WriteRanges();
  void WriteBounds();
  void WriteLowerBound(const model::ColumnRecord& column, const NameField& name);
  void WriteUpperBound(const model::ColumnRecord& column, const NameField& name);

  void BuildRowLabels();
  // Has the label fetched while other work is done.
  void PrefetchRow(std::int32_t number) const;
  NameField RowName(std::int32_t number) const;
  // The text of a value, valid until the next one is formatted.
  std::string_view Format(double value, text::Picture picture);
  std::string_view FormatGeneral(double value);

  void WriteLine(std::string_view prefix, std::string_view rest = {});
  // An entry of RHS or RANGES: name and value leave the fixed columns independently of each other.
  void WriteRowEntry(LongFieldKind kind, const NameField& row, double value);
  void AppendBoundCode(model::BoundCode code);
  void WriteFixedBound(model::BoundCode code, const NameField& column, std::string_view value);
  void WriteFreeBound(model::BoundCode code, const NameField& column, std::string_view value);
  void NoteLong(const LongField& field);
  void AppendPadded(const NameField& field);
  void AppendRightAligned(std::string_view value);
  void EndLine();
  // So much behind the lines is another one, or the end of one.
  void TakeLine(std::size_t size);
  void HandOver();

  const model::ModelData& data_;
  const std::function<void(std::string_view)>* take_ = nullptr;
  model::OneBased<RowLabel> row_labels_;
  TextBlock lines_;  // not yet handed over
  std::string value_;
  std::array<char, text::kRoomBeforePicture + text::kRoomBehindPicture> short_value_;
  bool standard_ = true;
  std::optional<LongField> long_field_;
};

}  // namespace quarvel::mps
