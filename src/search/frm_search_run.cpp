#include "model/site_bytes.h"
#include "model/site_count.h"
#include "model/text_memory.h"
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

// Contract: messages may run after every fifth site.
constexpr std::size_t sitesBetweenTurns = 5;
// Painting both windows takes as long as searching half a million sites, so a search that ends within this
// time shows its hits only then.
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
    TextMemory decoded; // of one site after the other
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
        // A category may have gone while messages ran.
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
    // Contract: the first row's text decides, even if a site is called that.
    if (hitRows_.text(0, 0) != noResults) {
        StatusBar1_.setPanelText(1, std::to_wstring(hitRows_.size()) + L" site(s) found");
    }
    StatusBar1_.setPanelText(2, std::to_wstring(searched) + L" site(s) searched");
}

// Searches the category as it is when its turn comes; changes made while messages run are not seen. Returns
// how many sites it has.
std::size_t frmSearch::searchCategory(const Remembered& category, Search& search)
{
    search.choose(section());
    search.hits.setCategory(category.title);
    const CodePageLetters* const letters = ansiLetters();
    return letters != nullptr ? searchBytes(category, search, *letters) : searchText(category, search);
}

// Where every byte is a character: most sites are passed without being decoded.
std::size_t frmSearch::searchBytes(const Remembered& category, Search& search, const CodePageLetters& letters)
{
    const std::string_view bytes = search.bytesOf(categoryPath(workspace_.dataFolder, category.title));
    // Contract: with no section chosen nothing is searched, but the sites count.
    if (!search.matcher) return countSites(bytes);
    const BytePattern pattern(search.matcher->widest(), letters);
    ByteSearch sites(bytes, pattern);
    SiteDecoder decoder(letters, latinInAnsi(), search.decoded);
    bool followed = false;
    while (!sites.atEnd()) {
        const bool due = throttle_.due();
        const auto site = due ? sites.next() : sites.nextCandidate();
        if (!site) continue;
        const SiteTexts texts = decoder.decode(*site).views();
        if (search.matcher->matches(texts)) search.hits.add(texts);
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
        const SiteTexts texts = sites[done].texts.views();
        if (sequence.matches(texts)) search.hits.add(texts);
        if ((done + 1) % sitesBetweenTurns != 0 || !throttle_.due()) continue;
        takeTurn(category, search, done + 1, !std::exchange(followed, true));
        if (ended()) break;
    }
    return sites.size();
}

// Texts and hits are shown only when messages run: a million texts that nobody sees would take longer than
// the search.
void frmSearch::takeTurn(const Remembered& category, Search& search, std::size_t sites, bool first)
{
    // Contract: the number starts again at 1 in each category.
    StatusBar1_.setPanelText(2, std::to_wstring(sites) + L" site(s) searched");
    showHits(search.hits);
    follow(category, first);
    throttle_.take([this] { quitting_ = !MessageLoop::current().dispatchPending(); });
}

// Shows in the main window where the search is. Only the first turn of a category selects it; after that
// the user may have chosen another.
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

// Saves what the user changed during a turn. False when the category with the change has to stay.
bool frmSearch::leaveShownCategory()
{
    if (!workspace_.shown.unsaved) return true;
    return leaveSites(workspace_);
}

void frmSearch::showHits(HitList& hits)
{
    if (hits.empty()) return;
    hitRows_.append(hits.take());
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

// Shows the category that was shown before, or the one now in its place.
void frmSearch::restore(const Remembered& category)
{
    if (workspace_.categories.empty()) return;
    const std::size_t instead = std::min(category.row, workspace_.categories.size() - 1);
    selectCategory(workspace_, rowOf(category.title, category.row).value_or(instead));
}

// Enables or disables the controls of the frame, and moves the focus out of their way.
void frmSearch::setSearchEnabled(bool on)
{
    const bool hadFocus = IsChild(handle(), GetFocus()) != 0 && !lstResults_.hasFocus();
    if (!on && hadFocus) cmdCancel_.setFocus(); // a disabled control would keep the focus and every key
    for (Control* const control : std::initializer_list<Control*>{&fraSearch_, &lblCaptions_, &txtSearch_,
                                                                  &cmdSearch_, &fraWhat_, &chkCase_}) {
        control->setEnabled(on);
    }
    for (OptionButton& option : optSection_) option.setEnabled(on);
    if (on && cmdCancel_.hasFocus() && !unloaded()) txtSearch_.setFocus();
}

} // namespace vandrel
