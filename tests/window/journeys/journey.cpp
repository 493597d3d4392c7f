#include "tests/window/journeys/journey.h"

#include "platform/controls/status_bar.h"
#include "tests/support/dropped_object.h"
#include "tests/support/folder_browser.h"
#include "tests/support/html_test.h"
#include "tests/support/import_test.h"
#include "tests/support/input.h"
#include "tests/support/list_clicks.h"
#include "tests/support/menus_seen.h"
#include "tests/support/site_editor.h"
#include "tests/support/wine.h"
#include "update/update_check.h"
#include "update/version_report.h"

#include <algorithm>

namespace vandrel::test {
namespace {

using Act = JourneyStep::Act;

constexpr const char* actNames[] = {
    "clickCategory", "addSite",      "dropLink",       "editSite",    "openSite",       "removeSites",
    "moveSite",      "sortSites",    "sortCategories", "addCategory", "renameCategory", "removeCategory",
    "importAll",     "searchAll",    "pageOfAll",      "quickSearch", "cancelADialog",  "rightClickBeside",
    "keyInAList",    "makeReadOnly", "makeWritable",   "loseFile",    "restart",        "scanAll",
    "scanSite",      "exportSite",   "backUp",         "pageOfShown", "copyAddress",    "showProperties",
    "showAbout",     "checkUpdates", "cancelRename",   "addWhileHeld"};

constexpr const wchar_t* scanLog = L"scanned.log";
constexpr const wchar_t* exportCaption = L"Export URL File";
constexpr const wchar_t* browseCaption = L"Browse for Folder";

// The last but one has letters that the western code page lacks; the last is no answer at all.
const std::optional<std::wstring> titleAnswers[] = {L"News", L"Tools", L"Links",        L"Zoo",      L"a*b",
                                                    L"  ",   L"x<y",   L"\u6f22\u5b57", std::nullopt};
const std::wstring siteNames[] = {L"Alpha", L"beta", L"Caf\u00e9", L"\u0416 one", L"", L"bar|bar", L"Zulu"};
const std::wstring plainNames[] = {L"Alpha", L"beta", L"Caf\u00e9", L"\u0416 one", L"", L"Zulu"};

template <typename List> const auto& oneOf(const List& list, unsigned number)
{
    return list[number % std::size(list)];
}

std::string narrow(const std::wstring& text)
{
    std::string bytes;
    for (const wchar_t letter : text) bytes += letter < 0x80 ? static_cast<char>(letter) : '?';
    return bytes;
}

std::string joined(const Lines& lines)
{
    std::string text;
    for (const std::wstring& line : lines) text += "[" + narrow(line) + "]";
    return text;
}

std::string joined(const ModelSites& sites)
{
    Lines lines;
    for (const ModelSite& site : sites)
        lines.push_back(site[0] + L"|" + site[1] + L"|" + site[2] + L"|" + site[3]);
    return joined(lines);
}

// Written by hand, so that the program's reader is not its own judge. In the western code page every letter
// is one byte.
ModelSites sitesIn(const std::string& bytes)
{
    ModelSites sites;
    std::size_t start = 0;
    for (std::size_t end = 0; (end = bytes.find("\r\n", start)) != std::string::npos; start = end + 2) {
        ModelSite& site = sites.emplace_back();
        std::size_t field = 0;
        for (const char letter : bytes.substr(start, end - start)) {
            if (letter == '|') ++field;
            else site.at(field) += static_cast<wchar_t>(static_cast<unsigned char>(letter));
        }
    }
    return sites;
}

std::string bytesOf(const ModelSites& sites)
{
    std::string bytes;
    for (const ModelSite& site : sites) {
        for (std::size_t field = 0; field < site.size(); ++field) {
            if (field > 0) bytes += '|';
            for (const wchar_t letter : site[field]) bytes += static_cast<char>(letter);
        }
        bytes += "\r\n";
    }
    return bytes;
}

UINT iconOf(const Reply& reply)
{
    if (reply.text.starts_with(L"Run-time error") || reply.text.starts_with(L"The following characters"))
        return MB_ICONHAND;
    if (reply.text.starts_with(L"Please type") || reply.caption == L"Error") return MB_ICONEXCLAMATION;
    const bool question = reply.text.ends_with(L"?") && reply.caption != L"Remove site(s)" &&
                          !reply.text.starts_with(L"Remove category");
    return question ? MB_ICONQUESTION : MB_ICONASTERISK;
}

int idOf(Reply::Button button)
{
    switch (button) {
    case Reply::Button::cancel: return IDCANCEL;
    case Reply::Button::yes: return IDYES;
    case Reply::Button::no: return IDNO;
    case Reply::Button::all: return importer::importAll;
    default: return IDOK;
    }
}

void nameFile(HWND dialog, const std::wstring& path)
{
    SendDlgItemMessageW(dialog, html::nameField, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    SendMessageW(dialog, WM_COMMAND, IDOK, 0);
}

// `page` is the file for pages, `copies` the folder for backups.
void answerAs(Answers& answers, const Reply& reply, const std::wstring& page, const std::wstring& copies)
{
    if (!reply.text.empty()) {
        answers.expectBox(reply.caption, reply.text, idOf(reply.button), iconOf(reply));
    } else if (reply.caption == html::saveCaption) {
        answers.expect(reply.caption, [page](HWND dialog) { nameFile(dialog, page); });
    } else if (reply.caption == exportCaption) {
        answers.expect(reply.caption, [path = reply.typed[0]](HWND dialog) { nameFile(dialog, path); });
    } else if (reply.caption == browseCaption) {
        answers.expect(runsUnderWine() ? browseCaption : L"Browse For Folder", [copies](HWND browser) {
            press(browser, selectFolder(browser, copies) ? IDOK : IDCANCEL);
        });
    } else if (reply.typed.size() == 3) {
        answers.expect(reply.caption, typeSite(reply.typed[0], reply.typed[1], reply.typed[2]));
    } else if (reply.typed.size() == 1) {
        answers.expectInput(reply.caption, L"Please enter a title for the new category.", reply.typed[0]);
    } else {
        answers.expect(reply.caption, pressing(idOf(reply.button)));
    }
}

} // namespace

Walk randomWalk(std::mt19937& random, std::size_t steps)
{
    Walk walk(steps);
    for (JourneyStep& step : walk) {
        step = {static_cast<Act>(random() % (static_cast<unsigned>(Act::last) + 1)), random() % 1000,
                random() % 1000, random() % 1000};
        // Sites must be added faster than they are removed.
        if (random() % 4 == 0) step.act = Act::addSite;
    }
    return walk;
}

std::string story(const Walk& walk)
{
    std::string text;
    for (const JourneyStep& step : walk) {
        text += std::string("  {Act::") + actNames[static_cast<std::size_t>(step.act)] + ", " +
                std::to_string(step.a) + ", " + std::to_string(step.b) + ", " + std::to_string(step.c) +
                "},\n";
    }
    return text;
}

// ---- walking

void JourneyTest::begin()
{
    for (const std::wstring& name : folder.names()) {
        SetFileAttributesW(folder.file(name).c_str(), FILE_ATTRIBUTE_NORMAL);
        DeleteFileW(folder.file(name).c_str());
    }
    complaint_.clear();
    model_ = {};
    model_.today = today;
    model_.files = {{L"Links", {{L"One", L"zzz:one", L"d", L"1/1/2001"}, {L"Two", L"zzz:two", L"", L""}}},
                    {L"News", {{L"Three", L"zzz:three", L"", L"2/2/2002"}}}};
    for (const auto& [title, sites] : model_.files) {
        folder.write(title + L".udb", bytesOf(sites));
        model_.categories.push_back(title);
    }
    model_.start();
    start();
    workspace().favoritesFolder = favorites_.path();
}

std::string JourneyTest::walk(const Walk& steps)
{
    begin();
    const CurrentFolder there(folder.path()); // renaming depends on it
    std::string failure = difference();
    for (std::size_t i = 0; i < steps.size() && failure.empty(); ++i) {
        act(steps[i]);
        failure = difference();
        if (!failure.empty()) {
            failure = "step " + std::to_string(i + 1) + ", " +
                      actNames[static_cast<std::size_t>(steps[i].act)] + ": " + failure;
        }
    }
    model_.replies.clear();
    workspace().shown.unsaved = false; // so that nothing is asked
    stop();
    return failure;
}

Walk JourneyTest::shortened(Walk steps)
{
    for (std::size_t i = steps.size(); i-- > 0;) {
        Walk without = steps;
        without.erase(without.begin() + static_cast<std::ptrdiff_t>(i));
        if (!walk(without).empty()) steps = std::move(without);
    }
    return steps;
}

template <typename Model, typename Program> void JourneyTest::both(Model model, Program program)
{
    model_.focusedCategory = lstCategory().focusedRow().value_or(0);
    model_.replies.clear();
    model();
    Answers answers;
    for (const Reply& reply : model_.replies)
        answerAs(answers, reply, pages_.file(L"page.htm"), copies_.path());
    program();
    MessageLoop::current().dispatchPending();
    if (!answers.done()) complaint_ += "a window that was to come up did not; ";
    complaint_ += narrow(answers.complaint());
}

void JourneyTest::command(int entry, unsigned way, WORD key, bool shift, int button)
{
    if (way % 3 == 1 && key != 0) {
        lstCategory().setFocus();
        pressKey(key, false, shift);
    } else if (way % 3 == 2 && button != 0) {
        SendMessageW(main->handle(), WM_COMMAND, static_cast<WPARAM>(button),
                     reinterpret_cast<LPARAM>(main->toolBar().handle()));
    } else {
        choose(entry);
    }
    MessageLoop::current().dispatchPending();
}

std::size_t JourneyTest::clickSite(unsigned number)
{
    const std::size_t row = number % lstInfo().count();
    lstInfo().ensureVisible(row);
    lstInfo().clearSelection();
    clickRow(lstInfo(), static_cast<int>(row));
    if (workspace().StatusBar1.panelText(2) != L"Name: " + lstInfo().text(row) + L"  ")
        complaint_ += "the status bar names another site; ";
    return row;
}

void JourneyTest::act(const JourneyStep& step)
{
    const auto& title = oneOf(titleAnswers, step.b);
    model_.yes = step.c % 2 == 0;
    model_.titleAnswer = title;
    const bool noSites = lstInfo().empty();
    switch (step.act) {
    case Act::clickCategory: {
        if (model_.categories.empty()) return;
        const std::size_t row = step.a % model_.categories.size();
        both([&] { model_.clickCategory(row); },
             [&] {
                 // A second click on a selected label would edit it.
                 if (lstCategory().isSelected(row)) lstCategory().ItemClick(row);
                 else clickRow(lstCategory(), static_cast<int>(row));
             });
        return;
    }
    case Act::addSite: addSite(step); return;
    case Act::dropLink: {
        const std::wstring link = freshUrl() + L"\r\n" + L"second line";
        both([&] { model_.dropLink(link); },
             [&] {
                 DroppedObject data;
                 data.withUnicode(link);
                 auto* const target = static_cast<IDropTarget*>(
                     GetPropW(lstInfo().handle(), L"OleDropTargetInterface"));
                 DWORD effect = DROPEFFECT_COPY;
                 target->Drop(&data, 0, {5, 5}, &effect);
             });
        return;
    }
    case Act::editSite: {
        if (noSites) return command(mnuEditSel, 0);
        const std::size_t row = clickSite(step.a);
        const std::array<std::wstring, 3> texts{oneOf(plainNames, step.b), freshUrl(step.b),
                                                oneOf(plainNames, step.c)};
        both([&] { model_.editSite(row, texts); }, [&] { choose(mnuEditSel); });
        return;
    }
    case Act::openSite: {
        if (noSites) return command(mnuOpenURL, 0);
        const std::size_t row = clickSite(step.a);
        if (model_.list[row][1].starts_with(L"http:")) return; // a browser would come up
        both([&] { model_.openSite(row); }, [&] { command(mnuOpenURL, step.b, 0, false, 9); });
        return;
    }
    case Act::removeSites: removeSites(step); return;
    case Act::moveSite: {
        if (noSites || model_.moveEntries.empty()) return;
        const std::size_t row = clickSite(step.a);
        const std::size_t entry = step.b % model_.moveEntries.size();
        both([&] { model_.moveSite(row, entry); }, [&] { choose(firstMoveEntry + static_cast<int>(entry)); });
        return;
    }
    case Act::sortSites:
        both([&] { model_.sortSites(step.a % 3); },
             [&] { clickHeader(lstInfo(), static_cast<int>(step.a % 3)); });
        return;
    case Act::sortCategories:
        both([&] { model_.sortCategories(); }, [&] { clickHeader(lstCategory(), 0); });
        return;
    case Act::addCategory:
        if (title) setReadOnly(*title, false);
        both([&] { model_.addCategory(); }, [&] { command(mnuAddCategory, step.a, VK_F2, false, 1); });
        return;
    case Act::renameCategory: renameCategory(step); return;
    case Act::removeCategory:
        if (model_.shown) setReadOnly(model_.categories[*model_.shown], false);
        both([&] { model_.removeCategory(); }, [&] { command(mnuRemoveCategory, step.a, VK_F2, true, 2); });
        return;
    case Act::importAll: importAll(); return;
    case Act::searchAll: searchAll(); return;
    case Act::pageOfAll: both([&] { model_.pageOfAll(); }, [&] { choose(mnuAllCats); }); return;
    case Act::quickSearch: quickSearch(step); return;
    case Act::cancelADialog: cancelADialog(step); return;
    case Act::rightClickBeside: rightClickBeside(step); return;
    case Act::keyInAList: {
        const WORD keys[] = {VK_UP, VK_DOWN, VK_HOME, VK_END, VK_ESCAPE, VK_TAB};
        lstInfo().setFocus();
        pressKey(oneOf(keys, step.a));
        return;
    }
    case Act::makeReadOnly:
    case Act::makeWritable:
    case Act::loseFile: changeDisk(step); return;
    case Act::restart:
        both([&] { model_.restart(); },
             [&] {
                 stop();
                 start();
                 workspace().favoritesFolder = favorites_.path();
             });
        return;
    case Act::scanAll:
        if (noSites) return;
        both([&] { model_.scanAll(); }, [&] { choose(mnuScanAllURLs); });
        return;
    case Act::scanSite: {
        if (noSites) return;
        const std::size_t row = clickSite(step.a);
        both([&] { model_.scanSite(row); }, [&] { command(mnuScanSelected, step.b, 0, false, 10); });
        return;
    }
    case Act::exportSite: exportSite(step); return;
    case Act::backUp: backUp(step); return;
    case Act::pageOfShown:
        if (!noSites) both([&] { model_.pageOfShown(); }, [&] { choose(mnuCurrentCat); });
        return;
    case Act::copyAddress: copyAddress(step); return;
    case Act::showProperties: {
        if (noSites) return;
        const std::size_t row = clickSite(step.a);
        both([&] { model_.showProperties(row); }, [&] { choose(mnuProperties); });
        return;
    }
    case Act::showAbout: showAbout(); return;
    case Act::checkUpdates: checkUpdates(); return;
    case Act::cancelRename: cancelRename(); return;
    case Act::addWhileHeld: addWhileHeld(step); return;
    }
}

void JourneyTest::addSite(const JourneyStep& step)
{
    const std::array<std::wstring, 3> texts{oneOf(siteNames, step.a), freshUrl(step.b),
                                            oneOf(siteNames, step.c)};
    both([&] { model_.addSite(texts); }, [&] { command(mnuAddWebsite, step.a, VK_F3, false, 7); });
}

void JourneyTest::removeSites(const JourneyStep& step)
{
    if (lstInfo().empty()) return command(mnuRemoveWebsite, 0);
    std::set<std::size_t> rows{clickSite(step.a)};
    if (step.b % 2 == 0) {
        const std::size_t another = step.b % lstInfo().count();
        lstInfo().ensureVisible(another);
        const HeldKeys control({VK_CONTROL});
        if (!rows.contains(another)) clickRow(lstInfo(), static_cast<int>(another), MK_CONTROL);
        rows.insert(another);
    }
    both([&] { model_.removeSites(rows); },
         [&] {
             if (step.b % 3 != 0) return command(mnuRemoveWebsite, 2, 0, false, 8);
             lstInfo().setFocus();
             pressKey(VK_DELETE);
         });
}

void JourneyTest::renameCategory(const JourneyStep& step)
{
    if (!model_.shown) return command(mnuRenameCat, 0);
    // Wine takes an unchanged label for a cancelled edit, Windows for a new one. Both come to the same
    // while the file exists.
    const std::wstring& now = model_.categories[*model_.shown];
    if (oneOf(titleAnswers, step.b).value_or(now) == now && !model_.files.contains(now)) return;
    const auto& title = oneOf(titleAnswers, step.b);
    const std::wstring text = title.value_or(model_.categories[*model_.shown]);
    setReadOnly(model_.categories[*model_.shown], false);
    if (title) setReadOnly(*title, false);
    both([&] { model_.renameCategory(text); },
         [&] {
             const HWND edit = startRename();
             if (edit == nullptr) return;
             SendMessageW(edit, EM_SETSEL, 0, -1);
             SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
             typeKey(edit, VK_RETURN);
         });
}

HWND JourneyTest::startRename()
{
    choose(mnuRenameCat);
    const HWND edit = reinterpret_cast<HWND>(SendMessageW(lstCategory().handle(), LVM_GETEDITCONTROL, 0, 0));
    if (edit == nullptr) complaint_ += "no label is edited; ";
    return edit;
}

void JourneyTest::cancelRename()
{
    if (!model_.shown) return;
    both([] {},
         [&] {
             const HWND edit = startRename();
             if (edit == nullptr) return;
             SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"Never"));
             typeKey(edit, VK_ESCAPE);
         });
}

