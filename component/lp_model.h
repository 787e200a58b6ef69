// The component: one linear or mixed-integer programming model in memory, with every public
// operation. A facade: what is stored is the store's (model/model_store.h), reading and saving are
// jobs of mps/, simplifying is one of simplify/, showing is the viewer's.
//
// Public numbers of rows, columns and elements are 0-based. Two ways of reporting, fixed for each
// operation:
//   - a query with a bad number raises an AutomationError (number, source and text:
//   model/error_reports.h);
//   - a write or edit that is refused shows one plain OK box and changes nothing.
// A value that cannot be converted raises 13; a number no check of the operation's own covers
// raises 9; a row, column or coefficient too many raises 6. An operation that cannot have the memory
// it takes raises 7 (Guarded); an edit has changed nothing then, and can be repeated. 16-bit results:
// -1 success, 0 failure or cancelled, 1 no file chosen or an error.
//
// One thread. Operations that show boxes or let events run may be called back into; the object must
// outlive each of its calls. Two objects share nothing.
//
// Cost: queries are constant time unless they say otherwise; no operation costs more than the size
// of the model.
#pragma once

#include <any>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "model/error_reports.h"
#include "model/long_name.h"
#include "model/model_interface.h"
#include "model/model_store.h"
#include "model/model_view.h"
#include "model/variant.h"
#include "platform/automation_error.h"
#include "platform/form.h"
#include "simplify/simplification_log.h"

namespace quarvel {

class ModelWindows;
namespace viewer {
class frmViewEquations;
}

// It is final, and nobody owns it through its base.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor)
class LPModel final : public model::ModelInterface {
 public:
  // All fields zero and empty. `desktop` must outlive the object.
  explicit LPModel(platform::Desktop& desktop);
  ~LPModel();
  LPModel(const LPModel&) = delete;
  LPModel& operator=(const LPModel&) = delete;

  // --- public variables ---
  std::string strMPSFile() const {
    return Guarded([&] { return store_.settings().strMPSFile; });
  }
  void strMPSFile(std::string_view value) {
    Guarded([&] { store_.settings().strMPSFile = value; });
  }
  std::int16_t ReadMPSFileErr() const { return store_.settings().ReadMPSFileErr; }
  void ReadMPSFileErr(std::int16_t value) { store_.settings().ReadMPSFileErr = value; }
  bool frmViewEquationsIsShowing() const { return store_.settings().frmViewEquationsIsShowing; }
  void frmViewEquationsIsShowing(bool value) override {
    store_.settings().frmViewEquationsIsShowing = value;
  }
  const std::any& showFrm() const { return show_form_; }
  void showFrm(std::any value) { show_form_ = std::move(value); }

  // --- life of the model ---
  // An empty-looking model with one hidden placeholder row and column.
  void MakeNewModel() override;

  // --- counts and texts ---
  std::int32_t NumberOfRows() const override { return store_.NumberOfRows(); }
  std::int32_t NumberOfColumns() const override { return store_.NumberOfColumns(); }
  std::int32_t NumberOfElements() const override { return store_.NumberOfElements(); }
  std::int32_t NumberOfBindingRows() const override {
    return Guarded([&] { return store_.looks().CountListed(model::RowList::kBinding); });
  }
  std::int32_t NumberOfNonBindingRows() const override {
    return Guarded([&] { return store_.looks().CountListed(model::RowList::kNonBinding); });
  }
  std::int32_t NumBindingRows() const { return NumberOfBindingRows(); }
  std::int32_t NumNonBindingRows() const { return NumberOfNonBindingRows(); }
  std::string ModelName() const override {
    return Guarded([&] { return store_.settings().ModelName; });
  }
  // Lines joined by CR LF.
  std::string ModelDescription() const override {
    return Guarded([&] { return store_.settings().ModelDescription; });
  }
  // The path chosen in the last file dialog or saved to; empty when there is none.
  std::string FileLocation() const override {
    return Guarded([&] { return store_.settings().FileLocation; });
  }

  // --- columns (queries.cpp) ---
  std::int32_t ColElementrow(std::int32_t j, std::int32_t k) const override {
    return ColumnElement<IndexPart>(j, k);
  }
  double ColElementvalue(std::int32_t j, std::int32_t k) const override {
    return ColumnElement<ValuePart>(j, k);
  }
  std::int32_t ColNumberElements(std::int32_t j) const override {
    const auto columns = store_.ready().columns;
    if (Offset(j) >= columns.size()) [[unlikely]]
      return ColNumberElementsSlowly(j);
    return columns[Offset(j)].ElementCount();
  }
  double ColUpperBound(std::int32_t j) const override;
  double ColLowerBound(std::int32_t j) const override;
  std::string ColName(std::int32_t j) const override;
  std::string ColType(std::int32_t j) const override;

