// The type library in the component's file, entry by entry against the promised interface.

#include "automation/type_library.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include <windows.h>
#include <gtest/gtest.h>
#include <initguid.h>
#include <quarvel_idl.h>

#include "automation/bstr.h"
#include "tests/automation/component_file.h"
#include "tests/automation/interface_table.h"

namespace quarvel::automation {
namespace {

const char kHelp[] =
    "Describes an LP model.  Has methods for reading a model from an  MPS file (or other forms), "
    "for accessing information about the model, and for displaying the model.";

class TypeLibrary : public ::testing::Test {
 protected:
  TypeLibrary() {
    EXPECT_EQ(LoadTypeLibEx(ComponentFile().c_str(), REGKIND_NONE, library_.Receive()), S_OK);
    ComPtr<ITypeInfo> dispatch;
    EXPECT_EQ(library_->GetTypeInfoOfGuid(__uuidof(_LPModel), dispatch.Receive()), S_OK);
    HREFTYPE table = 0;
    EXPECT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &table), S_OK);
    EXPECT_EQ(dispatch->GetRefTypeInfo(table, interface_.Receive()), S_OK);
  }

  ComPtr<ITypeLib> library_;
  ComPtr<ITypeInfo> interface_;  // the early-bound side of _LPModel
};

std::string HelpOf(ITypeInfo& info, MEMBERID member) {
  Bstr help;
  EXPECT_EQ(info.GetDocumentation(member, nullptr, help.Receive(), nullptr, nullptr), S_OK);
  return Utf8FromBstr(help.get());
}

std::string NameOf(ITypeInfo& info, MEMBERID member) {
  Bstr name;
  EXPECT_EQ(info.GetDocumentation(member, name.Receive(), nullptr, nullptr, nullptr), S_OK);
  return Utf8FromBstr(name.get());
}

std::string TypeName(const TYPEDESC& type) {
  static const std::map<VARTYPE, std::string> names = {
      {VT_I4, "32-bit integer"}, {VT_I2, "16-bit integer"}, {VT_R8, "double"},
      {VT_BOOL, "boolean"},      {VT_BSTR, "string"},       {VT_VARIANT, "variant"}};
  if (type.vt == VT_PTR) return TypeName(*type.lptdesc) + " by reference";
  if (type.vt == VT_SAFEARRAY) return "array of " + TypeName(*type.lptdesc);
  const auto found = names.find(type.vt);
  return found == names.end() ? "type " + std::to_string(type.vt) : found->second;
}

std::string NameOfKind(INVOKEKIND kind) {
  static const std::map<INVOKEKIND, std::string> names = {{INVOKE_PROPERTYGET, "get"},
                                                          {INVOKE_PROPERTYPUT, "let"},
                                                          {INVOKE_PROPERTYPUTREF, "set"},
                                                          {INVOKE_FUNC, "method"}};
  return names.at(kind);
}

// One function as the interface's description writes it.
struct Described {
  std::string arguments;
  std::string result;
  std::string directions;  // "in", "in out", ... of each argument, separated by commas
};

Described Describe(ITypeInfo& info, const FUNCDESC& function) {
  std::vector<BSTR> names(static_cast<std::size_t>(function.cParams) + 1);
  UINT count = 0;
  EXPECT_EQ(info.GetNames(function.memid, names.data(), static_cast<UINT>(names.size()), &count),
            S_OK);
  Described described;
  for (UINT i = 0; i < static_cast<UINT>(function.cParams); ++i) {
    const ELEMDESC& parameter = function.lprgelemdescParam[i];
    const USHORT flags = parameter.paramdesc.wParamFlags;
    std::string type = TypeName(parameter.tdesc);
    if ((flags & PARAMFLAG_FRETVAL) != 0) {
      EXPECT_EQ(flags & ~PARAMFLAG_FRETVAL, PARAMFLAG_FOUT);
      described.result = type.substr(0, type.rfind(" by reference"));
      continue;
    }
    if (i > 0) described.arguments += ", ", described.directions += ",";
    // The new value of a property needs no name.
    described.arguments +=
        (i + 1 < count ? Utf8FromBstr(names[i + 1]) : std::string("value")) + " " + type;
    described.directions += (flags & PARAMFLAG_FOUT) != 0 ? "in out" : "in";
    EXPECT_NE(flags & PARAMFLAG_FIN, 0);
  }
  for (UINT i = 0; i < count; ++i) SysFreeString(names[i]);
  return described;
}

TEST_F(TypeLibrary, IsNamedVersionedAndEnglish) {
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(library_->GetLibAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->guid, LIBID_Quarvel);
  EXPECT_EQ(attributes->lcid, 0x409u);
  EXPECT_EQ(attributes->wMajorVerNum, 1);
  EXPECT_EQ(attributes->wMinorVerNum, 0);
  library_->ReleaseTLibAttr(attributes);
  Bstr name;
  Bstr help;
  ASSERT_EQ(library_->GetDocumentation(-1, name.Receive(), help.Receive(), nullptr, nullptr), S_OK);
  EXPECT_EQ(Utf8FromBstr(name.get()), "Quarvel");
  const std::string line = Utf8FromBstr(help.get());
  EXPECT_NE(line, "");
  EXPECT_EQ(line.find('\n'), std::string::npos);
}

