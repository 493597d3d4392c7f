#include "tests/support/drop_test.h"
#include "tests/support/registered_class.h"

#include <shlobj.h>

namespace vandrel::test {
namespace {

// Stands in for the system's object that draws what is dragged, and writes down what it is told.
class PictureDrawer final : public IDropTargetHelper {
  public:
    std::wstring told;
    HWND window = nullptr;
    IDataObject* data = nullptr;
    POINT at{};
    DWORD effect = 0;
    int references = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDropTargetHelper);
        *object = known ? static_cast<IDropTargetHelper*>(this) : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }
    HRESULT STDMETHODCALLTYPE DragEnter(HWND over, IDataObject* dragged, POINT* point,
                                        DWORD answered) override
    {
        window = over;
        data = dragged;
        return tell(L"enter ", point, answered);
    }
    HRESULT STDMETHODCALLTYPE DragOver(POINT* point, DWORD answered) override
    {
        return tell(L"over ", point, answered);
    }
    HRESULT STDMETHODCALLTYPE DragLeave() override
    {
        told += L"leave ";
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* dropped, POINT* point, DWORD answered) override
    {
        data = dropped;
        return tell(L"drop ", point, answered);
    }
    HRESULT STDMETHODCALLTYPE Show(BOOL) override { return S_OK; }

  private:
    HRESULT tell(const wchar_t* what, const POINT* point, DWORD answered)
    {
        told += what;
        at = *point;
        effect = answered;
        return S_OK;
    }
};

class DragPicture : public DropTest {
  protected:
    ~DragPicture() override { main.reset(); } // the window holds the drawer

    PictureDrawer drawer;
    RegisteredClass registered{CLSID_DragDropHelper, &drawer};
};

TEST_F(DragPicture, FollowsTheMouseOverTheListUntilItLeaves)
{
    startWithOneSite();
    DroppedObject link;
    DWORD effect = everyEffect;
    target()->DragEnter(&link, MK_LBUTTON, {7, 8}, &effect);
    EXPECT_EQ(drawer.told, L"enter ");
    EXPECT_EQ(drawer.window, lstInfo().handle());
    EXPECT_EQ(drawer.data, &link);
    EXPECT_EQ(drawer.at.x, 7);
    EXPECT_EQ(drawer.at.y, 8);
    EXPECT_EQ(drawer.effect, DWORD{DROPEFFECT_COPY});
    effect = DROPEFFECT_LINK;
    target()->DragOver(MK_LBUTTON, {9, 10}, &effect);
    EXPECT_EQ(drawer.at.x, 9);
    EXPECT_EQ(drawer.at.y, 10);
    EXPECT_EQ(drawer.effect, DWORD{DROPEFFECT_LINK});
    target()->DragLeave();
    EXPECT_EQ(drawer.told, L"enter over leave ");
}

TEST_F(DragPicture, EndsWithTheDrop)
{
    startWithOneSite();
    DroppedObject link;
    link.withAnsi("http://x/");
    dropAndAnswer(link, typeSite(L"x", L"http://x/", L""));
    EXPECT_EQ(drawer.told, L"enter over drop ");
    EXPECT_EQ(drawer.data, &link);
}

TEST_F(DragPicture, EndsAlsoWithADropThatIsNotTaken)
{
    startWithOneSite();
    EnableWindow(main->handle(), FALSE);
    DroppedObject link;
    EXPECT_EQ(letGo(link), DWORD{DROPEFFECT_NONE});
    EnableWindow(main->handle(), TRUE);
    EXPECT_EQ(drawer.told, L"enter over drop ");
    EXPECT_EQ(drawer.effect, DWORD{DROPEFFECT_NONE});
}

TEST_F(DragPicture, IsLetGoWithTheWindow)
{
    startWithOneSite();
    EXPECT_EQ(drawer.references, 1);
    IDropTarget* const kept = target();
    kept->AddRef();
    main.reset();
    EXPECT_EQ(drawer.references, 0);
    kept->DragLeave();
    EXPECT_EQ(drawer.told, L"");
    kept->Release();
}

} // namespace
} // namespace vandrel::test
