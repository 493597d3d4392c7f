#include "tests/support/menus_seen.h"
#include "tests/support/window_parts.h"

#include <algorithm>

namespace vandrel::test {
namespace {

// For each new name Wine reads the whole folder, lest there is one that differs in case only: minutes for
// 10,000. A path in its own form is taken as it stands. On Windows the path is used as it is.
std::wstring quickForm(const std::wstring& path)
{
    using Translate = char*(CDECL*)(const wchar_t*);
    void* const found = reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32"), "wine_get_unix_file_name"));
    if (found == nullptr) return path;
    char* const native = reinterpret_cast<Translate>(found)(path.c_str());
    if (native == nullptr) return path;
    const std::string name = native;
    HeapFree(GetProcessHeap(), 0, native);
    std::wstring form(name.begin(), name.end()); // the test folder's path is plain letters
    std::ranges::replace(form, L'/', L'\\');
    return L"\\\\?\\unix" + form;
}

class ManyCategories : public MainWindowTest, public testing::WithParamInterface<int> {
  protected:
    std::vector<std::wstring> makeCategories(int count)
    {
        const std::wstring place = quickForm(folder.path());
        std::vector<std::wstring> titles;
        for (int i = 0; i < count; ++i) {
            titles.push_back(L"Category " + std::to_wstring(i));
            CloseHandle(CreateFileW((place + L"\\" + titles.back() + L".udb").c_str(), GENERIC_WRITE, 0,
                                    nullptr, CREATE_NEW, 0, nullptr));
        }
        std::ranges::sort(titles);
        return titles;
    }
};

INSTANTIATE_TEST_SUITE_P(Counts, ManyCategories, testing::Values(1'000, 10'000));

TEST_P(ManyCategories, AreAllListedAndMoveToLeadsToEach)
{
    const auto titles = makeCategories(GetParam());
    start();
    auto listed = column(lstCategory());
    const auto items = itemsOf(main->menus().submenu(mnuMoveTo));
    std::vector<std::wstring> entries;
    for (const MenuItem& item : items) entries.push_back(item.text);
    EXPECT_TRUE(entries == listed) << entries.size() << " entries";
    std::ranges::sort(listed);
    EXPECT_TRUE(listed == titles) << listed.size() << " categories";
    for (std::size_t i = 0; i < items.size(); ++i) {
        ASSERT_EQ(main->workspace().mnuMove.indexOf(static_cast<int>(items[i].id)), i);
    }

    siteRows().add({L"A", L"http://a/", L"", L""}, siteImage);
    lstInfo().select(0);
    main->run(static_cast<int>(items.back().id));
    EXPECT_EQ(folder.read(items.back().text + L".udb"), "A|http://a/||\r\n");
    EXPECT_EQ(main->caption(), L"Vandrel - " + items.back().text);
}

} // namespace
} // namespace vandrel::test
