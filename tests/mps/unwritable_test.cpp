#include "mps/unwritable.h"

#include <functional>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/mps/odd_models.h"
#include "tests/mps/read_helpers.h"
#include "tests/mps/write_helpers.h"
#include "tests/support/test_length.h"

namespace quarvel::mps {
namespace {

constexpr double kInfinite = model::BoundLimit;

using Names = std::vector<std::string>;

// The names of all kinds of loss that a model has.
Names KindsOf(const LPModel& model) {
  Names kinds;
  const Losses losses = LossesOf(model.store());
  for (const LossGroup& group : losses.groups()) kinds.emplace_back(NameOf(group.kind));
  return kinds;
}

TEST(Unwritable, IsNothingOfAPlainModel) {
  HandMadeModel made;
  made.build.Name("GOOD").Description("One.\r\n\r\nTwo.");
  made.build.Row("COST", 'N').Row("G", 'G', -3.25).Row("L", 'L', 4).Row("E", 'E', 1e9);
  made.build.Ranged("RG", 2, 5).Ranged("ROWS", 0, 1).Row("*ENDATA", 'L').Row("'MARKER'", 'G');
  made.build.Column("FREE", -kInfinite, kInfinite).Column("FIX", 3, 3).Column("NEG", -5, -2);
  made.build.Column("LONGCOLUMNNAME", 0.12345678912345, kInfinite)
      .Column("RHS")
      .Integer("INT", 0, 1);
  for (const char* const row : {"COST", "G", "L", "E", "RG", "ROWS", "*ENDATA", "'MARKER'"}) {
    for (const char* const column : {"FREE", "FIX", "NEG", "LONGCOLUMNNAME", "RHS", "INT"}) {
      made.build.Element(column, row, -0.0001220703);
    }
  }
  EXPECT_EQ(KindsOf(made.model), Names());
}

TEST(Unwritable, IsNamedByItsKind) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const struct {
    std::function<void(ModelBuilder&)> build;
    Names kinds;
  } cases[] = {
      {[](ModelBuilder& b) { b.Row("", 'L').Element("X", "", 1); }, {"empty-name"}},
      {[](ModelBuilder& b) { b.Row("A B", 'L').Element("X", "A B", 1); }, {"blank-in-name"}},
      {[](ModelBuilder& b) { b.Row("A\rB", 'L').Element("X", "A\rB", 1); }, {"line-end"}},
      {[](ModelBuilder& b) { b.Row("\xC3", 'L').Element("X", "\xC3", 1); }, {"not-utf-8"}},
      {[](ModelBuilder& b) {
         b.Column("r", 0, 1).Column("R", 0, 1).Element("r", "R", 1).Element("R", "R", 1);
       },
       {"name-twice", "name-case"}},
      {[](ModelBuilder& b) { b.Column("X", 0, 1); }, {"name-twice", "limit-of-empty"}},
      {[](ModelBuilder& b) { b.Row("'marker'", 'L').Column("Y").Element("Y", "'marker'", 1); },
       {"marker-name", "name-case"}},
      {[](ModelBuilder& b) {
         b.Column("INTEND").Element("INTEND", "R", 1).Integer("I").Element("I", "R", 1);
       },
       {"marker-name"}},
      {[](ModelBuilder& b) { b.RowWithin("T", ModelBuilder::kNoType, 0, 0).Element("X", "T", 1); },
       {"no-row-type"}},
      {[nan](ModelBuilder& b) { b.Row("T", 'L').Element("X", "T", nan); }, {"not-finite"}},
      {[nan](ModelBuilder& b) { b.RowWithin("T", 'G', nan, 1e10).Element("X", "T", 1); },
       {"not-finite"}},
      {[](ModelBuilder& b) { b.RowWithin("T", 'G', 0, 5).Element("X", "T", 1); }, {"row-limits"}},
      {[](ModelBuilder& b) { b.RowWithin("T", 'L', 0, 5).Element("X", "T", 1); }, {"row-limits"}},
      {[](ModelBuilder& b) { b.RowWithin("T", 'E', 4, 5).Element("X", "T", 1); }, {"row-limits"}},
      {[](ModelBuilder& b) { b.Row("T", 'E', 9999999999.9999999).Element("X", "T", 1); },
       {"row-type"}},
      {[](ModelBuilder& b) { b.Row("T", 'G', -9999999999.999998).Element("X", "T", 1); },
       {"row-limits"}},
      {[](ModelBuilder& b) { b.Ranged("T", 5, 4).Element("X", "T", 1); }, {"reversed"}},
      {[](ModelBuilder& b) { b.Ranged("T", 1, 1 + 1e-12).Element("X", "T", 1); }, {"row-limits"}},
      {[](ModelBuilder& b) { b.Ranged("T", 5, 5).Element("X", "T", 1); }, {"row-type"}},
      {[](ModelBuilder& b) { b.Ranged("T", 0.1, 0.3).Element("X", "T", 1); }, {"digits"}},
      {[](ModelBuilder& b) { b.Column("Y", -kInfinite, 5).Element("Y", "R", 1); },
       {"column-bounds"}},
      {[](ModelBuilder& b) { b.Column("Y", 2, 1).Element("Y", "R", 1); }, {"reversed"}},
      {[](ModelBuilder& b) { b.Column("Y", 2e10, kInfinite).Element("Y", "R", 1); }, {"reversed"}},
      {[](ModelBuilder& b) { b.Column("Y", kInfinite, kInfinite).Element("Y", "R", 1); },
       {"column-bounds"}},
      {[](ModelBuilder& b) { b.Column("Y", -kInfinite, -kInfinite).Element("Y", "R", 1); },
       {"column-bounds"}},
      {[](ModelBuilder& b) { b.Column("Y", 1e30, 1e30).Element("Y", "R", 1); }, {}},
      {[](ModelBuilder& b) { b.Column("Y", 9, 9).Element("Y", "R", 1); }, {}},
      {[](ModelBuilder& b) { b.Column("Y", 0, 1, 'B').Element("Y", "R", 1); }, {"column-type"}},
      {[](ModelBuilder& b) { b.Column("Y", 0, 1e-13).Element("Y", "R", 1); }, {"column-bounds"}},
      {[](ModelBuilder& b) { b.Column("Y", 0, 1.0 / 3).Element("Y", "R", 1); }, {"digits"}},
      {[](ModelBuilder& b) { b.Column("Y", -1, kInfinite); }, {"limit-of-empty"}},
      {[](ModelBuilder& b) { b.Column("Y", 0, 0); }, {"limit-of-empty"}},
      {[](ModelBuilder& b) { b.Column("Y", -kInfinite, kInfinite); }, {"limit-of-empty"}},
      {[](ModelBuilder& b) { b.Column("Y"); }, {"empty-column"}},
      {[](ModelBuilder& b) { b.Row("T", 'E', 1); }, {"limit-of-empty"}},
      {[](ModelBuilder& b) { b.Ranged("T", 0, 0); }, {"limit-of-empty"}},
      {[](ModelBuilder& b) { b.Row("T", 'N'); }, {"empty-row"}},
      {[](ModelBuilder& b) { b.Column("Y").Element("Y", "R", 4e-11); }, {"emptied", "vanishes"}},
      {[](ModelBuilder& b) { b.Row("T", 'L').Element("X", "T", 0); }, {"emptied", "vanishes"}},
      {[](ModelBuilder& b) { b.Element("X", "R", 4e-11); }, {"vanishes"}},
      {[](ModelBuilder& b) { b.Element("X", "R", 1.0 / 3); }, {"digits"}},
      {[](ModelBuilder& b) {
         b.Integer("I").Element("I", "R", 1).Column("Y").Element("Y", "R", 1);
       },
       {"column-order", "element-order"}},
      {[](ModelBuilder& b) { b.Column("Y").Element("Y", "R", 1).Element("X", "R", 3); },
       {"element-order"}},
      {[](ModelBuilder& b) { b.Element("X", "R", 3); }, {}},
      {[](ModelBuilder& b) { b.RowWithin("T", 'N', 0, 5).Element("X", "T", 1); },
       {"free-row-limits"}},
      {[](ModelBuilder& b) { b.Name("Good"); }, {"model-name"}},
      {[](ModelBuilder& b) { b.Name("GOOD ONE"); }, {"model-name"}},
      {[](ModelBuilder& b) { b.Name("GOOD\nROWS"); }, {"line-end"}},
      {[](ModelBuilder& b) { b.Name(" "); }, {"model-name"}},
      {[](ModelBuilder& b) { b.Description("a\nENDATA"); }, {"line-end"}},
      {[](ModelBuilder& b) { b.Description("a\r\n\r\n"); }, {"description"}},
      {[](ModelBuilder& b) { b.Description("\r\na"); }, {"description"}},
      {[](ModelBuilder& b) { b.Description("a\tb"); }, {"control-character"}},
      {[](ModelBuilder& b) { b.Row("T\x7F", 'L').Element("X", "T\x7F", 1); },
       {"control-character"}},
  };
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    HandMadeModel made;
    made.build.Row("R", 'L', 4).Column("X", 0, 5).Element("X", "R", 2);
    cases[i].build(made.build);
    EXPECT_EQ(KindsOf(made.model), cases[i].kinds) << "case " << i;
  }
}

