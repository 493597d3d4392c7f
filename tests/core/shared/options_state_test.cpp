#include "shared/options_state.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace vandrel {
namespace {

using Store = std::map<std::wstring, std::wstring, std::less<>>;

OptionsState optionsOf(const Store& store)
{
    return optionsFrom([&](std::wstring_view key) {
        const auto value = store.find(key);
        return value == store.end() ? std::wstring() : value->second;
    });
}

std::vector<std::pair<std::wstring, std::wstring>> written(const OptionsState& options)
{
    std::vector<std::pair<std::wstring, std::wstring>> values;
    const auto write = [&](std::wstring_view key, std::wstring_view text) { values.emplace_back(key, text); };
    writeOptions(options, write);
    return values;
}

const std::vector<std::pair<std::wstring, std::wstring>> allSet = {
    {L"FontName", L"Tahoma"}, {L"FontColor", L"255"}, {L"FontSize", L"10"},
    {L"FontBold", L"1"},      {L"FontItalic", L"1"},  {L"HTMLFont", L"Verdana"},
    {L"HTMLTWidth", L"600"},  {L"HTMLBorder", L"3"},  {L"GenEmpty", L"1"},
};

TEST(OptionsState, AnEmptyStoreGivesTheDefaults)
{
    const OptionsState options = optionsOf({});
    EXPECT_EQ(options.font.name, L"Arial");
    EXPECT_EQ(options.font.color, 0U);
    EXPECT_EQ(options.font.size, 8);
    EXPECT_FALSE(options.font.bold);
    EXPECT_FALSE(options.font.italic);
    EXPECT_EQ(options.htmlFont, L"Arial");
    EXPECT_EQ(options.htmlBorder, 0);
    EXPECT_EQ(options.htmlTableWidth, L"75%");
    EXPECT_FALSE(options.generateEmpty);
}

TEST(OptionsState, EveryKeyFillsItsOwnValue)
{
    const OptionsState options = optionsOf(Store(allSet.begin(), allSet.end()));
    EXPECT_EQ(options.font, (DisplayFont{L"Tahoma", 255, 10, true, true}));
    EXPECT_EQ(options.htmlFont, L"Verdana");
    EXPECT_EQ(options.htmlTableWidth, L"600");
    EXPECT_EQ(options.htmlBorder, 3);
    EXPECT_TRUE(options.generateEmpty);
}

TEST(OptionsState, FlagsDoNotMix)
{
    EXPECT_EQ(optionsOf({{L"FontBold", L"1"}}).font, (DisplayFont{L"Arial", 0, 8, true, false}));
    EXPECT_EQ(optionsOf({{L"FontItalic", L"1"}}).font, (DisplayFont{L"Arial", 0, 8, false, true}));
    EXPECT_FALSE(optionsOf({{L"FontBold", L"1"}, {L"FontItalic", L"1"}}).generateEmpty);
}

TEST(OptionsState, OnlyItsNineKeysAreRead)
{
    std::vector<std::wstring> keys;
    optionsFrom([&](std::wstring_view key) {
        keys.emplace_back(key);
        return std::wstring();
    });
    std::vector<std::wstring> expected;
    for (const auto& [key, text] : allSet) expected.push_back(key);
    std::ranges::sort(keys);
    std::ranges::sort(expected);
    EXPECT_EQ(keys, expected);
}

TEST(OptionsState, ANameOrWidthOfZeroGivesTheDefault)
{
    const OptionsState options = optionsOf({{L"FontName", L"0"}, {L"HTMLFont", L"0"}, {L"HTMLTWidth", L"0"}});
    EXPECT_EQ(options.font.name, L"Arial");
    EXPECT_EQ(options.htmlFont, L"Arial");
    EXPECT_EQ(options.htmlTableWidth, L"75%");
}

TEST(OptionsState, OtherTextsAreKeptAsTheyAre)
{
    EXPECT_EQ(optionsOf({{L"FontName", L"00"}}).font.name, L"00");
    EXPECT_EQ(optionsOf({{L"HTMLFont", L" Arial "}}).htmlFont, L" Arial ");
    EXPECT_EQ(optionsOf({{L"HTMLTWidth", L"0%"}}).htmlTableWidth, L"0%");
    EXPECT_EQ(optionsOf({{L"HTMLTWidth", L"wide"}}).htmlTableWidth, L"wide");
}

TEST(OptionsState, AFontSizeOfZeroGivesEight)
{
    for (const auto* text : {L"0", L"", L"abc", L"0.5", L"-0"}) {
        EXPECT_EQ(optionsOf({{L"FontSize", text}}).font.size, 8) << text;
    }
}

TEST(OptionsState, AFontSizeThatNoFontHasGivesEight)
{
    EXPECT_EQ(optionsOf({{L"FontSize", L"-12"}}).font.size, 8);
    EXPECT_EQ(optionsOf({{L"FontSize", L"2161"}}).font.size, 8);
    EXPECT_EQ(optionsOf({{L"FontSize", L"1e300"}}).font.size, 8);
}

TEST(OptionsState, AnyOtherFontSizeIsTaken)
{
    EXPECT_EQ(optionsOf({{L"FontSize", L"1"}}).font.size, 1);
    EXPECT_EQ(optionsOf({{L"FontSize", L"9"}}).font.size, 9);
    EXPECT_EQ(optionsOf({{L"FontSize", L"18"}}).font.size, 18);
    EXPECT_EQ(optionsOf({{L"FontSize", L"2160"}}).font.size, 2160);
    EXPECT_EQ(optionsOf({{L"FontSize", L"10.5"}}).font.size, 10);
    EXPECT_EQ(optionsOf({{L"FontSize", L"12 points"}}).font.size, 12);
}

TEST(OptionsState, TheColourIsCutToColours)
{
    EXPECT_EQ(optionsOf({{L"FontColor", L"16777215"}}).font.color, 0xFFFFFFU);
    EXPECT_EQ(optionsOf({{L"FontColor", L"16777216"}}).font.color, 0xFFFFFFU);
    EXPECT_EQ(optionsOf({{L"FontColor", L"8388608"}}).font.color, 0x800000U);
    EXPECT_EQ(optionsOf({{L"FontColor", L"-1"}}).font.color, 0U);
    EXPECT_EQ(optionsOf({{L"FontColor", L"red"}}).font.color, 0U);
}

TEST(OptionsState, TheBorderIsAnyShortInteger)
{
    EXPECT_EQ(optionsOf({{L"HTMLBorder", L"5"}}).htmlBorder, 5);
    EXPECT_EQ(optionsOf({{L"HTMLBorder", L"-1"}}).htmlBorder, -1);
    EXPECT_EQ(optionsOf({{L"HTMLBorder", L"99999"}}).htmlBorder, 32767);
    EXPECT_EQ(optionsOf({{L"HTMLBorder", L"-99999"}}).htmlBorder, -32768);
    EXPECT_EQ(optionsOf({{L"HTMLBorder", L"none"}}).htmlBorder, 0);
}

TEST(OptionsState, AFlagIsOnUnlessItIsZero)
{
    for (const auto* on : {L"1", L"-1", L"2", L"99999"}) {
        EXPECT_TRUE(optionsOf({{L"FontBold", on}}).font.bold) << on;
        EXPECT_TRUE(optionsOf({{L"FontItalic", on}}).font.italic) << on;
        EXPECT_TRUE(optionsOf({{L"GenEmpty", on}}).generateEmpty) << on;
    }
    for (const auto* off : {L"0", L"", L"True", L"yes"}) {
        EXPECT_FALSE(optionsOf({{L"FontBold", off}}).font.bold) << off;
        EXPECT_FALSE(optionsOf({{L"FontItalic", off}}).font.italic) << off;
        EXPECT_FALSE(optionsOf({{L"GenEmpty", off}}).generateEmpty) << off;
    }
}

TEST(OptionsState, IsWrittenInAFixedOrder)
{
    EXPECT_EQ(written({{L"Tahoma", 255, 10, true, true}, L"Verdana", L"600", 3, true}), allSet);
}

TEST(OptionsState, ZeroesAndFlagsThatAreOffAreWrittenToo)
{
    const std::vector<std::pair<std::wstring, std::wstring>> expected = {
        {L"FontName", L"Arial"}, {L"FontColor", L"0"},  {L"FontSize", L"8"},
        {L"FontBold", L"0"},     {L"FontItalic", L"0"}, {L"HTMLFont", L"Arial"},
        {L"HTMLTWidth", L"75%"}, {L"HTMLBorder", L"0"}, {L"GenEmpty", L"0"},
    };
    EXPECT_EQ(written(optionsOf({})), expected);
}

TEST(OptionsState, IsReadBackAsItWasWritten)
{
    const OptionsState options{{L"Courier New", 0xFFFFFF, 72, true, false}, L"Times", L"100%", -7, true};
    const auto values = written(options);
    EXPECT_EQ(optionsOf(Store(values.begin(), values.end())), options);
}

} // namespace
} // namespace vandrel
