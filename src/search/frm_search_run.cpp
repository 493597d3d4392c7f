#include "platform/base/runtime_error.h"
#include "platform/base/scope_exit.h"
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
CategorySites readSites(const Workspace& workspace, const std::wstring& title)
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

void frmSearch::DoSearch(const std::wstring& SearchString)
{
    if (!leaveSites(workspace_)) return;
    searching_ = true;
    const ScopeExit done([this] {
        searching_ = false;
        quiet_.reset();
        if (!quitting_) setSearchEnabled(true);
    });
    setSearchEnabled(false);
    lstResults_.clear();
    const SearchMode mode = chkCase_.checked() ? SearchMode::binary : SearchMode::text;

    ListView& categories = workspace_.lstCategory;
    Remembered before;
    if (const auto shown = shownRow(workspace_)) before = {categories.text(*shown), *shown};
    std::vector<std::wstring> titles(categories.count());
    for (std::size_t row = 0; row < titles.size(); ++row) titles[row] = categories.text(row);

    std::size_t searched = 0;
    beQuiet();
    throttle_ = MessageThrottle(throttleMilliseconds_, throttleMilliseconds_ == 0 ? 0 : longestSilence);
    bool stays = false;
    for (std::size_t i = 0; i < titles.size() && !ended() && !stays; ++i) {
        stays = !leaveShownCategory();
        // While messages were run, a category may have gone.
        if (!stays && rowOf(titles[i], i)) searched += searchCategory({titles[i], i}, SearchString, mode);
    }
    if (!quitting_ && !stays) restore(before);
    quiet_.reset();
    if (ended()) return;
    if (lstResults_.sorted()) lstResults_.setSorted(true);
    if (lstResults_.empty()) {
        lstResults_.add({noResults}, siteImage);
        StatusBar1_.setPanelText(1, L"0 sites found");
    }
    lstResults_.select(0);
    if (lstResults_.text(0) != noResults) {
        StatusBar1_.setPanelText(1, std::to_wstring(lstResults_.count()) + L" site(s) found");
    }
    StatusBar1_.setPanelText(2, std::to_wstring(searched) + L" site(s) searched");
}

// Searches the category as it is when its turn comes; what is changed in it while messages run is not looked
// at. Returns how many sites it has.
std::size_t frmSearch::searchCategory(const Remembered& category, const std::wstring& term, SearchMode mode)
{
    const CategorySites sites = readSites(workspace_, category.title);
    const std::size_t count = sites.rows.size();
    const auto chosen = section();
    if (!chosen) return count;
    const SiteMatcher matcher(term, mode, *chosen, platformFolding());
    SiteSequence sequence(matcher);
    sequence.setBlock({static_cast<const wchar_t*>(sites.texts.get()), sites.size});
    HitList hits(category.title, sites.texts, sites.size);
    bool followed = false;
    for (std::size_t done = 0; done < count; ++done) {
        const ListRows::Row& site = sites.rows[done];
        if (sequence.matches(site.texts)) hits.add(site);
        if ((done + 1) % sitesBetweenTurns != 0 || !throttle_.due()) continue;
        StatusBar1_.setPanelText(2, std::to_wstring(done + 1) + L" site(s) searched");
        showHits(hits);
        quiet_.reset();
        follow(category, !std::exchange(followed, true));
        letEventsRun();
        if (ended()) return count;
    }
    showHits(hits);
    return count;
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
    quiet_.reset();
    const bool leaves = leaveSites(workspace_);
    beQuiet();
    return leaves;
}

void frmSearch::beQuiet() { quiet_.emplace(lstResults_); }

// The panel says how many sites were searched whenever a message can ask for it, and only then: a million
// texts that nobody sees would take longer than the search.
void frmSearch::letEventsRun()
{
    throttle_.take([this] { quitting_ = !MessageLoop::current().dispatchPending(); });
    if (!ended()) beQuiet();
}

void frmSearch::showHits(HitList& hits)
{
    if (hits.empty()) return;
    HitList::Block block = hits.take();
    lstResults_.append(std::move(block.texts), block.rows);
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
    const ListView& categories = workspace_.lstCategory;
    if (likely < categories.count() && categories.textView(likely, 0) == title) return likely;
    for (std::size_t row = 0; row < categories.count(); ++row) {
        if (categories.textView(row, 0) == title) return row;
    }
    return std::nullopt;
}

// Shows the category again that was shown before, or the one that now stands where it stood.
void frmSearch::restore(const Remembered& category)
{
    const ListView& categories = workspace_.lstCategory;
    if (categories.empty()) return;
    const std::size_t instead = std::min(category.row, categories.count() - 1);
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
