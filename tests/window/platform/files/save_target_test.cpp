#include "platform/base/handle.h"
#include "platform/files/ansi_text_file.h"
#include "platform/files/file_layer.h"
#include "platform/files/folder.h"
#include "tests/support/error_of.h"
#include "tests/support/failing_files.h"
#include "tests/support/held_file.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <sddl.h>

namespace vandrel::test {
namespace {

using Names = std::vector<std::wstring>;

class SaveTarget : public testing::Test {
  protected:
    int save(const std::wstring& name, const std::string& bytes = "new")
    {
        return errorOf([&] { replaceFile(folder.file(name), bytes); });
    }
    std::wstring rightsOf(const std::wstring& name)
    {
        std::vector<BYTE> descriptor(65536);
        DWORD needed = 0;
        LPWSTR text = nullptr;
        if (!GetFileSecurityW(folder.file(name).c_str(), DACL_SECURITY_INFORMATION, descriptor.data(),
                              static_cast<DWORD>(descriptor.size()), &needed) ||
            !ConvertSecurityDescriptorToStringSecurityDescriptorW(descriptor.data(), SDDL_REVISION_1,
                                                                  DACL_SECURITY_INFORMATION, &text, nullptr))
            return L"(unknown)";
        const std::wstring rights = text;
        LocalFree(text);
        return rights;
    }

