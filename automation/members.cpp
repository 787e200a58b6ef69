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

// Made from the interface's own list (members.awk).
constexpr auto kMembers = std::to_array<Member>({
#include <quarvel_members.inc>
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