void JourneyTest::importAll()
{
    std::vector<std::pair<std::wstring, std::wstring>> shortcuts;
    for (const wchar_t* const name : {L"First", L"Second"}) {
        shortcuts.emplace_back(name, freshUrl());
        favorites_.write(std::wstring(name) + L".url",
                         "[InternetShortcut]\r\nURL=" + narrow(shortcuts.back().second) + "\r\n");
    }
    both([&] { model_.importAll(shortcuts); }, [&] { choose(mnuImport); });
}

void JourneyTest::searchAll()
{
    both([&] { model_.searchAll(); },
         [&] {
             choose(mnuFind);
             if (main->searchWindow() == nullptr) {
                 complaint_ += "no search window; ";
                 return;
             }
             main->searchWindow()->DoSearch(L"a");
             press(main->searchWindow()->handle(), IDCANCEL);
             if (!pumpUntil([this] { return main->searchWindow() == nullptr; }))
                 complaint_ += "the search window stays; ";
         });
}

void JourneyTest::quickSearch(const JourneyStep& step)
{
    if (lstInfo().empty()) return;
    const std::size_t from = clickSite(step.a);
    SendMessageW(main->handle(), WM_TIMER, 1, 0);
    const std::wstring& url = model_.list[step.b % model_.list.size()][1];
    const bool found = std::any_of(model_.list.begin() + static_cast<std::ptrdiff_t>(from) + 1,
                                   model_.list.end(),
                                   [&](const ModelSite& site) { return site[1].find(url) != url.npos; });
    both(
        [&] {
            if (!found)
                model_.replies.push_back({L"Search", L"No more matches were found.", Reply::Button::ok, {}});
        },
        [&] {
            main->searchPanel().cmbSearch.setText(url);
            main->searchPanel().cmbSearch.setFocus();
            PostMessageW(GetWindow(main->searchPanel().cmbSearch.handle(), GW_CHILD), WM_CHAR, VK_RETURN, 1);
            MessageLoop::current().dispatchPending();
            lstCategory().setFocus();
        });
}

