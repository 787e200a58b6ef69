#include "tests/component/query_model.h"

#include "tests/support/model_builder.h"

namespace quarvel {

QueryModel::QueryModel() {
  for (const char* name : {"R1", "R2", "R3", "R4"}) {
    model.AddRow(name);
    model.SetRowType(model.NumberOfRows() - 1, "L");
  }
  for (const char* name : {"X1", "X2", "X3", "X4", "X5"}) model.AddColumn(name);
  model.SetColType(4, "I");
  model.AddElement(0, 0, 2);
  model.AddElement(0, 1, -3.5);
  model.AddElement(1, 2, 1);
  model.AddElement(2, 0, 4);
  model.AddElement(2, 4, 5);
}

void QueryModel::SetRow(std::int32_t r, model::RowType type, double lower, double upper) {
  ChangeFields(model, [&](model::ModelData& data) { data.Rows[r].Type = type; });
  model.store().RowBounds(r) = {lower, upper};
}

}  // namespace quarvel
