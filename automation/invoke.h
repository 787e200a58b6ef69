// Late-bound calls: what IDispatch asks for, answered from the table of members.
#pragma once

#include <windows.h>
#include <oleauto.h>
#include <quarvel_idl.h>

namespace quarvel::automation {

// IDispatch::GetIDsOfNames: `names[0]` is a member, the others are its arguments.
HRESULT FindNames(LPOLESTR* names, UINT count, DISPID* ids);

// IDispatch::Invoke on `object`, through its function table, so that a call by name and an early
// bound one are the same call. A failure of the operation is DISP_E_EXCEPTION with number, source
// and description in `failure`, and the thread's error object has them too. Raises std::bad_alloc.
HRESULT InvokeMember(_LPModel& object, DISPID id, WORD flags, DISPPARAMS* arguments,
                     VARIANT* result, EXCEPINFO* failure, UINT* wrong_argument);

}  // namespace quarvel::automation
