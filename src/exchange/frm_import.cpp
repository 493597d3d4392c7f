#include "exchange/frm_import.h"

#include "exchange/ini_file.h"
#include "exchange/shortcut_name.h"
#include "model/site_columns.h"
#include "platform/base/handle.h"
#include "platform/base/message_box.h"
#include "platform/base/program.h"
#include "platform/base/scope_exit.h"
#include "platform/base/system_error.h"
#include "platform/controls/list_view.h"
#include "platform/controls/status_bar.h"
#include "platform/files/file_layer.h"
#include "platform/windows/input_box.h"
#include "platform/windows/message_throttle.h"
#include "shared/apply_font.h"
#include "shared/workspace.h"
#include "store/site_operations.h"

#include <algorithm>
#include <cwctype>

namespace vandrel {
namespace {

constexpr ULONGLONG betweenTurns = 300; // milliseconds

enum ControlId { idDrive = 101, idFolders, idFiles, idImportAll };

// The system's reading functions take an unreadable file to be empty.
void requireReadable(const std::wstring& path)
{
    const FileHandle file(CreateFileW(extendedPath(path).c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) raiseLastError();
}

// The width of the screen without the taskbar, in pixels.
int screenWidth(HWND window)
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
    return monitor.rcWork.right - monitor.rcWork.left;
}

} // namespace

frmImport::frmImport(Workspace& workspace)
    : Dialog(workspace.window, L"Import Favorites"),
      workspace_(workspace),
      lblDrive_(handle(), L"&Drive:", Label::Ampersand::accessKey),
      drvImport_(handle(), idDrive),
      lblFolder_(handle(), L"F&olders:", Label::Ampersand::accessKey),
      dirImport_(handle(), idFolders),
      lblFiles_(handle(), L"&Files:", Label::Ampersand::accessKey),
      filImport_(handle(), idFiles, std::wstring(shortcutExtension)),
      cmdImport_(handle(), IDOK, L"&Import", true),
      cmdImportAll_(handle(), idImportAll, L"Import &All"),
      cmdCancel_(handle(), IDCANCEL, L"Cancel"),
      lblPath_(handle(), L""),
      prgImport_(handle())
{
    drvImport_.Change = [this] { drvImport_Change(); };
    dirImport_.Change = [this] { dirImport_Change(); };
    filImport_.Click = [this] { filImport_Click(); };
    filImport_.DblClick = [this] { cmdImport_Click(); };
    cmdImport_.Click = [this] { cmdImport_Click(); };
    cmdImportAll_.Click = [this] { cmdImportAll_Click(); };
    cmdCancel_.Click = [this] { cmdCancel_Click(); };
    prgImport_.setAccessibleName(L"Progress");
    setFirstFocus(filImport_.handle());
    Form_Load();
}

std::vector<Control*> frmImport::controls()
{
    return {&lblDrive_,  &drvImport_,    &lblFolder_, &dirImport_, &lblFiles_, &filImport_,
            &cmdImport_, &cmdImportAll_, &cmdCancel_, &lblPath_,   &prgImport_};
}

// ---- browsing

void frmImport::Form_Load()
{
    ApplyFont(*this, workspace_.options.font);
    showFavorites();
    drvImport_.setDrive(previousDrive_);
    layOut();
}

// If the Favorites folder cannot be read, browsing starts in the data folder.
void frmImport::showFavorites()
{
    std::wstring start = workspace_.favoritesFolder;
    try {
        if (start.empty()) throw RuntimeError(error_number::pathNotFound);
        dirImport_.setPath(start);
    } catch (const RuntimeError&) {
        start = workspace_.dataFolder;
        dirImport_.setPath(start);
    }
    previousDrive_ = start.substr(0, start.find(L'\\') + 1);
}

void frmImport::drvImport_Change()
{
    try {
        dirImport_.setPath(drvImport_.drive() + L"\\");
        previousDrive_ = drvImport_.drive();
    } catch (const RuntimeError&) {
        std::wstring name = drvImport_.drive();
        std::ranges::transform(name, name.begin(),
                               [](wchar_t c) { return static_cast<wchar_t>(std::towupper(c)); });
        tell(handle(), L"Please insert a disk into drive " + name, programTitle, BoxIcon::information);
        drvImport_.setDrive(previousDrive_);
    }
}

void frmImport::dirImport_Change()
{
    filImport_.setPath(dirImport_.path());
    lblPath_.setText(dirImport_.path());
    cmdImport_.setEnabled(filImport_.count() > 0);
    cmdImportAll_.setEnabled(filImport_.count() > 0);
}

void frmImport::filImport_Click()
{
    const auto file = filImport_.selected();
    cmdImport_.setEnabled(file && !filImport_.text(*file).empty());
}

// ---- importing

void frmImport::cmdImport_Click()
{
    if (busy_) return;
    try {
        const auto file = filImport_.selected();
        if (!file) {
            // Contract: the capital D is intended.
            tell(handle(), L"No file selected to import.", L"No File SelecteD", BoxIcon::information);
            return;
        }
        const bool imported = importSelected(*file);
        tellOutcome(imported);
        if (imported) unload();
    } catch (const std::exception&) {
        tellOutcome(false);
    }
}

void frmImport::tellOutcome(bool imported)
{
    workspace_.StatusBar1.setPanelText(1, imported ? L"Import succeeded!" : L"Import failed!");
}

bool frmImport::importSelected(std::size_t file)
{
    takeShortcut(filImport_.text(file));
    // Contract: cancelling gives an empty description, and the import goes on.
    workspace_.site.newSiteDescription = inputBox(handle(), L"Enter a description for the site.",
                                                  L"Site Description");
    return addNewSite(addSiteInView);
}

void frmImport::cmdImportAll_Click()
{
    if (busy_) return;
    // Contract: unlike the import of one file, this traps no error.
    const bool imported = importEvery();
    tellOutcome(imported);
    if (!imported) return;
    tell(handle(), L"Please remember to edit the description for all imported files.", L"Import All",
         BoxIcon::information);
    unload();
}

bool frmImport::importEvery()
{
    const std::vector<Control*> all = controls(); // now: making the dialog usable again must need no memory
    setBusy(all, true);
    const ScopeExit idle([this, &all] {
        MessageLoop::current().dispatchPending(); // what was pressed meanwhile was meant for a busy dialog
        setBusy(all, false);
    });
    prgImport_.begin(filImport_.count());
    // Each turn paints a list whose rows have all moved, which takes longer than importing some files.
    MessageThrottle throttle(betweenTurns);
    std::optional<ListPause> unseen(std::in_place, workspace_.lstInfo);
    for (std::size_t file = 0; file < filImport_.count(); ++file) {
        takeShortcut(filImport_.text(file));
        // Contract: saved once per file, with the description of the last single import.
        if (!addNewSite(addSite)) return false;
        prgImport_.setValue(file + 1);
        if (!throttle.due()) continue;
        unseen.reset();
        throttle.take(
            [] { MessageLoop::current().dispatchPending(); }); // the windows are painted and can be moved
        unseen.emplace(workspace_.lstInfo);
    }
    return true;
}

void frmImport::takeShortcut(const std::wstring& fileName)
{
    SiteHandOff& site = workspace_.site;
    const std::wstring path = filImport_.path() + L"\\" + fileName;
    const std::wstring name = siteNameOf(fileName);
    requireReadable(path);
    site.newSiteURL = Module1::ReadINIValue(L"InternetShortcut", L"URL", path);
    site.newSiteName = name;
}

bool frmImport::addNewSite(decltype(addSite)& add)
{
    const SiteHandOff& site = workspace_.site;
    // Contract: imported sites have no date.
    const bool saved = add(workspace_, site.newSiteName, site.newSiteURL, site.newSiteDescription, L"");
    workspace_.site.forgetNewSite();
    return saved;
}

void frmImport::setBusy(const std::vector<Control*>& all, bool busy)
{
    busy_ = busy;
    for (Control* const control : all) {
        if (control != &prgImport_ && control != &lblPath_) control->setEnabled(!busy);
    }
    prgImport_.setVisible(busy);
    lblPath_.setVisible(!busy);
}

void frmImport::cmdCancel_Click()
{
    // An import is finished once begun: half of a folder would be hard to tell from the rest.
    if (!busy_) unload();
}

// ---- layout

void frmImport::layOut()
{
    const auto px = [this](Twips length) { return lblDrive_.pixels(length); };
    const int line = lblDrive_.sizeOf(L"X").cy;
    const int gap = px(120_twips);
    const int wanted = std::max<int>(px(3300_twips), lblDrive_.sizeOf(std::wstring(32, L'n')).cx);
    const int listWidth = std::min(wanted, (screenWidth(handle()) - 6 * gap) / 2);
    const int listHeight = std::max(px(3000_twips), 11 * line);
    const int buttonHeight = line + px(150_twips);
    int buttonWidth = px(1200_twips);
    for (const Button* const button : {&cmdImport_, &cmdImportAll_, &cmdCancel_}) {
        buttonWidth = std::max<int>(buttonWidth, button->sizeOf(button->text()).cx + 2 * gap);
    }

    const int right = 2 * gap + listWidth;
    const int width = right + listWidth + gap;
    const int listsBottom = gap + line + gap / 4 + listHeight;
    // Drive above folders on the left, files beside them on the right.
    lblDrive_.place(gap, gap, listWidth, line);
    int top = gap + line + gap / 4;
    drvImport_.place(gap, top, listWidth, drvImport_.openHeight());
    top += drvImport_.height() + gap / 2;
    lblFolder_.place(gap, top, listWidth, line);
    top += line + gap / 4;
    dirImport_.place(gap, top, listWidth, listsBottom - top);
    lblFiles_.place(right, gap, listWidth, line);
    filImport_.place(right, gap + line + gap / 4, listWidth, listHeight);

    top = listsBottom + gap / 2;
    lblPath_.place(gap, top, width - 2 * gap, line);
    prgImport_.place(gap, top, width - 2 * gap, line);
    top += line + gap;
    int left = width - gap - buttonWidth;
    for (Button* const button : {&cmdCancel_, &cmdImportAll_, &cmdImport_}) {
        button->place(left, top, buttonWidth, buttonHeight);
        left -= buttonWidth + gap;
    }
    setClientSize(width, top + buttonHeight + gap);
}

// ---- commands

void Import(Workspace& workspace)
{
    frmImport dialog(workspace);
    dialog.showModal();
}

void mnuImport_Click(Workspace& workspace)
{
    const TopmostPause pause(workspace.keepOnTop);
    Import(workspace);
}

} // namespace vandrel
