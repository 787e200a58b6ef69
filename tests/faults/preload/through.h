// The way of an intercepted call: counted, perhaps made to fail, made, told of.
#pragma once

#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <type_traits>

#include <dlfcn.h>

#include "tests/faults/preload/fault_plan.h"

namespace quarvel::faults {

// The function of that name that the program would have called without this library.
template <typename Function>
Function* Real(const char* name) {
  void* const found = dlsym(RTLD_NEXT, name);
  if (found == nullptr) abort();
  return reinterpret_cast<Function*>(found);
}

template <typename Result>
std::int64_t NumberOf(Result result) {
  if constexpr (std::is_pointer_v<Result>) {
    return result == nullptr ? -1 : 0;
  } else {
    return static_cast<std::int64_t>(result);
  }
}

template <typename Result>
Result FailWith(int error) {
  errno = error;
  if constexpr (std::is_pointer_v<Result>) {
    return nullptr;
  } else {
    return static_cast<Result>(-1);
  }
}

template <typename MakeCall>
auto Through(const Call& call, MakeCall make_call) -> decltype(make_call()) {
  using Result = decltype(make_call());
  if (!Counts(call)) return make_call();
  const Fault fault = NextFault(call);
  if (fault.error != 0) {
    // A descriptor is gone after a close, failed or not.
    if (call.kind == "close") make_call();
    return FailWith<Result>(fault.error);
  }
  const Result result = make_call();
  const int code = errno;
  Finish(call, fault, NumberOf(result));
  errno = code;
  return result;
}

// The same for a call that moves `count` bytes, or fewer.
template <typename MakeCall>
auto ThroughTransfer(const Call& call, std::size_t count, MakeCall make_call)
    -> decltype(make_call(count)) {
  using Result = decltype(make_call(count));
  if (!Counts(call)) return make_call(count);
  const Fault fault = NextFault(call);
  if (fault.error != 0) return FailWith<Result>(fault.error);
  const bool half = (fault.is_short || fault.kills_half_way) && count > 1;
  const Result result = make_call(half ? count / 2 : count);
  const int code = errno;
  if (fault.kills_half_way) Kill();
  Finish(call, fault, NumberOf(result));
  errno = code;
  return result;
}

}  // namespace quarvel::faults
