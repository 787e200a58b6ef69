#include "quarvel/model.h"

#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "model/about.h"
#include "tests/api/api_model.h"

namespace quarvel {
namespace {

using testing::ErrorOf;
using testing::SmallApiModel;

TEST(ApiModel, IsEmptyAtFirst) {
  const Model model;
  EXPECT_EQ(model.row_count(), 0);
  EXPECT_EQ(model.column_count(), 0);
  EXPECT_EQ(model.element_count(), 0);
  EXPECT_EQ(model.name(), "");
  EXPECT_EQ(model.description(), "");
  EXPECT_EQ(model.path(), "");
  EXPECT_EQ(model.facts(), Facts{});
}

TEST(ApiModel, HasTextsOfItsOwn) {
  Model model;
  model.set_name("Ärger");
  model.set_description("one\r\ntwo");
  EXPECT_EQ(model.name(), "Ärger");
  EXPECT_EQ(model.description(), "one\r\ntwo");
}

TEST(ApiModel, CanBeMovedAndCopied) {
  Model model = SmallApiModel();
  Model copy = model.Copy();
  copy.RenameRow(0, "OTHER");
  copy.set_name("COPY");
  EXPECT_EQ(model.NameOfRow(0), "COST");
  EXPECT_EQ(model.name(), "SMALL");
  EXPECT_EQ(copy.NameOfRow(0), "OTHER");
  Model moved = std::move(model);
  EXPECT_EQ(moved.element_count(), 5);
  model = std::move(copy);
  EXPECT_EQ(model.name(), "COPY");
  model = Model();
  EXPECT_EQ(model.row_count(), 0);
}

TEST(ApiModel, KeepsFactsThatFitIt) {
  Model model = SmallApiModel();
  const Facts facts = {.sense = ObjectiveSense::kMaximize,
                       .objective = "COST",
                       .objective_constant = 7.5,
                       .rhs_set = "R",
                       .ranges_set = "G",
                       .bounds_set = "B"};
  model.set_facts(facts);
  EXPECT_EQ(model.facts(), facts);
}

TEST(ApiModel, RefusesFactsThatDoNot) {
  Model model = SmallApiModel();
  EXPECT_EQ(ErrorOf([&] { model.set_facts({.objective = "NONE"}); }), ErrorCode::kValue);
  EXPECT_EQ(ErrorOf([&] { model.set_facts({.objective = "LIMIT"}); }), ErrorCode::kValue);
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(ErrorOf([&] { model.set_facts({.objective_constant = infinity}); }), ErrorCode::kValue);
  EXPECT_EQ(model.facts(), Facts{});
}

TEST(ApiModel, TellsTheVersionOfTheLibrary) { EXPECT_EQ(Version(), model::ProductVersion()); }

TEST(ApiModel, ThrowsErrorsWithACodeAndAText) {
  const Model model;
  try {
    static_cast<void>(model.NameOfRow(3));
    FAIL() << "nothing was thrown";
  } catch (const std::runtime_error& error) {
    EXPECT_NE(std::string(error.what()).find('3'), std::string::npos) << error.what();
  }
}

}  // namespace
}  // namespace quarvel
