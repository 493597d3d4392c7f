#include "exchange_tool/bookmark_import.h"
#include "exchange_tool/folder_check.h"
#include "tests/program/files/disk_calls.h"
#include "tests/program/files/start_process.h"
#include "tests/program/support/program_files.h"
#include "tests/support/folder_contents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

namespace vandrel::test {
namespace {

using Contents = std::map<std::wstring, std::string>;
using ProcessHandle = UniqueHandle<HANDLE, CloseHandle, nullHandle<HANDLE>>;

Contents allOf(Contents contents, const Contents& more)
{
    contents.insert(more.begin(), more.end());
    return contents;
}

// One import in a process of its own, which ends itself at one of the calls that change the disk.
class KilledImport {
  public:
    static inline const Contents old{{L"Old.udb", "Old|http://old.example/||\r\n"},
                                     {L"Work.udb", "Mine|http://mine.example/||\r\n"}};
    static inline const Contents made{{L"Play.udb", "Three|http://three.example/||\r\n"},
                                      {L"Work (2).udb",
                                       "One|http://one.example/|first|\r\nTwo|http://two.example/||\r\n"}};

    KilledImport()
    {
        for (const auto& [name, bytes] : old) folder.write(name, bytes);
        folder.write(L"vandrel-4000000000-1.tmp", "left by a process of long ago");
        source.write(L"page.html", page);
    }
    DWORD upTo(int call, const wchar_t* when, int cancelledAt)
    {
        const std::wstring line = L"\"" + nativePath(VANDREL_KILLED_IMPORT) + L"\" \"" +
                                  source.file(L"page.html") + L"\" \"" + folder.path() + L"\" " +
                                  std::to_wstring(call) + L" " + when + L" " + std::to_wstring(cancelledAt);
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION started{};
        if (!startProcess(line, startup, started, limitMilliseconds)) return static_cast<DWORD>(-1);
        CloseHandle(started.hThread);
        process_.reset(started.hProcess);
        auto code = static_cast<DWORD>(-2);
        const bool ended = WaitForSingleObject(process_.get(), limitMilliseconds) == WAIT_OBJECT_0;
        if (ended) GetExitCodeProcess(process_.get(), &code);
        else TerminateProcess(process_.get(), 1);
        return code;
    }
    // One letter per call.
    std::string calls() const { return source.read(L"page.html.calls"); }
    Contents categories() const
    {
        Contents files = contentsOf(folder);
        std::erase_if(files, [](const auto& file) { return !file.first.ends_with(L".udb"); });
        return files;
    }
    std::vector<std::wstring> leftOver() const
    {
        std::vector<std::wstring> names = folder.names();
        std::erase_if(names, [](const auto& name) { return name.ends_with(L".udb"); });
        return names;
    }

    TempFolder folder{L"categories"};
    TempFolder source{L"page"};

  private:
    static constexpr DWORD limitMilliseconds = 60'000;
    static constexpr const char* page =
        "<H3>Work</H3><DL><DT><A HREF=\"http://one.example/\">One</A><DD>first"
        "<DT><A HREF=\"http://two.example/\">Two</A></DL>"
        "<H3>Play</H3><DL><DT><A HREF=\"http://three.example/\">Three</A></DL>";
    ProcessHandle process_; // kept open, so that no other process gets its id
};

void expectWholeCategoriesAndKnownFiles(const KilledImport& import)
{
    const Contents categories = import.categories();
    for (const auto& [name, bytes] : KilledImport::old) {
        const auto found = categories.find(name);
        ASSERT_NE(found, categories.end()) << testing::PrintToString(name);
        EXPECT_EQ(found->second, bytes);
    }
    const Contents all = allOf(KilledImport::old, KilledImport::made);
    for (const auto& [name, bytes] : categories) {
        const auto known = all.find(name);
        ASSERT_NE(known, all.end()) << testing::PrintToString(name);
        EXPECT_EQ(bytes, known->second) << testing::PrintToString(name);
    }
}

void expectCheckToNameWhatIsLeft(const KilledImport& import)
{
    std::vector<std::wstring> wanted;
    for (const std::wstring& name : import.leftOver())
        wanted.push_back(name + L": a temporary file, left by a save that did not end");
    std::vector<std::wstring> findings;
    Progress progress;
    checkFolder(
        import.folder.path(), [&](const std::wstring& finding) { findings.push_back(finding); }, progress);
    std::ranges::sort(findings);
    EXPECT_EQ(findings, wanted);
}

void expectTheNextImportToClearUp(const KilledImport& import)
{
    const Contents before = import.categories();
    import.source.write(L"next.html", "<H3>Next</H3><DL><DT><A HREF=x>n</A></DL>");
    Progress progress;
    importBookmarks(import.folder.path(), import.source.file(L"next.html"), systemFiles(), progress);
    EXPECT_EQ(contentsOf(import.folder), allOf(before, {{L"Next.udb", "n|x||\r\n"}}));
}

void killAt(int call, const wchar_t* when, int cancelledAt)
{
    SCOPED_TRACE(testing::Message() << "killed " << when << " call " << call);
    KilledImport import;
    ASSERT_EQ(import.upTo(call, when, cancelledAt), static_cast<DWORD>(disk_calls::endedAtTheCall));
    expectWholeCategoriesAndKnownFiles(import);
    expectCheckToNameWhatIsLeft(import);
    expectTheNextImportToClearUp(import);
}

// Kills the import before and after every call from the first that counts, and in the middle of each that
// writes.
void killAtEach(const std::string& calls, std::size_t first, int cancelledAt)
{
    std::printf("killed at the calls %s\n", calls.substr(first).c_str());
    for (std::size_t at = first; at < calls.size() && !testing::Test::HasFailure(); ++at) {
        const int call = static_cast<int>(at) + 1;
        killAt(call, L"before", cancelledAt);
        if (calls[at] == 'w') killAt(call, L"within", cancelledAt);
        killAt(call, L"after", cancelledAt);
    }
}

TEST(KilledImport, LeavesEveryCategoryWholeAndWhatTheNextImportClearsUp)
{
    KilledImport whole;
    ASSERT_EQ(whole.upTo(0, L"after", 0), static_cast<DWORD>(disk_calls::endedByItself));
    EXPECT_EQ(contentsOf(whole.folder), allOf(KilledImport::old, KilledImport::made));
    EXPECT_EQ(whole.calls(), "dcwflcwflnn");
    killAtEach(whole.calls(), 0, 0);
}

TEST(KilledImport, LeavesEveryCategoryWholeWhileWhatIsCancelledIsUndone)
{
    KilledImport whole;
    ASSERT_EQ(whole.upTo(0, L"after", 2), static_cast<DWORD>(disk_calls::endedByItself));
    EXPECT_EQ(contentsOf(whole.folder), KilledImport::old);
    const std::string calls = whole.calls();
    ASSERT_TRUE(calls.ends_with("nndd")) << calls;
    killAtEach(calls, calls.size() - 2, 2);
}

} // namespace
} // namespace vandrel::test
