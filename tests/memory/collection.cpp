#include "tests/memory/collection.h"

#include "tests/support/answers.h"

#include <cstring>
#include <filesystem>

namespace vandrel::test {
namespace {

constexpr const wchar_t* preferencesRoot = L"Software\\VB and VBA Program Settings\\";

void empty(const TempFolder& folder)
{
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        std::filesystem::remove_all(entry);
}

} // namespace

Collection::Collection()
    : store(L""), application_(L"VandrelTest-memory-" + std::to_wstring(GetCurrentProcessId()))
{
    store = SettingsStore(application_);
}

Collection::~Collection()
{
    forgetWindow();
    SetCurrentDirectoryW(L"C:\\");
    RegDeleteTreeW(HKEY_CURRENT_USER, (preferencesRoot + application_).c_str());
}

void Collection::reset()
{
    forgetWindow();
    escaped = false;
    typed = {.folder = target.path().c_str()};
    SetCurrentDirectoryW(folder.path().c_str()); // renaming uses paths relative to it
    empty(folder);
    empty(shortcuts);
    empty(target);
    folder.write(L"Archive.udb",
                 "Old page of long ago|http://old.example/|kept for its pictures|1/1/2001\r\n");
    folder.write(L"Empty.udb", "");
    std::string place = withServer ? std::string(server.begin(), server.end()) + "/ok?" : "c:\\nowhere\\";
    std::string lines;
    for (const char* const letter : {"c", "a", "b"}) {
        lines += std::string("A site whose name is ") + letter + "|" + place + letter +
                 "|a description of this site|9/30/2002\r\n";
        // Each is at a host of its own, so that a scan opens them at once.
        if (withServer) ++place[place.find("127.0.0.") + std::strlen("127.0.0.")];
    }
    folder.write(L"Work and play.udb", lines);
    for (const wchar_t* const name : {L"First shortcut.url", L"Second shortcut.url"})
        shortcuts.write(name, "[InternetShortcut]\r\nURL=http://shortcut.example/page\r\n");
    RegDeleteTreeW(HKEY_CURRENT_USER, (preferencesRoot + application_).c_str());
}

frmMain::Startup Collection::startup() const
{
    return {.dataFolder = folder.path(), .commandLine = L"", .settings = store, .today = [] {
                return std::wstring(L"11/16/2002");
            }};
}

// As wWinMain does.
bool Collection::start()
{
    guarded(nullptr, 1, [&]() -> LRESULT {
        main_ = std::make_unique<frmMain>(startup());
        asEvent([&] { main_->Form_Load(); });
        main_->show(SW_SHOW);
        return 0;
    });
    return running();
}

void Collection::stop()
{
    SendMessageW(main_->handle(), WM_CLOSE, 0, 0);
    main_.reset();
}

void Collection::forgetWindow()
{
    main_.reset();
    pump(); // takes the quit message, and messages for windows that are gone
}

void Collection::choose(int entry)
{
    SendMessageW(main_->handle(), WM_COMMAND, static_cast<WPARAM>(entry), 0);
}

void Collection::dispatch()
{
    try {
        MessageLoop::current().dispatchPending();
    } catch (...) {
        escaped = true;
    }
}

void Collection::nameFile(const wchar_t* name)
{
    named_ = target.file(name);
    typed.file = named_.c_str();
}

Files Collection::files() const
{
    Files all;
    for (const std::wstring& name : folder.names()) all[name] = folder.read(name);
    return all;
}

std::wstring Collection::leftBehind() const
{
    std::wstring found;
    for (const TempFolder* const place : {&folder, &target}) {
        for (const std::wstring& name : place->names()) {
            if (name.ends_with(L".tmp")) found += name + L" ";
        }
    }
    return found;
}

bool Collection::logSaysFailed() const
{
    return folder.has(L"scanned.log") && folder.read(L"scanned.log").ends_with(" - Failed\r\n");
}

} // namespace vandrel::test
