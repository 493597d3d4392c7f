#include "model/site_lines.h"

#include "model/site_record.h"
#include "model/text_memory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>

namespace vandrel::test {
namespace {

using Rows = std::vector<RowTable::Row>;
using Pieces = std::vector<CompactText>;

// The rows are views into the text.
Rows rowsOf(std::wstring_view text)
{
    Rows rows;
    SiteRecordReader reader(text);
    while (const auto site = reader.next()) {
        rows.push_back({RowTexts::ofLine({site->name, site->url, site->description, site->date})});
    }
    return rows;
}

// The same of text in Latin-1.
Rows latinRowsOf(std::string_view text)
{
    Rows rows;
    BasicSiteRecordReader<char> reader(text);
    while (const auto site = reader.next()) {
        RowTexts::Views views;
        for (std::size_t i = 0;
             const std::string_view field : {site->name, site->url, site->description, site->date}) {
            views[i++] = CompactText::ofLatin(field);
        }
        rows.push_back({RowTexts::ofLine(views)});
    }
    return rows;
}

// Gives the row another text, as an edit does. Its texts are in `kept` from then on.
void edit(RowTable::Row& row, std::size_t field, const wchar_t* text, TextMemory& kept)
{
    RowTexts::Views texts = row.texts.views();
    texts[field] = text;
    row.texts = RowTexts::written(texts, kept);
}

Pieces linesOf(const Rows& rows)
{
    Pieces pieces;
    SiteLines lines(rows);
    for (CompactText piece = lines.next(); !piece.empty(); piece = lines.next()) pieces.push_back(piece);
    EXPECT_TRUE(lines.next().empty()) << "the end stays the end";
    return pieces;
}

std::wstring joined(const Pieces& pieces)
{
    std::wstring text;
    for (const CompactText& piece : pieces) text += piece;
    return text;
}

std::wstring fieldByField(const Rows& rows)
{
    std::wstring text;
    for (const RowTable::Row& row : rows) {
        for (std::size_t field = 0; field < RowTexts::count; ++field) {
            if (field > 0) text += L'|';
            text += row.texts[field];
        }
        text += L"\r\n";
    }
    return text;
}

const std::wstring file = L"a|http://a/|first|1/1/2001\r\nb||| \r\nc|http://c/||\r\n";

TEST(SiteLines, OfNoSitesAreNone) { EXPECT_TRUE(linesOf({}).empty()); }

TEST(SiteLines, OfAFileThatIsAsItWasReadAreOneViewAndTheLastLinesEnd)
{
    EXPECT_EQ(linesOf(rowsOf(file)), (Pieces{std::wstring_view(file).substr(0, file.size() - 2), L"\r\n"}));
}

TEST(SiteLines, OfASiteThatHasLeftItsPlaceAreItsOwn)
{
    Rows rows = rowsOf(file);
    std::swap(rows[0], rows[1]);
    EXPECT_EQ(linesOf(rows),
              (Pieces{L"b||| ", L"\r\n", L"a|http://a/|first|1/1/2001", L"\r\n", L"c|http://c/||", L"\r\n"}));
}

TEST(SiteLines, OfAnEditedSiteAreItsOwn)
{
    Rows rows = rowsOf(file);
    TextMemory kept;
    edit(rows[0], 2, L"other", kept);
    EXPECT_EQ(linesOf(rows),
              (Pieces{L"a|http://a/|other|1/1/2001", L"\r\n", L"b||| \r\nc|http://c/||", L"\r\n"}));
}

TEST(SiteLines, OfAFileInLatin1AreOneViewAsWell)
{
    const std::string latin(file.begin(), file.end());
    Rows rows = latinRowsOf(latin);
    const CompactText all = CompactText::ofLatin(latin).substr(0, latin.size() - 2);
    EXPECT_EQ(linesOf(rows), (Pieces{all, L"\r\n"}));
    EXPECT_EQ(linesOf(rows)[0].data(), latin.data());
    EXPECT_TRUE(linesOf(rows)[1].isLatin());
    TextMemory kept;
    edit(rows[1], 0, L"\u20AC", kept);
    EXPECT_EQ(linesOf(rows), (Pieces{L"a|http://a/|first|1/1/2001", L"\r\n", L"\u20AC||| ", L"\r\n",
                                     L"c|http://c/||", L"\r\n"}));
}

TEST(SiteLines, OfTextOfBothKindsThatAdjoinAreApart)
{
    const std::wstring wide = L"a|b|c|d\r\n";
    std::string memory(reinterpret_cast<const char*>(wide.data()), wide.size() * sizeof(wchar_t));
    memory += "e|f|g|h";
    std::vector<wchar_t> aligned(memory.size());
    std::memcpy(aligned.data(), memory.data(), memory.size());
    const Rows first = rowsOf({aligned.data(), wide.size()});
    const Rows second = latinRowsOf({reinterpret_cast<const char*>(aligned.data() + wide.size()), 7});
    EXPECT_EQ(linesOf({first[0], second[0]}), (Pieces{L"a|b|c|d", L"\r\n", L"e|f|g|h", L"\r\n"}));
}

TEST(SiteLines, WhatTheLineHeldBesideTheFieldsIsNotTaken)
{
    const std::wstring odd = L"; a comment\r\nshort|http://a/\r\nlong|2|3|4|5|6\r\nno separator\r\n\r\n"
                             L"alone|2|3|4|5\nnext|2\r\nend|without|an|end";
    const Rows rows = rowsOf(odd);
    EXPECT_EQ(joined(linesOf(rows)), fieldByField(rows));
    EXPECT_EQ(joined(linesOf(rows)),
              L"short|http://a/||\r\nlong|2|3|4\r\nalone|2|3|4\r\nnext|2||\r\nend|without|an|end\r\n");
}

TEST(SiteLines, SitesThatMerelyAdjoinAreNotMistakenForAFile)
{
    const std::wstring memory = L"a|b|c|d--a|b|c|d";
    const Rows first = rowsOf(std::wstring_view(memory).substr(0, 7));
    const Rows second = rowsOf(std::wstring_view(memory).substr(9));
    EXPECT_EQ(joined(linesOf({first[0], second[0]})), L"a|b|c|d\r\na|b|c|d\r\n");
}

TEST(SiteLines, AreTheSameAsFieldByFieldAfterAnyChanges)
{
    std::mt19937 random(20261121);
    const auto below = [&](std::size_t end) {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
    };
    const std::wstring letters = L"ab|;\r\n";
    for (int round = 0; round < 2000; ++round) {
        std::wstring text;
        for (std::size_t i = below(150); i > 0; --i) {
            if (below(6) == 0) text += L"\r\n";
            else text += letters[below(letters.size())];
        }
        const std::string latin(text.begin(), text.end());
        Rows rows = round % 2 == 0 ? rowsOf(text) : latinRowsOf(latin);
        TextMemory kept;
        for (std::size_t change = below(4); change > 0 && !rows.empty(); --change) {
            const std::size_t row = below(rows.size());
            switch (below(3)) {
            case 0: rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(row)); break;
            case 1: edit(rows[row], below(4), below(2) == 0 ? L"typed|by hand" : L"10 \u20AC", kept); break;
            default: std::swap(rows[row], rows[below(rows.size())]);
            }
        }
        ASSERT_EQ(joined(linesOf(rows)), fieldByField(rows));
    }
}

} // namespace
} // namespace vandrel::test
