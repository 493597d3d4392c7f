#include "platform/windows/drop_target.h"

#include "platform/base/callback_error.h"
#include "platform/base/com_pointer.h"
#include "platform/base/scope_exit.h"
#include "platform/text/ansi_text.h"

#include <shlobj.h>

#include <algorithm>
#include <atomic>
#include <optional>

namespace vandrel {
namespace {

constexpr UINT dropMessage = WM_APP;

FORMATETC inMemory(CLIPFORMAT format) { return {format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL}; }

template <typename Character> std::basic_string_view<Character> upToNul(const void* memory, std::size_t bytes)
{
    const std::basic_string_view<Character> text(static_cast<const Character*>(memory),
                                                 bytes / sizeof(Character));
    return text.substr(0, text.find(Character{}));
}

// What one format of the data holds, up to its first NUL. No value if the data does not offer the format.
// Throws RuntimeError if it does but fails to deliver.
template <typename Character>
std::optional<std::basic_string<Character>> contentAs(IDataObject& data, CLIPFORMAT format)
{
    FORMATETC wanted = inMemory(format);
    STGMEDIUM medium{};
    if (FAILED(data.GetData(&wanted, &medium))) {
        if (data.QueryGetData(&wanted) == S_OK) throw RuntimeError(error_number::deviceError);
        return std::nullopt;
    }
    const ScopeExit release([&medium] { ReleaseStgMedium(&medium); });
    if (medium.tymed != TYMED_HGLOBAL || medium.hGlobal == nullptr) {
        throw RuntimeError(error_number::deviceError);
    }
    const void* const memory = GlobalLock(medium.hGlobal);
    if (memory == nullptr) throw RuntimeError(error_number::deviceError);
    const ScopeExit unlock([&medium] { GlobalUnlock(medium.hGlobal); });
    return std::basic_string<Character>(upToNul<Character>(memory, GlobalSize(medium.hGlobal)));
}

bool isAscii(std::string_view bytes)
{
    return std::ranges::all_of(bytes, [](char letter) { return static_cast<unsigned char>(letter) < 0x80; });
}

bool isUtf8Of(std::string_view bytes, const std::wstring& text)
{
    const auto length = static_cast<int>(bytes.size());
    std::wstring decoded(bytes.size(), L'\0'); // a letter has no more units than bytes
    const int units = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), length, decoded.data(),
                                          length);
    return std::wstring_view(decoded).substr(0, static_cast<std::size_t>(units)) == text;
}

// The Unicode form counts only where it proves that the plain text, which some browsers offer in UTF-8, is not in
// the code page that it should be in.
std::wstring plainText(IDataObject& data, std::string_view bytes)
{
    if (!isAscii(bytes)) {
        try {
            auto unicode = contentAs<wchar_t>(data, CF_UNICODETEXT);
            if (unicode && isUtf8Of(bytes, *unicode)) return std::move(*unicode);
        } catch (const RuntimeError&) { // offered and not given; the plain text was
        }
    }
    return decodeAnsi(bytes);
}

DroppedData read(IDataObject& data)
{
    try {
        // Contract: plain text is CF_TEXT. Some browsers offer Unicode text only, so that comes second.
        if (const auto bytes = contentAs<char>(data, CF_TEXT)) return DroppedData(plainText(data, *bytes));
        if (auto text = contentAs<wchar_t>(data, CF_UNICODETEXT)) return DroppedData(std::move(*text));
        return DroppedData(RuntimeError(error_number::noSuchFormat));
    } catch (const RuntimeError& error) {
        return DroppedData(error);
    } catch (const std::bad_alloc&) {
        return DroppedData(RuntimeError(error_number::outOfMemory));
    }
}

} // namespace

// The object that OLE holds. If a drag source keeps it longer than the drop target lives, it refuses
// everything.
class DropTarget::Receiver final : public IDropTarget {
  public:
    explicit Receiver(DropTarget& owner)
        : owner_(&owner),
          pictures_(systemObject<IDropTargetHelper>(CLSID_DragDropHelper, IID_IDropTargetHelper))
    {}

