#include "model/site_lines.h"
#include "model/site_record.h"
#include "print.h"
#include "tests/support/hostile_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

namespace vandrel::test {
namespace {

using Record = std::array<std::wstring, RowTable::maxColumns>;

// Private-use characters, which no text has by chance. They mark the line of the file that a text was in,
// and the piece of that line.
constexpr wchar_t firstLineMark = 0xE000;
constexpr wchar_t lastLineMark = 0xF8FE;
constexpr std::size_t mostLines = lastLineMark - firstLineMark;
constexpr wchar_t firstPieceMark = 0x2460;
constexpr wchar_t lastPieceMark = firstPieceMark + 11;
constexpr std::size_t mostPieces = lastPieceMark - firstPieceMark;

bool isLineMark(wchar_t unit) { return unit >= firstLineMark && unit <= lastLineMark; }
bool isPieceMark(wchar_t unit) { return unit >= firstPieceMark && unit <= lastPieceMark; }

// Reads as opening a category does.
RowTable loaded(const std::wstring& text)
{
    const auto block = std::make_shared<const std::wstring>(text);
    std::vector<RowTable::Row> rows;
    SiteRecordReader reader(*block);
    while (const auto site = reader.next())
        rows.push_back({RowTexts::ofLine({site->name, site->url, site->description, site->date})});
    RowTable list;
    list.fill(block, std::move(rows));
    return list;
}

// Writes as saving a category does.
std::wstring saved(const RowTable& list)
{
    std::wstring text;
    SiteLines lines(list.all());
    for (CompactText piece = lines.next(); !piece.empty(); piece = lines.next()) text += piece;
    return text;
}

// The same in the plainest possible way.
std::wstring plainlySaved(const RowTable& list)
{
    std::wstring text;
    for (const RowTable::Row& row : list.all()) {
        for (std::size_t field = 0; field < RowTable::maxColumns; ++field) {
            if (field > 0) text += L'|';
            text += row.texts[field];
        }
        text += L"\r\n";
    }
    return text;
}

class HostileRecords : public testing::Test {
  protected:
    // Every piece of a line carries the marks of the line and of the piece.
    std::wstring line(std::size_t number)
    {
        std::wstring made;
        const std::size_t pieces = hostile.oneIn(4) ? hostile.below(mostPieces) : 4;
        for (std::size_t piece = 0; piece < pieces; ++piece) {
            if (piece > 0) made += L'|';
            if (hostile.oneIn(12)) continue; // an empty one
            std::wstring text = hostile.text(12);
            std::erase_if(text, [](wchar_t c) { return c == L'|' || isLineMark(c) || isPieceMark(c); });
            const std::size_t at = hostile.below(text.size() + 1);
            text.insert(at, 1, static_cast<wchar_t>(firstPieceMark + piece));
            text.insert(at, 1, static_cast<wchar_t>(firstLineMark + number));
            made += text;
        }
        if (hostile.oneIn(50)) made.insert(0, 1, L';');
        return made;
    }
    std::wstring file(std::size_t lines)
    {
        std::wstring made;
        for (std::size_t number = 0; number < lines; ++number) made += line(number) + L"\r\n";
        const std::size_t cut = hostile.oneIn(2) ? hostile.below(3) : 0; // at or within the last end
        made.resize(made.size() - std::min(made.size(), cut));
        return made;
    }
    // What an edited or added site may hold: anything but separators, which other rules of the program deal
    // with.
    std::wstring typed()
    {
        std::wstring text = hostile.text(20);
        std::erase_if(text, [](wchar_t c) {
            return c == L'|' || c == L'\r' || c == L'\n' || c == L';' || isLineMark(c) || isPieceMark(c);
        });
        return text;
    }
    void change(RowTable& list)
    {
        const auto row = [&] { return hostile.below(list.size()); };
        for (std::size_t changes = hostile.below(8); changes > 0; --changes) {
            const std::size_t kind = hostile.below(6);
            if (kind == 0) list.add({typed(), typed(), typed(), typed()}, 1);
            if (list.size() == 0) continue;
            if (kind == 1) list.remove(row());
            if (kind == 2) list.setText(row(), hostile.below(RowTable::maxColumns), typed());
            if (kind == 3) list.insert(row(), {typed(), typed(), L"", L""}, 1);
            if (kind == 4) {
                list.sortBy(hostile.below(4),
                            hostile.oneIn(2) ? SortOrder::ascending : SortOrder::descending);
            }
            if (kind == 5) {
                for (std::size_t marks = 0; marks < 3; ++marks) list.setMark(row(), {.selected = true});
                list.removeMarked();
            }
        }
    }
    static testing::AssertionResult equal(const RowTable& a, const RowTable& b)
    {
        if (a.size() != b.size()) {
            return testing::AssertionFailure() << a.size() << " records, then " << b.size();
        }
        for (std::size_t row = 0; row < a.size(); ++row) {
            for (std::size_t field = 0; field < RowTable::maxColumns; ++field) {
                if (a.text(row, field) == b.text(row, field)) continue;
                return testing::AssertionFailure()
                       << "record " << row << ", field " << field << ": "
                       << testing::PrintToString(std::wstring(a.text(row, field))) << ", then "
                       << testing::PrintToString(std::wstring(b.text(row, field)));
            }
        }
        return testing::AssertionSuccess();
    }
    // Every field holds text of only one line, and of only one piece unless a lone line end joins two
    // lines.
    static testing::AssertionResult apart(const RowTable& list)
    {
        for (std::size_t row = 0; row < list.size(); ++row) {
            std::optional<wchar_t> line;
            for (std::size_t field = 0; field < RowTable::maxColumns; ++field) {
                const std::wstring text(list.text(row, field));
                for (const wchar_t unit : text) {
                    if (isLineMark(unit) && line.value_or(unit) != unit) {
                        return testing::AssertionFailure() << "record " << row << " holds two lines";
                    }
                    if (isLineMark(unit)) line = unit;
                }
                std::optional<wchar_t> piece;
                for (const wchar_t unit : text) {
                    if (!isPieceMark(unit)) continue;
                    if (piece) return testing::AssertionFailure() << "record " << row << " joins pieces";
                    piece = unit;
                }
            }
        }
        return testing::AssertionSuccess();
    }
    // Loads, saves, loads, changes, saves and loads one file.
    void tryFile(const std::wstring& text)
    {
        const RowTable first = loaded(text);
        records += first.size();
        ASSERT_TRUE(apart(first)) << where();
        const std::wstring written = saved(first);
        ASSERT_TRUE(written == plainlySaved(first)) << where();
        RowTable second = loaded(written);
        ASSERT_TRUE(equal(first, second)) << where();
        ASSERT_TRUE(saved(second) == written) << where();
        change(second);
        ASSERT_TRUE(saved(second) == plainlySaved(second)) << where();
        const RowTable third = loaded(saved(second));
        ASSERT_TRUE(apart(third)) << where();
        ASSERT_TRUE(equal(second, third)) << where();
    }
    std::string where() const
    {
        return "seed " + std::to_string(hostile.usedSeed()) + ", file " + std::to_string(files);
    }

