#include "tests/program/support/program_test.h"

#include <array>
#include <optional>

namespace vandrel::test {
namespace {

// Another program, which drags one thing to one point.
class Dragged {
  public:
    Dragged(const std::wstring& form, const std::wstring& text, POINT point)
    {
        const std::wstring program = nativePath(VANDREL_DRAG_SOURCE);
        std::wstring line = L"\"" + program + L"\" " + form + L" \"" + text + L"\" " +
                            std::to_wstring(point.x) + L" " + std::to_wstring(point.y) + L" \"" +
                            folder_.file(answerFile) + L"\"";
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION started{};
        if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                            &startup, &started)) {
            throw std::runtime_error("nothing can be dragged: error " + std::to_string(GetLastError()));
        }
        CloseHandle(started.hThread);
        process_ = started.hProcess;
    }
    Dragged(const Dragged&) = delete;
    Dragged& operator=(const Dragged&) = delete;
    ~Dragged()
    {
        TerminateProcess(process_, 0);
        WaitForSingleObject(process_, limitMilliseconds);
        CloseHandle(process_);
    }

    // What the other program was told about its drag; empty as long as it has been told nothing.
    std::string answer() const { return folder_.has(answerFile) ? folder_.read(answerFile) : std::string(); }

  private:
    static constexpr const wchar_t* answerFile = L"answer.txt";

    TempFolder folder_{L"drag"};
    HANDLE process_ = nullptr;
};

constexpr const char* oldSite = "Old|http://z/||1/1/2001\r\n";

class DragAndDrop : public ProgramTest {
  protected:
    void startWithOneSite()
    {
        folder.write(L"Work.udb", oldSite);
        start();
        EXPECT_SOON(program.siteCount(), 1);
    }

    // A point of the list that nothing covers.
    static POINT pointIn(HWND list)
    {
        RECT area{};
        GetWindowRect(list, &area);
        constexpr LONG inset = 30;
        const std::array corners{POINT{area.right - inset, area.bottom - inset},
                                 POINT{area.left + inset, area.bottom - inset},
                                 POINT{area.right - inset, area.top + inset},
                                 POINT{area.left + inset, area.top + inset}};
        for (const POINT corner : corners) {
            if (GetAncestor(WindowFromPoint(corner), GA_ROOT) == GetAncestor(list, GA_ROOT)) return corner;
        }
        throw std::runtime_error("the whole list is covered");
    }

    // The texts of the editor's first two boxes; leaves the keyboard in the second.
    std::array<std::wstring, 2> nameAndAddress() const
    {
        program.dialog(L"Add Site...");
        const HWND name = program.focus();
        std::array<std::wstring, 2> texts;
        texts[0] = program.focusText();
        program.key(VK_TAB);
        EXPECT_TRUE(soon([&] { return program.focus() != name; }));
        texts[1] = program.focusText();
        return texts;
    }
    using Fields = std::array<std::wstring, 2>;

    // Drops on the list, which must refuse it, and waits until the other program knows.
    void expectRefused(HWND list) const
    {
        const Dragged dragged(L"unicode", L"http://dropped.example/", pointIn(list));
        EXPECT_SOON(dragged.answer(), std::string("returned none"));
    }
    // Nothing was added. A drop that had got through would have left its address to the next new site.
    void expectNothingAdded() const
    {
        EXPECT_EQ(program.siteCount(), 1);
        EXPECT_EQ(folder.read(L"Work.udb"), oldSite);
        program.key(VK_F3);
        EXPECT_EQ(nameAndAddress(), (Fields{L"", L"http://"}));
        program.key(VK_ESCAPE);
        program.back();
    }
};

TEST_F(DragAndDrop, ALinkOpensTheEditorAndTheBrowserGoesOnMeanwhile)
{
    startWithOneSite();
    const Dragged dragged(L"unicode", L"http://dropped.example/?a=1&b=2", pointIn(program.sites()));
    const HWND editor = program.dialog(L"Add Site...");
    EXPECT_SOON(dragged.answer(), std::string("returned copy"));
    EXPECT_EQ(program.openDialog(L"Add Site..."), editor);
    EXPECT_EQ(nameAndAddress(), (Fields{L"", L"http://dropped.example/?a=1&b=2"}));
    EXPECT_EQ(folder.read(L"Work.udb"), oldSite);
}

TEST_F(DragAndDrop, ANameAndEnterMakeTheLinkALineOfTheCategoryFile)
{
    startWithOneSite();
    const Dragged dragged(L"unicode", L"http://dropped.example/", pointIn(program.sites()));
    program.dialog(L"Add Site...");
    program.type(L"Dropped");
    program.key(VK_RETURN);
    program.back();
    EXPECT_SOON(folder.read(L"Work.udb"), "Dropped|http://dropped.example/||" + today() + "\r\n" + oldSite);
    EXPECT_EQ(program.column(0), (Texts{L"Dropped", L"Old"}));
}