  // --- rows (queries.cpp) ---
  std::int32_t RowElementCol(std::int32_t i, std::int32_t k) const override {
    return RowElement<IndexPart>(i, k);
  }
  double RowElementValue(std::int32_t i, std::int32_t k) const override {
    return RowElement<ValuePart>(i, k);
  }
  std::int32_t RowNumberElements(std::int32_t i) const override {
    const auto rows = store_.ready().rows;
    if (Offset(i) >= rows.size()) [[unlikely]]
      return RowNumberElementsSlowly(i);
    return rows[Offset(i)].ElementCount();
  }
  double RowUpperBound(std::int32_t i) const override;
  double RowLowerBound(std::int32_t i) const override;
  std::string RowName(std::int32_t i) const override;
  std::string RowType(std::int32_t i) const override;
  // The first coefficient of the row's list that stands at column j, else 0. Walks that list.
  double ElementValue(std::int32_t i, std::int32_t j) const override;
  std::int32_t BindingRowIndex(std::int32_t i) const override;
  std::int32_t NonBindingRowIndex(std::int32_t i) const override;

  // --- rows as equations (row_functions.cpp) ---
  // The row as one line of text, or a sentence for a row without elements.
  std::string RowEquation(std::int32_t i) const override;
  // Writes the row's coefficients to slots 0..NumberOfColumns-1 of Gradient, whose first slot has
  // the number `lower_bound`. -1 good, 1 an element beyond the columns (a box was shown), 0 a
  // failure after the zeroing. Raises 9 for a row that is not stored and for an array without all
  // the slots to be zeroed.
  std::int16_t RowGradient(std::int32_t RowNum, std::span<double> Gradient,
                           std::int32_t lower_bound = 0) const;
  // The row's activity at Point, whose first slot has the number `lower_bound`. Raises 0x80040201
  // for an element beyond the columns and 9 for a row that is not stored or a slot that Point does
  // not have; Answer then keeps the sum so far. Result -1.
  std::int16_t RowBodyValue(std::int32_t RowNum, std::span<const double> Point, double& Answer,
                            std::int32_t lower_bound = 0) const;

  // --- other questions ---
  bool ViewEquationsWindowIsShowing() const { return store_.settings().frmViewEquationsIsShowing; }
  // Shows the about box.
  void DisplayAuthor() const override;

  // --- property writes (property_writes.cpp) ---
  void SetColUpperBound(std::int32_t j, const model::Variant& value) override;
  void SetColLowerBound(std::int32_t j, const model::Variant& value) override;
  void SetColName(std::int32_t col, const model::Variant& value) override;
  void SetColType(std::int32_t j, const model::Variant& value) override;
  void SetModelDescription(const model::Variant& value) override;
  void SetModelName(const model::Variant& value) override;
  void SetRowName(std::int32_t row, const model::Variant& value) override;
  // Sets both copies of the coefficient; 0 is stored like any other value.
  void SetRowElementValue(std::int32_t row, std::int32_t rowele,
                          const model::Variant& value) override;
  // Raises 9 for a number outside the stored rows, before any check.
  void SetRowType(std::int32_t i, const model::Variant& value) override;
  void SetRowLowerBound(std::int32_t i, const model::Variant& value) override;
  void SetRowUpperBound(std::int32_t i, const model::Variant& value) override;
  void SetDefaultToPlusMinusInfinity(bool val) {
    store_.settings().DefaultToPlusMinusInfinity = val;
  }

  // --- adding (adding.cpp) ---
  // Appends a coefficient; one that stands there already is not looked for.
  void AddElement(std::int32_t row, std::int32_t col, double val) override;
  // -1 added, 0 refused.
  std::int16_t AddRow(std::string_view RowName) override;
  std::int16_t AddColumn(std::string_view ColName) override;

  // --- deleting (deleting.cpp) ---
  // Always -1, also when refused or out of range.
  std::int16_t DeleteRow(std::int32_t row) override;
  // Always -1. Rows that lose their last element go too.
  std::int16_t DeleteColumn(std::int32_t col) override;
  // -1 done, 0 row out of range; raises 9 for a bad element number. A row whose only element goes,
  // goes too.
  std::int16_t DeleteElement(std::int32_t row, std::int32_t ele) override;

  // --- files (jobs.cpp) ---
  // Asks for a file and for default bounds, shows the progress window and reads. -1 read, 0 not
  // read, 1 no file chosen.
  std::int16_t ReadMPSFile() override;
  // Reads strMPSFile into the model; the outcome is ReadMPSFileErr. Started by the progress window;
  // a direct call shows no window.
  std::int16_t StartFileReding();
  // -1 written (also when there was nothing to write, after its box), 1 empty path or an error
  // (after its box).
  std::int16_t SaveMPSFile(const std::string& FileLoc) override;
  // -1 written, 0 cancelled, 1 an error.
  std::int16_t SaveAsMPSFile() override;

