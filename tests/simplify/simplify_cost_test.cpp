// Simplifying costs one pass over the model and not one for each deletion.

#include <algorithm>
#include <chrono>
#include <string>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "tests/simplify/simplify_helpers.h"

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

// The best of a few runs, so that what else the machine does at that moment does not count.
double BestSeconds(int size) {
  double best = SecondsToSimplify(size);
  for (int i = 0; i < 4; ++i) best = std::min(best, SecondsToSimplify(size));
  return best;
}

TEST(SimplifyCost, GrowsWithTheModelAndNotWithItsSquare) {
  const double small = BestSeconds(20000);
  const double large = BestSeconds(80000);
  EXPECT_LT(small, 5);
  EXPECT_LT(large, 10 * small);
}

}  // namespace
}  // namespace quarvel::simplify
