#pragma once

#include "dialogs/frm_about.h"
#include "mainwindow/availability.h"
#include "mainwindow/command_controls.h"
#include "mainwindow/layout.h"
#include "mainwindow/preferences.h"
#include "mainwindow/search_panel.h"
#include "mainwindow/splitter_bar.h"
#include "platform/controls/list_view.h"
#include "platform/controls/status_bar.h"
#include "platform/system/internet_transfer.h"
#include "platform/windows/drop_target.h"
#include "platform/windows/form.h"
#include "platform/windows/message_loop.h"
#include "platform/windows/title_icons.h"
#include "scan/link_scanner.h"
#include "search/frm_search.h"
#include "shared/workspace.h"
#include "store/category_operations.h"

#include <optional>

namespace vandrel {

// The main window: it owns every control, binds menu entries to procedures, starts up, lays out and shuts
// down. It lives until the program ends; closing it ends the program.
class frmMain : public Window, public Form {
  public:
    struct Startup {
        std::wstring dataFolder;  // without a trailing backslash
        std::wstring commandLine; // all that follows the program's name: a link for the site editor
        SettingsStore settings;
        std::function<std::wstring()> today;
    };
    // Makes the window and its controls, hidden and empty.
    explicit frmMain(Startup startup);
    ~frmMain() override;

    // Start-up: categories, preferences, place, menus, and the site editor for a link on the command line.
    void Form_Load();
    void show(int showCommand);

    Workspace& workspace() { return workspace_; }
    MenuTree& menus() { return menus_; }
    ToolBar& toolBar() { return Toolbar1_; }
    SearchPanel& searchPanel() { return picSearch_; }
    // Null while it is closed.
    frmSearch* searchWindow() { return frmSearch_.get(); }
    frmAbout* aboutBox() { return frmAbout_.get(); }
    const MainLayout& layout() const { return layout_; }
    // Every command, where it is offered and what it does.
    static CommandTable commands();
    // Runs the procedure of a menu entry, as choosing it does; an entry without one does nothing.
    void run(int entry);

    std::vector<Control*> controls() override;
    void fontsChanged() override;

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    // Start-up and shutdown.
    void LoadPos();
    void SavePos(const long& iLeft, const long& iTop, const long& iWidth, const long& iHeight,
                 const long& col1Width, const long& col2Width, const long& col3Width);
    void Form_QueryUnload();
    void loadCategories();
    void readSettings();
    void bringOnScreen();
    void moveEdgesOnScreen();
    void sinkProgressBar();
    void close();
    void endSession();

    // Layout.
    void Form_Resize();
    void readLayout();
    void applyLayout();
    void picSepBar_MouseDown(Twips x);
    void picSepBar_MouseMove(Twips x);
    void picSepBar_MouseUp();
    void moveSplitter(Twips by);
    void dpiChanged(unsigned dpi, const RECT& suggested);
    void drawForDpi();
    int pixels(Twips length) const { return toPixels(length, dpi()); }

    // Commands.
    void bindEvents();
    void lstInfo_ItemClick();
    void lstInfo_ColumnClick(std::size_t column);
    void lstCategory_ColumnClick();
    void lstInfo_RightClick(POINT screen);
    void lstCategory_RightClick(POINT screen);
    void setGridLines(int flag);
    void setHoverSelect(int flag);
    void setKeepOnTop(int flag);
    void mnuGridlines_Click();
    void mnuHoverSelect_Click();
    void mnuKeepTop_Click();
    void mnuFind_Click();
    void mnuOptions_Click();
    void mnuAbout_Click();
    void mnuCheckUpdates_Click();
    void mnuRenameCat_Click();
    void mnuQuit_Click();
    void Toolbar1_ButtonClick(int position);
    void Toolbar1_ButtonMenuClick(const std::wstring& key);

    // Keys that no control handles.
    bool filterMessage(MSG& message);
    bool moveFocus(bool backwards);
    bool takeSplitterKey(const MSG& message);
    void finishStart();
    void nameForReaders();
    void endLabelEditFor(WPARAM systemCommand);
    bool searchIsOver() const;
    bool aboutIsOver() const;
    void setClosedWindowsAside();
    void deleteClosedWindows();
    void giveFocusBack();

    TitleIcons icons_;
    Preferences preferences_;
    std::wstring commandLine_;
    MainLayout layout_;
    bool resizing_ = false;
    bool closing_ = false;

    ImageListHandle ilSmall_;
    RowTable categories_;
    ShownCategory shown_;
    ListView lstCategory_;
    ListView lstInfo_;
    std::optional<DropTarget> lstInfoDrop_; // none until the window has been painted
    SplitterBar picSepBar_;
    SearchPanel picSearch_;
    ToolBar Toolbar1_;
    StatusBar StatusBar1_;
    ProgressBar PB_;
    MenuTree menus_;
    MenuFamily mnuMove_;
    AcceleratorHandle accelerators_;
    InternetTransfer inetScan_;
    Workspace workspace_;
    LinkScanner scanner_;
    CategoryRename rename_;
    Availability availability_;
    int gridLines_ = 0;        // 1: on; the menu's check mark and the list follow it
    int hoverSelect_ = 0;      // likewise
    long splitterAnchor_ = 0;  // twips from the bar's left edge
    HWND lastFocus_ = nullptr; // the control that had it when the window was left
    std::unique_ptr<frmSearch> frmSearch_;
    std::unique_ptr<frmAbout> frmAbout_;
    std::vector<std::unique_ptr<Dialog>> closedWindows_; // their controls may still be handling a message
    bool started_ = false;                               // with what comes after the first painting
    MessageLoop::Registration keys_;
    MessageLoop::Rest rest_;
};

} // namespace vandrel