TEST_F(TypeLibrary, HoldsTheInterfaceAndTheClassAndNothingElse) {
  ASSERT_EQ(library_->GetTypeInfoCount(), 2u);
  const struct {
    const char* name;
    TYPEKIND kind;
    GUID guid;
  } entries[] = {{"_LPModel", TKIND_DISPATCH, __uuidof(_LPModel)},
                 {"LPModel", TKIND_COCLASS, __uuidof(::LPModel)}};
  for (UINT i = 0; i < 2; ++i) {
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(library_->GetTypeInfo(i, info.Receive()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, entries[i].kind);
    EXPECT_EQ(attributes->guid, entries[i].guid);
    info->ReleaseTypeAttr(attributes);
    EXPECT_EQ(NameOf(*info.get(), MEMBERID_NIL), entries[i].name);
    EXPECT_EQ(HelpOf(*info.get(), MEMBERID_NIL), kHelp);
  }
}

TEST_F(TypeLibrary, TheClassIsCreatableAndTheInterfaceItsDefault) {
  ComPtr<ITypeInfo> info;
  ASSERT_EQ(library_->GetTypeInfoOfGuid(__uuidof(::LPModel), info.Receive()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->cImplTypes, 1);
  EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FCANCREATE, 0);
  info->ReleaseTypeAttr(attributes);
  INT flags = 0;
  ASSERT_EQ(info->GetImplTypeFlags(0, &flags), S_OK);
  EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
  HREFTYPE reference = 0;
  ASSERT_EQ(info->GetRefTypeOfImplType(0, &reference), S_OK);
  ComPtr<ITypeInfo> implemented;
  ASSERT_EQ(info->GetRefTypeInfo(reference, implemented.Receive()), S_OK);
  EXPECT_EQ(NameOf(*implemented.get(), MEMBERID_NIL), "_LPModel");
}

TEST_F(TypeLibrary, TheInterfaceIsDual) {
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(interface_->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->typekind, TKIND_INTERFACE);
  EXPECT_EQ(attributes->cFuncs, InterfaceTable().size());
  EXPECT_EQ(attributes->wTypeFlags & (TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION),
            TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION);
  EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FDISPATCHABLE, 0);
  interface_->ReleaseTypeAttr(attributes);
}

TEST_F(TypeLibrary, DescribesEveryMemberInItsPlace) {
  const auto table = InterfaceTable();
  for (std::size_t i = 0; i < table.size(); ++i) {
    const InterfaceRow& row = table[i];
    SCOPED_TRACE(std::to_string(i + 1) + " " + std::string(row.name));
    FUNCDESC* function = nullptr;
    ASSERT_EQ(interface_->GetFuncDesc(static_cast<UINT>(i), &function), S_OK);
    EXPECT_EQ(static_cast<std::uint32_t>(function->memid), row.id);
    EXPECT_EQ(NameOfKind(function->invkind), row.kind);
    EXPECT_EQ(static_cast<std::size_t>(function->oVft), (7 + i) * sizeof(void*));
    EXPECT_EQ(function->callconv, CC_STDCALL);
    EXPECT_EQ(function->elemdescFunc.tdesc.vt, VT_HRESULT);
    EXPECT_EQ(NameOf(*interface_.get(), function->memid), row.name);
    EXPECT_EQ(HelpOf(*interface_.get(), function->memid), row.help);
    const Described described = Describe(*interface_.get(), *function);
    EXPECT_EQ(described.arguments, row.arguments);
    EXPECT_EQ(described.result, row.result);
    interface_->ReleaseFuncDesc(function);
  }
}

TEST_F(TypeLibrary, OnlyTheArraysAndTheAnswerAreWritten) {
  const std::map<std::string, std::string> written = {{"RowGradient", "in,in out"},
                                                      {"RowBodyValue", "in,in out,in out"}};
  for (UINT i = 0; i < InterfaceTable().size(); ++i) {
    FUNCDESC* function = nullptr;
    ASSERT_EQ(interface_->GetFuncDesc(i, &function), S_OK);
    const std::string name = NameOf(*interface_.get(), function->memid);
    const std::string directions = Describe(*interface_.get(), *function).directions;
    const auto found = written.find(name);
    if (found != written.end()) {
      EXPECT_EQ(directions, found->second) << name;
    } else {
      EXPECT_EQ(directions.find("out"), std::string::npos) << name;
    }
    interface_->ReleaseFuncDesc(function);
  }
}

}  // namespace
}  // namespace quarvel::automation