    TempFolder folder;
};

TEST_F(SaveTarget, AReadOnlyFileIsRefusedAtOnceWithError75)
{
    folder.write(L"Work.udb", "old");
    SetFileAttributesW(folder.file(L"Work.udb").c_str(), FILE_ATTRIBUTE_READONLY);
    const TestClock clock;
    EXPECT_EQ(save(L"Work.udb"), error_number::pathFileAccess);
    EXPECT_EQ(clock.slept(), 0U);
    EXPECT_EQ(folder.read(L"Work.udb"), "old");
    EXPECT_EQ(folder.names(), Names{L"Work.udb"});
    EXPECT_NE(GetFileAttributesW(folder.file(L"Work.udb").c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
}

TEST_F(SaveTarget, AFolderOfThatNameIsRefusedAtOnceWithError75)
{
    CreateDirectoryW(folder.file(L"Work.udb").c_str(), nullptr);
    const TestClock clock;
    EXPECT_EQ(save(L"Work.udb"), error_number::pathFileAccess);
    EXPECT_EQ(clock.slept(), 0U);
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(SaveTarget, AMissingFolderIsError76)
{
    EXPECT_EQ(save(L"gone\\Work.udb"), error_number::pathNotFound);
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(SaveTarget, ANameThatNoFileCanHaveIsError52)
{
    for (const wchar_t* const name :
         {L"a<b.udb", L"a>b.udb", L"a?b.udb", L"a*b.udb", L"a\"b.udb", L"a|b.udb"}) {
        EXPECT_EQ(save(name), error_number::badFileName) << name;
    }
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(SaveTarget, AFileThatIsLetGoOfWithinASecondIsSaved)
{
    folder.write(L"Work.udb", "old");
    HeldFile other(folder.file(L"Work.udb"));
    other.releaseAfterSleeping(1000);
    EXPECT_EQ(save(L"Work.udb"), 0);
    EXPECT_EQ(folder.read(L"Work.udb"), "new");
    EXPECT_EQ(folder.names(), Names{L"Work.udb"});
}

TEST_F(SaveTarget, AFileThatIsNotLetGoOfIsError70AfterTwoSeconds)
{
    folder.write(L"Work.udb", "old");
    HeldFile other(folder.file(L"Work.udb"));
    EXPECT_EQ(save(L"Work.udb"), error_number::permissionDenied);
    EXPECT_EQ(other.slept(), 2000U);
    EXPECT_EQ(folder.names(), Names{L"Work.udb"});
    other.release();
    EXPECT_EQ(folder.read(L"Work.udb"), "old");
}

TEST_F(SaveTarget, ATemporaryFileThatAnotherProgramLooksAtIsWaitedFor)
{
    FailingFiles files;
    replaceFile(folder.file(L"Work.udb"), "old", files);
    const std::wstring temporary = files.temporaryPath.substr(files.temporaryPath.rfind(L'\\') + 1);
    folder.write(temporary, "left over");
    HeldFile other(folder.file(temporary));
    other.releaseAfterSleeping(100);
    EXPECT_EQ(save(L"Work.udb"), 0);
    EXPECT_TRUE(other.isReleased()) << "the save has another file beside it";
    EXPECT_EQ(folder.read(L"Work.udb"), "new");
    EXPECT_EQ(folder.names(), Names{L"Work.udb"});
}

TEST_F(SaveTarget, AttributesAreKept)
{
    const DWORD kept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;
    for (const DWORD attributes :
         {DWORD{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_ARCHIVE},
          DWORD{FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE}, kept, DWORD{FILE_ATTRIBUTE_ARCHIVE}}) {
        folder.write(L"Work.udb", "old");
        SetFileAttributesW(folder.file(L"Work.udb").c_str(), attributes);
        ASSERT_EQ(GetFileAttributesW(folder.file(L"Work.udb").c_str()) & kept, attributes);
        EXPECT_EQ(save(L"Work.udb"), 0);
        EXPECT_EQ(GetFileAttributesW(folder.file(L"Work.udb").c_str()) & kept, attributes);
        EXPECT_EQ(folder.read(L"Work.udb"), "new");
        DeleteFileW(folder.file(L"Work.udb").c_str());
    }
}

TEST_F(SaveTarget, TheCreationTimeIsKept)
{
    const auto creationTime = [&] {
        WIN32_FILE_ATTRIBUTE_DATA data{};
        GetFileAttributesExW(folder.file(L"Work.udb").c_str(), GetFileExInfoStandard, &data);
        return std::pair(data.ftCreationTime.dwHighDateTime, data.ftCreationTime.dwLowDateTime);
    };
    folder.write(L"Work.udb", "old");
    const FILETIME longAgo{0x70000000, 0x01C00000};
    {
        const FileHandle file(CreateFileW(folder.file(L"Work.udb").c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr,
                                          OPEN_EXISTING, 0, nullptr));
        SetFileTime(file.get(), &longAgo, nullptr, nullptr);
    }
    const auto before = creationTime();
    if (before != std::pair(longAgo.dwHighDateTime, longAgo.dwLowDateTime))
        GTEST_SKIP() << "this system keeps no creation time (Wine answers with the time of the last change)";
    EXPECT_EQ(save(L"Work.udb"), 0);
    EXPECT_EQ(creationTime(), before);
}

TEST_F(SaveTarget, AccessRightsAreKept)
{
    folder.write(L"Other.udb", "old");
    folder.write(L"Work.udb", "old");
    PSECURITY_DESCRIPTOR rights = nullptr;
    // Everything for the administrators, nothing for anybody else.
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;;FA;;;BA)", SDDL_REVISION_1,
                                                                     &rights, nullptr));
    ASSERT_TRUE(SetFileSecurityW(folder.file(L"Work.udb").c_str(), DACL_SECURITY_INFORMATION, rights));
    LocalFree(rights);
    const std::wstring before = rightsOf(L"Work.udb");
    ASSERT_NE(before, rightsOf(L"Other.udb"))
        << "the file has no rights of its own, so nothing would be shown";
    EXPECT_EQ(save(L"Work.udb"), 0);
    EXPECT_EQ(rightsOf(L"Work.udb"), before);
}

// Counts how often access rights are set, and may refuse it as a share does that lets nobody set them.
class RightsSeen : public FileLayer {
  public:
    int set = 0;
    DWORD refusal = 0; // the system's error; 0: none

  protected:
    bool setAccessRights(const std::wstring& path, PSECURITY_DESCRIPTOR rights) override
    {
        ++set;
        if (refusal == 0) return FileLayer::setAccessRights(path, rights);
        SetLastError(refusal);
        return false;
    }
};

TEST_F(SaveTarget, AccessRightsThatTheFolderHasGivenAlreadyAreNotSet)
{
    RightsSeen files;
    files.refusal = ERROR_ACCESS_DENIED;
    for (const char* const bytes : {"one", "two", "three"}) {
        replaceFile(folder.file(L"Work.udb"), bytes, files);
        EXPECT_EQ(folder.read(L"Work.udb"), bytes);
    }
    EXPECT_EQ(files.set, 0);
    EXPECT_EQ(folder.names(), Names{L"Work.udb"});
}

TEST_F(SaveTarget, AccessRightsOfItsOwnAreSetOnceAndMayBeRefused)
{
    PSECURITY_DESCRIPTOR rights = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;;FA;;;BA)", SDDL_REVISION_1,
                                                                     &rights, nullptr));
    // What shares, file systems without rights and servers of other systems answer.
    for (const DWORD refusal :
         std::initializer_list<DWORD>{0, ERROR_ACCESS_DENIED, ERROR_NOT_SUPPORTED, ERROR_INVALID_FUNCTION,
                                      ERROR_CALL_NOT_IMPLEMENTED, ERROR_PRIVILEGE_NOT_HELD,
                                      ERROR_INVALID_OWNER}) {
        folder.write(L"Work.udb", "old");
        ASSERT_TRUE(SetFileSecurityW(folder.file(L"Work.udb").c_str(), DACL_SECURITY_INFORMATION, rights));
        const TestClock clock;
        RightsSeen files;
        files.refusal = refusal;
        EXPECT_EQ(errorOf([&] { replaceFile(folder.file(L"Work.udb"), "new", files); }), 0) << refusal;
        EXPECT_EQ(files.set, 1);
        EXPECT_EQ(clock.slept(), 0U);
        EXPECT_EQ(folder.read(L"Work.udb"), "new");
        EXPECT_EQ(folder.names(), Names{L"Work.udb"});
        DeleteFileW(folder.file(L"Work.udb").c_str());
    }
    LocalFree(rights);
}

TEST_F(SaveTarget, AFolderOfThreeHundredLettersIsNoObstacle)
{
    std::wstring deep = extendedPath(folder.path());
    Names made;
    while (deep.size() < 310) {
        deep += L"\\" + std::wstring(60, L'd');
        ASSERT_TRUE(CreateDirectoryW(deep.c_str(), nullptr));
        made.insert(made.begin(), deep);
    }
    const std::wstring path = deep.substr(4) + L"\\Work.udb"; // as the program knows it, without the prefix
    EXPECT_FALSE(fileExists(path));
    replaceFile(path, "a|b\r\n");
    EXPECT_TRUE(fileExists(path));
    EXPECT_EQ(std::wstring_view(AnsiTextFile(path).read()), L"a|b\r\n");
    EXPECT_EQ(fileNamesIn(deep.substr(4)), Names{L"Work.udb"});
    renameFile(path, deep.substr(4) + L"\\Home.udb");
    EXPECT_EQ(fileNamesIn(deep.substr(4)), Names{L"Home.udb"});
    removeFile(deep.substr(4) + L"\\Home.udb");
    EXPECT_TRUE(fileNamesIn(deep.substr(4)).empty());
    for (const std::wstring& step : made) EXPECT_TRUE(RemoveDirectoryW(step.c_str()));
}

TEST_F(SaveTarget, ANameAsLongAsNamesCanBeIsNoObstacle)
{
    const std::wstring name = std::wstring(251, L'n') + L".udb";
    EXPECT_EQ(save(name, "a|b\r\n"), 0);
    EXPECT_EQ(save(name, "c|d\r\n"), 0);
    EXPECT_EQ(std::wstring_view(AnsiTextFile(folder.file(name)).read()), L"c|d\r\n");
    EXPECT_EQ(fileNamesIn(folder.path()), Names{name});
    EXPECT_NE(save(L"n" + name), 0); // one letter more is an error, though not the same on all systems
    EXPECT_EQ(fileNamesIn(folder.path()), Names{name});
}

TEST_F(SaveTarget, UnusualNamesAreTakenLiterally)
{
    for (const wchar_t* const name : {L"trailing .udb", L"dot..udb", L" leading.udb", L"nul.udb",
                                      L"a&b %x%.udb", L"Ksi\u0105\u017Cki.udb"}) {
        EXPECT_EQ(save(name, "a|b\r\n"), 0) << name;
        EXPECT_EQ(std::wstring_view(AnsiTextFile(folder.file(name)).read()), L"a|b\r\n") << name;
        EXPECT_EQ(fileNamesIn(folder.path()), Names{name});
        removeFile(folder.file(name));
    }
}

} // namespace
} // namespace vandrel::test
