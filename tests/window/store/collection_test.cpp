#include "store/site_operations.h"
#include "tests/support/store_test.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace vandrel::test {
namespace {

// A folder in "shared" beside the project; none when it is missing.
std::optional<fs::path> besideTheProject(const wchar_t* name)
{
    wchar_t program[MAX_PATH]{};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    for (const fs::path& start : {fs::current_path(), fs::path(program).parent_path()}) {
        for (fs::path at = start; at != at.parent_path(); at = at.parent_path()) {
            const fs::path found = at.parent_path() / L"shared" / name;
            std::error_code ignored;
            if (fs::exists(at / L"CMakeLists.txt", ignored) && fs::is_directory(found, ignored)) return found;
        }
    }
    return std::nullopt;
}

std::vector<std::string> recordsOf(const std::string& bytes)
{
    std::vector<std::string> records;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = std::min(bytes.find("\r\n", at), bytes.size());
        const std::string line = bytes.substr(at, end - at);
        if (line.find('|') != std::string::npos && line.front() != ';') records.push_back(line);
        at = end + 2;
    }
    return records;
}

// Real bookmarks, those that the code page of this run can read.
class Collection : public StoreTest {
  protected:
    void changeOneSiteOf(const std::wstring& title)
    {
        const std::vector<std::string> before = recordsOf(folder.read(title + L".udb"));
        clickCategory(title);
        ASSERT_EQ(lstInfo().count(), before.size());
        if (before.empty()) return;
        const std::size_t changed = before.size() / 2;
        selectSites({changed});
        Answers answers;
        answers.expectInput(L"Enter Description", L"Enter a new description for this site.", L"changed here");
        EditDescription(workspace());
        EXPECT_ANSWERED(answers);

        const std::vector<std::string> after = recordsOf(folder.read(title + L".udb"));
        ASSERT_EQ(after.size(), before.size());
        std::size_t different = 0;
        for (std::size_t i = 0; i < before.size(); ++i) {
            if (i != changed && after[i] != before[i] && different++ < 3) {
                ADD_FAILURE() << "record " << i << ": " << before[i] << "\nbecame " << after[i];
            }
        }
        EXPECT_EQ(different, 0U);
        EXPECT_NE(after[changed].find("|changed here|"), std::string::npos);
        EXPECT_EQ(after[changed].substr(0, after[changed].find("|changed here|")),
                  before[changed].substr(0, after[changed].find("|changed here|")));
    }
};

TEST_F(Collection, EveryCategoryOpensAndAChangeOfOneSiteLeavesAllOthersByteForByte)
{
    const wchar_t* const name = GetACP() == 932 ? L"collection-cp932" : L"collection";
    if (GetACP() != 932 && GetACP() != 1252) GTEST_SKIP() << "no collection for this code page";
    const auto source = besideTheProject(name);
    if (!source) GTEST_SKIP() << "no folder shared/collection beside the project";
    std::size_t files = 0;
    for (const auto& entry : fs::directory_iterator(*source)) {
        if (entry.path().extension() != L".udb") continue;
        folder.write(entry.path().filename().wstring(), readBytes(entry.path().wstring()));
        ++files;
    }
    ASSERT_GT(files, 0U);
    start();
    const Lines all = titles();
    ASSERT_EQ(all.size(), files);
    for (const std::wstring& title : all) {
        SCOPED_TRACE(testing::PrintToString(title));
        changeOneSiteOf(title);
    }
    EXPECT_EQ(folder.names().size(), files) << "nothing is left beside the categories";
}

} // namespace
} // namespace vandrel::test
