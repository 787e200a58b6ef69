#include "mps/exact_losses.h"

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "mps/exact_writer.h"
#include "mps/read_file.h"
#include "tests/mps/odd_models.h"
#include "tests/mps/write_helpers.h"
#include "tests/support/test_length.h"
#include "tests/support/test_paths.h"

namespace quarvel::mps {
namespace {

Lines KindsOf(const Losses& losses) {
  Lines kinds;
  for (const LossGroup& group : losses.groups()) kinds.emplace_back(NameOf(group.kind));
  return kinds;
}

TEST(ExactLosses, AreFewerThanThoseOfTheComponentsFile) {
  HandMadeModel made;
  made.build.Description("a\r\n\r\n");
  made.build.Row("EMPTY", 'E', 5).Row("R", 'L', 1.0 / 3).Ranged("RG", 0.1, 0.3);
  made.build.Integer("I")
      .Column("Y", -model::BoundLimit, 5)
      .Column("NONE", 2, 3)
      .Column("REV", 2, 1);
  made.build.Element("Y", "R", 1e-300).Element("I", "R", 1.0 / 3);
  // The row's own list has them in the order of the columns only where they were added so.
  made.build.Element("Y", "RG", 1);
  EXPECT_EQ(KindsOf(ExactLossesOf(made.model.store(), {})), Lines({"reversed", "element-order"}));
  FileFacts facts;
  facts.sense = ObjectiveSense::kMaximize;
  facts.objective_constant = 4;
  const Losses fixed = LossesOf(made.model.store(), facts, FileLayout::kFixed);
  for (const LossKind kind : {LossKind::kSense, LossKind::kConstant, LossKind::kLimitOfEmpty,
                              LossKind::kColumnOrder, LossKind::kDigits, LossKind::kVanishes}) {
    EXPECT_EQ(fixed.CountOf(kind) > 0, true) << NameOf(kind);
  }
}

TEST(ExactLosses, AreNamedByTheirKind) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const struct {
    std::function<void(ModelBuilder&)> build;
    Lines kinds;
  } cases[] = {
      {[](ModelBuilder& b) { b.Row("", 'L'); }, {"empty-name"}},
      {[](ModelBuilder& b) { b.Row("A B", 'L'); }, {}},
      {[](ModelBuilder& b) { b.Row(" AB", 'L'); }, {"blank-in-name"}},
      {[](ModelBuilder& b) { b.Row("A LONG ONE", 'L'); }, {"blank-in-name"}},
      {[](ModelBuilder& b) { b.Row("A B", 'L', 1.0 / 3); }, {"blank-in-name"}},
      {[](ModelBuilder& b) { b.Row("A\tB", 'L'); }, {"blank-in-name", "control-character"}},
      {[](ModelBuilder& b) { b.Row("A\nB", 'L'); }, {"line-end"}},
      {[](ModelBuilder& b) { b.Column("r").Column("R"); }, {"name-twice", "name-case"}},
      {[](ModelBuilder& b) { b.Row("'MARKER'", 'L'); }, {"marker-name"}},
      {[](ModelBuilder& b) { b.RowWithin("T", ModelBuilder::kNoType, 0, 0); }, {"no-row-type"}},
      {[nan](ModelBuilder& b) { b.Row("T", 'L').Element("X", "T", nan); }, {"not-finite"}},
      {[nan](ModelBuilder& b) { b.RowWithin("T", 'G', nan, 1e10); }, {"not-finite"}},
      {[nan](ModelBuilder& b) { b.Column("Y", nan, 1e10); }, {"not-finite"}},
      {[](ModelBuilder& b) { b.RowWithin("T", 'G', 0, 5); }, {"row-type"}},
      {[](ModelBuilder& b) { b.Ranged("T", 5, 4); }, {"reversed"}},
      {[](ModelBuilder& b) { b.Column("Y", 0, -4); }, {"reversed"}},
      {[](ModelBuilder& b) { b.Column("Y", 2e10, 1e10).Column("Z", -1e10, -2e10); }, {}},
      {[](ModelBuilder& b) { b.Column("Y", 1e10, 1e10).Column("Z", -1e10, -1e10); }, {}},
      {[](ModelBuilder& b) { b.RowWithin("T", 'G', 2e10, 1e10); }, {}},
      {[](ModelBuilder& b) { b.Ranged("T", -1.0000000000000002, 1.0000000000000004); }, {"digits"}},
      {[](ModelBuilder& b) { b.Column("Y", 0, 1, 'B'); }, {"column-type"}},
      {[](ModelBuilder& b) { b.Row("T", 'L').Element("X", "T", 0); }, {"vanishes"}},
      {[](ModelBuilder& b) { b.RowWithin("T", 'N', 0, 5); }, {"free-row-limits"}},
      {[](ModelBuilder& b) { b.Name("GOOD ONE"); }, {"model-name"}},
      {[](ModelBuilder& b) { b.Description("\r\na"); }, {"description"}},
      {[](ModelBuilder& b) { b.Description("a\r\n\r\n"); }, {}},
      {[](ModelBuilder& b) { b.Description(kConstantNote); }, {"description"}},
  };
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    HandMadeModel made;
    made.build.Row("R", 'L', 4).Column("X", 0, 5).Element("X", "R", 2);
    cases[i].build(made.build);
    EXPECT_EQ(KindsOf(ExactLossesOf(made.model.store(), {})), cases[i].kinds) << "case " << i;
  }
}

TEST(ExactLosses, AreAllThatAModelReadsBackWithout) {
  const int models = TestLength(1600);
  int same = 0;
  int lossy = 0;
  const TemporaryFolder folder(TemporaryFolder::Place::kInMemory);
  const std::string path = folder.File("a.mps");
  for (int seed = 0; seed < models; ++seed) {
    const double oddness[] = {0, 0.01, 0.03, 0.2};
    HandMadeModel made;
    BuildOddModel(static_cast<unsigned>(seed), oddness[seed % 4], made.build);
    const model::ModelStore& store = made.model.store();
    // Names with blanks need a reader that knows fixed columns.
    if (store.NumberOfElements() == 0 || NeedsFixedColumns(store.data())) continue;
    if (!ExactLossesOf(store, {}).groups().empty()) {
      ++lossy;
      continue;
    }
    ++same;
    std::string text;
    ExactWriter(store, {}).Write([&text](std::string_view piece) { text += piece; });
    WriteWholeFile(path, text);
    model::ModelStore back;
    ASSERT_EQ(ReadFile(path, {}, back).outcome, ReadOutcome::kRead) << seed << '\n' << text;
    ASSERT_EQ(Everything(store.data()), Everything(back.data())) << seed << '\n' << text;
  }
  EXPECT_GT(same, models / 3);
  EXPECT_GT(lossy, models / 10);
}

}  // namespace
}  // namespace quarvel::mps
