#include "capture/dropped_link.h"
#include "dialogs/frm_options.h"
#include "exchange/backup.h"
#include "exchange/create_html.h"
#include "exchange/frm_import.h"
#include "exchange/shortcut_export.h"
#include "mainwindow/frm_main.h"
#include "mainwindow/link_opening.h"
#include "search/quick_search.h"
#include "shared/vendor.h"
#include "store/category_list.h"
#include "store/category_selection.h"
#include "store/site_move.h"
#include "store/site_operations.h"
#include "update/update_check.h"
#include "update/version_report.h"

namespace vandrel {

void frmMain::bindEvents()
{
    lstCategory_.ItemClick = [this](std::size_t row) { lstCategory_ItemClick(workspace_, row); };
    lstCategory_.ColumnClick = [this](std::size_t) { lstCategory_ColumnClick(); };
    lstCategory_.BeforeLabelEdit = [this](std::size_t row) { rename_.lstCategory_BeforeLabelEdit(row); };
    lstCategory_.AfterLabelEdit = [this](std::size_t, const std::wstring& text) {
        return rename_.lstCategory_AfterLabelEdit(text);
    };
    lstCategory_.RightClick = [this](POINT screen) { lstCategory_RightClick(screen); };
    lstInfo_.ItemClick = [this](std::size_t) { lstInfo_ItemClick(); };
    lstInfo_.DblClick = [this] { run(mnuOpenURL); };
    lstInfo_.ColumnClick = [this](std::size_t column) { lstInfo_ColumnClick(column); };
    lstInfo_.RightClick = [this](POINT screen) { lstInfo_RightClick(screen); };
    picSearch_.cmbSearch.GotFocus = [this] { cmbSearch_GotFocus(picSearch_.cmbSearch); };
    picSearch_.cmdSearch.Click = [this] { cmdSearch_Click(workspace_, picSearch_.cmbSearch); };
    lstInfoDrop_.Drop = [this](const DroppedData& data) { lstInfo_OLEDragDrop(workspace_, data); };
    picSepBar_.MouseDown = [this](Twips x) { picSepBar_MouseDown(x); };
    picSepBar_.MouseMove = [this](Twips x) { picSepBar_MouseMove(x); };
    picSepBar_.MouseUp = [this] { picSepBar_MouseUp(); };
    Toolbar1_.ButtonClick = [this](int position) { Toolbar1_ButtonClick(position); };
    Toolbar1_.ButtonMenuClick = [this](const std::wstring& key) { Toolbar1_ButtonMenuClick(key); };
}

// Entries that no procedure is bound to do nothing.
void frmMain::bindCommands()
{
    procedures_ = {
        {mnuFind, [this] { mnuFind_Click(); }},
        {mnuQuit, [this] { mnuQuit_Click(); }},
        {mnuScanSelected, [this] { scanner_.mnuScanSelected_Click(); }},
        {mnuScanAllURLs, [this] { scanner_.mnuScanAllURLs_Click(); }},
        {mnuCurrentCat, [this] { CreateHTML(workspace_, false); }},
        {mnuAllCats, [this] { CreateHTML(workspace_, true); }},
        {mnuBUCurrentCat, [this] { BackUpCurrent(workspace_); }},
        {mnuBUAllCat, [this] { BackUpAll(workspace_); }},
        {mnuImport, [this] { mnuImport_Click(workspace_); }},
        {mnuExport, [this] { mnuExport_Click(workspace_); }},
        {mnuAddCategory, [this] { AddCategory(workspace_); }},
        {mnuRemoveCategory, [this] { RemoveCategory(workspace_); }},
        {mnuAddWebsite, [this] { AddURL(workspace_); }},
        {mnuRemoveWebsite, [this] { RemoveURL(workspace_); }},
        {mnuEditSel, [this] { EditSel(workspace_); }},
        {mnuRenameCat, [this] { mnuRenameCat_Click(); }},
        {mnuCopyURL, [this] { mnuCopyURL_Click(workspace_); }},
        {mnuOpenURL, [this] { OpenSite(workspace_); }},
        {mnuOpenNew, [this] { mnuOpenNew_Click(workspace_); }},
        {mnuProperties, [this] { mnuProperties_Click(workspace_); }},
        {mnuGridlines, [this] { mnuGridlines_Click(); }},
        {mnuHoverSelect, [this] { mnuHoverSelect_Click(); }},
        {mnuKeepTop, [this] { mnuKeepTop_Click(); }},
        {mnuOptions, [this] { mnuOptions_Click(); }},
        {mnuAbout, [this] { mnuAbout_Click(); }},
        {mnuViewHelp, [this] { mnuViewHelp_Click(workspace_); }},
        {mnuCheckUpdates, [this] { mnuCheckUpdates_Click(); }},
    };
    // The pop-ups run what the bar runs.
    const std::pair<MenuEntry, MenuEntry> twins[] = {
        {mnuPOpen, mnuOpenURL},
        {mnuPCopyURL, mnuCopyURL},
        {mnuPEditSelected, mnuEditSel},
        {mnuPExport, mnuExport},
        {mnuPScanSel, mnuScanSelected},
        {mnuPAddSite, mnuAddWebsite},
        {mnuPRemoveSite, mnuRemoveWebsite},
        {mnuPProperties, mnuProperties},
        {mnuPAddCat, mnuAddCategory},
        {mnuPRemoveCat, mnuRemoveCategory},
        {mnuPRenameCat, mnuRenameCat},
    };
    for (const auto& [popUpEntry, barEntry] : twins) {
        procedures_[popUpEntry] = [this, entry = barEntry] { run(entry); };
    }
}

void frmMain::run(int entry)
{
    if (const auto index = mnuMove_.indexOf(entry)) {
        mnuMove_Click(workspace_, *index);
    } else if (const auto procedure = procedures_.find(entry); procedure != procedures_.end()) {
        procedure->second();
    }
}

// ---- lists

void frmMain::lstInfo_ItemClick()
{
    if (const auto row = lstInfo_.firstSelected()) showSiteInStatusBar(workspace_, *row);
}

void frmMain::lstInfo_ColumnClick(std::size_t column) { shown_.sites.sortOtherWayBy(column); }

void frmMain::lstCategory_ColumnClick() { categories_.sortOtherWayBy(0); }

void frmMain::lstInfo_RightClick(POINT screen)
{
    const auto shown = shownRow(workspace_);
    const std::wstring title = shown ? titleOf(workspace_, *shown) : std::wstring();
    for (std::size_t index = 0; index < mnuMove_.count(); ++index) {
        mnuMove_.setEnabled(index, !categories_.empty() && mnuMove_.caption(index) != title);
    }
    if (const auto entry = menus_.popUp(mnuPopUp, handle(), screen, mnuPOpen)) run(*entry);
}

void frmMain::lstCategory_RightClick(POINT screen)
{
    if (const auto entry = menus_.popUp(mnuCatPopUp, handle(), screen, 0)) run(*entry);
}

// ---- view settings

void frmMain::mnuGridlines_Click()
{
    gridLines_ = menus_.checked(mnuGridlines) ? 0 : 1;
    menus_.setChecked(mnuGridlines, gridLines_ == 1);
    lstInfo_.setGridLines(gridLines_ == 1);
    preferences_.saveFlag(L"GridLines", gridLines_);
}

void frmMain::mnuHoverSelect_Click()
{
    hoverSelect_ = menus_.checked(mnuHoverSelect) ? 0 : 1;
    menus_.setChecked(mnuHoverSelect, hoverSelect_ == 1);
    lstInfo_.setHoverSelection(hoverSelect_ == 1);
}

void frmMain::mnuKeepTop_Click()
{
    const int flag = menus_.checked(mnuKeepTop) ? 0 : 1;
    menus_.setChecked(mnuKeepTop, flag == 1);
    workspace_.keepOnTop.flag = flag;
    setTopmost(handle(), flag == 1);
    preferences_.saveFlag(L"KeepTop", flag);
}

// ---- other commands

void frmMain::mnuFind_Click()
{
    dropClosedWindows();
    if (!frmSearch_) {
        frmSearch_ = std::make_unique<frmSearch>(workspace_);
        frmSearch_->show();
    } else if (!frmSearch_->unloaded()) {
        frmSearch_->bringForward();
    }
}

void frmMain::mnuOptions_Click()
{
    const TopmostPause pause(workspace_.keepOnTop);
    frmOptions(handle(), workspace_.options, *this).showModal();
}

void frmMain::mnuAbout_Click()
{
    dropClosedWindows();
    const TopmostPause pause(workspace_.keepOnTop);
    if (frmAbout_) {
        frmAbout_->bringForward();
    } else {
        frmAbout_ = std::make_unique<frmAbout>(handle(), runningVersion());
        frmAbout_->showModeless();
    }
    frmAbout_->DoTab(1);
}

void frmMain::mnuCheckUpdates_Click()
{
    CheckUpdates(workspace_, makersSite, [this](bool on) { menus_.setEnabled(mnuCheckUpdates, on); });
}

void frmMain::mnuRenameCat_Click()
{
    if (const auto shown = shownRow(workspace_)) lstCategory_.editLabel(*shown);
}

void frmMain::mnuQuit_Click() { PostMessageW(handle(), WM_CLOSE, 0, 0); }

// By position: 3, 6 and 11 are separators.
void frmMain::Toolbar1_ButtonClick(int position)
{
    switch (position) {
    case 1: run(mnuAddCategory); break;
    case 2: run(mnuRemoveCategory); break;
    case 4: run(mnuImport); break;
    case 5: run(mnuExport); break;
    case 7: run(mnuAddWebsite); break;
    case 8: run(mnuRemoveWebsite); break;
    case 9: run(mnuOpenURL); break;
    case 10: run(mnuScanSelected); break;
    case 12: run(mnuAbout); break;
    default: break;
    }
}

void frmMain::Toolbar1_ButtonMenuClick(const std::wstring& key)
{
    if (key == L"selected") run(mnuScanSelected);
    if (key == L"allurls") run(mnuScanAllURLs);
}

} // namespace vandrel
