#pragma once

#include "platform/windows/ole_session.h"

#include <windows.h>
#include <ole2.h>

namespace vandrel::test {

// While one lives, `object` is what COM makes for that class in this process, in the place of the system's own.
class RegisteredClass final : public IClassFactory {
  public:
    RegisteredClass(REFCLSID classId, IUnknown* object) : object_(object)
    {
        CoRegisterClassObject(classId, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration_);
    }
    RegisteredClass(const RegisteredClass&) = delete;
    RegisteredClass& operator=(const RegisteredClass&) = delete;
    ~RegisteredClass() { CoRevokeClassObject(registration_); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
        *object = known ? static_cast<IClassFactory*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    // It lives on the stack.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** made) override
    {
        return object_->QueryInterface(id, made);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  private:
    OleSession ole_;
    IUnknown* object_;
    DWORD registration_ = 0;
};

} // namespace vandrel::test
