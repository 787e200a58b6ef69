// The table of late-bound members against the promised interface.

#include "automation/members.h"

#include <map>
#include <string>

#include <gtest/gtest.h>

#include "tests/automation/interface_table.h"
#include "tests/automation/object_fixture.h"

namespace quarvel::automation {
namespace {

std::string KindName(INVOKEKIND kind) {
  static const std::map<INVOKEKIND, std::string> names = {{INVOKE_PROPERTYGET, "get"},
                                                          {INVOKE_PROPERTYPUT, "let"},
                                                          {INVOKE_PROPERTYPUTREF, "set"},
                                                          {INVOKE_FUNC, "method"}};
  return names.at(kind);
}

std::string TypeName(ArgumentKind kind) {
  static const std::map<ArgumentKind, std::string> names = {
      {ArgumentKind::kLong, "32-bit integer"},
      {ArgumentKind::kShort, "16-bit integer"},
      {ArgumentKind::kDouble, "double"},
      {ArgumentKind::kBoolean, "boolean"},
      {ArgumentKind::kText, "string"},
      {ArgumentKind::kVariant, "variant"},
      {ArgumentKind::kBooleanRef, "boolean by reference"},
      {ArgumentKind::kTextRef, "string by reference"},
      {ArgumentKind::kVariantRef, "variant by reference"},
      {ArgumentKind::kReadArray, "array of double by reference"},
      {ArgumentKind::kWrittenArray, "array of double by reference"},
      {ArgumentKind::kWrittenDouble, "double by reference"}};
  return names.at(kind);
}

std::string ResultName(VARTYPE type) {
  static const std::map<VARTYPE, std::string> names = {
      {VT_VOID, ""},        {VT_I4, "32-bit integer"}, {VT_I2, "16-bit integer"}, {VT_R8, "double"},
      {VT_BOOL, "boolean"}, {VT_BSTR, "string"},       {VT_VARIANT, "variant"}};
  return names.at(type);
}

TEST(Members, AreThoseOfTheInterfaceInItsOrder) {
  const auto members = Members();
  const auto table = InterfaceTable();
  ASSERT_EQ(members.size(), table.size());
  for (std::size_t i = 0; i < members.size(); ++i) {
    const Member& member = members[i];
    SCOPED_TRACE(std::string(table[i].name));
    EXPECT_EQ(static_cast<std::uint32_t>(member.id), table[i].id);
    EXPECT_EQ(KindName(member.kind), table[i].kind);
    EXPECT_EQ(Utf8(member.name), table[i].name);
    EXPECT_EQ(ResultName(member.result), table[i].result);
    std::string arguments;
    for (const Argument& argument : member.arguments()) {
      arguments +=
          (arguments.empty() ? "" : ", ") + Utf8(argument.name) + " " + TypeName(argument.kind);
    }
    EXPECT_EQ(arguments, table[i].arguments);
    EXPECT_EQ(FunctionTableOffset(member), (7 + i) * sizeof(void*));
  }
}

}  // namespace
}  // namespace quarvel::automation
