#include "mps/record_losses.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/mps/write_helpers.h"

namespace quarvel::mps {
namespace {

struct LimitCase {
  char type;
  model::Bounds limits;
  model::Bounds back;
  bool changes;
  std::vector<std::string> sentences;
};

TEST(RecordLosses, NameWhatBecomesOfTheLimitsOfARow) {
  constexpr double kNone = model::BoundLimit;
  const LimitCase cases[] = {
      {'G', {4, kNone}, {4, kNone}, false, {}},
      {'G',
       {4, kNone},
       {4.5, kNone},
       false,
       {"row T (number 0) of type G has the limits [4, inf], which read back as [4.5, inf]"}},
      {'G',
       {4, 9},
       {4, 9},
       false,
       {"row T (number 0) of type G has the limits [4, 9], which read back as type R"}},
      {'G',
       {4, 9},
       {4, kNone},
       true,
       {"row T (number 0) of type G has the limits [4, 9], which read back as [4, inf]"}},
      {'R',
       {9, 4},
       {9, 4},
       false,
       {"row T (number 0) of type R has the limits [9, 4], which are reversed"}},
      {'N',
       {4, 9},
       {-kNone, kNone},
       true,
       {"row T (number 0) of type N has the limits [4, 9], which read back as [-inf, inf]"}},
  };
  for (const LimitCase& c : cases) {
    HandMadeModel made;
    made.build.RowWithin("T", c.type, c.limits.LowerBound, c.limits.UpperBound);
    Losses losses;
    RecordLosses(made.model.store().data(), losses).AddLimits(1, c.back, c.changes);
    std::vector<std::string> sentences;
    for (const LossGroup& group : losses.groups()) sentences.push_back(group.named[0].Sentence());
    EXPECT_EQ(sentences, c.sentences);
  }
}

TEST(RecordLosses, NameRecordsByTheirPublicNumbers) {
  HandMadeModel made;
  made.build.Row("A", 'L').Row("B", 'L').Column("X").Column("Y");
  Losses losses;
  const RecordLosses told(made.model.store().data(), losses);
  told.AddRow(LossKind::kEmptyRow, 2, "is so");
  told.AddColumn(LossKind::kEmptyColumn, 1, "is too");
  EXPECT_EQ(losses.groups()[0].named[0].Sentence(), "row B (number 1) is so");
  EXPECT_EQ(losses.groups()[1].named[0].Sentence(), "column X (number 0) is too");
}

}  // namespace
}  // namespace quarvel::mps
