#include "exchange/shortcut_name.h"
#include "tests/support/drop_test.h"
#include "tests/support/hostile_text.h"
#include "tests/support/import_test.h"
#include "tests/support/window_parts.h"

namespace vandrel::test {
namespace {

// Random input that reaches the main window from outside.
class HostileDrops : public DropTest {
  protected:
    HostileText hostile;
};

// Any text may be dropped and accepted: it becomes one site and remains one.
TEST_F(HostileDrops, BecomeOneSiteEach)
{
    startWithOneSite();
    const std::size_t wanted = hostileCount(3000) / 100;
    for (std::size_t tried = 0; tried < wanted; ++tried) {
        const std::wstring text = hostile.oneIn(2) ? hostile.text(40)
                                                   : hostile.mutated(L"http://a/\r\nb~-~A|page\r\n~-~c");
        DroppedObject link;
        if (hostile.oneIn(2)) link.withUnicode(text);
        else link.withAnsi(std::string(text.begin(), text.end()));
        const std::size_t before = lstInfo().count();
        dropAndAnswer(link, pressing(IDOK));
        ASSERT_EQ(lstInfo().count(), before + 1);
        // A name that begins with a semicolon makes its line a comment; that is the file format.
        for (std::size_t row = 0; row < lstInfo().count(); ++row) {
            if (lstInfo().text(row).starts_with(L';')) siteRows().setText(row, 0, L"x");
        }
        SaveItems(workspace());
        const Lines lines = sites();
        clickCategory(L"Work");
        ASSERT_EQ(sites().size(), lines.size())
            << "seed " << hostile.usedSeed() << ", text " << tried << ": " << testing::PrintToString(text);
    }
}

class HostileShortcuts : public ImportTest {
  protected:
    // Random bytes around one sound entry, which names the file's own mark.
    std::string shortcut(const std::string& mark)
    {
        std::string bytes;
        const auto some = [&] {
            for (std::size_t left = hostile.below(80); left > 0; --left) {
                bytes += hostile.oneIn(3) ? static_cast<char>(hostile.below(0x100))
                                          : "[]=;\r\n\"URLurl|\0 "[hostile.below(16)];
            }
        };
        if (hostile.oneIn(3)) some();
        bytes += "\r\n[InternetShortcut]\r\n";
        if (hostile.oneIn(3)) some();
        bytes += "\r\nURL=http://" + mark + "/";
        some();
        return bytes;
    }

    HostileText hostile;
};

TEST_F(HostileShortcuts, BecomeOneSiteEach)
{
    startEmpty();
    const std::size_t wanted = hostileCount(6000) / 100;
    for (std::size_t tried = 0; tried < wanted; ++tried) {
        const std::string mark = "m" + std::to_string(tried) + "m";
        const std::wstring name = std::wstring(mark.begin(), mark.end()) + fileNameFor(hostile.text(20));
        favorites.write(fileNameFor(name) + L".url", shortcut(mark));
    }
    const std::size_t files = favorites.names().size();
    open([](const ImportDialog& dialog) { dialog.press(importer::importAll); }, expectReminder);
    ASSERT_EQ(lstInfo().count(), files);
    clickCategory(L"Work");
    ASSERT_EQ(lstInfo().count(), files);
    for (std::size_t row = 0; row < lstInfo().count(); ++row) {
        const std::wstring name = lstInfo().text(row);
        const std::wstring mark = name.substr(0, name.find(L'm', 1) + 1);
        for (std::size_t field = 1; field < RowTable::maxColumns; ++field) {
            const std::wstring text = lstInfo().text(row, field);
            const std::size_t at = text.find(L"http://m");
            if (at == text.npos) continue;
            EXPECT_EQ(text.substr(at + 7, mark.size()), mark) << "the address of another shortcut";
        }
    }
}

class HostileRegistry : public MainWindowTest {
  protected:
    HostileRegistry() { store = SettingsStore(application_); }
    ~HostileRegistry() override { forget(); }
    void forget()
    {
        main.reset();
        pump();
        RegDeleteTreeW(HKEY_CURRENT_USER, (root + application_).c_str());
    }
    void load()
    {
        main = std::make_unique<frmMain>(frmMain::Startup{.dataFolder = folder.path(),
                                                          .commandLine = L"",
                                                          .settings = store,
                                                          .today = [this] { return today; }});
        main->Form_Load();
    }
    void setAny(const wchar_t* section, const wchar_t* name)
    {
        std::wstring text = hostile.oneIn(3) ? hostile.text(30)
                                             : hostile.mutated(std::to_wstring(hostile.below(40'000)));
        if (text.size() > 1000) text.resize(1000);
        const DWORD types[] = {REG_SZ,     REG_SZ,    REG_SZ,       REG_EXPAND_SZ,
                               REG_BINARY, REG_DWORD, REG_MULTI_SZ, 4711};
        const auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        // It may end in the middle of a letter.
        const DWORD end = size == 0 ? 0 : size - static_cast<DWORD>(hostile.below(3));
        RegSetKeyValueW(HKEY_CURRENT_USER, (root + application_ + L"\\" + section).c_str(), name,
                        types[hostile.below(std::size(types))], text.c_str(), end);
    }

    HostileText hostile;

  private:
    const std::wstring root = L"Software\\VB and VBA Program Settings\\";
    std::wstring application_ = L"VandrelTest-hostile-" + std::to_wstring(GetCurrentProcessId());
};

TEST_F(HostileRegistry, LeavesAWindowThatCanBeUsed)
{
    folder.write(L"Work.udb", threeSites);
    const std::size_t wanted = hostileCount(2000) / 100;
    for (std::size_t tried = 0; tried < wanted && !HasFailure(); ++tried) {
        for (const wchar_t* const name : {L"GridLines", L"HoverSel", L"KeepTop", L"Left", L"Top", L"Width",
                                          L"Height", L"Col1", L"Col2", L"Col3", L"Col4"}) {
            setAny(L"Config", name);
        }
        for (const wchar_t* const name : {L"FontName", L"FontColor", L"FontSize", L"FontBold", L"FontItalic",
                                          L"HTMLFont", L"HTMLBorder", L"HTMLTWidth", L"GenEmpty"}) {
            setAny(L"Options", name);
        }
        load();
        const RECT area = outerPlace(main->handle()); // before the window manager interferes
        main->show(SW_SHOW);
        pump();
        EXPECT_EQ(lstInfo().count(), 3U);
        EXPECT_NE(IsWindowVisible(main->handle()), 0);
        EXPECT_NE(MonitorFromRect(&area, MONITOR_DEFAULTTONULL), nullptr);
        EXPECT_GE(area.left, 0);
        EXPECT_GE(area.top, 0);
        EXPECT_GT(widthOf(area), 100);
        EXPECT_GT(heightOf(area), 100);
        const OptionsState options = main->workspace().options;
        stop();
        pump();
        start(); // with what it has written itself
        EXPECT_TRUE(main->workspace().options == options);
        forget();
        EXPECT_FALSE(HasFailure()) << "seed " << hostile.usedSeed() << ", start " << tried;
    }
}

} // namespace
} // namespace vandrel::test
