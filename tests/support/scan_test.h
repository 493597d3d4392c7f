#pragma once

#include "platform/controls/status_bar.h"
#include "tests/support/meanwhile.h"
#include "tests/support/store_test.h"
#include "tests/support/test_server.h"
#include "tests/support/window_parts.h"

#include <gtest/gtest.h>

namespace vandrel::test {

using Images = std::vector<int>;

inline constexpr const wchar_t* oneUnavailable =
    L"There was 1 unavailable link.\r\nIt has been marked with a red X\r\n"
    L"for easy identification and possible removal.\r\n\r\n"
    L"Please be aware that this site may just be temporarily unavailable. If you feel this is an error,\r\n"
    L"try rescanning, or opening the site manually.";
inline constexpr const wchar_t* twoUnavailable =
    L"There were 2 unavailable links.\r\nThey have been marked with a red X\r\n"
    L"for easy identification and possible removal.\r\n\r\n"
    L"Please be aware that these sites may just be temporarily unavailable. If you feel this is an error,\r\n"
    L"try rescanning, or opening these sites manually.";
inline constexpr const wchar_t* allUnavailable =
    L"Every link checked has proven to be unavailable. Please check your internet connection.";

// A category of sites on a server of the test's own. The path of a site decides what the server does.
class ScanTest : public StoreTest {
  protected:
    static constexpr const wchar_t* dead = L"http://nowhere.invalid/";

    std::wstring at(const std::wstring& path) const { return server.address(path); }
    // Writes the category; each site is a name and an address.
    void category(const std::wstring& title, const std::vector<std::pair<std::wstring, std::wstring>>& rows)
    {
        std::string lines;
        for (const auto& [name, url] : rows)
            lines += narrow(name) + "|" + narrow(url) + "|about it|1/2/2003\r\n";
        folder.write(title + L".udb", lines);
    }
    // Opens the window with this category; the first site is the current one.
    void begin(const std::vector<std::pair<std::wstring, std::wstring>>& rows)
    {
        category(L"Links", rows);
        start();
        workspace().inetScan.setRequestTimeout(5000);
        if (!rows.empty()) lstInfo().select(0);
    }
    // Scans that end with no message.
    void scanAll()
    {
        Answers none;
        main->run(mnuScanAllURLs);
        EXPECT_ANSWERED(none);
    }
    void scanSelected()
    {
        Answers none;
        main->run(mnuScanSelected);
        EXPECT_ANSWERED(none);
    }
    void scanAllAndTold(const wchar_t* title, const wchar_t* text)
    {
        Answers answers;
        answers.expectBox(title, text, IDOK, MB_ICONASTERISK);
        main->run(mnuScanAllURLs);
        EXPECT_ANSWERED(answers);
    }

    Images images()
    {
        Images all;
        for (std::size_t row = 0; row < lstInfo().count(); ++row) all.push_back(siteRows().image(row));
        return all;
    }
    // Panels count from 1.
    std::wstring panel(int number) { return workspace().StatusBar1.panelText(number); }
    ProgressBar& PB() { return workspace().PB; }

    std::string log() const { return folder.has(L"scanned.log") ? folder.read(L"scanned.log") : "(none)"; }
    static std::string line(const std::wstring& name, const std::wstring& url, const char* outcome)
    {
        return narrow(name) + " - " + narrow(url) + " - " + outcome + "\r\n";
    }
    static std::string success(const std::wstring& name, const std::wstring& url)
    {
        return line(name, url, "Success");
    }
    static std::string failed(const std::wstring& name, const std::wstring& url)
    {
        return line(name, url, "Failed");
    }
    // One byte each, as in the western code page below U+0100.
    static std::string narrow(const std::wstring& text)
    {
        std::string bytes;
        for (const wchar_t letter : text) bytes += static_cast<char>(letter);
        return bytes;
    }
    auto isHeld(std::size_t count = 1)
    {
        return [this, count] { return server.held() == count; };
    }

    TestServer server;
};

} // namespace vandrel::test
