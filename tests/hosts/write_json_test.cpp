#include "hosts/write_json.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/json_value.h"
#include "tests/support/run_quarvel.h"

namespace quarvel::hosts {
namespace {

TEST(WriteJson, TellsTheWholeStoryOfAConversion) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  const Outcome run = RunQuarvel({"convert", model, folder.Path("b.mps"), "--json"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(
      run.out,
      folder.Expand(
          "{\"input\":\"@a.mps\",\"output\":\"@b.mps\",\"outcome\":\"written\","
          "\"read\":{\"rows\":2,\"columns\":2,\"elements\":3},\"hasEndata\":true,\"problems\":[],"
          "\"simplified\":false,\"commands\":0,\"model\":{\"rows\":2,\"columns\":2,\"elements\":3},"
          "\"layout\":\"free\",\"fitsFixedColumns\":true,\"packing\":\"none\",\"inPlace\":false,"
          "\"receipt\":{\"readAgain\":true,\"whole\":true,\"equalRows\":2,\"equalColumns\":2,"
          "\"equalElements\":3,\"unexpected\":[]},\"losses\":[]}\n"));
}

TEST(WriteJson, TellsWhatWasReadAndWhatBecameOfIt) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  const Outcome run = RunQuarvel({"simplify", model, model, "--json"});
  EXPECT_EQ(run.status, 0) << run.err;
  const JsonValue story = JsonValue::Parse(run.out);
  EXPECT_EQ(story["simplified"].text(), "true");
  EXPECT_EQ(story["inPlace"].text(), "true");
  EXPECT_EQ(story["layout"].text(), "fixed");
  EXPECT_EQ(story["read"]["rows"].number(), 2);
  EXPECT_EQ(story["model"]["rows"].number(), 1);
}

TEST(WriteJson, CountsTheCommandsOfAnEdit) {
  const HostFolder folder;
  const std::string model = folder.Write("a.mps", kSmallModel);
  const Outcome run = RunQuarvel({"edit", model, folder.Path("b.mps"), "--json"},
                                 "set-bound X UP 7\n\nset-bound Y UP 8\n");
  EXPECT_EQ(JsonValue::Parse(run.out)["commands"].number(), 2) << run.err;
}

TEST(WriteJson, TellsAProblemOfEachCodeOnce) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "ROWS\n N C\n L R\n L S\n L T\nCOLUMNS\n X C 1 R 2\nRHS\n RHS R 4\n");
  const Outcome run =
      RunQuarvel({"convert", model, folder.Path("b.mps"), "--json", "--allow-missing-endata"});
  const JsonValue story = JsonValue::Parse(run.out);
  EXPECT_EQ(story["hasEndata"].text(), "false");
  ASSERT_EQ(story["problems"].size(), 2U) << run.out;
  EXPECT_EQ(story["problems"][0]["code"].text(), "W401");
  EXPECT_EQ(story["problems"][1]["code"].text(), "W501");
  EXPECT_EQ(story["problems"][1]["count"].number(), 2);
}

TEST(WriteJson, TellsWhyNothingWasWritten) {
  const HostFolder folder;
  const std::string model =
      folder.Write("a.mps", "ROWS\n N C\n L R\n L S\nCOLUMNS\n X C 1 R 2\nRHS\n RHS R 4\nENDATA\n");
  const Outcome strict = RunQuarvel(
      {"convert", model, folder.Path("b.mps"), "--json", "--layout", "fixed", "--strict"});
  EXPECT_EQ(strict.status, 1);
  const JsonValue lost = JsonValue::Parse(strict.out);
  EXPECT_EQ(lost["outcome"].text(), "losses");
  EXPECT_EQ(lost["losses"][0]["kind"].text(), "empty-row");
  EXPECT_EQ(lost["losses"][0]["weight"].text(), "noted");
  EXPECT_EQ(lost["losses"][0]["first"][0]["row"].text(), "S");
  EXPECT_EQ(lost["losses"][0]["first"][0]["index"].number(), 2);
  EXPECT_EQ(lost["losses"][0]["first"][0]["sentence"].text(),
            "row S (number 2) is left out: it has no elements");
  EXPECT_FALSE(folder.Has("b.mps"));
  const Outcome failed = RunQuarvel({"convert", model, folder.Path("no/b.mps"), "--json"});
  EXPECT_EQ(failed.status, 1);
  EXPECT_EQ(JsonValue::Parse(failed.out)["outcome"].text(), "failed");
  EXPECT_NE(JsonValue::Parse(failed.out)["failure"].text(), "");
}

}  // namespace
}  // namespace quarvel::hosts
