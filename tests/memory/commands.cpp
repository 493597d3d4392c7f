#include "tests/memory/commands.h"

#include "mainwindow/menu_entries.h"
#include "platform/controls/status_bar.h"
#include "store/category_selection.h"
#include "store/save_items.h"
#include "store/site_operations.h"
#include "tests/support/dropped_object.h"
#include "update/update_check.h"

#include <commctrl.h>

namespace vandrel::test {
namespace {

constexpr int searchTerm = 101; // the search window's
constexpr int importAllButton = 104;

void nothing(Collection&) {}

template <const wchar_t* const& Name> void naming(Collection& c)
{
    c.typed.question = IDNO; // the page is not opened
    c.nameFile(Name);
}
constexpr const wchar_t* page = L"made.htm";
constexpr const wchar_t* shortcut = L"made.url";

template <int Entry> void choosing(Collection& c) { c.choose(Entry); }

bool panelSays(Collection& c, const wchar_t* text) { return c.workspace().StatusBar1.panelText(1) == text; }

HWND searchWindow(Collection& c)
{
    return c.main().searchWindow() != nullptr ? c.main().searchWindow()->handle() : nullptr;
}

// The search dispatches messages as long as it runs.
void search(Collection& c)
{
    SendDlgItemMessageW(searchWindow(c), searchTerm, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"PAGE"));
    SendMessageW(GetDlgItem(searchWindow(c), IDOK), BM_CLICK, 0, 0);
    c.dispatch();
}

void rename(Collection& c)
{
    c.choose(mnuRenameCat);
    const HWND label = reinterpret_cast<HWND>(
        SendMessageW(c.workspace().lstCategory.handle(), LVM_GETEDITCONTROL, 0, 0));
    SendMessageW(label, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Work, renamed by the test"));
    SendMessageW(label, WM_KEYDOWN, VK_RETURN, 1);
}

template <int Column> void clickColumn(Collection& c)
{
    NMLISTVIEW click{};
    click.iSubItem = Column;
    click.hdr = {c.workspace().lstInfo.handle(), 0, LVN_COLUMNCLICK};
    click.iItem = -1;
    SendMessageW(c.main().handle(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&click));
    c.dispatch(); // the list sorts in response to a posted message
}

void pressKey(HWND list, int key) { SendMessageW(list, WM_KEYDOWN, static_cast<WPARAM>(key), 1); }

void quickSearch(Collection& c)
{
    SendMessageW(c.main().searchPanel().cmbSearch.handle(), WM_SETTEXT, 0,
                 reinterpret_cast<LPARAM>(L"name is B"));
    SendMessageW(c.main().searchPanel().cmdSearch.handle(), BM_CLICK, 0, 0);
}

DroppedObject& dropped()
{
    static DroppedObject data;
    return data;
}

void drop(Collection& c)
{
    auto* const target = static_cast<IDropTarget*>(
        GetPropW(c.workspace().lstInfo.handle(), L"OleDropTargetInterface"));
    DWORD effect = DROPEFFECT_COPY;
    target->Drop(&dropped(), 0, {5, 5}, &effect);
    c.dispatch();
}

constexpr Command all[] = {
    {"Add", nothing, choosing<mnuAddWebsite>, nullptr},
    {"Edit", nothing, choosing<mnuEditSel>, nullptr},
    {"Describe", nothing, [](Collection& c) { c.asEvent([&] { EditDescription(c.workspace()); }); }, nullptr},
    {"Remove", nothing, choosing<mnuRemoveWebsite>, nullptr},
    {"Move", nothing, choosing<firstMoveEntry>, nullptr},
    {"Open", nothing, choosing<mnuOpenURL>, nullptr},
    {"Copy", nothing, choosing<mnuCopyURL>,
     [](Collection& c) {
         if (OpenClipboard(c.main().handle()) == 0) return false;
         const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
         const auto* const text = static_cast<const wchar_t*>(GlobalLock(memory));
         const bool good = text != nullptr && text == c.workspace().lstInfo.text(0, 1);
         GlobalUnlock(memory);
         CloseClipboard();
         return good;
     }},
    {"Rename", nothing, rename, nullptr},
    {"AddCategory", [](Collection& c) { c.typed.line = L"A new category"; }, choosing<mnuAddCategory>,
     nullptr},
    {"RemoveCategory", nothing, choosing<mnuRemoveCategory>, nullptr},
    {"Load", nothing, [](Collection& c) { pressKey(c.workspace().lstCategory.handle(), VK_HOME); },
     [](Collection& c) {
         return c.workspace().lstInfo.count() == 1 && c.main().caption() == L"Vandrel - Archive";
     }},
    {"Save",
     [](Collection& c) { c.workspace().shown.sites.setText(0, 2, L"a description that was not saved"); },
     [](Collection& c) { c.asEvent([&] { SaveItems(c.workspace()); }); }, nullptr},
    // Another column: to turn the order of the same one round takes no memory.
    {"Sort", [](Collection& c) { clickColumn<1>(c); }, clickColumn<0>,
     [](Collection& c) { return c.workspace().lstInfo.text(0).ends_with(L"a"); }},
    {"QuickSearch", nothing, quickSearch,
     [](Collection& c) { return c.workspace().lstInfo.firstSelected() == 2U; }},
    {"OpenSearch", nothing, choosing<mnuFind>, [](Collection& c) { return searchWindow(c) != nullptr; }},
    {"SearchAll", [](Collection& c) { c.choose(mnuFind); }, search,
     [](Collection& c) { return c.main().searchWindow()->results().count() == 1; }},
    {"Page", naming<page>, choosing<mnuCurrentCat>,
     [](Collection& c) { return c.target.has(page) && panelSays(c, L"HTML Generated."); }},
    {"PageOfAll", naming<page>, choosing<mnuAllCats>,
     [](Collection& c) { return c.target.has(page) && panelSays(c, L"HTML Generated."); }},
    {"BackUp", nothing, choosing<mnuBUCurrentCat>,
     [](Collection& c) { return c.target.names().size() == 1; }},
    {"BackUpAll", nothing, choosing<mnuBUAllCat>, [](Collection& c) { return c.target.names().size() == 3; }},
    {"Import", nothing, choosing<mnuImport>, nullptr},
    {"ImportAll", [](Collection& c) { c.typed.importButton = importAllButton; }, choosing<mnuImport>, nullptr,
     false, false, true},
    {"Export", naming<shortcut>, choosing<mnuExport>, [](Collection& c) { return c.target.has(shortcut); }},
    {"ScanAll", nothing, choosing<mnuScanAllURLs>,
     [](Collection& c) { return panelSays(c, L"Scan complete."); }, true},
    {"ScanSelected", nothing, choosing<mnuScanSelected>,
     [](Collection& c) { return panelSays(c, L"Scan complete."); }, true},
    {"UpdateCheck", [](Collection& c) { c.typed.question = IDNO; },
     [](Collection& c) { c.asEvent([&] { CheckUpdates(c.workspace(), c.server, [](bool) {}); }); }, nullptr,
     true},
    {"Options", nothing, choosing<mnuOptions>, nullptr},
    {"Properties", nothing, choosing<mnuProperties>, nullptr},
    {"About", nothing, choosing<mnuAbout>, [](Collection& c) { return c.main().aboutBox() != nullptr; }},
    // A drop fails without a message, unless its data holds no text.
    {"Drop", [](Collection&) { dropped().withAnsi("http://dropped.example/~-~A page that was dropped"); },
     drop, nullptr, false, false, false, true},
    {"StartUp", nothing, [](Collection& c) { c.start(); },
     [](Collection& c) { return c.workspace().lstInfo.count() == 1 && c.workspace().mnuMove.count() == 3; },
     false, true},
    {"ShutDown", nothing, [](Collection& c) { c.stop(); },
     [](Collection& c) { return c.store.get(L"Options", L"FontName") == L"Arial"; }},
};

} // namespace

std::span<const Command> commands() { return all; }

} // namespace vandrel::test
