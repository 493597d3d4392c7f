#include "platform/files/ansi_text_writer.h"

#include "platform/text/ansi_text.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <random>
#include <string>
#include <vector>

namespace vandrel::test {
namespace {

using Texts = std::vector<std::wstring>;

struct Written {
    std::string bytes;
    std::vector<std::size_t> parts;
};

enum class Form { wide, latinIfPossible, either };

// Every piece is in memory that ends where it ends.
Written written(const Texts& pieces, Form form = Form::wide)
{
    Written all;
    const WritePart write = [&](std::string_view bytes) {
        all.bytes += bytes;
        all.parts.push_back(bytes.size());
        return true;
    };
    AnsiTextWriter text(write);
    std::deque<std::vector<char>> latin;
    for (const std::wstring& piece : pieces) {
        const bool wide = form == Form::wide || (form == Form::either && latin.size() % 2 == 1);
        latin.emplace_back(piece.size());
        if (wide || !CompactText(piece).fitsLatin()) {
            EXPECT_TRUE(text.add(piece));
        } else {
            CompactText(piece).copyLatin(latin.back().data());
            EXPECT_TRUE(text.add(CompactText::ofLatin({latin.back().data(), piece.size()})));
        }
    }
    EXPECT_TRUE(text.end());
    return all;
}

std::string atOnce(const Texts& pieces)
{
    std::wstring text;
    for (const std::wstring& piece : pieces) text += piece;
    std::string bytes;
    encodeAnsi(text, bytes, L'\0');
    return bytes;
}

// Letters inside and outside the code page, surrogate pairs, and bytes that were no letters.
Texts randomPieces(std::mt19937& random, std::size_t longest)
{
    const Texts letters = {
        L"a",      L"|",      L"\r\n",         L"caf\u00E9",   L"\u0080\u00FF", L"\u20AC", L"\u672C\u8868",
        L"\xDC85", L"\xDCE0", L"\xD83D\xDE00", L"\xDC83\xDC40"};
    const auto below = [&](std::size_t end) {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
    };
    Texts pieces(below(6) + 1);
    for (std::wstring& piece : pieces) {
        const std::size_t size = below(longest);
        const std::size_t kinds = below(letters.size()) + 1;
        while (piece.size() < size) piece += letters[below(kinds)];
    }
    return pieces;
}

void expectWhatEncodingAtOnceGives()
{
    std::mt19937 random(21112026);
    for (const std::size_t longest : {5, 50, 200'000}) {
        for (int round = 0; round < (longest > 1000 ? 10 : 1000); ++round) {
            const Texts pieces = randomPieces(random, longest);
            for (const Form form : {Form::wide, Form::latinIfPossible, Form::either}) {
                ASSERT_TRUE(written(pieces, form).bytes == atOnce(pieces)) << longest << ", round " << round;
            }
        }
    }
}

TEST(AnsiWriter, GivesWhatEncodingAtOnceGives) { expectWhatEncodingAtOnceGives(); }

// Registered a second time under a Japanese locale; see CMakeLists.txt.
TEST(JapaneseAnsiWriter, GivesWhatEncodingAtOnceGives)
{
    if (GetACP() != 932) GTEST_SKIP() << "the ANSI code page is not 932";
    expectWhatEncodingAtOnceGives();
}

TEST(AnsiWriter, NothingIsWrittenForNothing)
{
    EXPECT_TRUE(written({}).parts.empty());
    EXPECT_TRUE(written({L"", L""}).parts.empty());
}

TEST(AnsiWriter, ALongTextIsWrittenInPartsOfSomeHundredKilobytes)
{
    for (const Form form : {Form::wide, Form::latinIfPossible}) {
        const Written all = written({std::wstring(3'000'000, L'x'), L"|", std::wstring(100, L'y')}, form);
        EXPECT_EQ(all.bytes.size(), 3'000'101U);
        EXPECT_GE(all.parts.size(), 10U);
        EXPECT_LE(std::ranges::max(all.parts), 300'000U);
    }
}

TEST(AnsiWriter, ALongTextWithoutALetterOfAsciiStaysWhole)
{
    std::wstring text;
    for (int i = 0; i < 150'000; ++i) text += L"\xD83D\xDE00";
    EXPECT_TRUE(written({text, L"a"}).bytes == atOnce({text, L"a"}));
}

TEST(AnsiWriter, AfterAFailureNothingMoreIsWritten)
{
    const std::wstring wide(400'000, L'x');
    const std::string latin(400'000, 'x');
    for (const CompactText& piece : {CompactText(wide), CompactText::ofLatin(latin)}) {
        int writes = 0;
        const WritePart write = [&](std::string_view) { return ++writes < 2; };
        AnsiTextWriter text(write);
        bool good = true;
        for (int i = 0; i < 5; ++i) good = text.add(piece);
        EXPECT_FALSE(good);
        EXPECT_FALSE(text.end());
        EXPECT_EQ(writes, 2);
    }
}

} // namespace
} // namespace vandrel::test
