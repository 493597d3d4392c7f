#pragma once

#include <windows.h>
#include <ole2.h>
#include <shlobj.h>

#include <cstring>
#include <map>
#include <string>
#include <utility>

namespace vandrel::test {

// What another program drags: data in the formats that a test gives it. It lives on the stack; inUse() says
// whether anybody still holds a reference.
class DroppedObject final : public IDataObject {
  public:
    DroppedObject() = default;
    DroppedObject(const DroppedObject&) = delete;
    DroppedObject& operator=(const DroppedObject&) = delete;
    ~DroppedObject() = default;

    DroppedObject& withAnsi(const std::string& text) { return with(CF_TEXT, text + '\0'); }
    DroppedObject& withUnicode(const std::wstring& text)
    {
        return with(CF_UNICODETEXT, std::string(reinterpret_cast<const char*>(text.c_str()),
                                                (text.size() + 1) * sizeof(wchar_t)));
    }
    DroppedObject& withFile(const std::wstring& path)
    {
        DROPFILES header{};
        header.pFiles = sizeof header;
        header.fWide = TRUE;
        const std::wstring list = path + L'\0';
        return with(CF_HDROP, std::string(reinterpret_cast<const char*>(&header), sizeof header) +
                                  std::string(reinterpret_cast<const char*>(list.c_str()),
                                              (list.size() + 1) * sizeof(wchar_t)));
    }
    // The bytes as they are, with no NUL after them.
    DroppedObject& with(CLIPFORMAT format, std::string bytes)
    {
        forms_[format] = {std::move(bytes), S_OK, true};
        return *this;
    }
    // Claims to have the format but provides nothing: fails with `result`, or answers S_OK with no memory.
    DroppedObject& failing(CLIPFORMAT format, HRESULT result)
    {
        forms_[format] = {{}, result, false};
        return *this;
    }

    bool inUse() const { return references_ != 1; }
    // Whether the target has set data on the source, as a target does that has taken the data away.
    bool wasWrittenTo() const { return writes_ != 0; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDataObject);
        *object = known ? static_cast<IDataObject*>(this) : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override { return --references_; }

    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* wanted, STGMEDIUM* medium) override
    {
        if (QueryGetData(wanted) != S_OK) return DV_E_FORMATETC;
        const Form& form = forms_.at(wanted->cfFormat);
        if (FAILED(form.result)) return form.result;
        medium->tymed = TYMED_HGLOBAL;
        medium->pUnkForRelease = nullptr;
        medium->hGlobal = nullptr;
        if (!form.hasMemory) return S_OK;
        medium->hGlobal = GlobalAlloc(GMEM_MOVEABLE, form.bytes.size());
        if (medium->hGlobal == nullptr) return STG_E_MEDIUMFULL;
        std::memcpy(GlobalLock(medium->hGlobal), form.bytes.data(), form.bytes.size());
        GlobalUnlock(medium->hGlobal);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* wanted) override
    {
        const bool offered = forms_.contains(wanted->cfFormat) && (wanted->tymed & TYMED_HGLOBAL) != 0 &&
                             wanted->dwAspect == DVASPECT_CONTENT;
        return offered ? S_OK : DV_E_FORMATETC;
    }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override
    {
        ++writes_;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC* out) override
    {
        out->ptd = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD, IEnumFORMATETC**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }

  private:
    struct Form {
        std::string bytes;
        HRESULT result = S_OK;
        bool hasMemory = true;
    };

    std::map<CLIPFORMAT, Form> forms_;
    ULONG references_ = 1;
    int writes_ = 0;
};

} // namespace vandrel::test
