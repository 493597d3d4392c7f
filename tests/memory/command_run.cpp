#include "tests/memory/command_run.h"

#include "mainwindow/menu_entries.h"
#include "platform/controls/status_bar.h"

#include <algorithm>
#include <iterator>

namespace vandrel::test {
namespace {

using Lines = std::vector<std::wstring>;

constexpr const wchar_t* shownFirst = L"Work and play";
constexpr const wchar_t* empty = L"Empty";

Lines linesIn(const std::string& bytes)
{
    Lines lines;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = bytes.find("\r\n", at);
        if (end == bytes.npos) {
            lines.emplace_back(bytes.begin() + static_cast<std::ptrdiff_t>(at), bytes.end());
            lines.back() += L" (cut)";
            break;
        }
        lines.emplace_back(bytes.begin() + static_cast<std::ptrdiff_t>(at),
                           bytes.begin() + static_cast<std::ptrdiff_t>(end));
        at = end + 2;
    }
    return lines;
}

Lines sorted(Lines lines)
{
    std::ranges::sort(lines);
    return lines;
}

bool includes(const Lines& all, const Lines& some)
{
    return std::ranges::includes(sorted(all), sorted(some));
}

std::wstring joined(const Lines& lines)
{
    std::wstring text = L"{";
    for (const std::wstring& line : lines) text += L"<" + line + L">";
    return text + L"}";
}

// The name and address of every site in all files.
Lines sitesIn(const Files& files)
{
    Lines sites;
    for (const auto& [name, bytes] : files) {
        if (!name.ends_with(L".udb")) continue;
        for (const std::wstring& line : linesIn(bytes))
            sites.push_back(line.substr(0, line.find(L'|', line.find(L'|') + 1)));
    }
    std::ranges::sort(sites);
    return sites;
}

std::optional<std::string> bytesOf(const Files& files, const std::wstring& name)
{
    const auto found = files.find(name);
    return found == files.end() ? std::nullopt : std::optional(found->second);
}

} // namespace

CommandRun::CommandRun(Collection& collection, const Command& command) : c_(collection), command_(command) {}

void CommandRun::prepare()
{
    wrong_.clear();
    told_ = false;
    c_.reset();
    if (command_.makesWindow) {
        before_ = c_.files();
        return;
    }
    c_.start();
    clickTitle(shownFirst);
    c_.workspace().lstInfo.select(0);
    c_.workspace().favoritesFolder = c_.shortcuts.path();
    c_.workspace().inetScan.setRequestTimeout(5000);
    command_.prepare(c_);
    c_.dispatch();
    before_ = c_.files();
}

void CommandRun::act(unsigned n, failing_new::How how, failing_new::Where where)
{
    failing_new::arm(n, how, where);
    command_.act(c_);
    failing_new::disarm();
}

bool CommandRun::hasDone()
{
    if (c_.files() != after_) return false;
    return command_.done == nullptr || command_.done(c_);
}

std::wstring CommandRun::learn(failing_new::Where where)
{
    prepare();
    {
        const QuietAnswers answers(c_.typed);
        act(0, failing_new::How::once, where);
        usual_ = failing_new::counted();
        after_ = c_.files();
        usualBoxes_ = answers.boxes();
        if (*answers.complaint() != L'\0') complain(answers.complaint());
        if (command_.done != nullptr && !command_.done(c_)) complain(L"does not do what it is there for");
    }
    checkFiles();
    if (c_.running()) {
        checkLists();
        checkNext();
    }
    return wrong_;
}

std::wstring CommandRun::failing(unsigned n, failing_new::How how, failing_new::Where where, bool& reached)
{
    prepare();
    {
        const QuietAnswers answers(c_.typed);
        act(n, how, where);
        reached = failing_new::failed();
        if (*answers.complaint() != L'\0') complain(answers.complaint());
        told_ = command_.silent || !usualBoxes_.starts_with(answers.boxes());
        if (c_.running() && c_.workspace().StatusBar1.panelText(1).ends_with(L"ailed.")) told_ = true;
        if (c_.running() && c_.workspace().StatusBar1.panelText(1).ends_with(L"ailed!")) told_ = true;
        if (c_.logSaysFailed()) told_ = true; // a failed check shows in the site's picture and in the log
        if (!told_ && !(c_.running() || !command_.makesWindow)) {
            complain(L"no window, and nothing was told");
        } else if (!told_ && !hasDone() && !c_.workspace().shown.unreadable()) {
            // A category that cannot be read is shown empty, without a message.
            complain(L"has not done it, and nothing was told");
        }
    }
    if (c_.escaped) complain(L"an error left the message loop");
    checkFiles();
    if (command_.makesWindow && !c_.running()) {
        c_.forgetWindow();
        c_.start();
    }
    if (c_.running()) {
        checkLists();
        checkNext();
    }
    return wrong_;
}

// ---- what the run has left

CommandRun::Lines CommandRun::shownSites()
{
    Lines lines;
    const ListView& list = c_.workspace().lstInfo;
    for (std::size_t row = 0; row < list.count(); ++row) {
        std::wstring line = list.text(row, 0);
        for (std::size_t field = 1; field < RowTable::maxColumns; ++field)
            line += L"|" + list.text(row, field);
        lines.push_back(line);
    }
    return lines;
}

