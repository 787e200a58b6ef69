// What the component must do, as plainly as it can be said: lists in std::vector, every step one by
// one, nothing cached, nothing deferred, names looked up by walking. Slow on purpose; compared with
// LPModel by the property tests and the fuzzers.
//
// Boxes and log lines are collected in order. A failure is raised as an AutomationError, as LPModel
// raises it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/variant.h"

namespace quarvel::testing {

struct NaiveEntry {
  std::int32_t Index = 0;
  double Value = 0;
};

struct NaiveRecord {
  std::string Name;
  std::string Type;
  double LowerBound = 0;
  double UpperBound = 0;
  std::vector<NaiveEntry> Elements;

  std::int32_t ElementCount() const { return static_cast<std::int32_t>(Elements.size()); }
};

class NaiveModel {
 public:
  // --- the stored fields; arrays hold number 1 first ---
  std::string ModelName;
  std::string ModelDescription;
  std::string FileLocation;
  std::string strMPSFile;
  std::int32_t NumberOfRows = 0;
  std::int32_t NumberOfColumns = 0;
  std::int32_t NumberOfElements = 0;
  std::int32_t NumberOfBindingRows = 0;
  std::int32_t NumberOfNonBindingRows = 0;
  std::vector<NaiveRecord> Rows;
  std::vector<NaiveRecord> Columns;
  std::vector<std::int32_t> BindingRows;
  std::vector<std::int32_t> NonBindingRows;
  std::int16_t LogFileNumber = 0;
  bool DefaultToPlusMinusInfinity = false;
  bool LongNameWarningShown = false;

  // --- what the user and the log were told ---
  std::vector<std::string> boxes;
  std::vector<std::string> log;

  // --- life of the model ---
  void MakeNewModel();
  void ClearModel();

  // --- property writes ---
  void SetColUpperBound(std::int32_t j, const model::Variant& value);
  void SetColLowerBound(std::int32_t j, const model::Variant& value);
  void SetColName(std::int32_t col, const model::Variant& value);
  void SetColType(std::int32_t j, const model::Variant& value);
  void SetModelDescription(const model::Variant& value);
  void SetModelName(const model::Variant& value);
  void SetRowName(std::int32_t row, const model::Variant& value);
  void SetRowElementValue(std::int32_t row, std::int32_t rowele, const model::Variant& value);
  void SetRowType(std::int32_t i, const model::Variant& value);
  void SetRowLowerBound(std::int32_t i, const model::Variant& value);
  void SetRowUpperBound(std::int32_t i, const model::Variant& value);
  void SetDefaultToPlusMinusInfinity(bool val) { DefaultToPlusMinusInfinity = val; }

  // --- adding ---
  void AddElement(std::int32_t row, std::int32_t col, double val);
  std::int16_t AddRow(const std::string& RowName);
  std::int16_t AddColumn(const std::string& ColName);

  // --- deleting ---
  std::int16_t DeleteRow(std::int32_t row);
  std::int16_t DeleteColumn(std::int32_t col);
  std::int16_t DeleteElement(std::int32_t row, std::int32_t ele);

  // --- on 1-based numbers ---
  void RemoveRow(std::int32_t r);
  void RemoveColumn(std::int32_t c);
  void RemoveElement(std::int32_t r, std::int32_t k);
  void RebuildRowIndexes();

 private:
  void Box(const std::string& text) { boxes.push_back(text); }
  // True when the box was shown.
  bool RefusesColumn(std::int32_t j, const std::string& operation);
  bool RefusesRow(std::int32_t i, const std::string& operation);
  void WarnOfLongName(const std::string& name);
};

inline void ClearModel(NaiveModel& model) { model.ClearModel(); }

}  // namespace quarvel::testing
