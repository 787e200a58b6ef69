// What can be wrong with a file, as data, and the one place that puts it into words.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/automation_error.h"

namespace quarvel::mps {

enum class ReadProblemCode : std::uint8_t {
  // of a line
  kLineTooLong,
  kRowTokens,
  kRowType,
  kRowTwice,
  kTokens,
  kColumnsBeforeRows,
  kRhsBeforeRows,
  kRangesBeforeRows,
  kNotNumeric,
  kNoSuchRow,
  kBoundsBeforeColumns,
  kBoundCode,
  kBoundWithoutValue,
  kNoSuchColumn,
  // of the model at the end
  kNoRows,
  kNoColumns,
  kNoElements,
  kColumnBoundsReversed,
  kRowBoundsReversed,
  kEmptyItems,
  // of a file, of memory, of a model that a host has changed meanwhile
  kFailure,
};

struct ReadProblem {
  ReadProblemCode code;
  std::int64_t line = 0;  // counted from 1; 0 for a problem of no line
  std::string item = {};  // the name of the row or column that it is about
  std::optional<AutomationError> failure = {};
  std::size_t token = 0;  // which one of the line is meant, from 1; 0: the line as a whole
};

// A short name that stays when the words change, such as "no-such-row". Each code has its own.
std::string_view NameOf(ReadProblemCode code);

// The problem in words, without a question.
std::string TextOf(const ReadProblem& problem);

}  // namespace quarvel::mps
