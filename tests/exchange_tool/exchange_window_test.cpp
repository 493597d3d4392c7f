#include "exchange_tool/exchange_window.h"

#include "exchange_tool/exchange_commands.h"
#include "tests/exchange_tool/exchange_folder.h"
#include "tests/support/answers.h"
#include "tests/support/failing_files.h"

#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <atomic>

namespace vandrel::test {
namespace {

void choose(HWND dialog, int button)
{
    PostMessageW(dialog, TDM_CLICK_BUTTON, static_cast<WPARAM>(button), 0);
}

// The system's file dialog, with the name typed.
void nameFile(HWND dialog, const std::wstring& name)
{
    const HWND combo = GetDlgItem(dialog, 0x047C); // cmb13; 0x0480, edt1, where the dialog has none
    SetWindowTextW(combo != nullptr ? combo : GetDlgItem(dialog, 0x0480), name.c_str());
    press(dialog, IDOK);
}

class ExchangeWindow : public testing::Test {
  protected:
    void SetUp() override
    {
        if (GetACP() != 1252) GTEST_SKIP() << "the expected bytes are those of code page 1252";
        source.write(L"page.html", smallPage);
    }
    int run(std::vector<std::wstring> words, FileLayer& files = systemFiles())
    {
        words.insert(words.end(), {L"--folder", folder.path()});
        return runInWindows(requestOf(words), files);
    }

    TempFolder source{L"page"};
    TempFolder folder{L"categories"};
};

TEST_F(ExchangeWindow, ClosedAtOnceDoesNothing)
{
    Answers answers;
    answers.expect(exchangeTitle, [](HWND dialog) { choose(dialog, IDCLOSE); });
    EXPECT_EQ(run({}), exit_status::done);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(ExchangeWindow, BringsInTheFileThatTheUserChooses)
{
    Answers answers;
    answers.expect(exchangeTitle, [](HWND dialog) { choose(dialog, bringInLink); })
        .expect(L"Bring in the bookmarks of...",
                [&](HWND dialog) { nameFile(dialog, source.file(L"page.html")); })
        .expect(exchangeTitle, [](HWND dialog) { choose(dialog, IDCLOSE); });
    EXPECT_EQ(run({}), exit_status::done);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Work.udb"), workFile);
    EXPECT_EQ(folder.names().size(), 3U);
}

TEST_F(ExchangeWindow, WritesTheFileThatTheUserNames)
{
    folder.write(L"Work.udb", workFile);
    Answers answers;
    answers.expect(exchangeTitle, [](HWND dialog) { choose(dialog, writeLink); })
        .expect(L"Write all categories to...", [&](HWND dialog) { nameFile(dialog, source.file(L"out")); })
        .expect(exchangeTitle, [](HWND dialog) { choose(dialog, IDCLOSE); });
    EXPECT_EQ(run({}), exit_status::done);
    EXPECT_ANSWERED(answers);
    EXPECT_NE(source.read(L"out.html").find("<H3>Work</H3>"), std::string::npos);
}

TEST_F(ExchangeWindow, ComesBackWhenTheFileDialogIsCancelled)
{
    Answers answers;
    answers.expect(exchangeTitle, [](HWND dialog) { choose(dialog, bringInLink); })
        .expect(L"Bring in the bookmarks of...", [](HWND dialog) { press(dialog, IDCANCEL); })
        .expect(exchangeTitle, [](HWND dialog) { choose(dialog, IDCLOSE); });
    EXPECT_EQ(run({}), exit_status::done);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(ExchangeWindow, BringsInFilesThatAreDroppedOnItsIconAtOnce)
{
    source.write(L"second.html", "<H3>Work</H3><DL><A HREF=x>\xE6\x97\xA5</A></DL>");
    Answers answers;
    answers.expect(exchangeTitle, [](HWND dialog) { choose(dialog, IDCLOSE); })
        .expect(exchangeTitle, [](HWND dialog) { choose(dialog, IDCLOSE); });
    EXPECT_EQ(run({source.file(L"page.html"), source.file(L"second.html")}), exit_status::notAllKept);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.read(L"Work.udb"), workFile);
    EXPECT_EQ(folder.read(L"Work (2).udb"), "?|x||\r\n");
}

TEST_F(ExchangeWindow, TellsAFailureInABox)
{
    Answers answers;
    answers.expect(exchangeTitle, [](HWND dialog) { choose(dialog, IDCLOSE); });
    EXPECT_EQ(run({source.file(L"none.html")}), exit_status::nothingDone);
    EXPECT_ANSWERED(answers);
}

// Waits at the second file until the user has had the time to cancel.
class SlowFiles : public FileLayer {
  public:
    std::atomic<bool> goOn = false;
    HANDLE createForWriting(const std::wstring& path) override
    {
        if (++created_ == 2) {
            for (int wait = 0; wait < 1000 && !goOn; ++wait) Sleep(10);
        }
        return FileLayer::createForWriting(path);
    }

  private:
    int created_ = 0;
};

TEST_F(ExchangeWindow, LongWorkHasAProgressBarAndLeavesNothingWhenItIsCancelled)
{
    SlowFiles files;
    bool bar = false;
    Answers answers;
    answers.expect(exchangeTitle, [&](HWND dialog) {
        EnumChildWindows(
            dialog,
            [](HWND child, LPARAM found) -> BOOL {
                wchar_t name[32]{};
                GetClassNameW(child, name, 32);
                if (std::wstring(name) == PROGRESS_CLASSW) *reinterpret_cast<bool*>(found) = true;
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&bar));
        choose(dialog, IDCANCEL);
        files.goOn = true;
    });
    EXPECT_EQ(run({source.file(L"page.html")}, files), exit_status::nothingDone);
    EXPECT_ANSWERED(answers);
    EXPECT_TRUE(folder.names().empty());
    EXPECT_TRUE(bar);
}

TEST_F(ExchangeWindow, TheBoxOfLongWorkClosesByItselfWhenTheWorkIsDone)
{
    SlowFiles files;
    Answers answers;
    answers
        .expect(exchangeTitle,
                [&](HWND dialog) {
                    SetWindowTextW(dialog, L"not to be taken for the next one");
                    files.goOn = true;
                })
        .expect(exchangeTitle, [](HWND dialog) { choose(dialog, IDCLOSE); });
    EXPECT_EQ(run({source.file(L"page.html")}, files), exit_status::done);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(folder.names().size(), 3U);
}

} // namespace
} // namespace vandrel::test
