#include "mps/fact_losses.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/mps/write_helpers.h"

namespace quarvel::mps {
namespace {

Lines LossesWith(const HandMadeModel& made, const FileFacts& facts, FileLayout layout) {
  Losses losses;
  AddFactLosses(made.model.store(), facts, layout, losses);
  Lines words;
  for (const LossGroup& group : losses.groups()) {
    for (const Loss& loss : group.named) words.push_back(loss.Sentence());
  }
  return words;
}

TEST(FactLosses, AreWhatFixedColumnsDoNotSay) {
  HandMadeModel made;
  made.build.Row("EMPTY", 'N').Row("OTHER", 'N').Row("COST", 'N').Column("X");
  made.build.Element("X", "OTHER", 1).Element("X", "COST", 1);
  const FileFacts facts = {.sense = ObjectiveSense::kMaximize,
                           .objective = "COST",
                           .objective_constant = -2.5,
                           .rhs_set = "B 1",
                           .ranges_set = "RANGE",
                           .bounds_set = "BND"};
  EXPECT_EQ(
      LossesWith(made, facts, FileLayout::kFixed),
      (Lines{"the objective is to be maximized, which the file does not say; --layout free does",
             "the objective's constant -2.5 is left out; --layout free keeps it",
             "row OTHER (number 1) is the first of type N in the file and would be taken for "
             "the objective, which is COST",
             "the set B 1 is called RHS", "the set BND is called BOUND"}));
  EXPECT_EQ(LossesWith(made, facts, FileLayout::kFree), (Lines{"the set B 1 is called RHS"}));
  FileFacts blanks;
  blanks.rhs_set = "A";
  blanks.ranges_set = "R 1";
  blanks.bounds_set = "B 1";
  EXPECT_EQ(LossesWith(made, blanks, FileLayout::kFree),
            (Lines{"the set R 1 is called RANGE", "the set B 1 is called BOUND"}));
}

TEST(FactLosses, AreNoneOfAFileThatSaysWhatIsUsual) {
  HandMadeModel made;
  made.build.Row("COST", 'N').Row("FREE", 'N').Column("X").Element("X", "COST", 1);
  FileFacts facts;
  facts.sense = ObjectiveSense::kMinimize;
  facts.objective = "COST";
  facts.rhs_set = "RHS";
  EXPECT_EQ(LossesWith(made, facts, FileLayout::kFixed), Lines());
  EXPECT_EQ(LossesWith(made, {}, FileLayout::kFixed), Lines());
}

}  // namespace
}  // namespace quarvel::mps
