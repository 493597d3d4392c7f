#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <oleacc.h>
#include <map>
#include <string>

namespace vandrel::test {

// Stands in for the system's service that keeps names for screen readers.
class NameKeeper final : public IAccPropServices {
  public:
    std::map<HWND, std::wstring> names;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IAccPropServices);
        *object = known ? static_cast<IAccPropServices*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                                             LPCWSTR text) override
    {
        EXPECT_EQ(object, static_cast<DWORD>(OBJID_CLIENT));
        EXPECT_EQ(child, static_cast<DWORD>(CHILDID_SELF));
        EXPECT_TRUE(IsEqualGUID(property, PROPID_ACC_NAME));
        names[window] = text;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE ClearHwndProps(HWND window, DWORD, DWORD, const MSAAPROPID*, int count) override
    {
        EXPECT_EQ(count, 1);
        EXPECT_TRUE(IsWindow(window));
        names.erase(window);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                            AnnoScope) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                                AnnoScope) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                                 AnnoScope) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override
    {
        return E_NOTIMPL;
    }
};

} // namespace vandrel::test
