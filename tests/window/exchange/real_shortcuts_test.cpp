#include "exchange/ini_file.h"
#include "exchange/shortcut_name.h"
#include "store/saved_text.h"
#include "tests/support/import_test.h"

namespace fs = std::filesystem;

namespace vandrel::test {
namespace {

constexpr int fileDialogName = 1148; // the name field of the system's file dialog

// The folder "shared" beside the project; none when it is missing.
std::optional<fs::path> realShortcuts()
{
    wchar_t program[MAX_PATH]{};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    for (const fs::path& start : {fs::current_path(), fs::path(program).parent_path()}) {
        for (fs::path at = start; at != at.parent_path(); at = at.parent_path()) {
            const fs::path found = at.parent_path() / L"shared" / L"shortcuts";
            std::error_code ignored;
            if (fs::exists(at / L"CMakeLists.txt", ignored) && fs::is_directory(found, ignored)) return found;
        }
    }
    return std::nullopt;
}

std::string lower(std::string text)
{
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

std::string trimmed(const std::string& text)
{
    const std::size_t start = text.find_first_not_of(" \t\r");
    return start == std::string::npos ? "" : text.substr(start, text.find_last_not_of(" \t\r") - start + 1);
}

// The URL in a shortcut's bytes, at most 254 bytes of it, worked out without the system.
std::string urlIn(const std::string& bytes)
{
    bool inSection = false;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = std::min(bytes.find('\n', at), bytes.size());
        const std::string line = trimmed(bytes.substr(at, end - at));
        at = end + 1;
        if (line.starts_with('[')) {
            inSection = lower(line.substr(0, line.find(']') + 1)) == "[internetshortcut]";
        } else if (const auto sign = line.find('='); inSection && sign != std::string::npos) {
            if (lower(trimmed(line.substr(0, sign))) != "url") continue;
            std::string value = trimmed(line.substr(sign + 1));
            // To the system the text ends at a NUL.
            value = trimmed(value.substr(0, value.find('\0')));
            return value.substr(0, 254);
        }
    }
    return "";
}

struct Expected {
    std::wstring file;
    std::wstring name;
    std::wstring url;
};

// Real shortcuts, read where they are.
class RealShortcuts : public ImportTest {
  protected:
    void SetUp() override
    {
        const auto source = realShortcuts();
        if (!source) GTEST_SKIP() << "no folder shared/shortcuts beside the project";
        if (GetACP() != 1252) GTEST_SKIP() << "the ANSI code page is not 1252";
        path = source->wstring();
        for (const auto& entry : fs::directory_iterator(*source)) {
            const std::wstring extension = entry.path().extension().wstring();
            if (CompareStringOrdinal(extension.c_str(), -1, L".url", -1, TRUE) != CSTR_EQUAL) continue;
            const std::string url = urlIn(readBytes(entry.path().wstring()));
            expected.push_back({entry.path().filename().wstring(), entry.path().stem().wstring(),
                                std::wstring(url.begin(), url.end())});
        }
        ASSERT_GT(expected.size(), 0U);
        startEmpty();
        workspace().favoritesFolder = path;
    }
    static Lines sorted(Lines lines)
    {
        std::ranges::sort(lines);
        return lines;
    }
    Lines expectedSites() const
    {
        Lines lines;
        for (const Expected& site : expected) lines.push_back(savedText(site.name) + L"|" + site.url + L"||");
        return sorted(lines);
    }

    std::wstring path;
    std::vector<Expected> expected;
};

TEST_F(RealShortcuts, TheirUrlsAreOfManyKinds)
{
    // Otherwise the tests below would test nothing.
    EXPECT_TRUE(std::ranges::any_of(expected, [](const Expected& site) { return site.url.empty(); }));
    EXPECT_TRUE(std::ranges::any_of(expected, [](const Expected& site) { return site.url.size() == 254; }));
    EXPECT_GT(std::ranges::count_if(expected,
                                    [](const Expected& site) { return site.url.starts_with(L"http"); }),
              30);
}

TEST_F(RealShortcuts, AreAllListed)
{
    Lines files;
    for (const Expected& site : expected) files.push_back(site.file);
    open([&](const ImportDialog& dialog) {
        EXPECT_EQ(sorted(dialog.fileNames()), sorted(files));
        dialog.cancel();
    });
}

TEST_F(RealShortcuts, AreImportedAllAtOnce)
{
    importAll();
    EXPECT_EQ(sorted(sites()), expectedSites());
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(saved(), '\n')), expected.size());
}

TEST_F(RealShortcuts, AreImportedOneByOne)
{
    for (const Expected& site : expected) {
        SCOPED_TRACE(testing::PrintToString(site.file));
        importOne(site.file);
        if (HasFailure()) break;
    }
    EXPECT_EQ(sorted(sites()), expectedSites());
}

TEST_F(RealShortcuts, AreSavedAndReadAgainAsTheyWereImported)
{
    importAll();
    const Lines before = column(lstInfo(), 1);
    clickCategory(L"Work");
    EXPECT_EQ(column(lstInfo(), 1), before);
}

TEST_F(RealShortcuts, AreWrittenAndImportedAgain)
{
    importAll();
    const Lines urls = column(lstInfo(), 1);
    const TempFolder target(L"target");
    for (std::size_t row = 0; row < lstInfo().count(); ++row) {
        const std::wstring file = shortcutPath(target.file(fileNameFor(lstInfo().text(row))));
        Module1::WriteINIValue(L"DEFAULT", L"BaseURL", urls[row], file);
        Module1::WriteINIValue(L"InternetShortcut", L"URL", urls[row], file);
    }
    EXPECT_EQ(target.names().size(), urls.size());
    while (!lstInfo().empty()) siteRows().remove(0);
    workspace().favoritesFolder = target.path();
    importAll();
    EXPECT_EQ(sorted(column(lstInfo(), 1)), sorted(urls));
}

TEST_F(RealShortcuts, WithOddNamesAndUrlsAreExportedThroughTheDialog)
{
    importAll();
    const TempFolder target(L"target");
    std::size_t exported = 0;
    for (std::size_t row = 0; row < lstInfo().count(); ++row) {
        const std::wstring name = lstInfo().text(row);
        const std::wstring url = lstInfo().text(row, 1);
        const bool plain = std::ranges::all_of(name, [](wchar_t c) { return c < 0x80 && c != L'%'; });
        if (plain && !name.ends_with(L'.') && !url.empty() && url.size() < 200 && name.size() < 90) continue;
        SCOPED_TRACE(testing::PrintToString(name));
        selectSites({row});
        std::wstring file;
        Answers answers;
        answers.expect(L"Export URL File", [&](HWND dialog) {
            file = target.file(windowText(GetDlgItem(dialog, fileDialogName)));
            SendDlgItemMessageW(dialog, fileDialogName, WM_SETTEXT, 0,
                                reinterpret_cast<LPARAM>(file.c_str()));
            SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
        choose(mnuExport);
        EXPECT_ANSWERED(answers);
        if (HasFailure()) break;
        EXPECT_EQ(Module1::ReadINIValue(L"InternetShortcut", L"URL", file + L".url"), url);
        ++exported;
    }
    EXPECT_GT(exported, 0U);
    EXPECT_EQ(target.names().size(), exported);
}

} // namespace
} // namespace vandrel::test
