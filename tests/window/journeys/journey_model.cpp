#include "tests/window/journeys/journey_model.h"

#include <algorithm>

namespace vandrel::test {
namespace {

using Button = Reply::Button;

constexpr std::size_t urlColumn = 1;
constexpr const wchar_t* asksTitle = L"Category Name";

std::wstring sitesAre(std::size_t count)
{
    return std::to_wstring(count) + (count == 1 ? L" site is not saved. " : L" sites are not saved. ");
}
std::wstring it(std::size_t count) { return count == 1 ? L"it" : L"them"; }

bool isRefused(const std::wstring& title) { return title.find_first_of(L":\\/?*\"") != title.npos; }
bool isBlank(const std::wstring& title) { return title.find_first_not_of(L' ') == title.npos; }

// The text in the western code page, on one line.
std::wstring stored(const std::wstring& text)
{
    std::wstring kept;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\r' || text[i] == L'\n') {
            kept += L' ';
            if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') ++i;
        } else {
            kept += text[i] < 0x100 ? text[i] : L'?';
        }
    }
    return kept;
}

std::wstring withoutBars(std::wstring text)
{
    std::ranges::replace(text, L'|', L'-');
    return text;
}

} // namespace

void JourneyModel::expect(std::wstring title, std::wstring text, Button button)
{
    replies.push_back({std::move(title), std::move(text), button, {}});
}

void JourneyModel::expectError(int number, const std::wstring& description)
{
    expect(L"Vandrel", L"Run-time error '" + std::to_wstring(number) + L"':\r\n\r\n" + description,
           Button::ok);
}

// ---- showing and saving

void JourneyModel::start()
{
    rebuildMoveEntries();
    if (!categories.empty()) show(0);
}

void JourneyModel::show(std::size_t row)
{
    shown = row;
    list = files.contains(categories[row]) ? files[categories[row]] : ModelSites{};
    dead.clear();
    sorted_ = unsaved = false;
    caption = L"Vandrel - " + categories[row];
}

bool JourneyModel::makeCategory()
{
    replies.push_back({asksTitle, L"", titleAnswer ? Button::ok : Button::cancel,
                       titleAnswer ? std::vector{*titleAnswer} : std::vector<std::wstring>{}});
    if (!titleAnswer || isBlank(*titleAnswer)) {
        rebuildMoveEntries();
        return false;
    }
    if (isRefused(*titleAnswer)) {
        expect(L"Invalid Category Title",
               L"The following characters are not allowed:\r\n          \\ / : * ? \" < > |", Button::ok);
        moveEntries.resize(std::min<std::size_t>(moveEntries.size(), 1));
        return false;
    }
    if (titleAnswer->find(L'<') != titleAnswer->npos) {
        expectError(52, L"Bad file name or number");
        rebuildMoveEntries();
        return false;
    }
    auto place = categories.end();
    if (categoriesSorted_) {
        place = std::ranges::find_if(categories, [this](const std::wstring& other) {
            return categoriesDescending_ ? other < *titleAnswer : other > *titleAnswer;
        });
    }
    const auto row = static_cast<std::size_t>(place - categories.begin());
    categories.insert(place, *titleAnswer);
    if (shown && *shown >= row) ++*shown;
    files[*titleAnswer] = {};
    rebuildMoveEntries();
    return true;
}

JourneyModel::Saved JourneyModel::save()
{
    unsaved = true;
    if (categories.empty()) {
        expect(L"No Categories", L"There are no categories. Please make a category before adding a site.",
               Button::ok);
        // After a refused title the user is asked again, and gives up.
        const bool made = makeCategory();
        if (!made && titleAnswer && !isBlank(*titleAnswer)) {
            replies.push_back({asksTitle, L"", Button::cancel, {}});
            rebuildMoveEntries();
        }
        if (!made) {
            unsaved = !list.empty();
            return Saved::notMade;
        }
        shown = 0;
        caption = L"Vandrel - " + categories[0];
    } else if (!shown) {
        const ModelSites strays = list;
        const auto deadStrays = dead;
        show(focusedCategory);
        list.insert(list.end(), strays.begin(), strays.end());
        dead = deadStrays;
        unsaved = true;
    }
    if (held_ || readOnly.contains(categories[*shown])) return Saved::failed;
    files[categories[*shown]] = list;
    unsaved = false;
    return Saved::yes;
}

