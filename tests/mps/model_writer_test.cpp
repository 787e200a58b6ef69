#include "mps/model_writer.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "mps/read_file.h"
#include "tests/support/test_paths.h"

namespace quarvel::mps {
namespace {

TEST(ModelWriter, WritesAsManyLinesAsAreForetoldButForHeaders) {
  for (const char* const name : {"diet.mps", "transport.mps", "ranges.mps", "knapsack.mps"}) {
    model::ModelStore store;
    const FileFacts facts = ReadFile(SourceFolder() + "/examples/" + name, {}, store).facts;
    ASSERT_NE(store.NumberOfElements(), 0) << name;
    for (const FileLayout layout : {FileLayout::kFree, FileLayout::kFixed}) {
      std::string text;
      ModelWriter(store, layout, facts).Write([&text](std::string_view piece) { text += piece; });
      const auto lines = static_cast<std::int64_t>(std::count(text.begin(), text.end(), '\n'));
      EXPECT_NEAR(static_cast<double>(lines), static_cast<double>(LinesToWrite(store)), 20) << name;
      EXPECT_TRUE(text.ends_with("ENDATA\r\n")) << name;
    }
  }
}

}  // namespace
}  // namespace quarvel::mps
