// The one exception that leaves an operation of the component.
//
// The component's own errors carry a number in the object-error range (0x80040000 plus an offset),
// a source that names the operation and a description. Run-time failures carry a small general
// number (9 subscript out of range, 11 division by zero, 13 type mismatch, 53 file not found ...),
// an empty source and the plain description of the table in automation_error.cpp.
#pragma once

#include <cstdint>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quarvel {

enum class RunTimeError : std::int32_t;

class AutomationError : public std::exception {
 public:
  AutomationError(std::int32_t number, std::string source, std::string description);

  // The error number as a signed 32-bit integer: -2147220974 for 0x80040212.
  std::int32_t number() const noexcept { return number_; }
  const std::string& source() const noexcept { return source_; }
  const std::string& description() const noexcept { return description_; }
  // Which of the general failures this is; nothing for an error of the component's own.
  std::optional<RunTimeError> run_time_error() const noexcept;
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::int32_t number_;
  std::string source_;
  std::string description_;
};

// The general numbers. Every enumerator has its description in the table.
enum class RunTimeError : std::int32_t {
  kInvalidProcedureCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kSubscriptOutOfRange = 9,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kInternalError = 51,
  kBadFileNameOrNumber = 52,
  kFileNotFound = 53,
  kFileAlreadyOpen = 55,
  kDeviceIoError = 57,
  kFileAlreadyExists = 58,
  kDiskFull = 61,
  kTooManyFiles = 67,
  kDeviceUnavailable = 68,
  kPermissionDenied = 70,
  kPathFileAccessError = 75,
  kPathNotFound = 76,
  kFormAlreadyDisplayed = 400,
};

struct RunTimeErrorText {
  RunTimeError number;
  std::string_view description;
};

// The whole table, in ascending order of numbers.
std::span<const RunTimeErrorText> RunTimeErrorTable();

// The description of a general number.
std::string_view Describe(RunTimeError number);

[[noreturn]] void RaiseRunTimeError(RunTimeError number);
// The same with `reason` behind the description: "Disk full: ...".
[[noreturn]] void RaiseRunTimeError(RunTimeError number, std::string_view reason);

// The exception being handled as an AutomationError: itself, or kOutOfMemory for a failed
// allocation, or kInternalError for anything else. Without memory for that it is kOutOfMemory. Call
// only inside a catch block.
AutomationError CurrentError();

// Raises kOutOfMemory in place of the exception being handled when that is a failed allocation, or a
// text or an array larger than any memory; else raises it again. Call only inside a catch block.
[[noreturn]] void RaiseGuarded();

// Runs an operation of the component and gives its result; what it cannot have the memory for leaves
// it as kOutOfMemory. Costs nothing where nothing fails: a question that is one load has no call
// around it.
template <class Operation>
[[gnu::always_inline]] inline auto Guarded(const Operation& operation) {
  try {
    return operation();
  } catch (...) {
    RaiseGuarded();
  }
}

}  // namespace quarvel
