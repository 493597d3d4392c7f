#include "dialogs/frm_options.h"
#include "mainwindow/frm_main.h"
#include "search/quick_search.h"
#include "shared/vendor.h"
#include "store/category_list.h"
#include "store/category_selection.h"
#include "store/site_move.h"
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
    picSepBar_.MouseDown = [this](Twips x) { picSepBar_MouseDown(x); };
    picSepBar_.MouseMove = [this](Twips x) { picSepBar_MouseMove(x); };
    picSepBar_.MouseUp = [this] { picSepBar_MouseUp(); };
    Toolbar1_.ButtonClick = [this](int position) { Toolbar1_ButtonClick(position); };
    Toolbar1_.MenuOpening = [this] { lstCategory_.finishLabelEdit(); };
    Toolbar1_.ButtonMenuClick = [this](const std::wstring& key) { Toolbar1_ButtonMenuClick(key); };
}

void frmMain::run(int entry)
{
    lstCategory_.finishLabelEdit(); // what was typed is taken before anything else is done
    if (const auto index = mnuMove_.indexOf(entry)) {
        mnuMove_Click(workspace_, *index);
    } else if (const CommandRow* const row = rowOf(commands(), entry)) {
        if (row->procedure != nullptr) row->procedure(*this);
        else run(row->repeats);
    }
}

// ---- lists

void frmMain::lstInfo_ItemClick()
{
    // Contract: the first selected site is shown, not the one clicked.
    if (const auto row = lstInfo_.firstSelected()) showSiteInStatusBar(workspace_, *row);
}

// Contract: every click reverses the order, whichever column it is on.
void frmMain::lstInfo_ColumnClick(std::size_t column) { shown_.sites.sortOtherWayBy(column); }

// Contract: every click reverses the order.
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

// The flags hold the state; the check marks, the list and the window show it.

void frmMain::setGridLines(int flag)
{
    gridLines_ = flag;
    menus_.setChecked(mnuGridlines, flag == 1);
    lstInfo_.setGridLines(flag == 1);
}

void frmMain::setHoverSelect(int flag)
{
    hoverSelect_ = flag;
    menus_.setChecked(mnuHoverSelect, flag == 1);
    lstInfo_.setHoverSelection(flag == 1);
}

void frmMain::setKeepOnTop(int flag)
{
    workspace_.keepOnTop.flag = flag;
    menus_.setChecked(mnuKeepTop, flag == 1);
    setTopmost(handle(), flag == 1);
}

void frmMain::mnuGridlines_Click()
{
    setGridLines(1 - gridLines_);
    preferences_.saveFlag(L"GridLines", gridLines_);
}

// Contract: nothing is written here; the flag is stored at shutdown only.
void frmMain::mnuHoverSelect_Click() { setHoverSelect(1 - hoverSelect_); }

void frmMain::mnuKeepTop_Click()
{
    setKeepOnTop(1 - workspace_.keepOnTop.flag);
    // Contract: written here and not at shutdown.
    preferences_.saveFlag(L"KeepTop", workspace_.keepOnTop.flag);
}

// ---- other commands

void frmMain::mnuFind_Click()
{
    setClosedWindowsAside();
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
    setClosedWindowsAside();
    const TopmostPause pause(workspace_.keepOnTop);
    if (frmAbout_) {
        frmAbout_->bringForward();
    } else {
        frmAbout_ = std::make_unique<frmAbout>(handle(), runningVersion());
        // Contract: modeless, so the main window leaves the topmost layer only for a moment.
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

void frmMain::Toolbar1_ButtonClick(int position)
{
    // Contract: a button is known by its position, not by a key.
    if (const CommandRow* const row = rowOfButton(commands(), position)) run(row->id);
}

void frmMain::Toolbar1_ButtonMenuClick(const std::wstring& key)
{
    if (const CommandRow* const row = rowOfDropDown(commands(), key)) run(row->id);
}

} // namespace vandrel
