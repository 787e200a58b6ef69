#include "api/parts.h"

#include <new>
#include <optional>

namespace quarvel::api {
namespace {

ErrorCode CodeOf(RunTimeError error) {
  switch (error) {
    case RunTimeError::kSubscriptOutOfRange:
      return ErrorCode::kIndex;
    case RunTimeError::kOverflow:
      return ErrorCode::kFull;
    case RunTimeError::kTypeMismatch:
      return ErrorCode::kValue;
    case RunTimeError::kInvalidProcedureCall:
    case RunTimeError::kOutOfMemory:
    case RunTimeError::kDivisionByZero:
    case RunTimeError::kInternalError:
    case RunTimeError::kFormAlreadyDisplayed:
      return ErrorCode::kFailed;
    case RunTimeError::kBadFileNameOrNumber:
    case RunTimeError::kFileNotFound:
    case RunTimeError::kFileAlreadyOpen:
    case RunTimeError::kDeviceIoError:
    case RunTimeError::kFileAlreadyExists:
    case RunTimeError::kDiskFull:
    case RunTimeError::kTooManyFiles:
    case RunTimeError::kDeviceUnavailable:
    case RunTimeError::kPermissionDenied:
    case RunTimeError::kPathFileAccessError:
    case RunTimeError::kPathNotFound:
      return ErrorCode::kSystem;
  }
  return ErrorCode::kFailed;
}

bool IsIndex(std::int32_t number) {
  return number == model::kRowOutOfRange || number == model::kColumnOutOfRange ||
         number == model::kRowElementOutOfRange || number == model::kColumnElementOutOfRange;
}

}  // namespace

void Raise(const AutomationError& error) {
  const std::optional<RunTimeError> general = error.run_time_error();
  if (general == RunTimeError::kOutOfMemory) throw std::bad_alloc();
  if (general) throw Error(CodeOf(*general), error.description());
  throw Error(IsIndex(error.number()) ? ErrorCode::kIndex : ErrorCode::kFailed,
              error.description());
}

void CheckIdle(const ModelParts& parts) {
  if (parts.works != 0) throw Error(ErrorCode::kBusy, "The model is being worked on");
}

void DropLostObjective(ModelParts& parts) {
  std::string& objective = parts.facts.objective;
  if (objective.empty()) return;
  const std::int32_t row = parts.store.FindRow(objective);
  if (row == 0 || parts.store.looks().TypeOfRow(row) != model::RowType::kFree) objective.clear();
}

}  // namespace quarvel::api
