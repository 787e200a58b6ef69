#include "platform/automation_error.h"

#include <functional>
#include <new>
#include <set>
#include <stdexcept>

#include <gtest/gtest.h>

namespace quarvel {
namespace {

using enum RunTimeError;

struct Expected {
  RunTimeError number;
  int value;
  const char* description;
};

// Every enumerator, so that one added without its description is missed here or in the table.
constexpr Expected kAll[] = {
    {kInvalidProcedureCall, 5, "Invalid procedure call or argument"},
    {kOverflow, 6, "Overflow"},
    {kOutOfMemory, 7, "Out of memory"},
    {kSubscriptOutOfRange, 9, "Subscript out of range"},
    {kDivisionByZero, 11, "Division by zero"},
    {kTypeMismatch, 13, "Type mismatch"},
    {kInternalError, 51, "Internal error"},
    {kBadFileNameOrNumber, 52, "Bad file name or number"},
    {kFileNotFound, 53, "File not found"},
    {kFileAlreadyOpen, 55, "File already open"},
    {kDeviceIoError, 57, "Device I/O error"},
    {kFileAlreadyExists, 58, "File already exists"},
    {kDiskFull, 61, "Disk full"},
    {kTooManyFiles, 67, "Too many files"},
    {kDeviceUnavailable, 68, "Device unavailable"},
    {kPermissionDenied, 70, "Permission denied"},
    {kPathFileAccessError, 75, "Path/File access error"},
    {kPathNotFound, 76, "Path not found"},
    {kFormAlreadyDisplayed, 400, "Form already displayed; can't show modally"},
};

AutomationError Caught(const std::function<void()>& action) {
  try {
    action();
  } catch (...) {
    return CurrentError();
  }
  return AutomationError(0, "", "nothing was thrown");
}

TEST(RunTimeErrorTable, DescribesEveryNumber) {
  EXPECT_EQ(RunTimeErrorTable().size(), std::size(kAll));
  for (const Expected& expected : kAll) {
    EXPECT_EQ(static_cast<int>(expected.number), expected.value);
    EXPECT_EQ(Describe(expected.number), expected.description) << expected.value;
  }
}

TEST(RunTimeErrorTable, HoldsEachNumberOnceInAscendingOrder) {
  int last = 0;
  for (const RunTimeErrorText& entry : RunTimeErrorTable()) {
    EXPECT_GT(static_cast<int>(entry.number), last);
    last = static_cast<int>(entry.number);
  }
}

TEST(RunTimeErrorTable, HasADescriptionOfItsOwnForEachNumber) {
  std::set<std::string_view> descriptions;
  for (const RunTimeErrorText& entry : RunTimeErrorTable()) {
    EXPECT_FALSE(entry.description.empty());
    EXPECT_TRUE(descriptions.insert(entry.description).second) << entry.description;
  }
}

TEST(RunTimeErrorTable, AnswersAnUnknownNumberWithInternalError) {
  EXPECT_EQ(Describe(static_cast<RunTimeError>(12)), "Internal error");
}

TEST(RaiseRunTimeError, CarriesNumberAndDescriptionWithoutASource) {
  try {
    RaiseRunTimeError(kDivisionByZero);
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.number(), 11);
    EXPECT_EQ(error.source(), "");
    EXPECT_EQ(error.description(), "Division by zero");
    EXPECT_STREQ(error.what(), "Division by zero");
    return;
  }
  FAIL() << "nothing was raised";
}

TEST(CurrentError, IsTheAutomationErrorItself) {
  const AutomationError error =
      Caught([] { throw AutomationError(-2147220974, "LPModel.Column()", "no such column"); });
  EXPECT_EQ(error.number(), -2147220974);
  EXPECT_EQ(error.source(), "LPModel.Column()");
  EXPECT_EQ(error.description(), "no such column");
}

TEST(CurrentError, IsOutOfMemoryForAFailedAllocation) {
  const AutomationError error = Caught([] { throw std::bad_alloc(); });
  EXPECT_EQ(error.number(), 7);
  EXPECT_EQ(error.description(), "Out of memory");
}

TEST(CurrentError, IsInternalErrorForAnythingElse) {
  EXPECT_EQ(Caught([] { throw std::runtime_error("a detail"); }).number(), 51);
  EXPECT_EQ(Caught([] { throw 5; }).number(), 51);
}

TEST(CurrentError, TakesALengthBeyondAllMemoryForALackOfIt) {
  const AutomationError error = Caught([] { throw std::length_error("a text too long"); });
  EXPECT_EQ(error.run_time_error(), kOutOfMemory);
}

TEST(Guarded, GivesWhatTheOperationGives) {
  EXPECT_EQ(Guarded([] { return 5; }), 5);
  int calls = 0;
  Guarded([&] { ++calls; });
  EXPECT_EQ(calls, 1);
}

TEST(Guarded, RaisesALackOfMemoryAsAnErrorOfOurs) {
  EXPECT_EQ(Caught([] { Guarded([]() -> int { throw std::bad_alloc(); }); }).number(), 7);
  EXPECT_EQ(Caught([] { Guarded([] { throw std::length_error("too long"); }); }).number(), 7);
}

TEST(Guarded, LetsEveryOtherFailurePass) {
  EXPECT_EQ(Caught([] { Guarded([] { RaiseRunTimeError(kTypeMismatch); }); }).number(), 13);
  EXPECT_THROW(Guarded([] { throw std::logic_error("a mistake of ours"); }), std::logic_error);
}

}  // namespace
}  // namespace quarvel
