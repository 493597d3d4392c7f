#include "model/site_lines.h"

#include "model/site_record.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace vandrel::test {
namespace {

using Rows = std::vector<RowTable::Row>;
using Pieces = std::vector<std::wstring_view>;

// The rows are views into the text.
Rows rowsOf(std::wstring_view text)
{
    Rows rows;
    SiteRecordReader reader(text);
    while (const auto site = reader.next()) {
        RowTable::Row row;
        row.texts = {site->name, site->url, site->description, site->date};
        rows.push_back(row);
    }
    return rows;
}

Pieces linesOf(const Rows& rows)
{
    Pieces pieces;
    SiteLines lines(rows);
    for (std::wstring_view piece = lines.next(); !piece.empty(); piece = lines.next())
        pieces.push_back(piece);
    EXPECT_TRUE(lines.next().empty()) << "the end stays the end";
    return pieces;
}

std::wstring joined(const Pieces& pieces)
{
    std::wstring text;
    for (const std::wstring_view piece : pieces) text += piece;
    return text;
}

std::wstring fieldByField(const Rows& rows)
{
    std::wstring text;
    for (const RowTable::Row& row : rows) {
        for (std::size_t field = 0; field < row.texts.size(); ++field) {
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

TEST(SiteLines, AnEditedFieldStandsBetweenWhatIsLeftOfItsLine)
{
    Rows rows = rowsOf(file);
    const std::wstring edited = L"other";
    rows[0].texts[2] = edited;
    EXPECT_EQ(joined(linesOf(rows)), L"a|http://a/|other|1/1/2001\r\nb||| \r\nc|http://c/||\r\n");
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

TEST(SiteLines, FieldsThatMerelyAdjoinAreNotMistakenForAFile)
{
    const std::wstring other = L"abcdefgh";
    RowTable::Row row;
    for (std::size_t field = 0; field < row.texts.size(); ++field)
        row.texts[field] = std::wstring_view(other).substr(2 * field, 1);
    EXPECT_EQ(joined(linesOf({row, row})), L"a|c|e|g\r\na|c|e|g\r\n");
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
        Rows rows = rowsOf(text);
        const std::wstring typed = L"typed|by hand";
        for (std::size_t change = below(4); change > 0 && !rows.empty(); --change) {
            const std::size_t row = below(rows.size());
            switch (below(3)) {
            case 0: rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(row)); break;
            case 1: rows[row].texts[below(4)] = typed; break;
            default: std::swap(rows[row], rows[below(rows.size())]);
            }
        }
        ASSERT_EQ(joined(linesOf(rows)), fieldByField(rows));
    }
}

} // namespace
} // namespace vandrel::test
