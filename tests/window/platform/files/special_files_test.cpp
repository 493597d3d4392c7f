#include "platform/base/runtime_error.h"
#include "platform/files/file_layer.h"
#include "platform/files/folder.h"
#include "tests/support/error_of.h"
#include "tests/support/store_test.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vandrel::test {
namespace {

using Names = std::vector<std::wstring>;

// ---- symbolic links and encryption, which this machine may not have

class SpecialFiles : public FileLayer {
  public:
    std::wstring link;   // an extended path ...
    std::wstring target; // ... of a symbolic link to this one; empty: it leads nowhere
    std::wstring encrypted;
    bool canEncrypt = true;
    Names madePlain;
    Names madeEncrypted;

    std::wstring contentsOf(const std::wstring& path) override
    {
        if (path != link) return FileLayer::contentsOf(path);
        SetLastError(ERROR_FILE_NOT_FOUND);
        return target;
    }
    bool isEncrypted(const std::wstring& path) override { return path == encrypted; }
    HANDLE createForWriting(const std::wstring& path) override
    {
        madePlain.push_back(path);
        return FileLayer::createForWriting(path);
    }
    HANDLE createEncrypted(const std::wstring& path) override
    {
        if (canEncrypt) {
            madeEncrypted.push_back(path);
            return FileLayer::createForWriting(path);
        }
        SetLastError(ERROR_EFS_DISABLED);
        return INVALID_HANDLE_VALUE;
    }
};

class SpecialFile : public testing::Test {
  protected:
    SpecialFile() { folder.write(L"Work.udb", "old"); }
    std::wstring extended(const TempFolder& place, const std::wstring& name) const
    {
        return extendedPath(place.file(name));
    }