TEST(Unwritable, FindsLinesThatAreTooLong) {
  // One fits on a line, two with a value of any length may not.
  const std::string half((std::size_t{1} << 19) - 200, 'A');
  const std::string whole((std::size_t{1} << 20) - 300, 'A');
  const struct {
    std::string row;
    std::string column;
    Names kinds;
  } cases[] = {{half, "X", {}},
               {half, half + "B", {"long-line"}},
               {whole, "X", {"long-line"}},
               {"R", whole, {"long-line"}}};
  for (const auto& c : cases) {
    HandMadeModel made;
    made.build.Row(c.row, 'L').Column(c.column).Element(c.column, c.row, 1);
    EXPECT_EQ(KindsOf(made.model), c.kinds) << c.row.size() << ' ' << c.column.size();
  }
}

// --- odd models, written and read back ---

// What is there, whatever it is called and in whatever order.
struct Counts {
  int rows = 0;
  int columns = 0;
  int integers = 0;

  explicit Counts(const LPModel& model) {
    const model::ModelData& data = model.store().data();
    for (const auto& row : data.Rows) rows += row.ElementCount() > 0 ? 1 : 0;
    for (const auto& column : data.Columns) {
      if (column.ElementCount() == 0) continue;
      ++columns;
      if (column.Type == model::ColumnType::kInteger) ++integers;
    }
  }
  bool operator==(const Counts&) const = default;
};

