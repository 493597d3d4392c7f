#include "exchange/shortcut_name.h"
#include "model/category_title.h"
#include "model/incoming_link.h"
#include "model/site_date.h"
#include "model/site_record.h"
#include "platform/base/runtime_error.h"
#include "platform/text/number_text.h"
#include "shared/options_state.h"
#include "tests/support/hostile_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <vector>

namespace vandrel::test {
namespace {

// The short texts that come from outside: file names, dropped links, stored dates and preferences, command
// lines.
class HostileTexts : public testing::Test {
  protected:
    // A sound text, a mutated one, or anything at all.
    std::wstring textLike(const std::vector<std::wstring>& sound)
    {
        if (hostile.oneIn(4)) return hostile.text(40);
        return hostile.mutated(sound[hostile.below(sound.size())]);
    }
    void tryTexts(const std::vector<std::wstring>& sound, const auto& check)
    {
        const std::size_t wanted = hostileCount(60'000) / 6;
        for (std::size_t tried = 0; tried < wanted; ++tried) {
            const std::wstring text = textLike(sound);
            check(text);
            ASSERT_FALSE(HasFailure()) << "seed " << hostile.usedSeed() << ", text " << tried << ": "
                                       << testing::PrintToString(text);
        }
    }
    static bool isHighSurrogate(wchar_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
    static bool isLowSurrogate(wchar_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }
    static bool pairsAreWhole(std::wstring_view text)
    {
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (isLowSurrogate(text[i])) return false;
            if (!isHighSurrogate(text[i])) continue;
            if (++i == text.size() || !isLowSurrogate(text[i])) return false;
        }
        return true;
    }

    HostileText hostile;
};

TEST_F(HostileTexts, AFileNameGivesASiteNameOrErrorFive)
{
    tryTexts({L"My.Site.url", L"News.url", L".url", L"a.b.c.url"}, [](const std::wstring& name) {
        const bool dotted = name.find(L'.') != name.npos;
        try {
            const std::wstring site = siteNameOf(name);
            EXPECT_TRUE(dotted);
            EXPECT_TRUE(name.starts_with(site + L"."));
            EXPECT_EQ(name.find(L'.', site.size() + 1), name.npos);
        } catch (const RuntimeError& error) {
            EXPECT_FALSE(dotted);
            EXPECT_EQ(error.number(), error_number::invalidCall);
        }
    });
}

TEST_F(HostileTexts, ASiteNameGivesANameThatAFileCanHave)
{
    tryTexts(
        {L"News", L"CON.backup", L"com1", L" lpt9 ", L"My Site...", L"a/b\\c:d", std::wstring(119, L'x')},
        [](const std::wstring& site) {
            const std::wstring name = fileNameFor(site);
            EXPECT_LE(name.size(), 120U);
            EXPECT_EQ(name.find_first_of(L"\\/:*?\"<>|"), name.npos);
            for (const wchar_t unit : name) EXPECT_TRUE(unit >= L' ' && unit != 0x7F);
            EXPECT_TRUE(pairsAreWhole(name));
            EXPECT_FALSE(name.starts_with(L' ') || name.ends_with(L' ') || name.ends_with(L'.'));
            EXPECT_EQ(fileNameFor(name), name);
            EXPECT_TRUE(shortcutPath(name).size() == name.size() || shortcutPath(name) == name + L".url");
        });
}

TEST_F(HostileTexts, AnIncomingLinkIsSplitAndNothingOfItChanges)
{
    tryTexts({L"http://a/~-~A page", L"~-~", L"http://a/~-~A~-~B", L"~-~-~", L"http://a/\r\nA|page"},
             [](const std::wstring& link) {
                 const LinkParts parts = partsOfLink(link);
                 if (link.empty()) EXPECT_EQ(parts.url, emptyAddress);
                 else if (link.find(linkSeparator) == link.npos) EXPECT_EQ(parts.url, link);
                 else EXPECT_TRUE(link.starts_with(parts.url + std::wstring(linkSeparator) + parts.name));
                 EXPECT_EQ(parts.name.find(linkSeparator), parts.name.npos);
                 const std::wstring plain = withoutSeparators(link);
                 EXPECT_EQ(plain.find(L'|'), plain.npos);
                 EXPECT_EQ(plain.size(), link.size());
                 const std::wstring line = withoutLineEnds(plain);
                 EXPECT_EQ(line.find_first_of(L"\r\n"), line.npos);
                 EXPECT_LE(line.size(), link.size());
             });
}

TEST_F(HostileTexts, AStoredDateIsADayOfTheCalendarOrNone)
{
    const std::vector<std::wstring> sound{L"11/16/2002", L"16.11.2002", L"2002-11-16", L"29.2.04.",
                                          L"2/30/1999"};
    tryTexts(sound, [this](const std::wstring& text) {
        const DateOrder order = dateOrderOf(hostile.oneIn(2) ? text : L"dd.MM.yyyy");
        EXPECT_NE(order[0], order[1]);
        EXPECT_NE(order[1], order[2]);
        const auto date = dateOfNumbers(text, order);
        if (!date) return;
        EXPECT_TRUE(date->year >= 100 && date->year <= 9999 && date->month >= 1 && date->month <= 12 &&
                    date->day >= 1 && date->day <= 31);
        EXPECT_EQ(dateOfNumbers(monthDayYearText(*date), monthDayYear), date);
    });
}

TEST_F(HostileTexts, ANumberIsFiniteAndWithinItsRange)
{
    tryTexts({L"12000", L" -1.5e3", L"1e999", L"+.5", L"32768"}, [](const std::wstring& text) {
        const double number = lenientNumber(text);
        EXPECT_TRUE(std::isfinite(number));
        const long whole = lenientWhole(text, -32768, 32767);
        EXPECT_TRUE(whole >= -32768 && whole <= 32767);
        constexpr long least = std::numeric_limits<long>::min();
        constexpr long most = std::numeric_limits<long>::max();
        const long widest = lenientWhole(text, least, most);
        EXPECT_EQ(lenientWhole(decimalText(whole), least, most), whole);
        if (std::fabs(number) > 1e30) return;
        const auto length = static_cast<float>(number);
        EXPECT_EQ(static_cast<float>(lenientNumber(decimalText(length))), length);
        EXPECT_EQ(decimalText(length).find(L'e'), std::wstring::npos);
        EXPECT_TRUE(std::fabs(number) > 1e9 || std::fabs(static_cast<double>(widest) - number) <= 0.5);
    });
}

TEST_F(HostileTexts, PreferencesAreTakenAsTheyAreWritten)
{
    const std::vector<std::wstring> keys{L"FontName",   L"FontColor",  L"FontSize",
                                         L"FontBold",   L"FontItalic", L"HTMLFont",
                                         L"HTMLTWidth", L"HTMLBorder", L"GenEmpty"};
    const std::vector<std::wstring> sound{L"Arial", L"0", L"75%", L"16777215", L"2160", L"-1", L"1"};
    tryTexts(sound, [&](const std::wstring& text) {
        std::map<std::wstring, std::wstring, std::less<>> store;
        for (const std::wstring& key : keys) store[key] = hostile.oneIn(3) ? textLike(sound) : text;
        const auto read = [&](std::wstring_view key) { return store.find(key)->second; };
        const OptionsState options = optionsFrom(read);
        EXPECT_TRUE(isFontSize(options.font.size));
        EXPECT_LE(options.font.color, 0xFFFFFFU);
        EXPECT_FALSE(options.font.name.empty() || options.htmlFont.empty() || options.htmlTableWidth.empty());
        std::size_t written = 0;
        writeOptions(options, [&](std::wstring_view key, std::wstring_view value) {
            ++written;
            const auto entry = store.find(key);
            ASSERT_NE(entry, store.end());
            entry->second = value;
        });
        EXPECT_EQ(written, keys.size());
        EXPECT_TRUE(optionsFrom(read) == options);
    });
}

TEST_F(HostileTexts, AFileIsTheCategoryThatItsTitleNames)
{
    tryTexts({L"My.Links.udb", L"Old.UDB", L".udb", L"a.udb.udb"}, [](const std::wstring& name) {
        const auto title = titleOfFile(name);
        EXPECT_EQ(title.has_value(), name.ends_with(L".udb"));
        if (title) {
            EXPECT_EQ(*title + std::wstring(categoryExtension), name);
        }
        EXPECT_EQ(isBlank(name), name == std::wstring(name.size(), L' '));
    });
}

} // namespace
} // namespace vandrel::test
