#include "exchange_tool/bookmark_import.h"

#include "exchange_tool/category_folder.h"
#include "exchange_tool/local_days.h"
#include "exchange_tool/new_category_files.h"
#include "model/category_title.h"
#include "platform/base/runtime_error.h"
#include "platform/files/file_bytes.h"
#include "platform/files/folder.h"
#include "platform/files/left_behind.h"
#include "platform/text/ansi_text.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace vandrel {
namespace {

constexpr int partOfReading = Progress::whole / 2; // the other half is writing

// Whether the code page has a letter, each found out once.
class KeptLetters {
  public:
    bool has(std::wstring_view letter)
    {
        if (letter.size() != 1) return isKept(letter);
        Answer& answer = answers_[letter[0]];
        if (answer == Answer::unknown) answer = isKept(letter) ? Answer::yes : Answer::no;
        return answer == Answer::yes;
    }

  private:
    enum class Answer : unsigned char { unknown, yes, no };

    static bool isKept(std::wstring_view letter)
    {
        std::string bytes;
        encodeAnsi(letter, bytes);
        return decodeAnsi(bytes) == letter;
    }

    std::vector<Answer> answers_ = std::vector<Answer>(0x10000);
};

// As the file system compares names, nearly; where it does not, it refuses the name, and nothing is made.
std::wstring foldedName(std::wstring_view name)
{
    std::wstring folded(name.size(), L'\0');
    const auto length = static_cast<int>(name.size());
    if (length > 0) {
        LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, name.data(), length, folded.data(), length,
                      nullptr, nullptr, 0);
    }
    return folded;
}

// What no new category may be called. Letter case counts in the extension of a category, but not for the file
// system; and a folder has a name, too.
std::vector<std::wstring> takenTitles(const std::wstring& folder)
{
    std::vector<std::wstring> titles;
    const std::wstring extension = foldedName(categoryExtension);
    for (const auto& names : {fileNamesIn(folder), folderNamesIn(folder)}) {
        for (const std::wstring& name : names) {
            if (foldedName(name).ends_with(extension))
                titles.push_back(name.substr(0, name.size() - extension.size()));
        }
    }
    return titles;
}

std::string pageIn(const std::wstring& file)
{
    try {
        auto bytes = fileBytes(file);
        if (!bytes) throw RuntimeError(error_number::fileNotFound);
        return std::move(*bytes);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.number(), file + L" cannot be read: " + error.description() + L".");
    }
}

ImportedBookmarks bookmarksIn(const std::wstring& file, const std::vector<std::wstring>& taken,
                              Progress& progress)
{
    constexpr std::size_t sitesBetween = 256;
    constexpr std::size_t usualBytes = 200; // of a bookmark; of course icons make it more
    const std::string page = pageIn(file);
    const std::size_t expected = page.size() / usualBytes + 1;
    ImportRules rules = systemImportRules();
    rules.siteTaken = [&](std::size_t sites) {
        if (sites % sitesBetween != 0) return;
        progress.reach(std::min(partOf(sites, expected), Progress::whole) * partOfReading / Progress::whole);
    };
    ImportedBookmarks bookmarks = importedBookmarks(page, taken, rules);
    if (bookmarks.sites == 0)
        throw RuntimeError(error_number::noSuchFormat, L"There are no bookmarks in " + file + L".");
    return bookmarks;
}

void makeAll(std::vector<ImportedCategory>& categories, NewCategoryFiles& made, Progress& progress)
{
    const std::size_t steps = categories.size() * 2;
    std::size_t step = 0;
    const auto reachNext = [&] {
        progress.reach(partOfReading +
                       partOf(step++, steps) * (Progress::whole - partOfReading) / Progress::whole);
    };
    for (ImportedCategory& category : categories) {
        reachNext();
        std::string bytes;
        encodeAnsi(category.text, bytes);
        category.text = {};
        made.write(category.title, bytes);
    }
    for (std::size_t number = 0; number < categories.size(); ++number) {
        reachNext();
        made.name(number);
    }
    reachNext();
    made.keep();
}

[[noreturn]] void fail(const RuntimeError& error, const std::wstring& folder,
                       const std::vector<std::wstring>& left)
{
    if (left.empty() && error.number() == error_number::cancelled) throw error;
    std::wstring text = L"The new categories cannot be saved in " + folder + L": " + error.description() +
                        L".";
    for (const std::wstring& title : left)
        text += (&title == &left.front() ? L" These could not be removed again: " : L", ") + title;
    throw RuntimeError(error.number(), text);
}

} // namespace

ImportRules systemImportRules()
{
    const auto days = std::make_shared<LocalDays>();
    const auto letters = std::make_shared<KeptLetters>();
    ImportRules rules;
    rules.shortDate = [days](AddDate added) { return days->shortDate(added); };
    rules.inCodePage = [letters](std::wstring_view letter) { return letters->has(letter); };
    rules.foldCase = foldedName;
    return rules;
}

ImportOutcome importBookmarks(const std::wstring& folder, const std::wstring& file, FileLayer& files,
                              Progress& progress)
{
    requireCategoryFolder(folder);
    for (const std::wstring& name : leftBehindIn(folder)) files.remove(extendedPath(folder + L"\\" + name));
    ImportedBookmarks bookmarks = bookmarksIn(file, takenTitles(folder), progress);
    NewCategoryFiles made(folder, files);
    try {
        makeAll(bookmarks.categories, made, progress);
    } catch (const RuntimeError& error) {
        fail(error, folder, made.undo());
    }
    ImportOutcome outcome;
    for (ImportedCategory& category : bookmarks.categories)
        outcome.categories.push_back({std::move(category.title), std::move(category.wanted), category.sites});
    outcome.sites = bookmarks.sites;
    outcome.sitesWithLostLetters = bookmarks.sitesWithLostLetters;
    outcome.firstWithLostLetters = std::move(bookmarks.firstWithLostLetters);
    return outcome;
}

} // namespace vandrel