void JourneyTest::cancelADialog(const JourneyStep& step)
{
    struct Opened {
        int entry;
        const wchar_t* caption;
        bool needsSite;
    };
    const Opened dialogs[] = {{mnuAddWebsite, L"Add Site...", false},
                              {mnuEditSel, L"Edit selected site...", true},
                              {mnuImport, L"Import Favorites", false},
                              {mnuOptions, L"Options", false}};
    const Opened& opened = oneOf(dialogs, step.a);
    if (opened.needsSite && lstInfo().empty()) return;
    if (opened.needsSite) clickSite(step.b);
    both(
        [&] {
            model_.replies.push_back({opened.caption, L"", Reply::Button::cancel, {}});
        },
        [&] { choose(opened.entry); });
}

// Chooses Add Category from the pop-up menu that opens below the last row.
void JourneyTest::rightClickBeside(const JourneyStep& step)
{
    const auto& title = oneOf(titleAnswers, step.b);
    if (title) setReadOnly(*title, false);
    both([&] { model_.addCategory(); },
         [&] {
             const MenuVisit visit([](HMENU) {}, {VK_DOWN, VK_RETURN});
             RECT area{};
             GetClientRect(lstCategory().handle(), &area);
             rightClickAt(lstCategory().handle(), {area.right / 2, area.bottom - 20});
         });
}