void JourneyModel::saveOrTell()
{
    if (save() == Saved::failed) expectError(75, L"Path/File access error");
}

// What happens before another category is shown.
bool JourneyModel::leave()
{
    if (!unsaved || categories.empty() || save() == Saved::yes) return true;
    expect(L"Vandrel",
           L"The changes to \"" + categories[*shown] +
               L"\" could not be saved: Path/File access error.\r\n\r\nDiscard them?",
           yes ? Button::yes : Button::no);
    if (yes) unsaved = false;
    return yes;
}

void JourneyModel::clickCategory(std::size_t row)
{
    if (leave()) show(row);
}

// ---- sites

std::size_t JourneyModel::placeFor(const ModelSite& site) const
{
    if (!sorted_) return list.size();
    const auto place = std::ranges::find_if(list, [&](const ModelSite& other) {
        return descending_ ? other[key_] < site[key_] : other[key_] > site[key_];
    });
    return static_cast<std::size_t>(place - list.begin());
}

JourneyModel::Saved JourneyModel::insertAndSave(ModelSite site)
{
    list.insert(list.begin() + static_cast<std::ptrdiff_t>(placeFor(site)), std::move(site));
    key_ = urlColumn;
    sorted_ = true;
    std::ranges::stable_sort(list, [this](const ModelSite& a, const ModelSite& b) {
        return descending_ ? a[key_] > b[key_] : a[key_] < b[key_];
    });
    return save();
}

void JourneyModel::addSite(const std::array<std::wstring, 3>& texts)
{
    replies.push_back({L"Add Site...", L"", Button::ok, {texts.begin(), texts.end()}});
    newDescription_ = withoutBars(texts[2]);
    const Saved saved = insertAndSave(
        {stored(withoutBars(texts[0])), stored(withoutBars(texts[1])), stored(newDescription_), today});
    if (saved == Saved::failed) expectError(75, L"Path/File access error");
}

// A drop fails without a message.
void JourneyModel::dropLink(const std::wstring& text)
{
    replies.push_back({L"Add Site...", L"", Button::ok, {}});
    newDescription_.clear();
    insertAndSave({L"", stored(withoutBars(text)), L"", today});
}

void JourneyModel::editSite(std::size_t row, const std::array<std::wstring, 3>& texts)
{
    replies.push_back({L"Edit selected site...", L"", Button::ok, {texts.begin(), texts.end()}});
    if (dead.erase(list[row][1]) != 0) dead.insert(stored(texts[1]));
    list[row] = {stored(texts[0]), stored(texts[1]), stored(texts[2]), today};
    saveOrTell();
}

void JourneyModel::openSite(std::size_t row)
{
    list[row][3] = today;
    saveOrTell();
}

void JourneyModel::removeSites(const std::set<std::size_t>& rows)
{
    expect(L"Remove site(s)", L"Remove selected site(s)?", yes ? Button::yes : Button::no);
    if (!yes) return;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
        list.erase(list.begin() + static_cast<std::ptrdiff_t>(*row));
    saveOrTell();
}

void JourneyModel::moveSite(std::size_t row, std::size_t entry)
{
    const auto target = std::ranges::find(categories, moveEntries[entry]);
    if (!shown || target == categories.end()) return;
    const std::wstring source = categories[*shown];
    if (readOnly.contains(*target) || readOnly.contains(source)) {
        expectError(75, L"Path/File access error");
        return;
    }
    ModelSite site = list[row];
    site[3].clear();
    list.erase(list.begin() + static_cast<std::ptrdiff_t>(row));
    files[source] = list;
    files[*target].push_back(site);
    show(static_cast<std::size_t>(target - categories.begin()));
}

