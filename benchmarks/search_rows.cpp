#include "benchmarks/measure.h"
#include "benchmarks/plain_files.h"
#include "benchmarks/rows.h"
#include "benchmarks/site_generator.h"
#include "mainwindow/frm_main.h"
#include "store/category_selection.h"
#include "tests/support/answers.h"

#include <emmintrin.h>
#include <bit>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <vector>

namespace vandrel::bench {
namespace {

constexpr std::size_t categoryCount = 50;
constexpr std::size_t sitesInCategory = 20'000;
// Ten sites in a million contain it; the generator never produces it.
constexpr const wchar_t* rareWord = L"quetzal";
constexpr const wchar_t* frequentWord = L"the";
constexpr const wchar_t* noWord = L"xylophonist";

std::wstring searchFolder() { return currentFolder() + L"\\search"; }

std::wstring fileOf(std::size_t category)
{
    return searchFolder() + L"\\Category " + std::to_wstring(100 + category) + L".udb";
}

// The least that any search of these files does: read and decode them, and go through the text once.
std::size_t plainSearch(const std::wstring& word)
{
    std::size_t found = 0;
    for (std::size_t category = 0; category < categoryCount; ++category) {
        const std::wstring text = decodePlainly(readWhole(fileOf(category).c_str()));
        for (std::size_t at = text.find(word); at != std::wstring::npos; at = text.find(word, at + 1))
            ++found;
    }
    return found;
}

// The least in bytes: the files read into the same memory, the word looked for and the line ends counted, sixteen
// bytes at a time. `word` is in lower case and plain letters.
std::size_t bareSearch(std::string_view word, std::vector<char>& memory)
{
    std::size_t found = 0;
    for (std::size_t category = 0; category < categoryCount; ++category) {
        const HANDLE file = CreateFileW(fileOf(category).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                        OPEN_EXISTING, 0, nullptr);
        const DWORD size = GetFileSize(file, nullptr);
        if (memory.size() < size + word.size() + 16) memory.resize(size + word.size() + 16);
        DWORD read = 0;
        ReadFile(file, memory.data(), size, &read, nullptr);
        CloseHandle(file);
        const __m128i small = _mm_set1_epi8(word[0]);
        const __m128i large = _mm_set1_epi8(static_cast<char>(word[0] - 'a' + 'A'));
        for (std::size_t at = 0; at < read; at += 16) {
            const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(&memory[at]));
            const int ends = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('\n')));
            found += static_cast<std::size_t>(std::popcount(static_cast<unsigned>(ends)));
            const __m128i first = _mm_or_si128(_mm_cmpeq_epi8(bytes, small), _mm_cmpeq_epi8(bytes, large));
            for (auto hits = static_cast<unsigned>(_mm_movemask_epi8(first)); hits != 0; hits &= hits - 1) {
                const char* const place = &memory[at + static_cast<std::size_t>(std::countr_zero(hits))];
                if (_strnicmp(place, word.data(), word.size()) == 0) found += 1U << 24;
            }
        }
    }
    return found;
}

// A time that the script measured, in milliseconds; 0 if it did not.
double measuredBefore(const char* name)
{
    const char* const text = std::getenv(name);
    return text != nullptr ? std::atof(text) : 0;
}

void searchRow(frmSearch& search, const char* work, const std::wstring& word, double aim)
{
    const auto times = timedInTurn(
        {timing([&] { search.DoSearch(word); }), timing([] { plainSearch(rareWord); })});
    print({work, "reading, decoding, one plain pass", times[0], times[1], "ms", aim});
}

} // namespace

void makeSearchFiles()
{
    CreateDirectoryW(searchFolder().c_str(), nullptr);
    for (std::size_t category = 0; category < categoryCount; ++category) {
        std::string bytes = generatedSites(sitesInCategory, static_cast<unsigned>(category + 1));
        if (category % 5 == 0) bytes += "The Quetzal|http://birds.example/|Feathers|\r\n";
        writeFile(fileOf(category).c_str(), bytes);
    }
}

void searchRows()
{
    makeSearchFiles();
    frmMain window({.dataFolder = searchFolder(),
                    .commandLine = {},
                    .settings = SettingsStore(L"VandrelBench"),
                    .today = [] { return std::wstring(L"11/16/2002"); }});
    window.Form_Load();
    window.show(SW_SHOW);
    window.run(mnuFind);
    test::pump();
    frmSearch& search = *window.searchWindow();
    search.DoSearch(rareWord);
    const double before = memoryInUse();

    searchRow(search, "searching 1,000,000 sites for a rare word", rareWord, 0.8);
    const auto again = [&] { return timed([&] { search.DoSearch(rareWord); }); };
    if (const double grep = measuredBefore("VANDREL_GREP_MS"); grep > 0)
        print({"the same", "grep -F -i -c over the files", again(), grep, "ms", 1});
    if (const double sqlite = measuredBefore("VANDREL_SQLITE_MS"); sqlite > 0)
        print({"the same", "sqlite3 with the same rows, LIKE", again(), sqlite, "ms", 1});
    std::vector<char> memory;
    std::size_t found = 0;
    const auto times = timedInTurn(
        {timing([&] { search.DoSearch(rareWord); }), timing([&] { found = bareSearch("quetzal", memory); })});
    if (found % (1U << 24) < categoryCount * sitesInCategory) std::printf("bare search: wrong count\n");
    print({"the same", "reading, looking at the bytes, counting line ends", times[0], times[1], "ms", 2});
    searchRow(search, "a word that occurs nowhere", noWord, 0.8);
    searchRow(search, "a frequent word", frequentWord, 2);
    searchRow(search, "the empty term: every site is a hit", L"", 3);

    // Sorting and scrolling the million rows of the last search.
    ListView& results = search.results();
    const auto click = [&](std::size_t column) {
        results.ColumnClick(column);
        UpdateWindow(results.handle());
    };
    std::size_t column = 0;
    const auto clickAnother = [&] { click(column = 1 - column); };
    print({"a click on another header of 1,000,000 results until painted", "", timed(clickAnother), 1, "ms",
           400});
    print({"a click on the same header", "", timed([&] { click(column); }), 1, "ms", 400});
    const auto page = [&] {
        SendMessageW(results.handle(), WM_VSCROLL, SB_PAGEDOWN, 0);
        UpdateWindow(results.handle());
    };
    print({"scrolling them by a page", "", timed(page), 1, "ms", 100});

    search.DoSearch(rareWord);
    for (int i = 0; i < repetitions; ++i) search.DoSearch(rareWord);
    print({"memory after 50 searches", "after the first", memoryInUse() / 1e6, before / 1e6, "MB", 1.2});
}

} // namespace vandrel::bench