// ---- commands that leave the lists as they are

void JourneyTest::exportSite(const JourneyStep& step)
{
    if (lstInfo().empty()) return;
    const std::size_t row = clickSite(step.a);
    const std::wstring name = L"site" + std::to_wstring(++urls_) + L".url";
    both([&] { model_.exportSite(pages_.file(name)); }, [&] { command(mnuExport, step.b, 0, false, 5); });
    if (!pages_.has(name)) complaint_ += "no shortcut; ";
    else if (pages_.read(name).find("URL=" + narrow(model_.list[row][1])) == std::string::npos)
        complaint_ += "the shortcut leads elsewhere: " + pages_.read(name);
}

void JourneyTest::backUp(const JourneyStep& step)
{
    const bool all = step.a % 2 == 0;
    if (model_.categories.empty()) return;
    for (const std::wstring& name : copies_.names()) {
        SetFileAttributesW(copies_.file(name).c_str(), FILE_ATTRIBUTE_NORMAL);
        DeleteFileW(copies_.file(name).c_str());
    }
    both([&] { model_.backUp(); }, [&] { choose(all ? mnuBUAllCat : mnuBUCurrentCat); });
    bool complete = all || model_.shown;
    std::set<std::wstring> copied;
    for (std::size_t row = 0; row < model_.categories.size() && complete; ++row) {
        if (!all && row != model_.shown) continue;
        const std::wstring& title = model_.categories[row];
        // A category that is listed twice is copied twice, and a read-only copy is not replaced.
        const bool again = !copied.insert(title).second;
        complete = model_.files.contains(title) && !(again && model_.readOnly.contains(title));
        if (complete && sitesIn(copies_.read(title + L".udb")) != model_.files[title])
            complaint_ += "another copy of " + narrow(title) + "; ";
    }
    if (workspace().StatusBar1.panelText(1) != (complete ? L"Backup successful." : L"Backup failed."))
        complaint_ += "says of the backup " + narrow(workspace().StatusBar1.panelText(1)) + "; ";
}