void JourneyModel::sortSites(std::size_t column)
{
    descending_ = !descending_;
    key_ = column;
    sorted_ = true;
    std::ranges::stable_sort(list, [this](const ModelSite& a, const ModelSite& b) {
        return descending_ ? a[key_] > b[key_] : a[key_] < b[key_];
    });
}

// ---- categories

void JourneyModel::sortCategories()
{
    categoriesDescending_ = !categoriesDescending_;
    categoriesSorted_ = true;
    std::vector<std::pair<std::wstring, bool>> rows;
    for (std::size_t row = 0; row < categories.size(); ++row)
        rows.emplace_back(categories[row], shown == row);
    std::ranges::stable_sort(rows, [this](const auto& a, const auto& b) {
        return categoriesDescending_ ? a.first > b.first : a.first < b.first;
    });
    for (std::size_t row = 0; row < rows.size(); ++row) {
        categories[row] = rows[row].first;
        if (rows[row].second) shown = row;
    }
}

void JourneyModel::addCategory()
{
    const bool strays = unsaved && !shown;
    if (!makeCategory() || !strays) return;
    expect(L"Vandrel", sitesAre(list.size()) + L"Add " + it(list.size()) + L" to \"" + *titleAnswer + L"\"?",
           yes ? Button::yes : Button::no);
    if (!yes) {
        list.clear();
        unsaved = false;
        return;
    }
    const ModelSites taken = list;
    const auto deadTaken = dead;
    show(0);
    list = taken;
    dead = deadTaken;
    save();
}

void JourneyModel::renameCategory(const std::wstring& title)
{
    if (isRefused(title)) {
        expect(L"Invalid Category Title",
               L"The following characters are not allowed:\r\n          \\ / : * ? \" < > |", Button::ok);
        return;
    }
    if (isBlank(title)) {
        expect(L"Invalid Category Title", L"Please type a Category title.", Button::ok);
        return;
    }
    std::wstring& old = categories[*shown];
    if (title == old && files.contains(old)) return;
    if (!files.contains(old)) {
        expectError(53, L"File not found");
    } else if (title.find(L'<') != title.npos) {
        expectError(52, L"Bad file name or number");
    } else if (files.contains(title)) {
        expectError(58, L"File already exists");
    } else {
        files[title] = files[old];
        files.erase(old);
        old = title;
    }
}

void JourneyModel::removeCategory()
{
    if (!shown) return;
    expect(L"Vandrel", L"Remove category and all websites within?", yes ? Button::yes : Button::no);
    if (!yes) return;
    if (!files.contains(categories[*shown])) {
        expectError(53, L"File not found");
        return;
    }
    files.erase(categories[*shown]);
    categories.erase(categories.begin() + static_cast<std::ptrdiff_t>(*shown));
    shown.reset();
    list.clear();
    unsaved = false;
}

// ---- commands over several sites or categories

void JourneyModel::importAll(const std::vector<std::pair<std::wstring, std::wstring>>& shortcuts)
{
    replies.push_back({L"Import Favorites", L"", Button::all, {}});
    for (const auto& [name, url] : shortcuts) {
        const Saved saved = insertAndSave({stored(name), stored(url), stored(newDescription_), L""});
        if (saved == Saved::yes) continue;
        if (saved == Saved::failed) expectError(75, L"Path/File access error");
        replies.push_back({L"Import Favorites", L"", Button::cancel, {}});
        return;
    }
    expect(L"Import All", L"Please remember to edit the description for all imported files.", Button::ok);
}

void JourneyModel::searchAll()
{
    if (!leave() || categories.empty()) return;
    show(shown.value_or(0));
}