// What a read made is known to be alike, as long as no value was set since.
TEST(Unwritable, FindsAValueThatOnlyOneListHas) {
  ReadSession session;
  session.otherwise = kNo;
  ASSERT_EQ(session.Read("NAME\nROWS\n N  C\n L  A\nCOLUMNS\n X C 1 A 1\n X A 2\nENDATA\n"), -1);
  EXPECT_EQ(KindsOf(session.model), Names());
  session.model.store().SetElementValue(2, 2, 7);
  EXPECT_EQ(KindsOf(session.model), Names{"lists-differ"});
}

TEST(Unwritable, IsAllThatAWrittenModelReadsBackWithout) {
  const int models = TestLength(1600);
  int same = 0;
  int noted = 0;
  int refused = 0;
  ReadSession session;
  session.otherwise = kNo;
  for (int seed = 0; seed < models; ++seed) {
    const double oddness[] = {0, 0.01, 0.03, 0.2};
    HandMadeModel made;
    BuildOddModel(static_cast<unsigned>(seed), oddness[seed % 4], made.build);
    if (made.model.NumberOfElements() == 0) continue;
    const Losses losses = LossesOf(made.model.store());
    if (losses.Has(LossWeight::kBreaks) || losses.Has(LossWeight::kChanges)) {
      ++refused;
      continue;
    }
    const std::string text = made.Write().text;
    ASSERT_EQ(session.Read(text), -1) << seed << '\n' << text;
    if (losses.groups().empty()) {
      ++same;
      ASSERT_EQ(Everything(made.model.store().data()), Everything(session.model.store().data()))
          << seed << '\n'
          << text;
    } else {
      ++noted;
      ASSERT_TRUE(Counts(made.model) == Counts(session.model)) << seed << '\n' << text;
    }
  }
  EXPECT_GT(same, models / 5);
  EXPECT_GT(noted, models / 10);
  EXPECT_GT(refused, models / 10);
}

}  // namespace
}  // namespace quarvel::mps
