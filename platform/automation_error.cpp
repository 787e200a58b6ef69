#include "platform/automation_error.h"

#include <algorithm>
#include <array>
#include <new>
#include <stdexcept>
#include <utility>

namespace quarvel {
namespace {

using enum RunTimeError;

constexpr auto kTable = std::to_array<RunTimeErrorText>({
    {kInvalidProcedureCall, "Invalid procedure call or argument"},
    {kOverflow, "Overflow"},
    {kOutOfMemory, "Out of memory"},
    {kSubscriptOutOfRange, "Subscript out of range"},
    {kDivisionByZero, "Division by zero"},
    {kTypeMismatch, "Type mismatch"},
    {kInternalError, "Internal error"},
    {kBadFileNameOrNumber, "Bad file name or number"},
    {kFileNotFound, "File not found"},
    {kFileAlreadyOpen, "File already open"},
    {kDeviceIoError, "Device I/O error"},
    {kFileAlreadyExists, "File already exists"},
    {kDiskFull, "Disk full"},
    {kTooManyFiles, "Too many files"},
    {kDeviceUnavailable, "Device unavailable"},
    {kPermissionDenied, "Permission denied"},
    {kPathFileAccessError, "Path/File access error"},
    {kPathNotFound, "Path not found"},
    {kFormAlreadyDisplayed, "Form already displayed; can't show modally"},
});

AutomationError MakeRunTimeError(RunTimeError number) {
  return AutomationError(static_cast<std::int32_t>(number), "", std::string(Describe(number)));
}

// Its texts stand in the error itself, so that it can be raised when there is no memory at all.
AutomationError MakeOutOfMemory() { return MakeRunTimeError(kOutOfMemory); }

AutomationError CopyOfCurrentError() {
  try {
    throw;
  } catch (const AutomationError& error) {
    return error;
  } catch (const std::bad_alloc&) {
    return MakeOutOfMemory();
  } catch (const std::length_error&) {
    return MakeOutOfMemory();
  } catch (...) {
    return MakeRunTimeError(kInternalError);
  }
}

}  // namespace

AutomationError::AutomationError(std::int32_t number, std::string source, std::string description)
    : number_(number), source_(std::move(source)), description_(std::move(description)) {}

std::optional<RunTimeError> AutomationError::run_time_error() const noexcept {
  const bool known = std::any_of(kTable.begin(), kTable.end(), [this](const auto& entry) {
    return static_cast<std::int32_t>(entry.number) == number_;
  });
  if (!known) return std::nullopt;
  return static_cast<RunTimeError>(number_);
}

std::span<const RunTimeErrorText> RunTimeErrorTable() { return kTable; }

std::string_view Describe(RunTimeError number) {
  const auto found = std::find_if(kTable.begin(), kTable.end(),
                                  [number](const auto& entry) { return entry.number == number; });
  return found == kTable.end() ? Describe(kInternalError) : found->description;
}

void RaiseRunTimeError(RunTimeError number) { throw MakeRunTimeError(number); }

void RaiseRunTimeError(RunTimeError number, std::string_view reason) {
  std::string description(Describe(number));
  description.append(": ").append(reason);
  throw AutomationError(static_cast<std::int32_t>(number), "", std::move(description));
}

void RaiseGuarded() {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    throw MakeOutOfMemory();
  } catch (const std::length_error&) {
    throw MakeOutOfMemory();
  }
}

AutomationError CurrentError() {
  try {
    return CopyOfCurrentError();
  } catch (const std::bad_alloc&) {
    return MakeOutOfMemory();
  }
}

}  // namespace quarvel