void JourneyTest::copyAddress(const JourneyStep& step)
{
    if (lstInfo().empty()) return;
    const std::size_t row = clickSite(step.a);
    if (model_.list[row][0].empty()) return; // the address of a site without a name is not copied
    both([] {}, [&] { choose(mnuCopyURL); });
    if (OpenClipboard(nullptr) == 0) return; // another program has it open
    const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
    const auto* const text = static_cast<const wchar_t*>(GlobalLock(memory));
    if (text == nullptr || text != model_.list[row][1]) complaint_ += "another address was copied; ";
    GlobalUnlock(memory);
    CloseClipboard();
}

void JourneyTest::showAbout()
{
    both(
        [&] {
            model_.replies.push_back({L"About Vandrel", L"", Reply::Button::ok, {}});
        },
        [&] {
            choose(mnuAbout);
            if (main->aboutBox() == nullptr) {
                complaint_ += "no About box; ";
                return;
            }
            if (!pumpUntil([this] { return main->aboutBox() == nullptr; })) complaint_ += "About stays; ";
        });
}

void JourneyTest::checkUpdates()
{
    const std::wstring version = runningVersion();
    server_.put("/update/VDVer.txt", narrow(version));
    both([&] { model_.checkUpdates(version); },
         [&] { CheckUpdates(workspace(), server_.root(), [](bool) {}); });
}

