#include "model/record_kind.h"

#include <string>

#include <gtest/gtest.h>

#include "component/lp_model.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/model_builder.h"

namespace quarvel {
namespace {

class RecordKindTest : public ::testing::Test {
 protected:
  RecordKindTest() {
    ModelBuilder(model_)
        .Row("COST", 'N')
        .Ranged("RNG", 2, 8)
        .Column("X")
        .Integer("Y", 1, 10)
        .Column("Z")
        .Element("X", "RNG", 3)
        .Element("Y", "RNG", 4);
  }

  // "NAME type lower upper elements".
  std::string Text(const model::RecordKind& kind, std::int32_t i) {
    return (model_.*kind.name)(i) + ' ' + (model_.*kind.type)(i) + ' ' +
           std::to_string((model_.*kind.lower)(i)) + ' ' + std::to_string((model_.*kind.upper)(i)) +
           ' ' + std::to_string((model_.*kind.elements)(i));
  }

  platform::ScriptedDesktop desktop_;
  LPModel model_{desktop_};
};

TEST_F(RecordKindTest, AsksForRows) {
  EXPECT_EQ((model_.*model::kRowKind.count)(), 2);
  EXPECT_EQ(Text(model::kRowKind, 1), "RNG R 2.000000 8.000000 2");
  EXPECT_EQ((model_.*model::kRowKind.element_at)(1, 1), 1);
  EXPECT_EQ((model_.*model::kRowKind.element_value)(1, 1), 4);
  EXPECT_EQ(model::kRowKind.find(model_.store(), "RNG"), 2);
}

TEST_F(RecordKindTest, AsksForColumns) {
  EXPECT_EQ((model_.*model::kColumnKind.count)(), 3);
  EXPECT_EQ(Text(model::kColumnKind, 1), "Y I 1.000000 10.000000 1");
  EXPECT_EQ((model_.*model::kColumnKind.element_at)(1, 0), 1);
  EXPECT_EQ((model_.*model::kColumnKind.element_value)(1, 0), 4);
  EXPECT_EQ(model::kColumnKind.find(model_.store(), "Z"), 3);
}

TEST_F(RecordKindTest, EachChangesItsOwn) {
  for (const model::RecordKind* kind : {&model::kRowKind, &model::kColumnKind}) {
    const std::int32_t number = (model_.*kind->count)();
    EXPECT_EQ((model_.*kind->add)("NEW"), -1);
    ASSERT_EQ((model_.*kind->count)(), number + 1);
    (model_.*kind->set_type)(number, kind->first_type);
    (model_.*kind->set_lower)(number, -1);
    (model_.*kind->set_upper)(number, 5);
    (model_.*kind->set_name)(number, "LAST");
    EXPECT_EQ(Text(*kind, number),
              "LAST " + std::string(kind->first_type) + " -1.000000 5.000000 0");
    (model_.*kind->remove)(number);
    EXPECT_FALSE(HasRecord(model_, *kind, number));
    EXPECT_TRUE(HasRecord(model_, *kind, number - 1));
  }
  EXPECT_FALSE(HasRecord(model_, model::kRowKind, -1));
  EXPECT_EQ(desktop_.boxes().size(), 0u);
}

TEST(RecordKinds, StandAtEachOther) {
  EXPECT_EQ(&model::kRowKind.other, &model::kColumnKind);
  EXPECT_EQ(&model::kColumnKind.other, &model::kRowKind);
}

}  // namespace
}  // namespace quarvel
