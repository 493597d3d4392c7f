#include "exchange_tool/bookmark_export.h"

#include "bookmarks/bookmark_writer.h"
#include "bookmarks/letters.h"
#include "exchange_tool/category_folder.h"
#include "exchange_tool/local_days.h"
#include "model/category_title.h"
#include "model/site_columns.h"
#include "platform/base/runtime_error.h"
#include "platform/files/left_behind.h"
#include "store/category_file.h"

#include <algorithm>
#include <optional>

namespace vandrel {
namespace {

Category categoryOf(const std::wstring& folder, const std::wstring& title)
{
    try {
        Category category = readCategory(folder, title);
        if (category.reading != Reading::read) throw RuntimeError(error_number::fileNotFound);
        return category;
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.number(),
                           L"The category " + title + L" cannot be read: " + error.description() + L".");
    }
}

// Whether no page can hold it: NUL, or half a pair, which stands for a byte that is no letter.
bool losesLetters(std::wstring_view text)
{
    const auto isSound = [](wchar_t c) { return c != 0 && (c < 0xD800 || c > 0xDFFF); };
    if (std::ranges::all_of(text, isSound)) return false;
    while (!text.empty()) {
        const char32_t letter = takeLetter(text);
        if (letter == 0 || letter == replacementLetter) return true;
    }
    return false;
}

// Writes the categories one after the other, so that no more than one is in memory.
class Page {
  public:
    Page(const std::wstring& folder, const std::vector<std::wstring>& titles, Progress& progress)
        : folder_(folder), titles_(titles), progress_(progress)
    {}

    bool write(const WritePart& write)
    {
        outcome_ = {};
        BookmarkWriter page;
        for (const std::wstring& title : titles_) {
            progress_.reach(partOf(outcome_.categories, titles_.size()));
            const Category category = categoryOf(folder_, title);
            page.beginFolder(title);
            for (const RowTable::Row& site : category.sites.all()) {
                add(site.texts, page);
                if (page.bytes().size() >= bytesAtOnce && !writeOut(page, write)) return false;
            }
            page.endFolder();
            ++outcome_.categories;
        }
        page.end();
        return writeOut(page, write);
    }
    const ExportOutcome& outcome() const { return outcome_; }

  private:
    static constexpr std::size_t bytesAtOnce = 256U << 10;

    bool writeOut(BookmarkWriter& page, const WritePart& write)
    {
        progress_.reach(progress_.part());
        const bool written = write(page.bytes());
        page.clear();
        return written;
    }
    void add(const RowTexts& texts, BookmarkWriter& page)
    {
        const std::wstring date(texts[dateColumn]);
        const auto added = date.empty() ? std::nullopt : days_.noonOf(date);
        const std::wstring_view name = texts[nameColumn].wideIn(name_);
        const std::wstring_view url = texts[urlColumn].wideIn(url_);
        const std::wstring_view description = texts[descriptionColumn].wideIn(description_);
        page.addBookmark(name, url, description, added);
        ++outcome_.sites;
        if (!date.empty() && !added) ++outcome_.sitesWithoutDate;
        if (losesLetters(name) || losesLetters(url) || losesLetters(description))
            ++outcome_.sitesWithLostLetters;
    }

    const std::wstring& folder_;
    const std::vector<std::wstring>& titles_;
    Progress& progress_;
    LocalDays days_;
    ExportOutcome outcome_;
    std::wstring name_; // memory for one site after the other
    std::wstring url_;
    std::wstring description_;
};

bool isCategoryFile(const std::wstring& path)
{
    constexpr auto length = static_cast<int>(categoryExtension.size());
    return path.size() >= categoryExtension.size() &&
           CompareStringOrdinal(path.c_str() + path.size() - categoryExtension.size(), length,
                                categoryExtension.data(), length, TRUE) == CSTR_EQUAL;
}

} // namespace

ExportOutcome exportBookmarks(const std::wstring& folder, const std::wstring& file, FileLayer& files,
                              Progress& progress)
{
    // A slip of the pen must not cost a category.
    if (isCategoryFile(file))
        throw RuntimeError(error_number::badFileName, file + L" is the name of a category.");
    const std::vector<std::wstring> titles = sortedTitles(folder);
    if (titles.empty())
        throw RuntimeError(error_number::fileNotFound, L"There are no categories in " + folder + L".");
    // Of an export that was ended in mid-work.
    removeLeftBehind(file.substr(0, file.find_last_of(L'\\')), files);
    Page page(folder, titles, progress);
    bool reading = false;
    try {
        replaceFile(
            file,
            [&](const WritePart& write) {
                reading = true;
                const bool written = page.write(write);
                reading = false;
                return written;
            },
            files);
    } catch (const RuntimeError& error) {
        if (reading) throw;
        throw RuntimeError(error.number(), file + L" cannot be written: " + error.description() + L".");
    }
    return page.outcome();
}

} // namespace vandrel
