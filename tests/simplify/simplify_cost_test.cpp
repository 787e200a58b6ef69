// Simplifying costs one pass over the model and not one for each deletion.

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "tests/simplify/simplify_helpers.h"
#include "tests/support/sanitizers.h"

namespace quarvel::simplify {
namespace {

void BuildBulk(SimplifySession& session, int size) {
  session.Build().Row("OBJ", 'N').Column("X").Element("X", "OBJ", 1);
  for (int i = 0; i < size; ++i) {
    session.Build().Column("EMPTY" + std::to_string(i)).Column("C" + std::to_string(i));
    session.Build().Row("S" + std::to_string(i), 'L', 5);
    const std::int32_t row = session.model.NumberOfRows();
    const std::int32_t column = session.model.NumberOfColumns();
    session.model.AddElement(row - 1, column - 1, 1);
    session.model.AddElement(0, column - 1, 1);  // keeps the column
  }
}

double SecondsToSimplify(int size) {
  SimplifySession session;
  BuildBulk(session, size);
  const auto start = std::chrono::steady_clock::now();
  session.model.SimplifyMPSModel();
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(session.model.NumberOfRows(), 1);
  EXPECT_EQ(session.model.NumberOfColumns(), size + 1);
  EXPECT_EQ(session.model.ColUpperBound(size), 5);
  EXPECT_EQ(session.LogLines().size(), 2u * static_cast<unsigned>(size));
  EXPECT_EQ(model::CheckModelData(session.model.store()), "");
  return taken.count();
}

// Rows of one element, each of which stands twice in its column's list.
double SecondsToSimplifyPairs(int size) {
  SimplifySession session;
  for (int i = 0; i < size; ++i) {
    session.Build().Column("C" + std::to_string(i)).Row("S" + std::to_string(i), 'L', 5);
    session.model.AddElement(i, i, 1);
  }
  model::ModelData data = session.model.store().data();
  for (model::ColumnRecord& column : data.Columns) {
    column.Elements.Append(model::ElementEntry(column.Elements.last()));
  }
  session.model.store().Take(std::move(data));
  const auto start = std::chrono::steady_clock::now();
  session.model.SimplifyMPSModel();
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(session.model.NumberOfRows(), 0);
  // The last row's second entry names nothing; the others went with the row after theirs.
  EXPECT_EQ(session.model.NumberOfColumns(), 1);
  return taken.count();
}

// The best of a few runs, so that what else the machine does at that moment does not count.
double BestSeconds(double (*run)(int size), int size) {
  double best = run(size);
  for (int i = 0; i < 4; ++i) best = std::min(best, run(size));
  return best;
}

// Smaller models where most of the time goes into what a build adds to find mistakes.
constexpr int kShare = kAddressSanitizer ? 10 : 1;

TEST(SimplifyCost, GrowsWithTheModelAndNotWithItsSquare) {
  const double small = BestSeconds(SecondsToSimplify, 20000 / kShare);
  const double large = BestSeconds(SecondsToSimplify, 80000 / kShare);
  EXPECT_LT(small, 5);
  EXPECT_LT(large, 10 * small);
}

TEST(SimplifyCost, GrowsWithTheModelWhereListsDisagree) {
  const double small = BestSeconds(SecondsToSimplifyPairs, 5000 / kShare);
  const double large = BestSeconds(SecondsToSimplifyPairs, 20000 / kShare);
  EXPECT_LT(large, 10 * small);
}

}  // namespace
}  // namespace quarvel::simplify
