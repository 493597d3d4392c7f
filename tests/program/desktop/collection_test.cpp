#include "tests/program/support/program_files.h"
#include "tests/program/support/program_test.h"
#include "tests/support/text_lines.h"

#include <algorithm>
#include <filesystem>

namespace vandrel::test {
namespace {

std::wstring decoded(const std::string& bytes)
{
    std::wstring text(bytes.size(), L'\0');
    text.resize(
        static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()),
                                                     text.data(), static_cast<int>(text.size()))));
    return text;
}

// Those lines that are sites.
std::vector<std::string> recordsOf(const std::string& bytes)
{
    std::vector<std::string> records = linesOf(bytes);
    std::erase_if(records, [](const std::string& line) {
        return line.starts_with(";") || decoded(line).find(L'|') == std::wstring::npos;
    });
    return records;
}

std::vector<std::wstring> fieldsOf(const std::string& record)
{
    const std::wstring text = decoded(record);
    std::vector<std::wstring> fields{L""};
    for (const wchar_t letter : text) {
        if (letter == L'|') fields.emplace_back();
        else fields.back() += letter;
    }
    return fields;
}

// Where the two first differ, for the failure message.
std::string difference(const std::string& now, const std::string& wanted)
{
    const auto differs = std::ranges::mismatch(now, wanted);
    const auto start = static_cast<std::size_t>(differs.in1 - now.begin());
    const std::size_t line = start == 0 ? 0 : now.rfind('\n', start - 1) + 1;
    return "at " + std::to_string(start) + " <" + now.substr(line, 300) + "> instead of <" +
           wanted.substr(std::min(line, wanted.size()), 300) + ">";
}

// Real collections, which lie beside the project: thousands of sites with everything that people write.
class Collection : public ProgramTest {
  protected:
    void copy(const std::wstring& name)
    {
        const auto source = sharedFolder(name);
        if (!source) return;
        for (const auto& entry : std::filesystem::directory_iterator(*source)) {
            const std::filesystem::path target = folder.file(entry.path().filename().wstring());
            std::filesystem::copy_file(entry.path(), target);
            SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);
        }
    }
    void clickThroughAll()
    {
        start();
        const Texts titles = program.titles();
        ASSERT_EQ(titles.size(), categoryFiles().size());
        for (int row = 0; row < static_cast<int>(titles.size()); ++row) {
            program.openCategory(titles[static_cast<std::size_t>(row)]);
            const auto records = recordsOf(folder.read(titles[static_cast<std::size_t>(row)] + L".udb"));
            const int count = program.siteCount();
            ASSERT_EQ(count, static_cast<int>(records.size()));
            for (const int site : {0, count / 2, count - 1}) {
                Texts shown;
                for (int column = 0; column < 4; ++column)
                    shown.push_back(program.controls().cell(program.sites(), site, column));
                EXPECT_EQ(shown, fieldsOf(records[static_cast<std::size_t>(site)]));
            }
        }
    }
    // Gives one site of each category a new description and compares every byte of the file.
    void changeOneSiteInEach(const std::wstring& description)
    {
        start();
        const Texts titles = program.titles();
        for (int category = 0; category < static_cast<int>(titles.size()); ++category) {
            const std::wstring& title = titles[static_cast<std::size_t>(category)];
            const std::wstring file = title + L".udb";
            auto records = recordsOf(folder.read(file));
            program.openCategory(title);
            const std::size_t site = records.size() / 2;
            program.choose(program.sites(), static_cast<int>(site), popEdit);
            program.dialog(L"Edit selected site...");
            program.key(VK_TAB);
            program.key(VK_TAB);
            program.type(description);
            EXPECT_SOON(program.focusText(), description);
            program.key(VK_RETURN);
            program.back();
            const auto fields = fieldsOf(records[site]);
            ASSERT_EQ(fields.size(), 4U);
            records[site] = encodedIn(CP_ACP, fields[0] + L"|" + fields[1] + L"|" + description + L"|") +
                            today();
            std::string wanted;
            for (const std::string& record : records) wanted += record + "\r\n";
            EXPECT_TRUE(soon([&] { return folder.read(file) == wanted; }))
                << "category " << category << ": " << difference(folder.read(file), wanted);
        }
    }
};

class WesternCollection : public Collection {
  protected:
    void SetUp() override
    {
        if (GetACP() != 1252) GTEST_SKIP() << "not under Western settings";
        copy(L"collection");
        if (categoryFiles().empty()) GTEST_SKIP() << "no collection beside the project";
    }
};

class JapaneseCollection : public Collection {
  protected:
    void SetUp() override
    {
        if (GetACP() != 932) GTEST_SKIP() << "not under Japanese settings";
        copy(L"collection-cp932");
        if (categoryFiles().empty()) GTEST_SKIP() << "no Japanese collection beside the project";
    }
};

TEST_F(WesternCollection, EveryCategoryShowsEverySiteOfItsFile)
{
    clickThroughAll();
    EXPECT_NE(std::ranges::count(program.titles(), L"Książki"), 0);
}

TEST_F(WesternCollection, AChangedSiteLeavesEveryOtherByteOfItsFile)
{
    changeOneSiteInEach(L"geändert – “so”");
}

TEST_F(JapaneseCollection, EveryCategoryShowsEverySiteOfItsFile) { clickThroughAll(); }

TEST_F(JapaneseCollection, AChangedSiteLeavesEveryOtherByteOfItsFile)
{
    changeOneSiteInEach(L"ソフトの表ポ予能"); // second bytes that are those of "|" and "\"
}

} // namespace
} // namespace vandrel::test
