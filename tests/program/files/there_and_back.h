#pragma once

#include "model/site_date.h"
#include "model/site_record.h"
#include "platform/text/ansi_text.h"
#include "tests/program/files/exchange_process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <vector>

namespace vandrel::test {

// The fields of every site; a date that can be read as the day that it is.
inline std::vector<std::wstring> sitesIn(const std::string& bytes, const DateOrder& order)
{
    const std::wstring text = decodeAnsi(bytes);
    std::vector<std::wstring> sites;
    SiteRecordReader reader(text);
    while (const auto site = reader.next()) {
        const auto day = dateOfNumbers(site->date, order);
        sites.push_back(std::wstring(site->name) + L"|" + std::wstring(site->url) + L"|" +
                        std::wstring(site->description) + L"|" +
                        (day ? monthDayYearText(*day) : std::wstring()));
    }
    return sites;
}

struct ThereAndBack {
    std::size_t categories = 0;
    std::size_t sites = 0;
    ProgramRun written;
    ProgramRun read;
};

// Writes the categories of a folder to a page, brings that in to another folder and compares every field.
inline ThereAndBack takeThereAndBack(const std::wstring& folder, const DateOrder& order)
{
    ThereAndBack way;
    const TempFolder pages(L"page");
    const std::wstring page = pages.file(L"all.html");
    way.written = runExchange(L"export \"" + page + L"\" --folder \"" + folder + L"\"");
    EXPECT_NE(way.written.status, 2U) << way.written.errors;
    const TempFolder again(L"again");
    way.read = runImport(page, again);
    EXPECT_NE(way.read.status, 2U) << way.read.errors;
    std::size_t different = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != L".udb") continue;
        const std::wstring name = entry.path().filename().wstring();
        SCOPED_TRACE(testing::PrintToString(name));
        const auto before = sitesIn(readBytes(entry.path().wstring()), order);
        const auto after = sitesIn(again.read(name), order);
        ++way.categories;
        way.sites += before.size();
        EXPECT_EQ(after.size(), before.size());
        for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
            if (after[i] == before[i] || different++ >= 5) continue;
            ADD_FAILURE() << testing::PrintToString(before[i]) << "\nbecame "
                          << testing::PrintToString(after[i]);
        }
    }
    EXPECT_EQ(different, 0U);
    EXPECT_EQ(again.names().size(), way.categories);
    EXPECT_GT(way.sites, 0U);
    return way;
}

} // namespace vandrel::test
