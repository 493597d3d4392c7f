#include "tests/support/link_test.h"
#include "tests/support/test_clock.h"

#include <algorithm>
#include <cstring>
#include <thread>

namespace vandrel::test {
namespace {

// A window of another thread that has the clipboard open.
class ClipboardHolder {
  public:
    ClipboardHolder()
    {
        thread_ = std::thread([this] {
            const HWND window = CreateWindowW(L"Static", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                                              nullptr);
            opened_ = OpenClipboard(window) != 0;
            SetEvent(begun_);
            WaitForSingleObject(end_, INFINITE);
            if (opened_) CloseClipboard();
            DestroyWindow(window);
        });
        WaitForSingleObject(begun_, INFINITE);
    }
    ClipboardHolder(const ClipboardHolder&) = delete;
    ClipboardHolder& operator=(const ClipboardHolder&) = delete;
    ~ClipboardHolder()
    {
        release();
        CloseHandle(begun_);
        CloseHandle(end_);
    }

    void release()
    {
        SetEvent(end_);
        if (thread_.joinable()) thread_.join();
    }

    bool opened() const { return opened_; }

  private:
    HANDLE begun_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE end_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    bool opened_ = false;
    std::thread thread_;
};

class CopyingAnAddress : public LinkTest {
  protected:
    bool openClipboard()
    {
        return pumpUntil([this] { return OpenClipboard(main->handle()) != 0; });
    }
    void putOnClipboard(const std::wstring& text)
    {
        ASSERT_TRUE(openClipboard());
        EmptyClipboard();
        SetClipboardData(CF_UNICODETEXT, memoryWith(text));
        SetClipboardData(ownFormat, memoryWith(text));
        CloseClipboard();
    }
    std::wstring clipboardText()
    {
        if (!openClipboard()) return L"(cannot be opened)";
        std::wstring text = L"(no text)";
        if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT)) {
            text = static_cast<const wchar_t*>(GlobalLock(memory));
            GlobalUnlock(memory);
        }
        CloseClipboard();
        return text;
    }
    std::vector<UINT> clipboardFormats()
    {
        std::vector<UINT> formats;
        if (!openClipboard()) return formats;
        for (UINT format = 0; (format = EnumClipboardFormats(format)) != 0;) formats.push_back(format);
        CloseClipboard();
        return formats;
    }

    const UINT ownFormat = RegisterClipboardFormatW(L"VandrelTest");

  private:
    static HGLOBAL memoryWith(const std::wstring& text)
    {
        const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
        const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
        std::memcpy(GlobalLock(memory), text.c_str(), bytes);
        GlobalUnlock(memory);
        return memory;
    }
};

TEST_F(CopyingAnAddress, PutsTheAddressOfTheCurrentSiteOnTheClipboard)
{
    startWithSites();
    putOnClipboard(L"old");
    choose(mnuCopyURL);
    EXPECT_EQ(clipboardText(), L"http://c.example/");
}

TEST_F(CopyingAnAddress, LeavesNothingElseOnTheClipboard)
{
    startWithSites();
    putOnClipboard(L"old");
    choose(mnuCopyURL);
    // Text comes in these forms, of which the system makes one from the other.
    constexpr UINT textFormats[] = {CF_TEXT, CF_OEMTEXT, CF_UNICODETEXT, CF_LOCALE};
    const std::vector<UINT> formats = clipboardFormats();
    EXPECT_NE(std::ranges::find(formats, UINT{CF_UNICODETEXT}), formats.end());
    EXPECT_NE(std::ranges::find(formats, UINT{CF_TEXT}), formats.end());
    for (const UINT format : formats) {
        EXPECT_NE(std::ranges::find(textFormats, format), std::end(textFormats)) << format;
    }
}

TEST_F(CopyingAnAddress, ChangesNeitherTheDateNorTheFile)
{
    startWithSites();
    choose(mnuCopyURL);
    EXPECT_EQ(lstInfo().text(1, 3), L"10/1/2002");
    EXPECT_EQ(folder.read(L"Work.udb"), threeSites);
    EXPECT_EQ(lstInfo().currentRow(), 1U);
    EXPECT_TRUE(recorder.nothingWasStarted());
}

TEST_F(CopyingAnAddress, CopiesItUnchanged)
{
    folder.write(L"Work.udb", "A|  http://a/x y%20&\xE9 |text|\r\nB||text|\r\n");
    start();
    for (const std::size_t row : {0U, 1U}) {
        putOnClipboard(L"old");
        lstInfo().select(row);
        choose(mnuCopyURL);
        EXPECT_EQ(clipboardText(), lstInfo().text(row, 1));
    }
}

TEST_F(CopyingAnAddress, OfSeveralSelectedSitesCopiesOnlyTheCurrentOnes)
{
    startWithSites();
    selectSites({0, 1, 2});
    choose(mnuCopyURL);
    EXPECT_EQ(clipboardText(), L"http://a.example/");
}

TEST_F(CopyingAnAddress, LeavesTheClipboardAloneForASiteWithoutAName)
{
    folder.write(L"Work.udb", "|http://a/|x|\r\n");
    start();
    putOnClipboard(L"old");
    lstInfo().select(0);
    Answers none;
    choose(mnuCopyURL);
    EXPECT_ANSWERED(none);
    EXPECT_EQ(clipboardText(), L"old");
    const std::vector<UINT> formats = clipboardFormats();
    EXPECT_NE(std::ranges::find(formats, ownFormat), formats.end());
}

TEST_F(CopyingAnAddress, LeavesTheClipboardAloneInAnEmptyListOrWithNoneSelected)
{
    folder.write(L"Empty.udb", "");
    folder.write(L"Work.udb", threeSites);
    start();
    putOnClipboard(L"old");
    Answers none;
    clickCategory(L"Empty");
    main->run(mnuCopyURL);
    clickCategory(L"Work");
    lstInfo().clearSelection();
    main->run(mnuCopyURL);
    EXPECT_ANSWERED(none);
    EXPECT_EQ(clipboardText(), L"old");
}

TEST_F(CopyingAnAddress, WaitsAMomentForAProgramThatHasTheClipboardOpen)
{
    startWithSites();
    putOnClipboard(L"old");
    Answers none;
    TestClock clock;
    ClipboardHolder holder;
    ASSERT_TRUE(holder.opened());
    clock.afterSleeping(150, [&] { holder.release(); });
    choose(mnuCopyURL);
    EXPECT_EQ(clock.slept(), 150U);
    EXPECT_ANSWERED(none);
    EXPECT_EQ(clipboardText(), L"http://c.example/");
}

TEST_F(CopyingAnAddress, RaisesAnErrorWhenTheClipboardStaysOpenElsewhere)
{
    startWithSites();
    putOnClipboard(L"old");
    {
        const TestClock clock;
        const ClipboardHolder holder;
        ASSERT_TRUE(holder.opened());
        Answers answers;
        expectErrorBox(answers, 521, L"Can't open Clipboard");
        choose(mnuCopyURL);
        EXPECT_ANSWERED(answers);
        EXPECT_EQ(clock.slept(), 500U);
    }
    EXPECT_EQ(clipboardText(), L"old");
    choose(mnuCopyURL);
    EXPECT_EQ(clipboardText(), L"http://c.example/");
}

} // namespace
} // namespace vandrel::test
