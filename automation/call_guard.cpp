#include "automation/call_guard.h"

#include <cstdint>
#include <new>
#include <string_view>

#include <windows.h>
#include <quarvel_idl.h>

#include "automation/bstr.h"
#include "platform/automation_error.h"

namespace quarvel::automation {
namespace {

constexpr std::int32_t kGreatestRunTimeNumber = 0xFFFF;

HRESULT ResultCode(std::int32_t number) {
  const bool run_time = number >= 0 && number <= kGreatestRunTimeNumber;
  return run_time ? MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number) : number;
}

void LeaveErrorInfo(std::string_view source, std::string_view description) {
  ComPtr<ICreateErrorInfo> writer;
  if (FAILED(CreateErrorInfo(writer.Receive()))) return;
  writer->SetGUID(__uuidof(_LPModel));
  writer->SetSource(Bstr(source).get());
  writer->SetDescription(Bstr(description).get());
  ComPtr<IErrorInfo> info;
  if (FAILED(writer->QueryInterface(__uuidof(IErrorInfo), info.ReceiveVoid()))) return;
  SetErrorInfo(0, info.get());
}

HRESULT ReportAutomationError() {
  const AutomationError error = CurrentError();
  try {
    LeaveErrorInfo(error.source(), error.description());
  } catch (const std::bad_alloc&) {
    // Without memory for the texts the caller gets the number alone.
    SetErrorInfo(0, nullptr);
  }
  return ResultCode(error.number());
}

}  // namespace

HRESULT ReportCurrentError() noexcept {
  try {
    throw;
  } catch (const PlainFailure& failure) {
    return failure.code;
  } catch (...) {
    try {
      return ReportAutomationError();
    } catch (...) {
      return ResultCode(static_cast<std::int32_t>(RunTimeError::kOutOfMemory));
    }
  }
}

}  // namespace quarvel::automation
