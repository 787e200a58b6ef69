// The fixture of the tests that save: a model with one coefficient, and a folder for its files.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/automation_error.h"
#include "tests/mps/write_helpers.h"
#include "tests/support/model_builder.h"
#include "tests/support/test_paths.h"

namespace quarvel::mps {

using Boxes = std::vector<platform::ShownBox>;

inline constexpr std::int16_t kSaved = -1;
inline constexpr std::int16_t kCancelled = 0;
inline constexpr std::int16_t kNotSaved = 1;

inline constexpr std::string_view kNotStandard =
    "The file written is not a standard MPS file, since at least one of the row or column names or "
    "element values was too long";
inline constexpr std::string_view kSmallModel =
    "ROWS\r\n N  COST\r\nCOLUMNS\r\n    X         COST                1.\r\nRHS\r\nBOUNDS\r\n"
    "ENDATA\r\n";

// A model with one coefficient, and a folder to save it in.
class Saving : public ::testing::Test, protected HandMadeModel {
 protected:
  Saving() { build.Row("COST", 'N').Column("X").Element("X", "COST", 1); }

  // The model was read from `name`, which holds something older than the model.
  void OwnFile(const std::string& name) {
    WriteWholeFile(name, kOldText);
    build.Location(name);
  }
  // A save fails in the middle: a coefficient stands at a row that is not there.
  void BreakModel() {
    ChangeFields(model, [](model::ModelData& data) { data.Columns[1].Elements[1].Index = 99; });
  }
  void MakeFolder(const std::string& name) {
    ASSERT_TRUE(std::filesystem::create_directory(ToPath(name)));
  }
  static Boxes Box(std::string_view text) {
    return {{std::string(text), platform::MsgBoxStyle::kOk, std::string(platform::kDefaultTitle)}};
  }
  static Boxes Box(RunTimeError error) { return Box(Describe(error)); }

  static constexpr std::string_view kOldText = "what the file held\n";
  TemporaryFolder folder;
  const std::string path = folder.File("model.mps");
  const std::string backup = folder.File("model.bkp");
};

}  // namespace quarvel::mps