    TempFolder folder;
    TempFolder elsewhere{L"elsewhere"};
    SpecialFiles files;
};

TEST_F(SpecialFile, ASymbolicLinkIsFollowedToTheFileThatItLeadsTo)
{
    elsewhere.write(L"Real.udb", "old, too");
    files.link = extended(folder, L"Work.udb");
    files.target = extended(elsewhere, L"Real.udb");
    replaceFile(folder.file(L"Work.udb"), "new", files);
    EXPECT_EQ(elsewhere.read(L"Real.udb"), "new");
    EXPECT_EQ(folder.read(L"Work.udb"), "old") << "the link itself stays";
    ASSERT_EQ(files.madePlain.size(), 1U);
    EXPECT_TRUE(files.madePlain[0].starts_with(extendedPath(elsewhere.path())))
        << "beside the file, on its drive";
    EXPECT_EQ(elsewhere.names(), Names{L"Real.udb"});
}

TEST_F(SpecialFile, ASymbolicLinkThatLeadsNowhereIsNotReplaced)
{
    files.link = extended(folder, L"Work.udb");
    EXPECT_EQ(errorOf([&] { replaceFile(folder.file(L"Work.udb"), "new", files); }),
              error_number::fileNotFound);
    EXPECT_EQ(folder.read(L"Work.udb"), "old");
    EXPECT_EQ(folder.names(), Names{L"Work.udb"});
}

TEST_F(SpecialFile, ABackupOverASymbolicLinkGoesToTheFileThatItLeadsTo)
{
    TempFolder backups(L"backups");
    backups.write(L"Work.udb", "link");
    elsewhere.write(L"Real.udb", "old copy");
    files.link = extended(backups, L"Work.udb");
    files.target = extended(elsewhere, L"Real.udb");
    copyFile(folder.file(L"Work.udb"), backups.file(L"Work.udb"), files);
    EXPECT_EQ(elsewhere.read(L"Real.udb"), "old");
    EXPECT_EQ(backups.read(L"Work.udb"), "link");
}

TEST_F(SpecialFile, APlainFileIsWhereItsNameSaysAndALinkElsewhere)
{
    FileLayer system;
    for (const wchar_t* const name : {L"Work.udb", L"New.udb"}) {
        EXPECT_EQ(system.contentsOf(extended(folder, name)), extended(folder, name));
    }
    const std::wstring real = extended(folder, L"Work.udb");
    const std::wstring link = extended(folder, L"Link.udb");
    CreateSymbolicLinkW(link.c_str(), real.c_str(), SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE);
    WIN32_FIND_DATAW found{};
    FindClose(FindFirstFileW(link.c_str(), &found));
    if (found.dwReserved0 != IO_REPARSE_TAG_SYMLINK)
        GTEST_SKIP() << "no symbolic link can be made here (Wine makes none)";
    EXPECT_TRUE(isSameFile(system.contentsOf(link), real));
    EXPECT_NE(system.contentsOf(link), link);
}

TEST_F(SpecialFile, AnEncryptedFileIsNeverWrittenInPlain)
{
    files.encrypted = extended(folder, L"Work.udb");
    replaceFile(folder.file(L"Work.udb"), "new", files);
    EXPECT_EQ(folder.read(L"Work.udb"), "new");
    EXPECT_EQ(files.madeEncrypted.size(), 1U);
    EXPECT_TRUE(files.madePlain.empty());
    EXPECT_EQ(folder.names(), Names{L"Work.udb"});
}

TEST_F(SpecialFile, AnEncryptedFileIsWrittenInItsPlaceWhereNoOtherCanBeEncrypted)
{
    files.encrypted = extended(folder, L"Work.udb");
    files.canEncrypt = false;
    replaceFile(folder.file(L"Work.udb"), "new", files);
    EXPECT_EQ(folder.read(L"Work.udb"), "new");
    EXPECT_TRUE(files.madePlain.empty()) << "nor are its old bytes kept in plain";
    EXPECT_EQ(folder.names(), Names{L"Work.udb"});
}

// ---- drives that do not number their files

class NumberlessFiles : public FileLayer {
  public:
    std::optional<FileIdentity> identityOf(const std::wstring&) override { return std::nullopt; }
};

TEST_F(SpecialFile, WithoutANumberIsCopiedToOneOfAnotherName)
{
    NumberlessFiles numberless;
    elsewhere.write(L"Work.udb", "old copy");
    folder.write(L"Work.udb", "bytes");
    EXPECT_EQ(errorOf([&] { copyFile(folder.file(L"Work.udb"), elsewhere.file(L"Work.udb"), numberless); }),
              0);
    EXPECT_EQ(elsewhere.read(L"Work.udb"), "bytes");
}

TEST_F(SpecialFile, WithoutANumberIsNotCopiedOntoItself)
{
    NumberlessFiles numberless;
    for (const wchar_t* const name : {L"Work.udb", L"WORK.udb"}) {
        EXPECT_EQ(errorOf([&] { copyFile(folder.file(L"Work.udb"), folder.file(name), numberless); }),
                  error_number::permissionDenied);
    }
    EXPECT_FALSE(isSameFile(folder.file(L"Gone.udb"), folder.file(L"Gone.udb"), numberless));
    EXPECT_EQ(folder.read(L"Work.udb"), "old");
}

// ---- names of devices

TEST_F(SpecialFile, CalledLikeADeviceIsRenamedByItsBareName)
{
    const CurrentFolder current(folder.path());
    renameFile(L"Work.udb", L"CON.udb");
    EXPECT_EQ(fileNamesIn(folder.path()), Names{L"CON.udb"});
    renameFile(L"CON.udb", L"nul.udb");
    EXPECT_EQ(fileNamesIn(folder.path()), Names{L"nul.udb"});
    renameFile(L"nul.udb", L"Home.udb");
    EXPECT_EQ(folder.names(), Names{L"Home.udb"});
    EXPECT_EQ(folder.read(L"Home.udb"), "old");
}

} // namespace
} // namespace vandrel::test
