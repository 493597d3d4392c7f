#include "tests/support/main_window_test.h"

#include <algorithm>

namespace vandrel::test {
namespace {

std::wstring ownApplication()
{
    static int counter = 0;
    return L"VandrelTest-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++counter);
}

} // namespace

MainWindowTest::MainWindowTest() : store(L""), application_(ownApplication())
{
    store = SettingsStore(application_);
}

MainWindowTest::~MainWindowTest()
{
    main.reset();
    pump(); // takes the quit message that closing has posted
    RegDeleteTreeW(HKEY_CURRENT_USER, (L"Software\\VB and VBA Program Settings\\" + application_).c_str());
}

void MainWindowTest::start(const std::wstring& commandLine)
{
    main = std::make_unique<frmMain>(frmMain::Startup{.dataFolder = folder.path(),
                                                      .commandLine = commandLine,
                                                      .settings = store,
                                                      .today = [this] { return today; }});
    main->Form_Load();
    main->show(SW_SHOW);
    pump();
}

void MainWindowTest::stop()
{
    SendMessageW(main->handle(), WM_CLOSE, 0, 0);
    main.reset();
}

std::wstring MainWindowTest::preference(const std::wstring& section, const std::wstring& key) const
{
    return store.get(section, key);
}

void MainWindowTest::setPreference(const std::wstring& section, const std::wstring& key,
                                   const std::wstring& text) const
{
    store.save(section, key, text);
}

void MainWindowTest::clickCategory(const std::wstring& title)
{
    const auto titles = column(lstCategory());
    const auto found = std::ranges::find(titles, title);
    ASSERT_NE(found, titles.end());
    const auto row = static_cast<std::size_t>(found - titles.begin());
    lstCategory().select(row);
    lstCategory().ItemClick(row);
}

std::vector<std::wstring> MainWindowTest::column(ListView& list, std::size_t column)
{
    std::vector<std::wstring> texts;
    for (std::size_t row = 0; row < list.count(); ++row) texts.push_back(list.text(row, column));
    return texts;
}

} // namespace vandrel::test
