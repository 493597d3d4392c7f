#include "model/site_count.h"
#include "platform/base/runtime_error.h"
#include "platform/base/scope_exit.h"
#include "platform/files/file_bytes.h"
#include "platform/text/ansi_text.h"
#include "search/byte_search.h"
#include "search/frm_search.h"
#include "search/hit_list.h"
#include "search/platform_folding.h"
#include "shared/workspace.h"
#include "store/category_file.h"
#include "store/category_list.h"
#include "store/category_selection.h"

#include <algorithm>
#include <utility>

namespace vandrel {
namespace {

const std::wstring noResults = L"No results found.";

constexpr std::size_t sitesBetweenTurns = 5;
// Painting both windows takes as long as searching half a million sites; what is done within this time is
// shown at once.
constexpr ULONGLONG longestSilence = 350; // milliseconds

// A category that cannot be read has no sites.
Category readSites(const Workspace& workspace, const std::wstring& title)
{
    try {
        return readCategory(workspace.dataFolder, title);
    } catch (const RuntimeError&) {
        return {};
    }
}

} // namespace

struct frmSearch::Remembered {
    std::wstring title;
    std::size_t row = 0;
};

// What is looked for, and what was found since messages were run the last time.
struct frmSearch::Search {
    Search(std::wstring searchString, SearchMode searchMode) : term(std::move(searchString)), mode(searchMode)
    {}

    // The user may choose another section while messages run.
    void choose(std::optional<SearchSection> chosen)
    {
        if (std::exchange(section, chosen) == chosen) return;
        matcher.reset();
        if (section) matcher.emplace(term, mode, *section, platformFolding());
    }
    std::string_view bytesOf(const std::wstring& path)
    {
        try {
            return file.read(path);
        } catch (const RuntimeError&) {
            return {};
        }
    }

