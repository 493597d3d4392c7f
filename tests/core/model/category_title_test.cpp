#include "model/category_title.h"

#include <gtest/gtest.h>

namespace vandrel {
namespace {

TEST(CategoryTitle, IsTheFileNameWithoutItsExtension)
{
    EXPECT_EQ(titleOfFile(L"Work.udb"), L"Work");
    EXPECT_EQ(titleOfFile(L"a.udb"), L"a");
}

TEST(CategoryTitle, EndsAtTheLastDot)
{
    EXPECT_EQ(titleOfFile(L"My.Links.udb"), L"My.Links");
    EXPECT_EQ(titleOfFile(L"Work.udb.udb"), L"Work.udb");
    EXPECT_EQ(titleOfFile(L"Work..udb"), L"Work.");
}

TEST(CategoryTitle, KeepsItsCaseAndItsBlanks)
{
    EXPECT_EQ(titleOfFile(L"mY wOrK.udb"), L"mY wOrK");
    EXPECT_EQ(titleOfFile(L"  Work .udb"), L"  Work ");
}

TEST(CategoryTitle, MayBeEmpty) { EXPECT_EQ(titleOfFile(L".udb"), L""); }

TEST(CategoryTitle, AFileWithAnotherExtensionIsNotACategory)
{
    for (const auto* name : {L"Notes.txt", L"Work.udbx", L"Work.udb.bak", L"Work.ud", L"Work", L"udb",
                             L"Workudb", L"", L"Work.udb ", L"scanned.log"}) {
        EXPECT_EQ(titleOfFile(name), std::nullopt) << name;
    }
}

TEST(CategoryTitle, TheExtensionIsComparedExactly)
{
    EXPECT_EQ(titleOfFile(L"Old.UDB"), std::nullopt);
    EXPECT_EQ(titleOfFile(L"Old.Udb"), std::nullopt);
    EXPECT_EQ(titleOfFile(L"Old.udB"), std::nullopt);
}

TEST(CategoryTitle, SixCharactersAreRefusedWhereverTheyStand)
{
    for (const wchar_t character : {L':', L'\\', L'/', L'?', L'*', L'"'}) {
        const std::wstring refused(1, character);
        EXPECT_TRUE(hasRefusedCharacter(refused)) << refused;
        EXPECT_TRUE(hasRefusedCharacter(refused + L"ab")) << refused;
        EXPECT_TRUE(hasRefusedCharacter(L"a" + refused + L"b")) << refused;
        EXPECT_TRUE(hasRefusedCharacter(L"ab" + refused)) << refused;
    }
}

TEST(CategoryTitle, EveryOtherCharacterIsLeftToTheFileSystem)
{
    EXPECT_FALSE(hasRefusedCharacter(L""));
    EXPECT_FALSE(hasRefusedCharacter(L"<"));
    EXPECT_FALSE(hasRefusedCharacter(L">"));
    EXPECT_FALSE(hasRefusedCharacter(L"|"));
    for (wchar_t character = 1; character < 0x200; ++character) {
        const bool refused = std::wstring_view(L":\\/?*\"").find(character) != std::wstring_view::npos;
        EXPECT_EQ(hasRefusedCharacter(std::wstring(1, character)), refused) << static_cast<int>(character);
    }
}

TEST(CategoryTitle, TheRefusalNamesNineCharacters)
{
    EXPECT_EQ(refusedTitleMessage(), L"The following characters are not allowed:"
                                     L"\r\n"
                                     L"          " // ten blanks
                                     L"\\ / : * ? \" < > |");
}

TEST(CategoryTitle, IsBlankWithNothingButBlanks)
{
    EXPECT_TRUE(isBlank(L""));
    EXPECT_TRUE(isBlank(L" "));
    EXPECT_TRUE(isBlank(L"  "));
    EXPECT_FALSE(isBlank(L"  a"));
    EXPECT_FALSE(isBlank(L"a  "));
    EXPECT_FALSE(isBlank(L" a "));
}

TEST(CategoryTitle, OnlySpacesCountAsBlank)
{
    EXPECT_FALSE(isBlank(L"\t"));
    EXPECT_FALSE(isBlank(L" \r\n"));
    EXPECT_FALSE(isBlank(L"\u00A0"));
    EXPECT_FALSE(isBlank(std::wstring(1, L'\0')));
}

} // namespace
} // namespace vandrel
