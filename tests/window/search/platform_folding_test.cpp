#include "search/platform_folding.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <map>

namespace vandrel::test {
namespace {

bool systemSaysSame(std::wstring_view a, std::wstring_view b)
{
    return CompareStringEx(LOCALE_NAME_USER_DEFAULT, NORM_IGNORECASE, a.data(), static_cast<int>(a.size()),
                           b.data(), static_cast<int>(b.size()), nullptr, nullptr, 0) == CSTR_EQUAL;
}

bool finds(std::wstring_view term, std::wstring_view text)
{
    return Matcher(term, platformFolding()).occursIn(text);
}

void expectSame(std::wstring_view a, std::wstring_view b)
{
    EXPECT_TRUE(finds(a, b)) << testing::PrintToString(std::wstring(a)) << " in "
                             << testing::PrintToString(std::wstring(b));
    EXPECT_TRUE(finds(b, a)) << testing::PrintToString(std::wstring(b)) << " in "
                             << testing::PrintToString(std::wstring(a));
}

void expectDifferent(std::wstring_view a, std::wstring_view b)
{
    EXPECT_FALSE(finds(a, b)) << testing::PrintToString(std::wstring(a)) << " in "
                              << testing::PrintToString(std::wstring(b));
    EXPECT_FALSE(finds(b, a)) << testing::PrintToString(std::wstring(b)) << " in "
                              << testing::PrintToString(std::wstring(a));
}

TEST(PlatformFolding, LatinLettersAreTheSameInBothCases)
{
    for (wchar_t letter = L'a'; letter <= L'z'; ++letter) {
        const auto capital = static_cast<wchar_t>(letter - L'a' + L'A');
        expectSame({&letter, 1}, {&capital, 1});
    }
}

TEST(PlatformFolding, LettersWithAccentsAreTheSameInBothCasesButNotTheBareOnes)
{
    expectSame(L"\u00C9", L"\u00E9");
    expectSame(L"\u00DC", L"\u00FC");
    expectSame(L"\u00D8", L"\u00F8");
    expectSame(L"\u0178", L"\u00FF");
    expectSame(L"caf\u00E9", L"CAF\u00C9");
    expectDifferent(L"\u00E9", L"e");
    expectDifferent(L"\u00FC", L"u");
}

TEST(PlatformFolding, TheSharpSCountsAsTwoLetters)
{
    expectSame(L"\u00DF", L"ss");
    expectSame(L"\u00DF", L"SS");
    expectSame(L"\u00DF", L"\u1E9E");
    expectSame(L"stra\u00DFe", L"STRASSE");
    EXPECT_FALSE(finds(L"s", L"\u00DF")) << "half of it is no letter";
}

TEST(PlatformFolding, TheDottedAndTheDotlessIAreLettersOfTheirOwn)
{
    expectSame(L"i", L"I");
    expectDifferent(L"i", L"\u0131");
    expectDifferent(L"I", L"\u0131");
    expectDifferent(L"i", L"\u0130");
    expectDifferent(L"I", L"\u0130");
}

TEST(PlatformFolding, TheFinalSigmaIsASigmaWhereTheSystemSaysSo)
{
    expectSame(L"\u03C3", L"\u03A3");
    // Wine takes it for a letter of its own, Windows does not.
    if (systemSaysSame(L"\u03C2", L"\u03C3")) {
        expectSame(L"\u03C2", L"\u03C3");
        expectSame(L"\u03C2", L"\u03A3");
    } else {
        expectDifferent(L"\u03C2", L"\u03C3");
        expectDifferent(L"\u03C2", L"\u03A3");
    }
}

TEST(PlatformFolding, CyrillicLettersAreTheSameInBothCases)
{
    expectSame(L"\u0436", L"\u0416");
    expectSame(L"\u0451", L"\u0401");
    expectSame(L"\u043D\u043E\u0432\u043E\u0441\u0442\u0438", L"\u041D\u041E\u0412\u041E\u0421\u0422\u0418");
    expectDifferent(L"\u0430", L"a");
}

TEST(PlatformFolding, WideLettersAreTheSameInBothCasesButNotTheNarrowOnes)
{
    expectSame(L"\uFF21", L"\uFF41");
    expectDifferent(L"\uFF21", L"A");
    expectDifferent(L"\uFF41", L"a");
}

TEST(PlatformFolding, DigitsAndMarksAreOnlyThemselves)
{
    for (const wchar_t unit : std::wstring_view(L"0123456789 !|[]{}@`^~_-/\\.")) {
        for (wchar_t other = 1; other < 0x250; ++other) {
            EXPECT_EQ(platformFolding()(other) == platformFolding()(unit), other == unit);
        }
    }
}

TEST(PlatformFolding, WhatItTreatsAsEqualTheSystemDoesToo)
{
    const CaseFolding& folding = platformFolding();
    std::map<wchar_t, std::wstring> variants;
    for (unsigned code = 1; code < 0x10000; ++code) {
        const auto unit = static_cast<wchar_t>(code);
        if (folding(unit) != unit) variants[folding(unit)] += unit;
    }
    EXPECT_GT(variants.size(), 500U);
    for (const auto& [standing, units] : variants) {
        EXPECT_EQ(folding(standing), standing) << std::hex << static_cast<unsigned>(standing);
        for (const wchar_t unit : units) {
            EXPECT_TRUE(systemSaysSame({&unit, 1}, {&standing, 1}))
                << std::hex << static_cast<unsigned>(unit);
        }
    }
    for (const CaseFolding::Expansion& expansion : folding.expansions) {
        EXPECT_TRUE(systemSaysSame({&expansion.unit, 1}, expansion.text));
        EXPECT_EQ(folding.fold(expansion.text), expansion.text);
    }
}

TEST(PlatformFolding, WhatTheSystemTreatsAsOneLetterInTwoCasesItDoesToo)
{
    const CaseFolding& folding = platformFolding();
    for (unsigned code = 1; code < 0x10000; ++code) {
        const auto unit = static_cast<wchar_t>(code);
        for (const DWORD mapping : {LCMAP_LOWERCASE, LCMAP_UPPERCASE}) {
            wchar_t other = 0;
            if (LCMapStringEx(LOCALE_NAME_USER_DEFAULT, mapping, &unit, 1, &other, 1, nullptr, nullptr, 0) !=
                1)
                continue;
            if (other == unit) continue;
            EXPECT_EQ(folding.fold({&unit, 1}) == folding.fold({&other, 1}),
                      systemSaysSame({&unit, 1}, {&other, 1}))
                << std::hex << code;
        }
    }
}

} // namespace
} // namespace vandrel::test