// ---- the disk

void JourneyTest::addWhileHeld(const JourneyStep& step)
{
    if (!model_.shown || !model_.files.contains(model_.categories[*model_.shown]) || step.b % 4 != 0) return;
    setReadOnly(model_.categories[*model_.shown], false);
    HeldFile held(folder.file(model_.categories[*model_.shown] + L".udb"));
    const std::array<std::wstring, 3> texts{oneOf(siteNames, step.a), freshUrl(step.c),
                                            oneOf(siteNames, step.c)};
    both([&] { model_.addSiteWhileHeld(texts); }, [&] { choose(mnuAddWebsite); });
}

void JourneyTest::setReadOnly(const std::wstring& title, bool on)
{
    const std::wstring path = folder.file(title + L".udb");
    if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) return;
    SetFileAttributesW(path.c_str(), on ? FILE_ATTRIBUTE_READONLY : FILE_ATTRIBUTE_NORMAL);
    if (on) model_.readOnly.insert(title);
    else model_.readOnly.erase(title);
}

void JourneyTest::changeDisk(const JourneyStep& step)
{
    if (model_.categories.empty()) return;
    const std::wstring title = oneOf(model_.categories, step.a);
    if (step.act == Act::makeReadOnly) return setReadOnly(title, true);
    for (const std::wstring& category : model_.categories) setReadOnly(category, false);
    if (step.act == Act::makeWritable || step.b % 3 != 0) return;
    DeleteFileW(folder.file(title + L".udb").c_str());
    model_.files.erase(title);
}

