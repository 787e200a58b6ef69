#include "tests/memory/described_model.h"

#include <cstdint>
#include <sstream>

#include "model/model_check.h"

namespace quarvel::testing {
namespace {

void DescribeRecord(std::ostream& text, const auto& record) {
  text << record.Name << ' ' << model::TypeText(record.Type) << ' ' << record.LowerBound << ' '
       << record.UpperBound;
  for (const model::ElementEntry& entry : record.Elements) {
    text << " (" << entry.Index << ' ' << double{entry.Value} << ')';
  }
  text << '\n';
}

void DescribeRecords(std::ostream& text, const char* what, const auto& records,
                     std::int32_t count) {
  text << what << ' ' << count << " of " << records.size() << '\n';
  for (const auto& record : records) DescribeRecord(text, record);
}

void DescribeNumbers(std::ostream& text, const char* what, const model::RowNumbers& numbers,
                     std::int32_t count) {
  text << what << ' ' << count << ':';
  for (const std::int32_t number : numbers) text << ' ' << number;
  text << '\n';
}

}  // namespace

std::string DescribedRecords(const LPModel& model) {
  std::ostringstream text;
  text.precision(17);
  const model::ModelData& data = model.store().data();
  DescribeRecords(text, "rows", data.Rows, data.NumberOfRows);
  DescribeRecords(text, "columns", data.Columns, data.NumberOfColumns);
  text << "elements " << data.NumberOfElements << '\n';
  DescribeNumbers(text, "binding", data.BindingRows, data.NumberOfBindingRows);
  DescribeNumbers(text, "not binding", data.NonBindingRows, data.NumberOfNonBindingRows);
  return text.str() + model::CheckModelData(model.store());
}

std::string Described(const LPModel& model) {
  std::ostringstream text;
  const model::ModelSettings& settings = model.store().settings();
  text << settings.strMPSFile << '|' << settings.ReadMPSFileErr << '|'
       << settings.frmViewEquationsIsShowing << '|' << settings.ModelName << '|'
       << settings.ModelDescription << '|' << settings.FileLocation << '|' << settings.LogFileNumber
       << '|' << settings.DefaultToPlusMinusInfinity << '\n';
  return text.str() + DescribedRecords(model);
}

}  // namespace quarvel::testing
