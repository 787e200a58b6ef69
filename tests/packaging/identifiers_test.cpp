// What the component's files say of its identity: quarvel.idl against the manifest that finds the
// component without the registry, against what is registered and against the resource file.

#include <map>
#include <regex>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/test_paths.h"

namespace quarvel {
namespace {

// What the first group of `pattern` matches first; "(none)" without a match.
std::string FirstMatch(const std::string& text, const std::string& pattern) {
  std::smatch match;
  return std::regex_search(text, match, std::regex(pattern)) ? match[1].str() : "(none)";
}

// The attributes of each element of that name, in the order of the file.
std::vector<std::map<std::string, std::string>> Elements(const std::string& manifest,
                                                         const std::string& name) {
  std::vector<std::map<std::string, std::string>> elements;
  const std::regex element("<" + name + "\\s([^>]*)>");
  const std::regex attribute("(\\w+)=\"([^\"]*)\"");
  const std::sregex_iterator end;
  for (std::sregex_iterator e(manifest.begin(), manifest.end(), element); e != end; ++e) {
    const std::string inside = (*e)[1];
    auto& attributes = elements.emplace_back();
    for (std::sregex_iterator a(inside.begin(), inside.end(), attribute); a != end; ++a) {
      attributes[(*a)[1]] = (*a)[2];
    }
  }
  return elements;
}

// "interface _LPModel" and its like with their identifiers, as the interface's description has them.
std::map<std::string, std::string> DeclaredIds(const std::string& kind) {
  const std::string idl = ProjectFile("automation/quarvel.idl");
  const std::regex declared("uuid\\(([-0-9a-f]+)\\)[^{\\[]*\\]\\s*" + kind + " (\\w+)");
  std::map<std::string, std::string> ids;
  const std::sregex_iterator end;
  for (std::sregex_iterator i(idl.begin(), idl.end(), declared); i != end; ++i) {
    ids[(*i)[2]] = "{" + (*i)[1].str() + "}";
  }
  return ids;
}

class Manifest : public testing::Test {
 protected:
  const std::string text_ = ReadWholeFile(MadeFolder() + "/packaging/Quarvel.Component.manifest");
  const std::string registration_ = ProjectFile("automation/registration.cpp");
  const std::string library_ = DeclaredIds("library")["Quarvel"];
};

TEST_F(Manifest, HasEveryClassOfTheLibrary) {
  const auto classes = Elements(text_, "comClass");
  const auto declared = DeclaredIds("coclass");
  ASSERT_EQ(declared.size(), 1u);
  ASSERT_EQ(classes.size(), declared.size());
  auto entry = classes[0];
  EXPECT_EQ(entry["clsid"], declared.at("LPModel"));
  EXPECT_EQ(entry["tlbid"], library_);
  EXPECT_EQ(entry["progid"], FirstMatch(registration_, "kProgId\\[\\] = L\"([^\"]*)\""));
  EXPECT_EQ(entry["description"], FirstMatch(registration_, "kClassTitle\\[\\] = L\"([^\"]*)\""));
  EXPECT_EQ(entry["threadingModel"], "Apartment");
  EXPECT_EQ(entry["threadingModel"],
            FirstMatch(registration_, "L\"ThreadingModel\", L\"([^\"]*)\""));
}

TEST_F(Manifest, HasEveryInterfaceOfTheLibrary) {
  const auto declared = DeclaredIds("interface");
  ASSERT_EQ(declared.size(), 1u);
  std::map<std::string, std::string> listed;
  for (auto entry : Elements(text_, "comInterfaceExternalProxyStub")) {
    listed[entry["name"]] = entry["iid"];
    EXPECT_EQ(entry["tlbid"], library_);
    EXPECT_EQ(entry["proxyStubClsid32"],
              FirstMatch(registration_, "kAutomationMarshaler\\[\\] = L\"([^\"]*)\""));
  }
  EXPECT_EQ(listed, declared);
}

TEST_F(Manifest, HasTheTypeLibraryInTheComponentsFile) {
  auto files = Elements(text_, "file");
  ASSERT_EQ(files.size(), 1u);
  EXPECT_EQ(files[0]["name"],
            FirstMatch(ProjectFile("automation/quarvel.rc"), "\"OriginalFilename\", \"([^\"]*)\""));
  auto libraries = Elements(text_, "typelib");
  ASSERT_EQ(libraries.size(), 1u);
  EXPECT_EQ(libraries[0]["tlbid"], library_);
  EXPECT_EQ(libraries[0]["resourceid"],
            FirstMatch(ProjectFile("automation/quarvel.rc"), "\n(\\d+) TYPELIB "));
  const std::string version = libraries[0]["version"];
  EXPECT_EQ(version, FirstMatch(ProjectFile("automation/quarvel.idl"), "version\\(([\\d.]+)\\)"));
  EXPECT_EQ(version, FirstMatch(registration_, "kVersion\\[\\] = L\"([^\"]*)\""));
}

TEST(Registered, LibraryHasTheTitleOfItsDescription) {
  std::string source = ProjectFile("automation/registration.cpp");
  source = std::regex_replace(source, std::regex("\"\\s+L\""), "");
  EXPECT_EQ(FirstMatch(source, "kLibraryTitle\\[\\] =\\s+L\"([^\"]*)\""),
            FirstMatch(ProjectFile("automation/quarvel.idl"), "helpstring\\(\"([^\"]*)\"\\)"));
}

}  // namespace
}  // namespace quarvel
