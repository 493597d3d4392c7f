#include "platform/controls/accessible_name.h"

#include "platform/base/com_pointer.h"

#include <oleacc.h>

namespace vandrel {
namespace {

constexpr DWORD client = static_cast<DWORD>(OBJID_CLIENT);

ComPointer<IAccPropServices> properties()
{
    return systemObject<IAccPropServices>(CLSID_AccPropServices, IID_IAccPropServices);
}

} // namespace

void setNameForReaders(HWND window, const wchar_t* name) noexcept
{
    if (const auto service = properties())
        service.get()->SetHwndPropStr(window, client, CHILDID_SELF, PROPID_ACC_NAME, name);
}

void dropNameForReaders(HWND window) noexcept
{
    MSAAPROPID name = PROPID_ACC_NAME;
    if (const auto service = properties())
        service.get()->ClearHwndProps(window, client, CHILDID_SELF, &name, 1);
}

} // namespace vandrel
