#include "search/frm_search.h"

#include "platform/system/shell.h"
#include "platform/windows/topmost.h"
#include "search/search_layout.h"
#include "shared/apply_font.h"
#include "shared/workspace.h"

#include <algorithm>

namespace vandrel {
namespace {

enum ControlId { idTerm = 101, idSection, idCase = idSection + 4, idResults };

constexpr Twips firstWidth{9000};
constexpr Twips firstHeight{6600};
constexpr Twips gap{120};
constexpr Twips smallestHitsPanel{2700}; // or what its widest text needs
constexpr const wchar_t* widestHits = L"1000000 site(s) found";
constexpr const wchar_t* widestSearched = L"1000000 site(s) searched";
constexpr std::size_t firstRows = 10; // of results in view, whatever the font
constexpr Twips frameWidth{150};      // the window's own border, at most

enum Column : std::size_t { nameColumn, urlColumn, categoryColumn, descriptionColumn };

} // namespace

// Measures of the controls above the results in their font, in pixels.
struct frmSearch::Measures {
    int line;
    int label;
    int button;
    int option;
    int checkBox;
    int boxHeight;
    int buttonHeight;
    int whatHeight;
    int top;    // of the frame's first row
    int height; // of all, down to the results
    int leastWidth;
};

frmSearch::frmSearch(Workspace& workspace)
    : Dialog(workspace.window, L"Search All Categories", Border::sizable),
      workspace_(workspace),
      lblCaptions_(handle(), L"Search Term:"),
      txtSearch_(handle(), idTerm),
      cmdSearch_(handle(), IDOK, L"&Search", true),
      optSection_{{{handle(), idSection, L"All Sections", OptionButton::Place::first},
                   {handle(), idSection + 1, L"Name Only", OptionButton::Place::following},
                   {handle(), idSection + 2, L"URL Only", OptionButton::Place::following},
                   {handle(), idSection + 3, L"Description only", OptionButton::Place::following}}},
      chkCase_(handle(), idCase, L"Case Sensitive"),
      lblResults_(handle(), L"Search Results"),
      lstResults_(handle(), idResults, ListView::Selection::many, false,
                  {{L"Site Name", Twips{2100}},
                   {L"Site URL", Twips{2700}},
                   {L"Category", Twips{1500}},
                   {L"Site Description", Twips{2100}}},
                  hitRows_),
      cmdCancel_(handle(), IDCANCEL, L"&Close"),
      StatusBar1_(handle()),
      fraWhat_(handle(), L"Search Section"),
      fraSearch_(handle(), L""),
      fraResults_(handle(), L""),
      tip_(lstResults_.handle())
{
    cmdSearch_.Click = [this] { cmdSearch_Click(); };
    cmdCancel_.Click = [this] { cmdCancel_Click(); };
    lstResults_.ColumnClick = [this](std::size_t column) { lstResults_ColumnClick(column); };
    lstResults_.DblClick = [this] { lstResults_DblClick(); };
    lstResults_.Return = [this] { lstResults_DblClick(); };
    lstResults_.MouseMove = [this] { lstResults_MouseMove(); };
    lstResults_.setAccessibleName(lblResults_.text());
    StatusBar1_.setAccessibleName(L"Status");
    lstResults_.dropCutOffTips();
    setFirstFocus(txtSearch_.handle());
    Form_Load();
}

std::vector<Control*> frmSearch::controls()
{
    return {&lblCaptions_,   &txtSearch_,     &cmdSearch_, &optSection_[0], &optSection_[1],
            &optSection_[2], &optSection_[3], &chkCase_,   &lblResults_,    &lstResults_,
            &cmdCancel_,     &StatusBar1_,    &fraWhat_,   &fraSearch_,     &fraResults_};
}

void frmSearch::Form_Load()
{
    optSection_[0].setOn(true);
    lstResults_.setPictureHeight(listImageSize);
    ApplyFont(*this, workspace_.options.font);
    const SIZE smallest = smallestSize();
    SetWindowPos(handle(), nullptr, 0, 0, std::max<int>(smallest.cx, txtSearch_.pixels(firstWidth)),
                 std::max<int>(smallest.cy, txtSearch_.pixels(firstHeight)),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    growToRows();
}

// As far as the screen goes.
void frmSearch::growToRows()
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(workspace_.window, MONITOR_DEFAULTTOPRIMARY), &monitor);
    const int tallest = monitor.rcWork.bottom - monitor.rcWork.top;
    const int leastRow = std::max<int>(lstResults_.sizeOf(L"X").cy, 1);
    RECT own{};
    GetWindowRect(handle(), &own);
    int height = own.bottom - own.top;
    for (std::size_t rows = lstResults_.rowsInView(); rows < firstRows && height < tallest;
         rows = lstResults_.rowsInView()) {
        height = std::min(height + static_cast<int>(firstRows - rows) * leastRow, tallest);
        SetWindowPos(handle(), nullptr, 0, 0, own.right - own.left, height,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

// Beside the main window, whose lists it is about; where there is no room for that, in the corner of the screen
// where it covers least of them.
POINT frmSearch::firstCorner(SIZE own, const RECT& around, const RECT& work) const
{
    const auto areaAt = [own](POINT corner) {
        return RECT{corner.x, corner.y, corner.x + own.cx, corner.y + own.cy};
    };
    const auto covered = [&](POINT corner) {
        const RECT area = areaAt(corner);
        RECT both{};
        IntersectRect(&both, &area, &around);
        return (both.right - both.left) * (both.bottom - both.top);
    };
    for (const POINT beside : {POINT{around.right, around.top}, POINT{around.left - own.cx, around.top},
                               POINT{around.left, around.bottom}}) {
        const RECT area = areaAt(beside);
        RECT onScreen{};
        IntersectRect(&onScreen, &area, &work);
        if (EqualRect(&onScreen, &area) != 0) return beside;
    }
    const std::array corners{POINT{work.right - own.cx, work.bottom - own.cy},
                             POINT{work.right - own.cx, work.top}, POINT{work.left, work.bottom - own.cy}};
    return *std::ranges::min_element(corners, {}, covered);
}

void frmSearch::show()
{
    showModeless();
    // Contract: always topmost, whatever "Keep on Top" says.
    setTopmost(handle(), true);
}

// ---- events

void frmSearch::cmdSearch_Click()
{
    // Not while the main window shows a dialog about a row of its list: the list must not change then.
    if (!searching_ && IsWindowEnabled(handle()) != 0) DoSearch(txtSearch_.text());
}

// Contract: every click reverses the order, whichever column it is on.
void frmSearch::lstResults_ColumnClick(std::size_t column) { hitRows_.sortOtherWayBy(column); }

void frmSearch::lstResults_DblClick()
{
    const auto row = lstResults_.currentRow();
    if (!row) return;
    const std::wstring url = lstResults_.text(*row, urlColumn);
    // Contract: opening a hit sets no date.
    if (!url.empty()) shellOpen(handle(), url);
}

// Contract: the tip is about the selected row, wherever the mouse is.
void frmSearch::lstResults_MouseMove()
{
    const auto row = lstResults_.currentRow();
    if (!row) return;
    tip_.setText(L"Name: " + lstResults_.text(*row, nameColumn) + L" - URL: " +
                 lstResults_.text(*row, urlColumn) + L" - Description: " +
                 lstResults_.text(*row, descriptionColumn));
}

// ---- layout

frmSearch::Measures frmSearch::measures() const
{
    const auto px = [this](Twips length) { return txtSearch_.pixels(length); };
    const auto width = [](const Control& control) {
        return static_cast<int>(control.sizeOf(control.text()).cx);
    };
    const int mark = px(300_twips); // of an option button or a check box, with its gap
    Measures m{};
    m.line = txtSearch_.sizeOf(L"X").cy;
    m.label = width(lblCaptions_);
    m.button = std::max({px(1200_twips), width(cmdSearch_) + 2 * px(gap), width(cmdCancel_) + 2 * px(gap)});
    for (const OptionButton& option : optSection_) m.option = std::max(m.option, width(option) + mark);
    m.checkBox = width(chkCase_) + mark;
    m.boxHeight = m.line + px(120_twips);
    m.buttonHeight = m.line + px(150_twips);
    m.whatHeight = m.line + 2 * (m.line + px(60_twips)) + px(gap);
    m.top = px(180_twips);
    const int needed = m.top + m.buttonHeight + px(60_twips) + m.whatHeight + px(gap);
    m.height = std::max(px(search_layout::resultsTop), needed);
    const int controls = std::max(m.label + px(1500_twips), 2 * m.option + m.checkBox) + m.button;
    const int panels = hitsPanel() + static_cast<int>(StatusBar1_.sizeOf(widestSearched).cx);
    m.leastWidth = 9 * px(gap) + 2 * px(frameWidth) + std::max(controls, panels);
    return m;
}

// How much higher a larger font makes the status bar.
Twips frmSearch::statusExtra() const
{
    const Twips room = search_layout::restOfHeight - search_layout::resultsTop;
    const Twips height = toTwips(StatusBar1_.height(), dpi());
    return height > room ? height - room : 0_twips;
}

// Pixels.
int frmSearch::hitsPanel() const
{
    const int widest = StatusBar1_.sizeOf(widestHits).cx + txtSearch_.pixels(gap);
    return std::max(txtSearch_.pixels(smallestHitsPanel), widest);
}

SIZE frmSearch::smallestSize() const
{
    const Measures m = measures();
    const int more = m.height - txtSearch_.pixels(search_layout::resultsTop) +
                     txtSearch_.pixels(statusExtra());
    return {std::max(txtSearch_.pixels(search_layout::smallestWidth), m.leastWidth),
            txtSearch_.pixels(search_layout::smallestHeight) + more};
}

// The dialog's Form_Resize.
void frmSearch::layOut()
{
    StatusBar1_.dock();
    StatusBar1_.setPanelEdge(hitsPanel());
    RECT inner{};
    GetClientRect(handle(), &inner);
    const Measures m = measures();
    const auto px = [this](Twips length) { return txtSearch_.pixels(length); };
    const int g = px(gap);
    const int left = g / 2;
    const int width = inner.right - g;

    fraSearch_.place(left, 0, width, m.height - px(60_twips));
    const int buttonLeft = left + width - g - m.button;
    const int boxLeft = left + 2 * g + m.label;
    int top = m.top;
    lblCaptions_.place(left + g, top + (m.boxHeight - m.line) / 2, m.label, m.line);
    txtSearch_.place(boxLeft, top, buttonLeft - g - boxLeft, m.boxHeight);
    cmdSearch_.place(buttonLeft, top, m.button, m.buttonHeight);
    top += m.buttonHeight + px(60_twips);
    const int whatWidth = 2 * m.option + 3 * g;
    fraWhat_.place(left + g, top, whatWidth, m.whatHeight);
    for (std::size_t i = 0; i < optSection_.size(); ++i) {
        const int column = static_cast<int>(i % 2);
        const int row = static_cast<int>(i / 2);
        optSection_[i].place(left + 2 * g + column * (m.option + g),
                             top + m.line + row * (m.line + px(60_twips)), m.option, m.line + px(30_twips));
    }
    chkCase_.place(left + g + whatWidth + g, top + m.line, m.checkBox, m.line + px(30_twips));
    cmdCancel_.place(buttonLeft, top + g / 2, m.button, m.buttonHeight);

    const Twips more = toTwips(m.height, dpi()) - search_layout::resultsTop + statusExtra();
    const Twips frameHeight = search_layout::resultsHeight(toTwips(inner.bottom, dpi())) - more;
    const Twips listHeight = search_layout::listHeight(frameHeight);
    // In a larger font the caption takes more than its share.
    const int listShare = px(330_twips);
    const int listTop = std::max(listShare, m.line * 3 / 2 + px(30_twips));
    const int listWidth = width - g;
    fraResults_.place(left, m.height, width, px(frameHeight));
    lblResults_.place(left + g, m.height + listTop - m.line - px(15_twips), width - 2 * g, m.line);
    lstResults_.place(left + g / 2, m.height + listTop, listWidth, px(listHeight) - (listTop - listShare));
    Twips others{};
    for (const std::size_t column : {nameColumn, urlColumn, categoryColumn}) {
        others = others + lstResults_.columnWidth(column);
    }
    lstResults_.setColumnWidth(descriptionColumn,
                               search_layout::lastColumn(toTwips(listWidth, dpi()), others));
}

} // namespace vandrel
