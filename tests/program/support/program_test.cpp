#include "tests/program/support/program_test.h"

#include "platform/system/settings_store.h"
#include "tests/program/support/screen_picture.h"

namespace vandrel::test {
namespace {

constexpr const wchar_t* preferences = L"Software\\VB and VBA Program Settings\\Vandrel";

} // namespace

ProgramTest::ProgramTest() : program(folder.path()) { clearPreferences(); }

ProgramTest::~ProgramTest() { program.kill(); } // before its folder is removed

void ProgramTest::TearDown()
{
    const auto pictures = environment(L"VANDREL_PICTURES");
    if (!HasFailure() || !pictures) return;
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    const std::string name = std::string(test->test_suite_name()) + "." + test->name() + ".bmp";
    const std::wstring path = nativePath(std::string(pictures->begin(), pictures->end()) + "/" + name);
    std::printf("%s %s\n", savePictureOfScreen(path) ? "The screen is in" : "No picture could be written:",
                name.c_str());
}

void ProgramTest::restart()
{
    program.quit();
    program.start();
}

std::wstring ProgramTest::preference(const std::wstring& section, const std::wstring& key)
{
    return SettingsStore(L"Vandrel").get(section, key);
}

void ProgramTest::setPreference(const std::wstring& section, const std::wstring& key,
                                const std::wstring& text)
{
    SettingsStore(L"Vandrel").save(section, key, text);
}

void ProgramTest::clearPreferences() { RegDeleteTreeW(HKEY_CURRENT_USER, preferences); }

std::string ProgramTest::today()
{
    char text[64]{};
    GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text, 64);
    return text;
}

Texts ProgramTest::categoryFiles() const
{
    Texts names = folder.names();
    std::erase(names, L"Vandrel.exe");
    return names;
}

} // namespace vandrel::test
