// Makes a binding of a function that takes the model and arguments of C++ types. For bindings.cpp.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "python/component/bindings.h"
#include "python/component/values.h"
#include "python/lock.h"

namespace quarvel::python {

// Whether other threads of Python run while the call does.
enum class Lock { kHeld, kFree };

template <class Operation>
auto RunWith(Lock lock, const Operation& operation) {
  if (lock == Lock::kHeld) return operation();
  const Unlocked unlocked;
  return operation();
}

template <class Result, class... Args>
std::string TypesOf() {
  std::string types;
  ((types += (types.empty() ? "" : ", ") + std::string(TypeWord<Args>::kWord)), ...);
  return types + ": " + TypeWord<Result>::kWord;
}

template <class Function, class Result, class... Args, std::size_t... kPlaces>
Binding MakeBinding(Lock lock, Function function, Result (Function::*)(LPModel&, Args...) const,
                    std::index_sequence<kPlaces...>) {
  const auto call = [lock, function](LPModel& model,
                                     [[maybe_unused]] Arguments given) -> py::object {
    // Braces have them converted from left to right, as the caller wrote them.
    const std::tuple<std::decay_t<Args>...> values{
        FromPython<std::decay_t<Args>>(given[kPlaces])...};
    const auto run = [&] { return function(model, std::get<kPlaces>(values)...); };
    if constexpr (std::is_void_v<Result>) {
      RunWith(lock, run);
      return py::none();
    } else {
      return ToPython(RunWith(lock, run));
    }
  };
  return {TypesOf<Result, std::decay_t<Args>...>(), sizeof...(Args), call};
}

template <class Function, class Result, class... Args>
Binding MakeBinding(Lock lock, Function function,
                    Result (Function::*member)(LPModel&, Args...) const) {
  return MakeBinding(lock, function, member, std::index_sequence_for<Args...>());
}

template <class Function>
Binding Bind(Function function, Lock lock = Lock::kHeld) {
  return MakeBinding(lock, function, &Function::operator());
}

}  // namespace quarvel::python
