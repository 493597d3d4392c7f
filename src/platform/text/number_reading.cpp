#include "platform/text/number_reading.h"

#include "platform/base/runtime_error.h"

#include <windows.h>

#include <oleauto.h>

namespace vandrel {

int wholeNumberOf(std::wstring text)
{
    SHORT number = 0;
    const HRESULT result = VarI2FromStr(text.data(), GetUserDefaultLCID(), 0, &number);
    if (result == DISP_E_OVERFLOW) throw RuntimeError(error_number::overflow);
    if (FAILED(result)) throw RuntimeError(error_number::typeMismatch);
    return number;
}

} // namespace vandrel
