#include "tests/support/store_test.h"

namespace vandrel::test {
namespace {

// A data folder whose path is longer than the 260 characters of an ordinary path.
class LongPath : public StoreTest {
  protected:
    LongPath()
    {
        for (const std::wstring& path : {deep_, deeper_}) CreateDirectoryW(path.c_str(), nullptr);
        std::wstring file = deeper_ + L"\\Far.udb";
        files_.push_back(file);
        write(file, "A|http://a/|x|1\r\n");
    }
    ~LongPath() override
    {
        for (const std::wstring& file : files_) DeleteFileW(file.c_str());
        for (const std::wstring& path : {deeper_, deep_}) RemoveDirectoryW(path.c_str());
    }
    void startThere()
    {
        start();
        workspace().dataFolder = deeper_.substr(4);
        listCategories(workspace());
    }
    static void write(const std::wstring& path, const std::string& bytes)
    {
        const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
        DWORD written = 0;
        EXPECT_TRUE(WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
        CloseHandle(file);
    }

    std::vector<std::wstring> files_;

  private:
    std::wstring deep_ = L"\\\\?\\" + folder.path() + L"\\" + std::wstring(200, L'd');
    std::wstring deeper_ = deep_ + L"\\" + std::wstring(200, L'e');
};

TEST_F(LongPath, CategoriesAreListedReadAndSaved)
{
    startThere();
    EXPECT_EQ(titles(), Lines{L"Far"});
    clickCategory(L"Far");
    EXPECT_EQ(sites(), Lines{L"A|http://a/|x|1"});
    siteRows().setText(0, 2, L"kept");
    SaveItems(workspace());
    clickCategory(L"Far");
    EXPECT_EQ(sites(), Lines{L"A|http://a/|kept|1"});
}

} // namespace
} // namespace vandrel::test
