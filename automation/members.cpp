#include "automation/members.h"

#include <algorithm>
#include <array>

namespace quarvel::automation {
namespace {

using enum ArgumentKind;

constexpr INVOKEKIND kGet = INVOKE_PROPERTYGET;
constexpr INVOKEKIND kLet = INVOKE_PROPERTYPUT;
constexpr INVOKEKIND kSet = INVOKE_PROPERTYPUTREF;
constexpr INVOKEKIND kCall = INVOKE_FUNC;

constexpr auto kMembers = std::to_array<Member>({
    {0x4003000C, kGet, L"strMPSFile", VT_BSTR, {}},
    {0x4003000C, kLet, L"strMPSFile", VT_VOID, {{L"value", kText}}},
    {0x4003000D, kGet, L"ReadMPSFileErr", VT_I2, {}},
    {0x4003000D, kLet, L"ReadMPSFileErr", VT_VOID, {{L"value", kShort}}},
    {0x4003000F, kGet, L"frmViewEquationsIsShowing", VT_BOOL, {}},
    {0x4003000F, kLet, L"frmViewEquationsIsShowing", VT_VOID, {{L"value", kBoolean}}},
    {0x40030010, kGet, L"showFrm", VT_VARIANT, {}},
    {0x40030010, kLet, L"showFrm", VT_VOID, {{L"value", kVariant}}},
    {0x40030010, kSet, L"showFrm", VT_VOID, {{L"value", kVariant}}},
    {0x68030026, kGet, L"ColElementrow", VT_I4, {{L"j", kLong}, {L"k", kLong}}},
    {0x68030025, kGet, L"ColElementvalue", VT_R8, {{L"j", kLong}, {L"k", kLong}}},
    {0x68030024, kGet, L"ColNumberElements", VT_I4, {{L"j", kLong}}},
    {0x68030023, kGet, L"ColUpperBound", VT_R8, {{L"j", kLong}}},
    {0x68030022, kLet, L"SetColUpperBound", VT_VOID, {{L"j", kLong}, {L"value", kVariantRef}}},
    {0x68030021, kGet, L"ColLowerBound", VT_R8, {{L"j", kLong}}},
    {0x68030020, kLet, L"SetColLowerBound", VT_VOID, {{L"j", kLong}, {L"value", kVariantRef}}},
    {0x6803001F, kGet, L"ColName", VT_BSTR, {{L"j", kLong}}},
    {0x6803001E, kLet, L"SetColName", VT_VOID, {{L"col", kLong}, {L"value", kVariantRef}}},
    {0x6803001D, kGet, L"ColType", VT_BSTR, {{L"j", kLong}}},
    {0x6803001C, kLet, L"SetColType", VT_VOID, {{L"j", kLong}, {L"value", kVariantRef}}},
    {0x6803001B, kGet, L"RowEquation", VT_BSTR, {{L"i", kLong}}},
    {0x60030027, kCall, L"RowGradient", VT_I2, {{L"RowNum", kLong}, {L"Gradient", kWrittenArray}}},
    {0x6803001A, kGet, L"ElementValue", VT_R8, {{L"i", kLong}, {L"j", kLong}}},
    {0x68030019, kGet, L"FileLocation", VT_BSTR, {}},
    {0x68030018, kGet, L"NumberOfElements", VT_I4, {}},
    {0x60030029, kCall, L"ReadMPSFile", VT_I2, {}},
    {0x6003002A, kCall, L"StartFileReding", VT_I2, {}},
    {0x68030017, kGet, L"NumberOfColumns", VT_I4, {}},
    {0x68030016, kGet, L"NumberOfRows", VT_I4, {}},
    {0x68030015, kGet, L"NumberOfBindingRows", VT_I4, {}},
    {0x68030014, kGet, L"NumberOfNonBindingRows", VT_I4, {}},
    {0x68030013, kGet, L"ModelDescription", VT_BSTR, {}},
    {0x68030012, kLet, L"SetModelDescription", VT_VOID, {{L"value", kVariantRef}}},
    {0x68030011, kGet, L"ModelName", VT_BSTR, {}},
    {0x68030010, kLet, L"SetModelName", VT_VOID, {{L"value", kVariantRef}}},
    {0x6803000F, kGet, L"RowElementCol", VT_I4, {{L"i", kLong}, {L"k", kLong}}},
    {0x6803000E, kGet, L"RowElementValue", VT_R8, {{L"i", kLong}, {L"k", kLong}}},
    {0x6803000D, kGet, L"RowName", VT_BSTR, {{L"i", kLong}}},
    {0x6803000C, kLet, L"SetRowName", VT_VOID, {{L"row", kLong}, {L"value", kVariantRef}}},
    {0x6803000B,
     kLet,
     L"SetRowElementValue",
     VT_VOID,
     {{L"row", kLong}, {L"rowele", kLong}, {L"value", kVariantRef}}},
    {0x6803000A, kGet, L"RowNumberElements", VT_I4, {{L"i", kLong}}},
    {0x68030009, kGet, L"RowType", VT_BSTR, {{L"i", kLong}}},
    {0x68030008, kLet, L"SetRowType", VT_VOID, {{L"i", kLong}, {L"value", kVariantRef}}},
    {0x68030007, kGet, L"RowLowerBound", VT_R8, {{L"i", kLong}}},
    {0x68030006, kLet, L"SetRowLowerBound", VT_VOID, {{L"i", kLong}, {L"value", kVariantRef}}},
    {0x68030005, kGet, L"RowUpperBound", VT_R8, {{L"i", kLong}}},
    {0x68030004, kLet, L"SetRowUpperBound", VT_VOID, {{L"i", kLong}, {L"value", kVariantRef}}},
    {0x6003002D, kCall, L"DisplayAuthor", VT_VOID, {}},
    {0x6003002E,
     kCall,
     L"RowBodyValue",
     VT_I2,
     {{L"RowNum", kLong}, {L"Point", kReadArray}, {L"Answer", kWrittenDouble}}},
    {0x6003002F, kCall, L"ViewEquations", VT_VOID, {{L"EditingIsEnabled", kBooleanRef}}},
    {0x60030030,
     kCall,
     L"ViewCol",
     VT_VOID,
     {{L"ColNum", kLong}, {L"EditingIsEnabled", kBooleanRef}}},
    {0x60030031,
     kCall,
     L"ViewRow",
     VT_VOID,
     {{L"RowNum", kLong}, {L"EditingIsEnabled", kBooleanRef}}},
    {0x60030032,
     kCall,
     L"ViewNonBindingRow",
     VT_VOID,
     {{L"RowNum", kLong}, {L"EditingIsEnabled", kBooleanRef}}},
    {0x60030033,
     kCall,
     L"ViewBindingRow",
     VT_VOID,
     {{L"RowNum", kLong}, {L"EditingIsEnabled", kBooleanRef}}},
    {0x60030034, kCall, L"SaveAsMPSFile", VT_I2, {}},
    {0x60030035, kCall, L"SaveMPSFile", VT_I2, {{L"FileLoc", kTextRef}}},
    {0x60030036, kCall, L"SimplifyMPSModel", VT_VOID, {}},
    {0x6003003A, kCall, L"DeleteRow", VT_I2, {{L"row", kLong}}},
    {0x6003003B, kCall, L"DeleteColumn", VT_I2, {{L"col", kLong}}},
    {0x6003003C, kCall, L"DeleteElement", VT_I2, {{L"row", kLong}, {L"ele", kLong}}},
    {0x6003003F, kCall, L"MakeNewModel", VT_VOID, {}},
    {0x60030040, kCall, L"NewMPSModel", VT_VOID, {}},
    {0x60030042,
     kCall,
     L"AddElement",
     VT_VOID,
     {{L"row", kLong}, {L"col", kLong}, {L"val", kDouble}}},
    {0x60030043, kCall, L"AddRow", VT_I2, {{L"RowName", kText}}},
    {0x60030044, kCall, L"AddColumn", VT_I2, {{L"ColName", kText}}},
    {0x60030045, kCall, L"SetDefaultToPlusMinusInfinity", VT_VOID, {{L"val", kBooleanRef}}},
    {0x60030046, kCall, L"ViewEquationsWindowIsShowing", VT_BOOL, {}},
    {0x68030003, kGet, L"NonBindingRowIndex", VT_I4, {{L"i", kLong}}},
    {0x68030002, kGet, L"BindingRowIndex", VT_I4, {{L"i", kLong}}},
    {0x68030001, kGet, L"NumNonBindingRows", VT_I4, {}},
    {0x68030000, kGet, L"NumBindingRows", VT_I4, {}},
});

// Entries of IUnknown and IDispatch, which stand before the members.
constexpr std::size_t kInheritedEntries = 7;

wchar_t LowerCase(wchar_t letter) {
  return letter >= L'A' && letter <= L'Z' ? static_cast<wchar_t>(letter - L'A' + L'a') : letter;
}

bool IsSameName(std::wstring_view left, std::wstring_view right) {
  return left.size() == right.size() &&
         std::equal(left.begin(), left.end(), right.begin(),
                    [](wchar_t a, wchar_t b) { return LowerCase(a) == LowerCase(b); });
}

// Script hosts ask for a read or a call at once where they cannot know which it is.
WORD FlagsServedBy(INVOKEKIND kind) {
  return kind == kGet ? WORD{DISPATCH_PROPERTYGET | DISPATCH_METHOD} : static_cast<WORD>(kind);
}

}  // namespace

std::span<const Argument> Member::arguments() const {
  const auto* end = std::find_if(std::begin(list), std::end(list),
                                 [](const Argument& a) { return a.name.empty(); });
  return {std::begin(list), end};
}

std::span<const Member> Members() { return kMembers; }

std::optional<DISPID> FindId(std::wstring_view name) {
  const auto found = std::find_if(kMembers.begin(), kMembers.end(),
                                  [name](const Member& m) { return IsSameName(m.name, name); });
  if (found == kMembers.end()) return std::nullopt;
  return found->id;
}

const Member* FindMember(DISPID id, WORD flags) {
  const auto found = std::find_if(kMembers.begin(), kMembers.end(), [=](const Member& m) {
    return m.id == id && (flags & FlagsServedBy(m.kind)) != 0;
  });
  return found == kMembers.end() ? nullptr : &*found;
}

std::optional<DISPID> FindArgument(std::wstring_view member, std::wstring_view argument) {
  for (const Member& m : kMembers) {
    if (!IsSameName(m.name, member)) continue;
    const auto arguments = m.arguments();
    const auto found = std::find_if(arguments.begin(), arguments.end(), [=](const Argument& a) {
      return IsSameName(a.name, argument);
    });
    if (found != arguments.end()) return static_cast<DISPID>(found - arguments.begin());
  }
  return std::nullopt;
}

std::size_t FunctionTableOffset(const Member& member) {
  const auto place = static_cast<std::size_t>(&member - kMembers.data());
  return (kInheritedEntries + place) * sizeof(void*);
}

}  // namespace quarvel::automation
