#include "mainwindow/frm_main.h"
#include "platform/base/scope_exit.h"
#include "platform/controls/drawing_freeze.h"
#include "platform/controls/window_batch.h"
#include "platform/text/number_text.h"

namespace vandrel {
namespace {

constexpr std::array<const wchar_t*, 5> listPictures{L"site", L"site", L"folder", L"folder-open", L"dead"};
constexpr Twips toolBarPicture{360};
constexpr Twips firstPanel{2700}; // or more, if its widest text needs it
constexpr const wchar_t* widestOutcome = L"Backup successful.";
constexpr Twips searchHeight{540};
constexpr Twips smallestSearch{2880};
constexpr Twips largestSearch{4050}; // leaves all tool bar buttons visible in the smallest window

} // namespace

void frmMain::drawForDpi()
{
    ImageListHandle images = loadImages(listPictures, pixels(listImageSize));
    lstCategory_.setImages(images.get());
    lstInfo_.setImages(images.get());
    ilSmall_ = std::move(images);
    Toolbar1_.drawFor(toolBarPicture);
    picSearch_.drawForDpi();
}

void frmMain::readLayout()
{
    RECT outer{};
    RECT client{};
    GetWindowRect(handle(), &outer);
    GetClientRect(handle(), &client);
    layout_.outerWidth = toTwips(outer.right - outer.left, dpi());
    layout_.outerHeight = toTwips(outer.bottom - outer.top, dpi());
    layout_.clientWidth = toTwips(client.right, dpi());
    layout_.clientHeight = toTwips(client.bottom, dpi());
    for (std::size_t column = 0; column < layout_.infoColumns.size(); ++column) {
        layout_.infoColumns[column] = lstInfo_.columnWidth(column);
    }
    layout_.categoryColumn = lstCategory_.columnWidth(0);
    layout_.statusHeight = toTwips(StatusBar1_.height(), dpi());
}

void frmMain::applyLayout()
{
    const int top = pixels(listTop);
    const int searchTop = (top - pixels(searchHeight)) / 2;
    const int toolBarHeight = Toolbar1_.height();
    const int statusHeight = StatusBar1_.height();
    RECT client{};
    GetClientRect(handle(), &client);

    WindowBatch batch;
    batch.place(lstCategory_.handle(), 0, top, pixels(layout_.categoryWidth), pixels(layout_.categoryHeight));
    batch.place(picSepBar_.handle(), pixels(layout_.barLeft), top, pixels(layout_.barWidth),
                pixels(layout_.barHeight));
    batch.place(lstInfo_.handle(), pixels(layout_.infoLeft), top, pixels(layout_.infoWidth),
                pixels(layout_.infoHeight));
    batch.place(picSearch_.handle(), pixels(layout_.searchLeft), searchTop, pixels(layout_.searchWidth),
                pixels(searchHeight));
    batch.place(Toolbar1_.handle(), 0, std::max(0, (top - toolBarHeight) / 2),
                std::max(0, pixels(layout_.searchLeft)), toolBarHeight);
    batch.place(StatusBar1_.handle(), 0, client.bottom - statusHeight, client.right, statusHeight);

    // First what becomes narrower: otherwise a scroll bar would come and go.
    for (std::size_t column = 0; column < layout_.infoColumns.size(); ++column) {
        const Twips width = layout_.infoColumns[column];
        if (width < lstInfo_.columnWidth(column)) lstInfo_.setColumnWidth(column, width);
    }
    if (layout_.categoryColumn < lstCategory_.columnWidth(0))
        lstCategory_.setColumnWidth(0, layout_.categoryColumn);
    batch.apply();
    lstCategory_.setColumnWidth(0, layout_.categoryColumn);
    for (std::size_t column = 0; column < layout_.infoColumns.size(); ++column) {
        lstInfo_.setColumnWidth(column, layout_.infoColumns[column]);
    }
    const int outcome = StatusBar1_.sizeOf(widestOutcome).cx + pixels(120_twips);
    const int first = std::max(pixels(firstPanel), outcome);
    StatusBar1_.setPanelEdges(first, first + (pixels(layout_.clientWidth) - first) * 2 / 5);
}

void frmMain::Form_Resize()
{
    if (resizing_ || IsIconic(handle())) return;
    resizing_ = true;
    const ScopeExit done([this] { resizing_ = false; });
    const DrawingFreeze freeze(handle());
    readLayout();
    const Twips width = layout_.outerWidth;
    const Twips height = layout_.outerHeight;
    keepSmallestSize(layout_);
    if (layout_.outerWidth != width || layout_.outerHeight != height) {
        SetWindowPos(handle(), nullptr, 0, 0, pixels(layout_.outerWidth), pixels(layout_.outerHeight),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        readLayout();
    }
    layOut(layout_);
    applyLayout();
}

void frmMain::picSepBar_MouseDown(Twips x)
{
    splitterAnchor_ = roundedHalfEven(x.value, -1'000'000, 1'000'000);
}

void frmMain::picSepBar_MouseMove(Twips x)
{
    const DrawingFreeze freeze(handle());
    readLayout();
    dragBar(layout_, splitterAnchor_, x);
    applyLayout();
}

void frmMain::picSepBar_MouseUp()
{
    readLayout();
    if (!releaseBar(layout_)) return;
    const DrawingFreeze freeze(handle());
    applyLayout();
}

// Like a drag of that length, but never out of sight: there is no pointer to show where the bar went.
void frmMain::moveSplitter(Twips by)
{
    readLayout();
    if (by > Twips{} && layout_.barLeft + by > layout_.clientWidth - layout_.barWidth) return;
    picSepBar_MouseDown(Twips{});
    picSepBar_MouseMove(by);
    picSepBar_MouseUp();
}

void frmMain::fontsChanged()
{
    layout_.searchWidth = std::clamp(toTwips(picSearch_.fittingWidth(), dpi()), smallestSearch,
                                     largestSearch);
    StatusBar1_.dock(); // its height follows its font
    picSearch_.layOut();
    Form_Resize();
    RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    if (GetParent(PB_.handle()) == StatusBar1_.handle()) sinkProgressBar();
}

void frmMain::dpiChanged(unsigned dpi, const RECT& suggested)
{
    icons_.showIn(handle(), dpi);
    for (Control* const control : controls()) control->dpiChanged(dpi);
    drawForDpi();
    SetWindowPos(handle(), nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
    fontsChanged();
}

} // namespace vandrel
