#include "tests/support/scan_test.h"
#include "tests/support/text_lines.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace vandrel::test {
namespace {

constexpr std::size_t mostSites = 110; // in a category that is tested

// The folder "shared" beside the project; none when it is missing.
std::optional<fs::path> realCollection()
{
    wchar_t program[MAX_PATH]{};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    for (const fs::path& start : {fs::current_path(), fs::path(program).parent_path()}) {
        for (fs::path at = start; at != at.parent_path(); at = at.parent_path()) {
            const fs::path found = at.parent_path() / L"shared" / L"collection";
            std::error_code ignored;
            if (fs::exists(at / L"CMakeLists.txt", ignored) && fs::is_directory(found, ignored)) return found;
        }
    }
    return std::nullopt;
}

// Real names, with addresses on the test's server.
class ScanCollection : public ScanTest {
  protected:
    struct Expected {
        std::vector<std::string> log;
        Images images;
    };
    // Writes the category with addresses of known outcome, and returns what the scan must find.
    Expected rewrite(const std::wstring& file, const std::string& bytes)
    {
        const std::pair<std::string, bool> outcomes[] = {
            {narrow(at(L"/ok?")), true},
            {narrow(at(L"/missing?")), true},
            {narrow(server.refusedAddress(L"http", L"/?")), false},
            {narrow(at(L"/moved?")), true},
            {"mailto:somebody@mail.example?", false},
        };
        Expected expected;
        std::string rewritten;
        for (std::size_t start = 0, end = 0; start < bytes.size(); start = end + 2) {
            end = std::min(bytes.find("\r\n", start), bytes.size());
            const std::string line = bytes.substr(start, end - start);
            const std::size_t name = line.find('|');
            if (name == std::string::npos || line[0] == ';') continue;
            const auto& [address, success] = outcomes[expected.images.size() % std::size(outcomes)];
            const std::string url = address + std::to_string(expected.images.size());
            const std::size_t rest = line.find('|', name + 1);
            rewritten += line.substr(0, name + 1) + url +
                         (rest == std::string::npos ? "" : line.substr(rest)) + "\r\n";
            expected.log.push_back(line.substr(0, name) + " - " + url +
                                   (success ? " - Success" : " - Failed"));
            expected.images.push_back(success ? siteImage : deadSiteImage);
        }
        folder.write(file, rewritten);
        return expected;
    }
    static std::size_t sitesIn(const std::string& bytes)
    {
        return static_cast<std::size_t>(std::ranges::count(bytes, '\n'));
    }
};

TEST_F(ScanCollection, EverySiteIsLoggedWithItsNameByteForByteAndItsOutcome)
{
    if (GetACP() != 1252) GTEST_SKIP() << "the collection is of code page 1252";
    const auto source = realCollection();
    if (!source) GTEST_SKIP() << "no folder shared/collection beside the project";
    std::vector<std::pair<std::wstring, Expected>> categories;
    for (const auto& entry : fs::directory_iterator(*source)) {
        if (entry.path().extension() != L".udb") continue;
        const std::string bytes = readBytes(entry.path().wstring());
        if (sitesIn(bytes) > mostSites) continue;
        const std::wstring file = entry.path().filename().wstring();
        categories.emplace_back(entry.path().stem().wstring(), rewrite(file, bytes));
    }
    ASSERT_GE(categories.size(), 3U);
    start();
    std::size_t sitesBefore = 0;
    for (const auto& [title, expected] : categories) {
        clickCategory(title);
        ASSERT_EQ(lstInfo().count(), expected.images.size()) << testing::PrintToString(title);
        Answers answers;
        answers.expect(L"Unavailable Sites", [](HWND box) { press(box, IDOK); });
        main->run(mnuScanAllURLs);
        EXPECT_ANSWERED(answers) << testing::PrintToString(title);
        EXPECT_EQ(images(), expected.images) << testing::PrintToString(title);
        const std::vector<std::string> all = linesOf(log());
        ASSERT_EQ(all.size(), sitesBefore + expected.log.size());
        for (std::size_t i = 0; i < expected.log.size(); ++i)
            EXPECT_EQ(all[sitesBefore + i], expected.log[i]);
        sitesBefore = all.size();
    }
}

} // namespace
} // namespace vandrel::test
