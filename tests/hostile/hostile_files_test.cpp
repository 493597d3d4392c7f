#include "model/site_record.h"
#include "platform/files/ansi_text_file.h"
#include "platform/files/file_layer.h"
#include "store/category_file.h"
#include "tests/support/hostile_text.h"
#include "tests/support/temp_folder.h"

#include <windows.h>

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

using Site = std::array<std::wstring, RowTable::maxColumns>;

// Category files of random bytes, in the code page of this run: 1252, or 932 under a Japanese locale.
class HostileFiles : public testing::Test {
  protected:
    std::string line()
    {
        std::string bytes;
        for (std::size_t left = hostile.below(60); left > 0; --left) {
            switch (hostile.below(6)) {
            case 0:
                if (mild && !hostile.oneIn(50)) continue;
                bytes += static_cast<char>(0x80 + hostile.below(0x80));
                break; // a letter, half of one, or none
            case 1: bytes += static_cast<char>(hostile.below(mild ? 0x80 : 0x100)); break;
            case 2: bytes += '|'; break;
            case 3: bytes += hostile.oneIn(4) ? '\n' : ';'; break;
            default: bytes += static_cast<char>('a' + hostile.below(26));
            }
        }
        return bytes;
    }
    std::vector<Site> load() const
    {
        const DecodedText text = AnsiTextFile(path()).read();
        std::vector<Site> sites;
        SiteRecordReader reader(text);
        while (const auto site = reader.next()) {
            sites.push_back({std::wstring(site->name), std::wstring(site->url),
                             std::wstring(site->description), std::wstring(site->date)});
        }
        return sites;
    }
    // Reads and saves as the program does. What it reads is what decoding the file first and splitting it
    // afterwards gives.
    void save()
    {
        const Category category = readCategory(folder.path(), L"Any");
        const std::vector<Site> expected = load();
        ASSERT_EQ(category.sites.size(), expected.size());
        for (std::size_t row = 0; row < expected.size(); ++row) {
            latin += category.sites[row].texts.isLatin() ? 1 : 0;
            for (std::size_t field = 0; field < RowTable::maxColumns; ++field)
                ASSERT_EQ(category.sites.text(row, field), expected[row][field]) << row << ", " << field;
        }
        writeCategory(folder.path(), L"Any", category.sites.all(), systemFiles());
    }
    // A byte that was no letter is kept, unless it would now form a letter with the byte after it.
    static bool sameField(const std::wstring& first, const std::wstring& second)
    {
        return std::ranges::equal(first, second, [](wchar_t before, wchar_t after) {
            const bool loose = before >= 0xDC80 && before <= 0xDCFF;
            return before == after || (loose && after == L'?');
        });
    }
    std::wstring path() const { return folder.file(L"Any.udb"); }

    HostileText hostile;
    TempFolder folder;
    std::size_t latin = 0;
    bool mild = false; // few bytes beyond ASCII
};

TEST_F(HostileFiles, AreReadBackAsTheyWereSaved)
{
    const std::size_t wanted = hostileCount(20'000) / 10;
    std::size_t records = 0;
    for (std::size_t file = 0; records < wanted; ++file) {
        std::string bytes;
        mild = hostile.oneIn(2);
        for (std::size_t lines = hostile.below(hostile.oneIn(50) ? 4000 : 60); lines > 0; --lines)
            bytes += line() + (hostile.oneIn(20) ? "\n" : "\r\n");
        if (hostile.oneIn(3)) bytes += line(); // without a line end
        folder.write(L"Any.udb", bytes);
        const auto first = load();
        records += first.size() + 1;
        ASSERT_NO_FATAL_FAILURE(save());
        const auto second = load();
        const std::string where = "seed " + std::to_string(hostile.usedSeed()) + ", file " +
                                  std::to_string(file);
        ASSERT_EQ(first.size(), second.size()) << where;
        for (std::size_t row = 0; row < first.size(); ++row) {
            for (std::size_t field = 0; field < RowTable::maxColumns; ++field) {
                ASSERT_TRUE(sameField(first[row][field], second[row][field]))
                    << where << ", record " << row << ", field " << field << ": "
                    << testing::PrintToString(first[row][field]) << ", then "
                    << testing::PrintToString(second[row][field]);
            }
        }
        const std::string written = folder.read(L"Any.udb");
        ASSERT_NO_FATAL_FAILURE(save());
        ASSERT_TRUE(folder.read(L"Any.udb") == written) << where;
    }
    std::printf("%zu records in code page %u, %zu of those read again in Latin-1\n", records, GetACP(),
                latin);
}

} // namespace
} // namespace vandrel::test
