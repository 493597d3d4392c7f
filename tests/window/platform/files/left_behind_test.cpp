#include "platform/files/left_behind.h"

#include "platform/base/handle.h"
#include "tests/support/failing_files.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vandrel::test {
namespace {

using Names = std::vector<std::wstring>;

// An id that no process has.
DWORD endedProcess()
{
    DWORD number = 4'000'000'000;
    while (const HANDLE running = OpenProcess(SYNCHRONIZE, FALSE, number)) {
        CloseHandle(running);
        number -= 4;
    }
    return number;
}

class LeftBehind : public testing::Test {
  protected:
    static std::wstring temporary(DWORD process) { return L"vandrel-" + std::to_wstring(process) + L".tmp"; }

    TempFolder folder;
    const std::wstring ended = temporary(endedProcess());
};

TEST_F(LeftBehind, ByAProcessThatHasEndedIsRemovedWhateverItsMarks)
{
    for (const DWORD marks :
         {FILE_ATTRIBUTE_NORMAL, FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM, FILE_ATTRIBUTE_READONLY}) {
        folder.write(ended, "half");
        SetFileAttributesW(folder.file(ended).c_str(), marks);
        removeLeftBehind(folder.path());
        EXPECT_EQ(folder.names(), Names{}) << marks;
    }
}

TEST_F(LeftBehind, ByAnEarlierProcessWithThisIdIsRemoved)
{
    folder.write(temporary(GetCurrentProcessId()), "half");
    removeLeftBehind(folder.path());
    EXPECT_EQ(folder.names(), Names{});
}

TEST_F(LeftBehind, ByAnUnknownProcessStays)
{
    DWORD other = 0;
    GetWindowThreadProcessId(GetDesktopWindow(), &other);
    ASSERT_NE(other, 0U);
    ASSERT_NE(other, GetCurrentProcessId());
    folder.write(temporary(other), "it is being saved");
    removeLeftBehind(folder.path());
    EXPECT_EQ(folder.names(), Names{temporary(other)});
}

TEST_F(LeftBehind, ThatIsOpenStays)
{
    folder.write(ended, "half");
    FileHandle other(CreateFileW(folder.file(ended).c_str(), GENERIC_READ,
                                 FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                 OPEN_EXISTING, 0, nullptr));
    removeLeftBehind(folder.path());
    EXPECT_EQ(folder.names(), Names{ended});
    other.reset();
    EXPECT_EQ(folder.names(), Names{ended}) << "nor does it go when it is closed";
    removeLeftBehind(folder.path());
    EXPECT_EQ(folder.names(), Names{});
}

TEST_F(LeftBehind, UnderAnyOtherNameStays)
{
    const std::wstring number = std::to_wstring(endedProcess());
    Names names{L"vandrel-" + number + L".tmp.udb",
                L"vandrel-" + number + L".TMP",
                L"Vandrel-" + number + L"0.tmp",
                L"vandrel-0" + number + L".tmp",
                L"vandrel-.tmp",
                L"vandrel-x" + number + L".tmp",
                L"vandrel-" + number + L"x.tmp",
                L"vandrel-" + number + L".old",
                L"a vandrel-" + number + L".tmp",
                L"vandrel-99999999999999999999.tmp",
                L"vandrel-0.tmp",
                L"vandrel--" + number + L".tmp"};
    for (const std::wstring& name : names) folder.write(name, "somebody's");
    CreateDirectoryW(folder.file(temporary(endedProcess())).c_str(), nullptr);
    removeLeftBehind(folder.path());
    std::ranges::sort(names);
    EXPECT_EQ(folder.names(), names);
    EXPECT_NE(GetFileAttributesW(folder.file(ended).c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(LeftBehind, ThatCannotBeRemovedIsSkipped)
{
    class : public FileLayer {
        bool remove(const std::wstring&) override
        {
            SetLastError(ERROR_ACCESS_DENIED);
            return false;
        }
    } refusing;
    folder.write(ended, "half");
    EXPECT_NO_THROW(removeLeftBehind(folder.path(), refusing));
    EXPECT_NO_THROW(removeLeftBehind(folder.file(L"gone")));
    EXPECT_EQ(folder.names(), Names{ended});
}

TEST(FilesInForce, IsTheLayerForAllCallersThatNameNone)
{
    const TempFolder folder;
    FailingFiles outer;
    FailingFiles inner;
    {
        const FilesInForce first(outer);
        replaceFile(folder.file(L"a"), "1");
        {
            const FilesInForce second(inner);
            replaceFile(folder.file(L"b"), "2");
        }
        EXPECT_EQ(&systemFiles(), &outer);
    }
    replaceFile(folder.file(L"c"), "3");
    EXPECT_EQ(outer.calls.size(), 6U);
    EXPECT_EQ(inner.calls.size(), 6U);
}

} // namespace
} // namespace vandrel::test