    void forgetOwner()
    {
        owner_ = nullptr;
        pictures_.reset(); // while OLE is still initialised
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        if (object == nullptr) return E_POINTER;
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDropTarget);
        *object = known ? static_cast<IDropTarget*>(this) : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    // Contract: anything may be dropped. That it holds no text is reported after the drop.
    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD, POINTL at, DWORD* effect) override
    {
        if (effect == nullptr) return E_INVALIDARG;
        *effect = answer(*effect);
        POINT point{at.x, at.y};
        if (pictures_) pictures_.get()->DragEnter(owner_->target_, data, &point, *effect);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL at, DWORD* effect) override
    {
        if (effect == nullptr) return E_INVALIDARG;
        *effect = answer(*effect);
        POINT point{at.x, at.y};
        if (pictures_) pictures_.get()->DragOver(&point, *effect);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE DragLeave() override
    {
        if (pictures_) pictures_.get()->DragLeave();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD, POINTL at, DWORD* effect) override
    {
        if (data == nullptr || effect == nullptr) return E_INVALIDARG;
        *effect = answer(*effect);
        POINT point{at.x, at.y};
        if (pictures_) pictures_.get()->Drop(data, &point, *effect);
        if (*effect == DROPEFFECT_NONE) return S_OK;
        // The source keeps its data, even if it offers nothing but a move.
        if (*effect == DROPEFFECT_MOVE) *effect = DROPEFFECT_NONE;
        // A drop that cannot be queued is refused without a box, because the source is waiting.
        return CallbackError().keep(E_OUTOFMEMORY, [&] {
            owner_->dropped(read(*data));
            return S_OK;
        });
    }

  private:
    ~Receiver() = default;

    DWORD answer(DWORD allowed) const
    {
        if (owner_ == nullptr || IsWindowEnabled(GetAncestor(owner_->target_, GA_ROOT)) == 0) {
            return DROPEFFECT_NONE;
        }
        for (const DWORD effect :
             std::initializer_list<DWORD>{DROPEFFECT_COPY, DROPEFFECT_LINK, DROPEFFECT_MOVE}) {
            if ((allowed & effect) != 0) return effect;
        }
        return DROPEFFECT_NONE;
    }

    std::atomic<ULONG> references_ = 1;
    DropTarget* owner_;
    // Draws what is dragged while it is over the window, as the system does elsewhere. Empty once there is no owner.
    ComPointer<IDropTargetHelper> pictures_;
};

const std::wstring& DroppedData::text() const
{
    if (const auto* const failure = std::get_if<RuntimeError>(&content_)) throw *failure;
    return std::get<std::wstring>(content_);
}

DropTarget::DropTarget(HWND window)
    : Window({.className = L"Vandrel.DropTarget", .style = 0, .parent = HWND_MESSAGE}),
      target_(window),
      receiver_(new Receiver(*this))
{
    startAnswering();
    if (FAILED(RegisterDragDrop(target_, receiver_))) {
        receiver_->Release();
        throw RuntimeError(error_number::outOfMemory);
    }
}

DropTarget::~DropTarget() { revoke(); }

void DropTarget::revoke()
{
    if (receiver_ == nullptr) return;
    receiver_->forgetOwner();
    RevokeDragDrop(target_);
    receiver_->Release();
    receiver_ = nullptr;
}

void DropTarget::dropped(DroppedData data)
{
    waiting_.push_back(std::move(data));
    if (PostMessageW(handle(), dropMessage, 0, 0) == 0) waiting_.pop_back();
}

LRESULT DropTarget::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != dropMessage) return Window::onMessage(message, wParam, lParam);
    if (waiting_.empty()) return 0;
    const DroppedData data = std::move(waiting_.front());
    waiting_.pop_front();
    if (Drop) Drop(data);
    return 0;
}

} // namespace vandrel
