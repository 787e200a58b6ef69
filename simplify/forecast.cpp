#include "simplify/forecast.h"

#include "platform/automation_error.h"
#include "simplify/conversion_rule.h"

namespace quarvel::simplify {
namespace {

class Forecasting {
 public:
  explicit Forecasting(const model::ModelData& data) : data_(data) {
    bounds_.Resize(data.NumberOfColumns);
    elements_.Resize(data.NumberOfColumns);
    for (std::int32_t c = 1; c <= data.NumberOfColumns; ++c) {
      bounds_[c] = {data.Columns[c].LowerBound, data.Columns[c].UpperBound};
      elements_[c] = data.Columns[c].ElementCount();
    }
  }

  Forecast Run() {
    for (std::int32_t r = 1; r <= data_.NumberOfRows; ++r) {
      if (ConvertsOrFails(r)) return forecast_;
    }
    for (std::int32_t c = 1; c <= data_.NumberOfColumns; ++c) {
      if (elements_[c] == 0) ++forecast_.empty_columns;
    }
    for (std::int32_t r = 1; r <= data_.NumberOfRows; ++r) {
      if (data_.Rows[r].ElementCount() == 0) ++forecast_.empty_rows;
    }
    return forecast_;
  }

 private:
  // True when the run ends at that row.
  bool ConvertsOrFails(std::int32_t r) {
    const model::RowRecord& row = data_.Rows[r];
    if (!MayConvert(row)) return false;
    try {
      Convert(row);
    } catch (const AutomationError&) {
      forecast_.failing_row = r;
    }
    return forecast_.failing_row != 0;
  }

  void Convert(const model::RowRecord& row) {
    const std::int32_t c = row.Elements[1].Index;
    const Implied implied = ImpliedBy(row, bounds_[c]);
    const ConversionRule* const rule = FindRule(row.Type, implied);
    if (rule == nullptr) return;
    if (rule->question != nullptr) {
      ++forecast_.asked_rows;
      return;
    }
    ++forecast_.converted_rows;
    TakeBounds(rule->taken_bounds, implied.lower, implied.upper, bounds_[c]);
    --elements_[c];
  }

  const model::ModelData& data_;
  model::OneBased<model::Bounds> bounds_;  // of the columns, with what has been taken over so far
  model::OneBased<std::int32_t> elements_;
  Forecast forecast_;
};

}  // namespace

Forecast ForecastOf(const model::ModelStore& store) { return Forecasting(store.data()).Run(); }

}  // namespace quarvel::simplify
