// How the rooms below the component see a model: its public queries and edits, by public 0-based
// numbers, with the ways of reporting that component/lp_model.h states. What each member does, gets
// wrong and costs stands there.
//
// Each class adds to the one before: who only asks takes ModelQueries, who changes records takes
// ModelEdits, who runs the model's files and jobs takes ModelInterface.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/variant.h"

namespace quarvel::model {

class ModelQueries {
 public:
  virtual std::int32_t NumberOfRows() const = 0;
  virtual std::int32_t NumberOfColumns() const = 0;
  virtual std::int32_t NumberOfElements() const = 0;
  virtual std::int32_t NumberOfBindingRows() const = 0;
  virtual std::int32_t NumberOfNonBindingRows() const = 0;
  virtual std::string ModelName() const = 0;
  virtual std::string ModelDescription() const = 0;
  virtual std::string FileLocation() const = 0;

  virtual std::int32_t ColElementrow(std::int32_t j, std::int32_t k) const = 0;
  virtual double ColElementvalue(std::int32_t j, std::int32_t k) const = 0;
  virtual std::int32_t ColNumberElements(std::int32_t j) const = 0;
  virtual double ColUpperBound(std::int32_t j) const = 0;
  virtual double ColLowerBound(std::int32_t j) const = 0;
  virtual std::string ColName(std::int32_t j) const = 0;
  virtual std::string ColType(std::int32_t j) const = 0;

  virtual std::int32_t RowElementCol(std::int32_t i, std::int32_t k) const = 0;
  virtual double RowElementValue(std::int32_t i, std::int32_t k) const = 0;
  virtual std::int32_t RowNumberElements(std::int32_t i) const = 0;
  virtual double RowUpperBound(std::int32_t i) const = 0;
  virtual double RowLowerBound(std::int32_t i) const = 0;
  virtual std::string RowName(std::int32_t i) const = 0;
  virtual std::string RowType(std::int32_t i) const = 0;
  virtual std::string RowEquation(std::int32_t i) const = 0;
  virtual double ElementValue(std::int32_t i, std::int32_t j) const = 0;
  virtual std::int32_t BindingRowIndex(std::int32_t i) const = 0;
  virtual std::int32_t NonBindingRowIndex(std::int32_t i) const = 0;

 protected:
  ~ModelQueries() = default;  // nobody owns a model through its interface
};

class ModelEdits : public ModelQueries {
 public:
  virtual void SetColUpperBound(std::int32_t j, const Variant& value) = 0;
  virtual void SetColLowerBound(std::int32_t j, const Variant& value) = 0;
  virtual void SetColName(std::int32_t col, const Variant& value) = 0;
  virtual void SetColType(std::int32_t j, const Variant& value) = 0;
  virtual void SetModelDescription(const Variant& value) = 0;
  virtual void SetModelName(const Variant& value) = 0;
  virtual void SetRowName(std::int32_t row, const Variant& value) = 0;
  virtual void SetRowElementValue(std::int32_t row, std::int32_t rowele, const Variant& value) = 0;
  virtual void SetRowType(std::int32_t i, const Variant& value) = 0;
  virtual void SetRowLowerBound(std::int32_t i, const Variant& value) = 0;
  virtual void SetRowUpperBound(std::int32_t i, const Variant& value) = 0;

  virtual void AddElement(std::int32_t row, std::int32_t col, double val) = 0;
  virtual std::int16_t AddRow(std::string_view RowName) = 0;
  virtual std::int16_t AddColumn(std::string_view ColName) = 0;
  virtual std::int16_t DeleteRow(std::int32_t row) = 0;
  virtual std::int16_t DeleteColumn(std::int32_t col) = 0;
  virtual std::int16_t DeleteElement(std::int32_t row, std::int32_t ele) = 0;

 protected:
  ~ModelEdits() = default;
};

class ModelInterface : public ModelEdits {
 public:
  virtual void MakeNewModel() = 0;
  virtual std::int16_t ReadMPSFile() = 0;
  virtual std::int16_t SaveMPSFile(const std::string& FileLoc) = 0;
  virtual std::int16_t SaveAsMPSFile() = 0;
  virtual void SimplifyMPSModel() = 0;
  virtual void DisplayAuthor() const = 0;
  // The viewer tells when its window has closed.
  virtual void frmViewEquationsIsShowing(bool value) = 0;

 protected:
  ~ModelInterface() = default;
};

}  // namespace quarvel::model
