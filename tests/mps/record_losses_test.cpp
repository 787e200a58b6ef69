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
      {'G',
       {2e10, kNone},
       {2e10, kNone},
       false,
       {"row T (number 0) of type G has the limits [20000000000, inf], which the component takes "
        "for reversed"}},
      {'N',
       {4, 9},
       {-kNone, kNone},
       true,
       {"row T (number 0) of type N has the limits [4, 9], which read back as [-inf, inf]: this type "
        "limits nothing"}},
  };
  for (const LimitCase& c : cases) {
    HandMadeModel made;
    made.build.RowWithin("T", c.type, c.limits.LowerBound, c.limits.UpperBound);
    Losses losses;
    RecordLosses(made.model.store().data(), FileLayout::kFixed, losses)
        .AddLimits(1, c.back, c.changes);
    std::vector<std::string> sentences;
    for (const LossGroup& group : losses.groups()) sentences.push_back(group.named[0].Sentence());
    EXPECT_EQ(sentences, c.sentences);
  }
}

TEST(RecordLosses, StopWhereWhoReadsTheFileBackDoes) {
  constexpr double kNone = model::BoundLimit;
  const model::ModelData data;
  Losses losses;
  const RecordLosses fixed(data, FileLayout::kFixed, losses);
  const RecordLosses free(data, FileLayout::kFree, losses);
  const struct {
    model::Bounds bounds;
    bool of_fixed;
    bool of_free;
  } cases[] = {
      {{4, 9}, false, false},         {{9, 4}, true, true},           {{2e10, kNone}, true, false},
      {{kNone, kNone}, false, false}, {{-kNone, -2e10}, true, false}, {{3e10, 2e10}, true, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(fixed.StopsAt(c.bounds), c.of_fixed) << c.bounds.LowerBound;
    EXPECT_EQ(free.StopsAt(c.bounds), c.of_free) << c.bounds.LowerBound;
  }
}

TEST(RecordLosses, NameRecordsByTheirPublicNumbers) {
  HandMadeModel made;
  made.build.Row("A", 'L').Row("B", 'L').Column("X").Column("Y");
  Losses losses;
  const RecordLosses told(made.model.store().data(), FileLayout::kFixed, losses);
  told.AddRow(LossKind::kEmptyRow, 2, "is so");
  told.AddColumn(LossKind::kEmptyColumn, 1, "is too");
  EXPECT_EQ(losses.groups()[0].named[0].Sentence(), "row B (number 1) is so");
  EXPECT_EQ(losses.groups()[1].named[0].Sentence(), "column X (number 0) is too");
}

}  // namespace
}  // namespace quarvel::mps
