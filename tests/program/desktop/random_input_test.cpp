#include "tests/program/support/random_user.h"
#include "tests/program/support/shortcut_test.h"
#include "tests/support/recorder.h"

#include <algorithm>
#include <cstdio>
#include <sstream>

namespace vandrel::test {
namespace {

constexpr unsigned usualSeed = 20021116;
constexpr unsigned actions = 20'000;
constexpr unsigned betweenChecks = 200;

// A setting for a run by hand.
unsigned numberFrom(const wchar_t* variable, unsigned otherwise)
{
    const auto text = environment(variable);
    return text ? static_cast<unsigned>(std::stoul(*text)) : otherwise;
}

std::string sitesOf(char category)
{
    std::ostringstream lines;
    for (int i = 1; i <= 20; ++i) {
        lines << category << i << "|http://127.0.0.1:1/" << category << i << "|site " << i << "|1/" << i
              << "/2003\r\n";
    }
    return lines.str();
}

// Whether every line is whole and has the four fields of a site.
bool isWholeCategory(const std::string& bytes)
{
    std::size_t at = 0;
    while (at < bytes.size()) {
        const std::size_t end = bytes.find("\r\n", at);
        if (end == std::string::npos) return false;
        const std::string line = bytes.substr(at, end - at);
        if (line.find_first_of("\r\n") != std::string::npos || std::ranges::count(line, '|') < 3)
            return false;
        at = end + 2;
    }
    return true;
}

// Nothing that is opened leaves this machine: a stand-in takes the place of the browser and the mail
// program, and connections go to a proxy that does not exist.
class RandomInput : public ShortcutTest {
  protected:
    RandomInput()
    {
        SetEnvironmentVariableW(L"http_proxy", L"http://127.0.0.1:1");
        SetEnvironmentVariableW(L"VANDREL_RECORD", files.file(L"record.txt").c_str());
        for (const char category : {'A', 'B', 'C', 'D'})
            folder.write(std::wstring(1, static_cast<wchar_t>(category)) + L".udb", sitesOf(category));
        folder.write(L"E.udb", "");
        for (const wchar_t* const name : {L"q one.url", L"q two.url", L"q three.url"})
            favorites.write(name, "[InternetShortcut]\r\nURL=http://127.0.0.1:1/imported\r\n");
    }
    ~RandomInput() override
    {
        SetEnvironmentVariableW(L"VANDREL_RECORD", nullptr);
        SetEnvironmentVariableW(L"http_proxy", nullptr);
    }

    void expectWholeFiles() const
    {
        EXPECT_SOON(temporaryFiles(), Texts{});
        for (const std::wstring& name : folder.names()) {
            if (name.ends_with(L".udb")) {
                EXPECT_TRUE(isWholeCategory(folder.read(name))) << testing::PrintToString(name);
            }
        }
    }
    void expectAnAnswer() const
    {
        DWORD_PTR answer = 0;
        EXPECT_NE(
            SendMessageTimeoutW(program.window(), WM_NULL, 0, 0, SMTO_NORMAL, limitMilliseconds, &answer), 0)
            << "the program hangs";
    }
    Texts temporaryFiles() const
    {
        Texts names = folder.names();
        std::erase_if(names, [](const std::wstring& name) {
            return !name.starts_with(L"vandrel-") || !name.ends_with(L".tmp");
        });
        return names;
    }
    Texts categoriesOnDisk() const
    {
        Texts names = folder.names();
        std::erase_if(names, [](const std::wstring& name) { return !name.ends_with(L".udb"); });
        for (std::wstring& name : names) name.resize(name.size() - 4);
        std::ranges::sort(names);
        return names;
    }
    Texts categoriesShown() const
    {
        Texts titles = program.titles();
        std::ranges::sort(titles);
        return titles;
    }

    TempFolder files{L"files"};

  private:
    static std::wstring standIn() { return L"\"" + nativePath(VANDREL_RECORDER) + L"\" \"%1\""; }

    RegistryValue http_{HKEY_CLASSES_ROOT, L"http\\shell\\open\\command", L"", standIn()};
    RegistryValue https_{HKEY_CLASSES_ROOT, L"https\\shell\\open\\command", L"", standIn()};
    RegistryValue mail_{HKEY_CLASSES_ROOT, L"mailto\\shell\\open\\command", L"", standIn()};
    RegistryValue browser_{HKEY_LOCAL_MACHINE,
                           L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\IEXPLORE.EXE", L"",
                           nativePath(VANDREL_RECORDER)};
};

TEST_F(RandomInput, NeverCrashesOrHangsTheProgramOrLeavesHalfAFile)
{
    const unsigned seed = numberFrom(L"VANDREL_SEED", usualSeed);
    const unsigned count = numberFrom(L"VANDREL_ACTIONS", actions);
    std::printf("%u actions from seed %u; VANDREL_SEED and VANDREL_ACTIONS set others\n", count, seed);
    RandomUser user(program, seed, files.path());
    unsigned done = 0;
    try {
        for (unsigned next = betweenChecks; done < count && !HasFailure();) {
            done += static_cast<unsigned>(user.act());
            if (done < next) continue;
            next = done + betweenChecks;
            expectAnAnswer();
            expectWholeFiles();
        }
        user.closeDialogs();
        user.quit();
        expectWholeFiles();
        program.start();
        EXPECT_SOON(categoriesShown(), categoriesOnDisk());
    } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
    }
    for (const auto& [kind, times] : user.kinds()) std::printf("%7d %s\n", times, kind.c_str());
    std::printf("%7d starts\n", user.starts());
    for (const auto& [text, times] : user.boxes())
        std::printf("%7d box: %s\n", times, testing::PrintToString(text).c_str());
    if (HasFailure())
        std::printf("After %u actions from seed %u, the last of them:\n%s", done, seed, user.story().c_str());
}

} // namespace
} // namespace vandrel::test