CommandRun::Lines CommandRun::shownTitles()
{
    Lines titles;
    const ListView& list = c_.workspace().lstCategory;
    for (std::size_t row = 0; row < list.count(); ++row) titles.push_back(list.text(row));
    return sorted(titles);
}

std::wstring CommandRun::selectedTitle()
{
    const auto row = c_.workspace().lstCategory.currentRow();
    return row ? c_.workspace().lstCategory.text(*row) : L"";
}

CommandRun::Lines CommandRun::linesOf(const std::wstring& title) const
{
    const std::wstring name = title + L".udb";
    return c_.folder.has(name) ? linesIn(c_.folder.read(name)) : Lines{};
}

void CommandRun::clickTitle(const wchar_t* title)
{
    ListView& list = c_.workspace().lstCategory;
    for (std::size_t row = 0; row < list.count(); ++row) {
        if (list.text(row) != title) continue;
        list.select(row);
        c_.asEvent([&] { list.ItemClick(row); });
        return;
    }
}

// ---- what must be true of it

void CommandRun::checkFiles()
{
    const Files now = c_.files();
    std::set<std::wstring> names;
    for (const Files* const files : std::initializer_list<const Files*>{&before_, &after_, &now}) {
        for (const auto& [name, bytes] : *files) names.insert(name);
    }
    for (const std::wstring& name : names) {
        if (!name.ends_with(L".udb")) continue;
        const auto bytes = bytesOf(now, name);
        const auto old = bytesOf(before_, name);
        const auto fresh = bytesOf(after_, name);
        if (bytes == old || bytes == fresh) continue;
        const Lines lines = linesIn(bytes.value_or("?"));
        const bool between = command_.savesOften && includes(lines, linesIn(*old)) &&
                             includes(linesIn(*fresh), lines);
        if (!between) complain(name + L" is neither old nor new: " + joined(lines));
    }
    if (const std::wstring left = c_.leftBehind(); !left.empty()) complain(L"left behind " + left);
    Lines kept;
    std::ranges::set_intersection(sitesIn(before_), sitesIn(after_), std::back_inserter(kept));
    if (!std::ranges::includes(sitesIn(now), kept)) complain(L"a site is in no file any more");
}

void CommandRun::checkLists()
{
    Lines titles;
    for (const auto& [name, bytes] : c_.files()) {
        if (name.ends_with(L".udb")) titles.push_back(name.substr(0, name.size() - 4));
    }
    if (told_ && !c_.workspace().categoriesListed) askForCategory();
    if (shownTitles() != sorted(titles)) complain(L"shows the categories " + joined(shownTitles()));
    const std::wstring title = selectedTitle();
    const Lines shown = sorted(shownSites());
    const auto fresh = bytesOf(after_, title + L".udb");
    const bool asFile = shown == sorted(linesOf(title));
    const bool between = command_.savesOften && includes(shown, linesOf(title)) && fresh &&
                         includes(linesIn(*fresh), shown);
    const bool unsaved = told_ && fresh && (between || shown == sorted(linesIn(*fresh)));
    const bool unread = shown.empty() && c_.workspace().shown.unreadable();
    if (!asFile && !unsaved && !unread)
        complain(L"shows the sites " + joined(shown) + L" for " + joined(linesOf(title)));
}

// Gives no title. Categories that could not be listed before are listed now.
void CommandRun::askForCategory()
{
    const Typed typed{.line = L""};
    const QuietAnswers answers(typed);
    c_.choose(mnuAddCategory);
}

// In the selected category.
void CommandRun::addAnother()
{
    const std::wstring title = selectedTitle();
    if (title.empty()) return;
    const bool unread = c_.workspace().shown.unreadable();
    Lines expected = unread ? linesOf(title) : shownSites(); // it is read before it is saved
    expected.push_back(L"Next|http://next.example/|by the test|11/16/2002");
    const Typed typed{.name = L"Next", .address = L"http://next.example/", .description = L"by the test"};
    QuietAnswers answers(typed);
    c_.choose(mnuAddWebsite);
    if (*answers.boxes() != L'\0') complain(L"cannot add: " + std::wstring(answers.boxes()));
    if (sorted(linesOf(title)) != sorted(expected)) complain(L"adds, and saves " + joined(linesOf(title)));
    if (shownSites() != linesOf(title)) complain(L"adds, and shows " + joined(shownSites()));
}

// Everything is saved, so no question comes.
void CommandRun::visit(const wchar_t* title)
{
    const Typed typed;
    const QuietAnswers answers(typed);
    clickTitle(title);
    if (*answers.boxes() != L'\0') complain(L"cannot leave: " + std::wstring(answers.boxes()));
}

void CommandRun::checkNext()
{
    if (IsWindowEnabled(c_.main().handle()) == 0) complain(L"the window takes no input any more");
    addAnother();
    const std::wstring title = selectedTitle();
    visit(empty);
    if (shownSites() != linesOf(empty)) complain(L"shows another category than the one clicked");
    addAnother();
    visit(title.empty() ? L"Archive" : title.c_str());
    if (shownSites() != linesOf(selectedTitle()))
        complain(L"shows " + joined(shownSites()) + L" when clicked again");
}

} // namespace vandrel::test