    std::wstring term;
    SearchMode mode;
    std::optional<SearchSection> section;
    std::optional<SiteMatcher> matcher; // none while no section is chosen
    HitList hits;
    FileBytes file;
};

void frmSearch::DoSearch(const std::wstring& SearchString)
{
    if (!leaveSites(workspace_)) return;
    searching_ = true;
    const ScopeExit done([this] {
        searching_ = false;
        if (!quitting_) setSearchEnabled(true);
    });
    setSearchEnabled(false);
    hitRows_.clear();
    Search search(SearchString, chkCase_.checked() ? SearchMode::binary : SearchMode::text);

    Remembered before;
    if (const auto shown = shownRow(workspace_)) before = {titleOf(workspace_, *shown), *shown};
    std::vector<std::wstring> titles(workspace_.categories.size());
    for (std::size_t row = 0; row < titles.size(); ++row) titles[row] = titleOf(workspace_, row);

    std::size_t searched = 0;
    throttle_ = MessageThrottle(throttleMilliseconds_, throttleMilliseconds_ == 0 ? 0 : longestSilence);
    bool stays = false;
    for (std::size_t i = 0; i < titles.size() && !ended() && !stays; ++i) {
        stays = !leaveShownCategory();
        // While messages were run, a category may have gone.
        if (!stays && rowOf(titles[i], i)) searched += searchCategory({titles[i], i}, search);
    }
    if (!quitting_ && !stays) restore(before);
    if (ended()) return;
    showHits(search.hits);
    if (hitRows_.sorted()) hitRows_.setSorted(true);
    if (hitRows_.empty()) {
        hitRows_.add({noResults}, siteImage);
        StatusBar1_.setPanelText(1, L"0 sites found");
    }
    lstResults_.select(0);
    if (hitRows_.text(0, 0) != noResults) {
        StatusBar1_.setPanelText(1, std::to_wstring(hitRows_.size()) + L" site(s) found");
    }
    StatusBar1_.setPanelText(2, std::to_wstring(searched) + L" site(s) searched");
}

// Searches the category as it is when its turn comes; what is changed in it while messages run is not looked
// at. Returns how many sites it has.
std::size_t frmSearch::searchCategory(const Remembered& category, Search& search)
{
    search.choose(section());
    search.hits.setCategory(category.title);
    const CodePageLetters* const letters = ansiLetters();
    const std::size_t sites = letters != nullptr ? searchBytes(category, search, *letters)
                                                 : searchText(category, search);
    return sites;
}

// Where every byte is a letter: most sites are passed without being decoded.
std::size_t frmSearch::searchBytes(const Remembered& category, Search& search, const CodePageLetters& letters)
{
    const std::string_view bytes = search.bytesOf(categoryPath(workspace_.dataFolder, category.title));
    if (!search.matcher) return countSites(bytes);
    const BytePattern pattern(search.matcher->widest(), letters);
    ByteSearch sites(bytes, pattern);
    bool followed = false;
    while (!sites.atEnd()) {
        const bool due = throttle_.due();
        const auto site = due ? sites.next() : sites.nextCandidate();
        if (!site) continue;
        const SiteTexts texts = search.hits.decode(*site, letters);
        if (search.matcher->matches(texts)) search.hits.addDecoded(texts);
        if (!due || sites.sites() % sitesBetweenTurns != 0) continue;
        takeTurn(category, search, sites.sites(), !std::exchange(followed, true));
        if (ended()) break;
    }
    return sites.sites();
}

std::size_t frmSearch::searchText(const Remembered& category, Search& search)
{
    const Category read = readSites(workspace_, category.title);
    const auto sites = read.sites.all();
    if (!search.matcher) return sites.size();
    SiteSequence sequence(*search.matcher);
    sequence.setBlock(read.text);
    bool followed = false;
    for (std::size_t done = 0; done < sites.size(); ++done) {
        if (sequence.matches(sites[done].texts)) search.hits.add(sites[done].texts);
        if ((done + 1) % sitesBetweenTurns != 0 || !throttle_.due()) continue;
        takeTurn(category, search, done + 1, !std::exchange(followed, true));
        if (ended()) break;
    }
    return sites.size();
}

// The panel says how many sites were searched whenever a message can ask for it, and only then: a million
// texts that nobody sees would take longer than the search. Likewise the hits.
void frmSearch::takeTurn(const Remembered& category, Search& search, std::size_t sites, bool first)
{
    StatusBar1_.setPanelText(2, std::to_wstring(sites) + L" site(s) searched");
    showHits(search.hits);
    follow(category, first);
    throttle_.take([this] { quitting_ = !MessageLoop::current().dispatchPending(); });
}

// The main window shows where the search is, when there is time to see it: at the first time the category,
// then what the user makes of it.
void frmSearch::follow(const Remembered& category, bool first)
{
    const auto row = rowOf(category.title, category.row);
    if (!row) return;
    if (first) {
        workspace_.lstCategory.select(*row);
        lstCategory_ItemClick(workspace_, *row);
    }
    workspace_.lstCategory.ensureVisible(*row);
}

// A change that the user made during a turn may not have been saved. False when the category that has it is
// to stay.
bool frmSearch::leaveShownCategory()
{
    if (!workspace_.shown.unsaved) return true;
    return leaveSites(workspace_);
}

void frmSearch::showHits(HitList& hits)
{
    if (hits.empty()) return;
    const RowTable::Block found = hits.take();
    hitRows_.append(found.texts, found.rows);
}

std::optional<SearchSection> frmSearch::section() const
{
    constexpr std::array sections{SearchSection::all, SearchSection::name, SearchSection::url,
                                  SearchSection::description};
    for (std::size_t i = 0; i < sections.size(); ++i) {
        if (optSection_[i].on()) return sections[i];
    }
    return std::nullopt;
}

std::optional<std::size_t> frmSearch::rowOf(const std::wstring& title, std::size_t likely) const
{
    const RowTable& categories = workspace_.categories;
    if (likely < categories.size() && categories.text(likely, 0) == title) return likely;
    for (std::size_t row = 0; row < categories.size(); ++row) {
        if (categories.text(row, 0) == title) return row;
    }
    return std::nullopt;
}

// Shows the category again that was shown before, or the one that now stands where it stood.
void frmSearch::restore(const Remembered& category)
{
    if (workspace_.categories.empty()) return;
    const std::size_t instead = std::min(category.row, workspace_.categories.size() - 1);
    selectCategory(workspace_, rowOf(category.title, category.row).value_or(instead));
}

// The frame's controls, and the keyboard with them.
void frmSearch::setSearchEnabled(bool on)
{
    const bool hadFocus = IsChild(handle(), GetFocus()) != 0 && !lstResults_.hasFocus();
    if (!on && hadFocus) cmdCancel_.setFocus(); // a disabled control would keep the keys from everybody
    for (Control* const control : std::initializer_list<Control*>{&fraSearch_, &lblCaptions_, &txtSearch_,
                                                                  &cmdSearch_, &fraWhat_, &chkCase_}) {
        control->setEnabled(on);
    }
    for (OptionButton& option : optSection_) option.setEnabled(on);
    if (on && cmdCancel_.hasFocus() && !unloaded()) txtSearch_.setFocus();
}

} // namespace vandrel