TEST_F(DragAndDrop, ALinkGoesToTheCategoryThatIsShown)
{
    folder.write(L"A.udb", oldSite);
    folder.write(L"B.udb", "");
    start();
    program.openCategory(L"B");
    const Dragged dragged(L"unicode", L"http://dropped.example/", pointIn(program.sites()));
    program.dialog(L"Add Site...");
    program.type(L"Dropped");
    program.key(VK_RETURN);
    program.back();
    EXPECT_SOON(folder.read(L"B.udb"), "Dropped|http://dropped.example/||" + today() + "\r\n");
    EXPECT_EQ(folder.read(L"A.udb"), oldSite);
}

TEST_F(DragAndDrop, TextInTheAnsiFormatIsKeptAsItIs)
{
    startWithOneSite();
    const Dragged dragged(L"ansi", L" Übung, no address ", pointIn(program.sites()));
    EXPECT_EQ(nameAndAddress(), (Fields{L"", L" Übung, no address "}));
    EXPECT_SOON(dragged.answer(), std::string("returned copy"));
}

TEST_F(DragAndDrop, ATextOfAddressAndNameFillsBothBoxes)
{
    startWithOneSite();
    const Dragged dragged(L"unicode", L"http://dropped.example/~-~The name", pointIn(program.sites()));
    EXPECT_EQ(nameAndAddress(), (Fields{L"The name", L"http://dropped.example/"}));
}

TEST_F(DragAndDrop, EscInTheEditorAddsNothingAndForgetsTheLink)
{
    startWithOneSite();
    const Dragged dragged(L"unicode", L"http://dropped.example/", pointIn(program.sites()));
    program.dialog(L"Add Site...");
    program.key(VK_ESCAPE);
    program.back();
    expectNothingAdded();
}

TEST_F(DragAndDrop, WithoutCategoriesTheEditorOpensAndSavingSaysWhatIsMissing)
{
    start();
    const Dragged dragged(L"unicode", L"http://dropped.example/", pointIn(program.sites()));
    program.dialog(L"Add Site...");
    program.type(L"Dropped");
    program.key(VK_RETURN);
    EXPECT_EQ(program.answerBox(L"No Categories"),
              L"There are no categories. Please make a category before adding a site.");
}

TEST_F(DragAndDrop, AFileBringsAMessageAndNothingIsAdded)
{
    startWithOneSite();
    const Dragged dragged(L"files", folder.file(L"Work.udb"), pointIn(program.sites()));
    program.dialog(L"Invalid URL");
    EXPECT_SOON(dragged.answer(), std::string("returned copy"));
    EXPECT_EQ(program.answerBox(L"Invalid URL"),
              L"That is not a valid URL. Please drag links from browsers only.");
    program.back();
    expectNothingAdded();
}

TEST_F(DragAndDrop, TheCategoryListTakesNoDrops)
{
    startWithOneSite();
    expectRefused(program.categories());
    EXPECT_FALSE(program.dialogIsOpen());
    program.click(program.categories(), L"Work");
    program.back();
    expectNothingAdded();
}

TEST_F(DragAndDrop, NothingIsTakenWhileTheEditorIsOpen)
{
    startWithOneSite();
    program.key(VK_F3);
    const HWND editor = program.dialog(L"Add Site...");
    expectRefused(program.sites());
    EXPECT_EQ(program.openDialog(L"Add Site..."), editor);
    EXPECT_EQ(nameAndAddress(), (Fields{L"", L"http://"}));
    program.key(VK_ESCAPE);
    program.back();
    expectNothingAdded();
}

TEST_F(DragAndDrop, ALinkIsTakenWhileTheSearchWindowIsOpen)
{
    startWithOneSite();
    // Large enough that the search window, which opens over its middle, leaves the corners free.
    SetWindowPos(program.window(), nullptr, 0, 0, 1200, 900, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_TRUE(soon([&] {
        RECT area{};
        GetWindowRect(program.sites(), &area);
        return area.right > 1000 && area.bottom > 700;
    }));
    program.key('F', {VK_CONTROL});
    program.dialog(L"Search All Categories");
    const Dragged dragged(L"unicode", L"http://dropped.example/", pointIn(program.sites()));
    EXPECT_EQ(nameAndAddress(), (Fields{L"", L"http://dropped.example/"}));
    EXPECT_SOON(dragged.answer(), std::string("returned copy"));
    program.key(VK_ESCAPE);
    EXPECT_SOON(program.openDialog(L"Add Site..."), static_cast<HWND>(nullptr));
    EXPECT_TRUE(program.openDialog(L"Search All Categories"));
    EXPECT_EQ(program.siteCount(), 1);
}

TEST_F(DragAndDrop, NothingIsTakenWhileAQuestionIsOpen)
{
    startWithOneSite();
    program.click(program.sites(), 0);
    EXPECT_SOON(program.panel(2), std::wstring(L"Name: Old  "));
    program.key(VK_DELETE);
    program.dialog(L"Remove site(s)");
    expectRefused(program.sites());
    EXPECT_EQ(program.answerBox(L"Remove site(s)", IDNO), L"Remove selected site(s)?");
    program.back();
    expectNothingAdded();
}

} // namespace
} // namespace vandrel::test