// ---- comparing

std::string JourneyTest::diskDifference()
{
    std::map<std::wstring, ModelSites> files;
    for (const std::wstring& name : folder.names()) {
        if (name == scanLog) continue;
        if (!name.ends_with(L".udb")) return "a file " + narrow(name) + " was left behind";
        files[name.substr(0, name.size() - 4)] = sitesIn(folder.read(name));
    }
    for (const auto& [title, sites] : model_.files) {
        if (!files.contains(title)) return "no file " + narrow(title);
        if (files[title] != sites)
            return "file " + narrow(title) + " has " + joined(files[title]) + ", not " + joined(sites);
    }
    if (files.size() != model_.files.size()) return "a file too many";
    std::string log;
    for (const std::wstring& line : model_.scanLog) {
        for (const wchar_t letter : line) log += static_cast<char>(letter);
        log += "\r\n";
    }
    if (folder.has(scanLog) ? folder.read(scanLog) != log : !log.empty()) return "another log of scans";
    return {};
}

std::string JourneyTest::difference()
{
    if (!complaint_.empty()) return complaint_;
    if (titles() != model_.categories)
        return "categories " + joined(titles()) + ", not " + joined(model_.categories);
    Lines lines;
    for (const ModelSite& site : model_.list)
        lines.push_back(site[0] + L"|" + site[1] + L"|" + site[2] + L"|" + site[3]);
    if (sites() != lines) return "sites " + joined(sites()) + ", not " + joined(lines);
    if (shownRow(workspace()) != model_.shown) return "another category is shown";
    if (model_.shown && lstCategory().currentRow() != model_.shown) return "another category is selected";
    for (std::size_t row = 0; row < lstCategory().count(); ++row) {
        const bool open = categoryRows().image(row) == openFolderImage;
        if (open != (model_.shown == row)) return "the wrong folder is open";
    }
    for (std::size_t row = 0; row < model_.list.size(); ++row) {
        const bool dead = model_.dead.contains(model_.list[row][1]);
        if (siteRows().image(row) != (dead ? deadSiteImage : siteImage)) return "a site has another picture";
    }
    if (main->caption() != model_.caption)
        return "caption " + narrow(main->caption()) + ", not " + narrow(model_.caption);
    Lines entries = model_.moveEntries;
    if (entries.empty()) entries.emplace_back();
    if (moveEntries() != entries) return "Move To " + joined(moveEntries()) + ", not " + joined(entries);
    if (workspace().shown.unsaved != model_.unsaved) return "what is not saved differs";
    const auto count = static_cast<std::size_t>(SendMessageW(lstInfo().handle(), LVM_GETITEMCOUNT, 0, 0));
    if (count != model_.list.size()) return "the native list has other rows";
    return diskDifference();
}

} // namespace vandrel::test
