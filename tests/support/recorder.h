#pragma once

#include "platform/system/shell.h"
#include "tests/support/answers.h"
#include "tests/support/registry_value.h"
#include "tests/support/temp_folder.h"

#include <string>
#include <vector>

namespace vandrel::test {

// Takes the place of the web browser and records how it is started.
class Recorder {
  public:
    Recorder() : program_(besideTheTests(L"recorder.exe"))
    {
        SetEnvironmentVariableW(L"VANDREL_RECORD", folder_.file(L"record.txt").c_str());
    }
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;
    ~Recorder() { SetEnvironmentVariableW(L"VANDREL_RECORD", nullptr); }

    const std::wstring& program() const { return program_; }
    // The command line with which the shell opens an address or a file.
    std::wstring opening(const std::wstring& target) const
    {
        return L"\"" + program_ + L"\" \"" + target + L"\"";
    }

    // The command lines so far.
    std::vector<std::wstring> lines() const
    {
        std::vector<std::wstring> all;
        const std::string bytes = folder_.has(L"record.txt") ? folder_.read(L"record.txt") : "";
        for (std::size_t at = 0, end = 0; (end = bytes.find('\n', at)) != std::string::npos; at = end + 1) {
            std::wstring line(bytes.size(), L'\0');
            line.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, bytes.data() + at,
                                                                     static_cast<int>(end - at), line.data(),
                                                                     static_cast<int>(line.size()))));
            all.push_back(line);
        }
        return all;
    }
    // Waits until there are `count` of them, and returns them.
    std::vector<std::wstring> linesOf(std::size_t count) const
    {
        pumpUntil([&] { return lines().size() >= count; });
        return lines();
    }
    // Whether nothing has been started so far. Starts something itself, which is then the first to be
    // recorded.
    bool nothingWasStarted() const
    {
        shellOpen(nullptr, L"http://last.example/");
        return linesOf(1) == std::vector<std::wstring>{opening(L"http://last.example/")};
    }

  private:
    static std::wstring besideTheTests(const std::wstring& name)
    {
        std::wstring path(MAX_PATH, L'\0');
        path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
        return path.substr(0, path.find_last_of(L'\\') + 1) + name;
    }

    TempFolder folder_{L"record"};
    std::wstring program_;
    RegistryValue http_{HKEY_CLASSES_ROOT, L"http\\shell\\open\\command", L"", opening(L"%1")};
    RegistryValue https_{HKEY_CLASSES_ROOT, L"https\\shell\\open\\command", L"", opening(L"%1")};
    RegistryValue html_{HKEY_CLASSES_ROOT, L".html", L"", L"VandrelTest.Page"};
    RegistryValue page_{HKEY_CLASSES_ROOT, L"VandrelTest.Page\\shell\\open\\command", L"", opening(L"%1")};
};

} // namespace vandrel::test