  // --- showing (view_operations.cpp) ---
  // Each shows the viewer window modally and returns when it is closed; while it is open already,
  // they select in it, bring it to the front and return. A number outside its range is one plain
  // box.
  void ViewEquations(bool EditingIsEnabled);
  void ViewCol(std::int32_t ColNum, bool EditingIsEnabled);
  void ViewRow(std::int32_t RowNum, bool EditingIsEnabled);
  // RowNum counts the non-binding, the binding rows.
  void ViewNonBindingRow(std::int32_t RowNum, bool EditingIsEnabled);
  void ViewBindingRow(std::int32_t RowNum, bool EditingIsEnabled);
  // MakeNewModel, then ViewEquations with editing.
  void NewMPSModel();

  // --- simplifying (jobs.cpp) ---
  // Turns rows of one element into column bounds and removes empty columns and rows, with a
  // progress window, a log file and questions. Raises what stops it in the middle.
  void SimplifyMPSModel() override;

  // --- for who stands beside the public operations ---
  // What is stored: for finding by name, and for tests.
  model::ModelStore& store() { return store_; }
  const model::ModelStore& store() const { return store_; }
  platform::Desktop& desktop() const { return desktop_; }
  // Logs of simplifications go to `text`, no longer to files: simplify/simplification_log.h.
  void KeepLogIn(std::string* text, std::vector<std::string>* altered = nullptr) {
    log_.KeepIn(text, altered);
  }

 private:
  // What stands at 0-based numbers, which are checked.
  std::int32_t RowNumber(std::int32_t i) const { return model::CheckRow(i, store_.NumberOfRows()); }
  std::int32_t ColumnNumber(std::int32_t j) const {
    return model::CheckColumn(j, store_.NumberOfColumns());
  }
  struct IndexPart {
    using Type = std::int32_t;
    static Type Of(const model::ElementEntry& entry) { return model::Public(entry.Index); }
  };
  struct ValuePart {
    using Type = double;
    static Type Of(const model::ElementEntry& entry) { return entry.Value; }
  };
  // The place of a number that is to be compared with how many there are: negative ones are beyond.
  static std::size_t Offset(std::int32_t number) { return static_cast<std::uint32_t>(number); }
  // One part of what stands at place k of a list. Where work is deferred, and for numbers of none, the call
  // stands apart: a loop over these can keep its variables in registers then, and what was looked up
  // for one part is there for the other.
  template <class Part>
  [[gnu::always_inline]] typename Part::Type RowElement(std::int32_t i, std::int32_t k) const {
    const auto rows = store_.ready().rows;
    if (Offset(i) < rows.size()) [[likely]] {
      const model::ElementStore& list = rows[Offset(i)].Elements.store();
      if (Offset(k) < list.size()) [[likely]]
        return Part::Of(list.data()[Offset(k)]);
    }
    return Part::Of(RowElementSlowly(i, k));
  }
  template <class Part>
  [[gnu::always_inline]] typename Part::Type ColumnElement(std::int32_t j, std::int32_t k) const {
    const auto columns = store_.ready().columns;
    if (Offset(j) < columns.size()) [[likely]] {
      const model::ElementStore& list = columns[Offset(j)].Elements.store();
      if (Offset(k) < list.size()) [[likely]]
        return Part::Of(list.data()[Offset(k)]);
    }
    return Part::Of(ColumnElementSlowly(j, k));
  }
  [[gnu::cold]] model::ElementEntry RowElementSlowly(std::int32_t i, std::int32_t k) const;
  [[gnu::cold]] model::ElementEntry ColumnElementSlowly(std::int32_t j, std::int32_t k) const;
  [[gnu::cold]] std::int32_t RowNumberElementsSlowly(std::int32_t i) const;
  [[gnu::cold]] std::int32_t ColNumberElementsSlowly(std::int32_t j) const;
  // One plain box; the refusals of writes and edits.
  void Refuse(std::string_view text) const;
  void WarnOnceOfLongName(std::string_view name) {
    if (!store_.settings().LongNameWarningShown && model::IsLongName(name)) WarnOfLongName();
  }
  void WarnOfLongName();
  void View(bool editing, const std::function<void(viewer::frmViewEquations&)>& show);
  void ViewRowNumber(std::int32_t row, bool editing);
  void RefuseRow(std::string_view text);

  platform::Desktop& desktop_;
  model::ModelStore store_;
  model::ViewLink view_;
  simplify::SimplificationLog log_{store_};
  const std::unique_ptr<ModelWindows> windows_;
  std::any show_form_;  // whatever the host stored; never looked at
};

}  // namespace quarvel
