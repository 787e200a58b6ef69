// The commands of `quarvel edit` that make a model A equal to a model B, by name: what comes stands
// behind what is there. Additions stand before deletions, because a row goes with its last element and
// the last row or column cannot be deleted.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "inspect/compare.h"
#include "inspect/repeated_pairs.h"
#include "model/model_store.h"
#include "mps/file_facts.h"

namespace quarvel::hosts {

// One of the two models with what its file says.
struct ScriptSide {
  const model::ModelStore& store;
  const mps::FileFacts* facts = nullptr;  // null where nothing is known
};

class EditScript {
 public:
  // Stores and facts must outlive it, stay as they are, and give no obstacle (script_obstacles.h). What
  // differs by no more than the tolerance stays as A has it.
  EditScript(const ScriptSide& a, const ScriptSide& b, const inspect::Tolerance& tolerance);

  using Print = std::function<void(std::string_view line)>;
  // Calls `print` with each line. A few comparisons of the models.
  void PrintTo(const Print& print);

 private:
  using Step = void (EditScript::*)(const inspect::Difference& difference);
  // Calls the function with each difference.
  void ForEach(Step step);

  // Each prints what it is about and passes over all other differences.
  void PrintRecords(const inspect::Difference& difference);
  void PrintElements(const inspect::Difference& difference);
  void PrintElementDeletions(const inspect::Difference& difference);
  void PrintRowDeletions(const inspect::Difference& difference);
  void PrintColumnDeletions(const inspect::Difference& difference);
  // Rows of both models that B has without elements: they would go with their last one.
  void PrintEmptiedRows();
  // What the files say of the objective, once its row is there.
  void PrintFacts();

  void PrintNewRow(std::int32_t row_of_b);
  void PrintNewColumn(std::int32_t column_of_b);
  void PrintRowBounds(std::int32_t row_of_b);
  void PrintColumnLower(std::int32_t column_of_b);
  void PrintColumnUpper(std::int32_t column_of_b);
  void PrintElementsOfNewRow(std::int32_t row_of_b);
  void PrintElementsOfNewColumn(std::int32_t column_of_b);
  // A pair that A gives several values: to the one that B has.
  void PrintRepeatedPair(const inspect::Difference& difference, std::int32_t count_in_a);
  void PrintElement(std::string_view command, std::string_view row, std::string_view column,
                    double value);
  // The deletion of a row or column takes out one value of each of its pairs: the others go before.
  void PrintRepeatedPairsThatGo();
  void PrintElementDeletion(const model::RowRecord& row, const model::ColumnRecord& column);
  bool IsEmptied(std::int32_t row_of_a) const {
    return emptied_[static_cast<std::size_t>(row_of_a)];
  }
  std::int32_t CountInA(const inspect::Difference& difference) const;

  const model::ModelStore& a_;
  const model::ModelStore& b_;
  const mps::FileFacts* facts_of_a_;
  const mps::FileFacts* facts_of_b_;
  const inspect::Tolerance& tolerance_;
  const Print* print_ = nullptr;
  std::vector<bool> emptied_;  // by A's numbers
  inspect::RepeatedPairs repeated_in_a_;
  inspect::RecordPair last_bounds_;  // of the row whose bounds were printed last
  inspect::RepeatedPairs done_;      // pairs of A with several values that were printed
};

}  // namespace quarvel::hosts