void JourneyModel::pageOfAll()
{
    replies.push_back({L"Output an HTML file...", L"", Button::ok, {}});
    if (!leave()) {
        expect(L"Error", L"70 - Permission denied", Button::ok);
        return;
    }
    if (shown) show(*shown);
    else if (!categories.empty()) list.clear();
    expect(L"Success!", L"Output successful! Open file?", Button::no);
}

void JourneyModel::pageOfShown()
{
    replies.push_back({L"Output an HTML file...", L"", Button::ok, {}});
    expect(L"Success!", L"Output successful! Open file?", Button::no);
}

bool JourneyModel::check(const ModelSite& site)
{
    const bool answers = site[1].starts_with(L"http:");
    scanLog.push_back(site[0] + L" - " + site[1] + (answers ? L" - Success" : L" - Failed"));
    if (answers) dead.erase(site[1]);
    else dead.insert(site[1]);
    return answers;
}

void JourneyModel::scanAll()
{
    std::size_t failed = 0;
    for (const ModelSite& site : list) failed += check(site) ? 0 : 1;
    if (failed == 0) return;
    if (failed == list.size()) {
        expect(L"Check Internet Connection",
               L"Every link checked has proven to be unavailable. Please check your internet connection.",
               Button::ok);
        return;
    }
    const bool one = failed == 1;
    expect(one ? L"Unavailable Site" : L"Unavailable Sites",
           (one ? L"There was " : L"There were ") + std::to_wstring(failed) +
               (one ? L" unavailable link.\r\nIt has" : L" unavailable links.\r\nThey have") +
               L" been marked with a red X\r\nfor easy identification and possible removal.\r\n\r\n"
               L"Please be aware that " +
               (one ? L"this site" : L"these sites") + L" may just be temporarily unavailable. " +
               L"If you feel this is an error,\r\ntry rescanning, or opening " +
               (one ? L"the site" : L"these sites") + L" manually.",
           Button::ok);
}

void JourneyModel::scanSite(std::size_t row) { check(list[row]); }

void JourneyModel::exportSite(const std::wstring& file)
{
    replies.push_back({L"Export URL File", L"", Button::ok, {file}});
}

void JourneyModel::backUp() { replies.push_back({L"Browse for Folder", L"", Button::ok, {}}); }

void JourneyModel::checkUpdates(const std::wstring& version)
{
    expect(L"No update available",
           L"You have the current version of Vandrel, which is " + version + L". No update is necessary.",
           Button::ok);
}

void JourneyModel::showProperties(std::size_t row)
{
    replies.push_back({list[row][0] + L"'s Properties", L"", Button::ok, {}});
}

void JourneyModel::addSiteWhileHeld(const std::array<std::wstring, 3>& texts)
{
    replies.push_back({L"Add Site...", L"", Button::ok, {texts.begin(), texts.end()}});
    newDescription_ = withoutBars(texts[2]);
    held_ = true;
    insertAndSave(
        {stored(withoutBars(texts[0])), stored(withoutBars(texts[1])), stored(newDescription_), today});
    held_ = false;
    expectError(70, L"Permission denied");
}

void JourneyModel::restart()
{
    while (unsaved) {
        if (categories.empty()) {
            expect(L"Vandrel", sitesAre(list.size()) + L"Make a category for " + it(list.size()) + L"?",
                   yes ? Button::yes : Button::no);
            if (!yes) break;
            const Saved saved = save();
            yes = saved == Saved::yes; // it is asked again, and the user gives up
        } else if (save() == Saved::failed) {
            expect(L"Vandrel",
                   L"The changes to \"" + categories[*shown] +
                       L"\" could not be saved: Path/File access error.\r\n\r\nTry again?",
                   Button::no);
            break;
        }
    }
    categories.clear();
    for (const auto& [title, sites] : files) categories.push_back(title);
    shown.reset();
    list.clear();
    caption = L"Vandrel";
    unsaved = sorted_ = descending_ = categoriesSorted_ = categoriesDescending_ = false;
    key_ = 0;
    newDescription_.clear();
    start();
}

} // namespace vandrel::test
