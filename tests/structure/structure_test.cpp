#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/structure/include_rules.h"
#include "tests/structure/project_sources.h"

namespace quarvel {
namespace {

struct Case {
  const char* path;
  const char* line;
  bool allowed;
};

const Case kCases[] = {
    {"mps/a.cpp", "#include \"model/model_store.h\"", true},
    {"mps/a.cpp", "#include \"mps/b.h\"", true},
    {"model/a.cpp", "#include \"mps/b.h\"", false},
    {"text/a.cpp", "#include \"platform/files.h\"", false},
    {"mps/a.cpp", "#include \"simplify/b.h\"", false},
    {"simplify/a.cpp", "#include \"mps/b.h\"", true},
    {"inspect/a.cpp", "#include \"mps/b.h\"", true},
    {"inspect/a.cpp", "#include \"component/b.h\"", false},
    {"viewer/a.cpp", "#include \"hosts/b.h\"", false},
    {"viewer/a.cpp", "#include \"component/b.h\"", false},
    {"component/a.cpp", "#include \"viewer/b.h\"", true},
    {"hosts/a.cpp", "#include \"automation/b.h\"", false},
    {"model/a.cpp", "#include \"tests/support/b.h\"", false},
    {"model/a.cpp", "#include \"lp_model.h\"", false},
    {"mps/a.cpp", "#include \"platform/form.h\"", true},
    {"mps/a.cpp", "#include \"platform/scripted/b.h\"", false},
    {"platform/a.cpp", "#include \"platform/posix/b.h\"", false},
    {"platform/qt/a.cpp", "#include \"platform/win32/b.h\"", false},
    {"platform/qt/a.cpp", "#include \"platform/qt/b.h\"", true},
    {"platform/qt/a.cpp", "#include \"platform/form.h\"", true},
    {"platform/qt/a.cpp", "#include \"viewer/b.h\"", false},
    {"hosts/a.cpp", "#include \"platform/console/b.h\"", true},
    {"model/a.cpp", "#include <vector>", true},
    {"model/a.cpp", "#include <unistd.h>", false},
    {"platform/posix/a.cpp", "#include <sys/stat.h>", true},
    {"hosts/a.cpp", "#include <unistd.h>", false},
    {"hosts/a_posix.cpp", "#include <unistd.h>", true},
    {"model/a.cpp", "#  include <windows.h>", false},
    {"platform/console/a.cpp", "#include <windows.h>", false},
    {"platform/console/a_win32.cpp", "#include <windows.h>", true},
    {"model/a_win32.cpp", "#include <windows.h>", false},
    {"platform/win32/a.cpp", "#include <windows.h>", true},
    {"hosts/a_win32.cpp", "#include <windows.h>", true},
    {"platform/win32/a.cpp", "#include <oleauto.h>", false},
    {"automation/a.cpp", "#include <oleauto.h>", true},
    {"automation/a.cpp", "#include \"platform/win32/b.h\"", true},
    {"viewer/a.cpp", "#include <quarvel_idl.h>", false},
    {"api/a.cpp", "#include \"quarvel/model.h\"", true},
    {"api/a.cpp", "#include \"inspect/b.h\"", true},
    {"api/a.cpp", "#include \"hosts/b.h\"", false},
    {"hosts/a.cpp", "#include \"api/b.h\"", false},
    {"hosts/a.cpp", "#include \"quarvel/model.h\"", false},
    {"include/quarvel/a.h", "#include \"quarvel/b.h\"", true},
    {"include/quarvel/a.h", "#include <vector>", true},
    {"include/quarvel/a.h", "#include \"model/model_store.h\"", false},
    {"include/quarvel/a.h", "#include \"api/b.h\"", false},
    {"python/a.cpp", "#include \"quarvel/model.h\"", true},
    {"python/a.cpp", "#include \"api/parts.h\"", false},
    {"python/a.cpp", "#include \"component/b.h\"", true},
    {"python/a.cpp", "#include \"hosts/b.h\"", false},
    {"python/a.cpp", "#include \"hosts/packing/b.h\"", true},
    {"hosts/packing/a.cpp", "#include \"python/b.h\"", false},
    {"hosts/packing/a.cpp", "#include \"hosts/b.h\"", false},
    {"hosts/packing/a.cpp", "#include \"component/b.h\"", false},
    {"hosts/packing/a.cpp", "#include \"platform/byte_source.h\"", true},
    {"api/a.cpp", "#include \"hosts/packing/b.h\"", false},
    {"python/a.cpp", "#include \"api/streams.h\"", true},
    {"python/a.cpp", "#include <pybind11/pybind11.h>", true},
    {"api/a.cpp", "#include <pybind11/pybind11.h>", false},
    {"hosts/a.cpp", "#include <zlib.h>", true},
    {"mps/a.cpp", "#include <zlib.h>", false},
    {"viewer/a.cpp", "#include <QWidget>", false},
    {"platform/qt/a.cpp", "#include <QWidget>", true},
    {"tests/mps/a.cpp", "#include \"platform/scripted/b.h\"", true},
    {"model/a.cpp", "// #include \"mps/b.h\"", true},
};

TEST(IncludeRules, TellAllowedIncludesFromOthers) {
  for (const Case& c : kCases) {
    EXPECT_EQ(IncludeViolations(c.path, c.line).empty(), c.allowed) << c.path << ": " << c.line;
  }
}

TEST(IncludeRules, NameTheFileTheLineAndTheInclude) {
  const auto violations = IncludeViolations("model/a.cpp", "\n\n#include \"mps/b.h\"\nint x;\n");
  ASSERT_EQ(violations.size(), 1u);
  EXPECT_EQ(violations[0], "model/a.cpp:3 includes mps/b.h, which does not go downwards");
}

TEST(IncludeRules, FindFilesThatIncludeEachOther) {
  const std::map<std::string, std::string> sources = {
      {"model/a.h", "#include \"model/b.h\"\n#include \"text/t.h\"\n"},
      {"model/b.h", "#include <vector>\n#include \"model/c.h\"\n"},
      {"model/c.h", "#include \"model/a.h\"\n"},
      {"text/t.h", "#include <string>\n"}};
  EXPECT_EQ(IncludeCircles(sources),
            std::vector<std::string>{"model/a.h -> model/b.h -> model/c.h -> model/a.h"});
  EXPECT_TRUE(IncludeCircles({{"model/a.h", sources.at("model/a.h")}}).empty());
}

TEST(Structure, HasSourcesInTheLowerRooms) {
  for (const char* room : {"text/", "platform/", "model/", "mps/"}) {
    const auto first = ProjectSources().lower_bound(room);
    EXPECT_TRUE(first != ProjectSources().end() && first->first.starts_with(room)) << room;
  }
}

TEST(Structure, IncludesGoDownwardsOnly) {
  for (const auto& [path, source] : ProjectSources()) {
    for (const std::string& violation : IncludeViolations(path, source)) {
      ADD_FAILURE() << violation;
    }
  }
}

TEST(Structure, IncludesDrawNoCircle) {
  for (const std::string& circle : IncludeCircles(ProjectSources())) ADD_FAILURE() << circle;
}

TEST(Structure, KeepsFilesWithinFourHundredLines) {
  for (const auto& [path, source] : ProjectSources()) {
    EXPECT_LE(std::count(source.begin(), source.end(), '\n'), 400) << path;
  }
}

TEST(Structure, GuardsEveryHeaderWithPragmaOnce) {
  for (const auto& [path, source] : ProjectSources()) {
    if (!path.ends_with(".h")) continue;
    EXPECT_NE(source.find("\n#pragma once\n"), std::string::npos) << path;
  }
}

}  // namespace
}  // namespace quarvel