    HostileText hostile;
    std::size_t records = 0;
    std::size_t files = 0;
};

TEST_F(HostileRecords, AreReadBackAsTheyWereSaved)
{
    const std::size_t wanted = hostileCount(150'000);
    for (; records < wanted; ++files) {
        const std::size_t lines = hostile.oneIn(20) ? hostile.below(mostLines) : hostile.below(60);
        ASSERT_NO_FATAL_FAILURE(tryFile(file(lines)));
    }
    std::printf("%zu records in %zu files\n", records, files);
}

// Without marks, and so without rules about which letter stands where: files of anything at all, and
// mutated ones.
TEST_F(HostileRecords, OfAnyTextAreReadBackAsTheyWereSaved)
{
    const std::size_t wanted = hostileCount(150'000) / 3;
    std::size_t tried = 0;
    for (std::wstring text; tried < wanted; ++files) {
        text = hostile.oneIn(3) ? hostile.text(400) : hostile.mutated(text);
        if (text.size() > 100'000) text.clear();
        const RowTable first = loaded(text);
        tried += 1 + first.size();
        ASSERT_TRUE(saved(first) == plainlySaved(first)) << where();
        const RowTable second = loaded(saved(first));
        ASSERT_TRUE(equal(first, second)) << where();
    }
    std::printf("%zu records in %zu files\n", tried, files);
}

} // namespace
} // namespace vandrel::test
