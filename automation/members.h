// The members of the interface as a late-bound caller finds them: one table in the interface's own
// order, so that a row's place is its place in the object's function table.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include <windows.h>
#include <oleauto.h>

namespace quarvel::automation {

// How an argument is passed on to the member.
enum class ArgumentKind {
  kLong,
  kShort,
  kDouble,
  kBoolean,
  kText,
  kVariant,
  kBooleanRef,  // by address, as the following
  kTextRef,
  kVariantRef,
  kReadArray,     // doubles, only read
  kWrittenArray,  // doubles, written back into the caller's array
  kWrittenDouble  // written back into the caller's variable
};

struct Argument {
  std::wstring_view name;
  ArgumentKind kind = ArgumentKind::kLong;
};

inline constexpr std::size_t kMostArguments = 3;

struct Member {
  DISPID id;
  INVOKEKIND kind;
  std::wstring_view name;
  VARTYPE result;  // VT_VOID for none
  Argument list[kMostArguments];

  std::span<const Argument> arguments() const;
};

std::span<const Member> Members();

// The identifier of a name, letters' case ignored.
std::optional<DISPID> FindId(std::wstring_view name);

// The member of that identifier which `flags` (DISPATCH_METHOD and its like) ask for: a method for
// a call, a property's read for a read or a call, its writes for writes. Null when there is none.
const Member* FindMember(DISPID id, WORD flags);

// The number of the argument of that name in any member of that name, letters' case ignored.
std::optional<DISPID> FindArgument(std::wstring_view member, std::wstring_view argument);

// Offset of the entry of a member, one of Members(), in the object's function table.
std::size_t FunctionTableOffset(const Member& member);

}  // namespace quarvel::automation
