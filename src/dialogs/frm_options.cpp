#include "dialogs/frm_options.h"

#include "platform/base/runtime_error.h"
#include "platform/text/number_reading.h"
#include "platform/text/number_text.h"
#include "shared/apply_font.h"

namespace vandrel {
namespace {

enum ControlId {
    idAppearance = 101,
    idFonts,
    idFontSize,
    idBold,
    idItalic,
    idFontColor,
    idColor,
    idPreview,
    idHTML,
    idHTMLFont,
    idBorder,
    idWidth,
    idEmpty,
    idTabs,
};

// Selects the font and scrolls it to the top; one that is not installed is not selected.
void show(ListBox& fonts, const std::wstring& name)
{
    const auto entry = fonts.find(name);
    if (!entry) return;
    fonts.select(*entry);
    fonts.scrollToTop(*entry);
}

} // namespace

frmOptions::frmOptions(HWND owner, OptionsState& options, Form& mainWindow)
    : Dialog(owner, L"Options"),
      options_(options),
      mainWindow_(mainWindow),
      picAppearance_(handle(), idAppearance),
      lblFontName_(picAppearance_.handle(), L"Arial"),
      lblFontCaption_(picAppearance_.handle(), L"Overall Font Name:"),
      lstFonts_(picAppearance_.handle(), idFonts),
      lblFontSize_(picAppearance_.handle(), L"Font Size:"),
      cboFontSize_(picAppearance_.handle(), idFontSize),
      fraFonts_(picAppearance_.handle(), L"Fonts"),
      chkFontBold_(picAppearance_.handle(), idBold, L"Bold"),
      chkItalic_(picAppearance_.handle(), idItalic, L"Italic"),
      cmdFontColor_(picAppearance_.handle(), idFontColor, L"Font Color..."),
      picColor_(picAppearance_.handle(), idColor, PictureBox::Border::sunken),
      fraEffects_(picAppearance_.handle(), L"Effects"),
      picPreview_(picAppearance_.handle(), idPreview, PictureBox::Border::sunken),
      picHTML_(handle(), idHTML),
      lblHTMLFont_(picHTML_.handle(), L"HTML Font Name:"),
      lstHTMLFont_(picHTML_.handle(), idHTMLFont),
      lblBorder_(picHTML_.handle(), L"Border:"),
      cboHTMLBorder_(picHTML_.handle(), idBorder),
      lblWidth_(picHTML_.handle(), L"Width:"),
      cboTableWidth_(picHTML_.handle(), idWidth),
      fraTable_(picHTML_.handle(), L"Table"),
      chkEmpty_(picHTML_.handle(), idEmpty, L"Generate Empty Categories"),
      cmdOK_(handle(), IDOK, L"OK", true),
      cmdCancel_(handle(), IDCANCEL, L"Cancel"),
      TabStrip1_(handle(), idTabs)
{
    // Contract: the dialog keeps its own font, not the display font.
    for (Control* const control : controls()) control->setFont({});
    for (const wchar_t* const tab : {L"Appearance", L"HTML Generation"}) TabStrip1_.add(tab);
    for (const int size : {8, 10, 12, 14, 16, 18}) cboFontSize_.add(std::to_wstring(size));
    for (int border = 0; border <= 5; ++border) cboHTMLBorder_.add(std::to_wstring(border));
    for (int width = 100; width >= 10; width -= 5) cboTableWidth_.add(std::to_wstring(width) + L"%");
    lstFonts_.Click = [this] { lstFonts_Click(); };
    // Contract: only choosing from the list refreshes the sample, typing a size does not.
    cboFontSize_.Click = [this] { PreviewIt(); };
    chkFontBold_.Click = [this] { PreviewIt(); };
    chkItalic_.Click = [this] { PreviewIt(); };
    cmdFontColor_.Click = [this] { cmdFontColor_Click(); };
    picPreview_.Paint = [this](HDC context, const RECT& area) { paintPreview(context, area); };
    TabStrip1_.Click = [this] { TabStrip1_Click(); };
    cmdOK_.Click = [this] { cmdOK_Click(); };
    cmdCancel_.Click = [this] { cmdCancel_Click(); };
    for (PictureBox* const page : {&picAppearance_, &picHTML_}) page->setPageOf(TabStrip1_.handle());
    picColor_.setCaption(L"Font Color");
    picPreview_.setCaption(L"Sample");
    TabStrip1_.setAccessibleName(L"Pages");
    setFirstFocus(lstFonts_.handle());
    layOut();
    Form_Load();
}

std::vector<Control*> frmOptions::controls()
{
    return {&lblFontName_, &lblFontCaption_, &lstFonts_,     &lblFontSize_,   &cboFontSize_, &fraFonts_,
            &chkFontBold_, &chkItalic_,      &cmdFontColor_, &fraEffects_,    &lblHTMLFont_, &lstHTMLFont_,
            &lblBorder_,   &cboHTMLBorder_,  &lblWidth_,     &cboTableWidth_, &fraTable_,    &chkEmpty_,
            &cmdOK_,       &cmdCancel_,      &TabStrip1_};
}

void frmOptions::Form_Load()
{
    const std::vector<std::wstring> fonts = screenFonts();
    lstFonts_.fill(fonts);
    lstHTMLFont_.fill(fonts);
    cboFontSize_.setText(decimalText(static_cast<long>(options_.font.size)));
    lblFontName_.setText(options_.font.name);
    show(lstFonts_, options_.font.name);
    picColor_.setBackColor(options_.font.color);
    chkFontBold_.setChecked(options_.font.bold);
    chkItalic_.setChecked(options_.font.italic);
    cboTableWidth_.setText(options_.htmlTableWidth);
    cboHTMLBorder_.setText(decimalText(static_cast<long>(options_.htmlBorder)));
    show(lstHTMLFont_, options_.htmlFont);
    chkEmpty_.setChecked(options_.generateEmpty);
    // OK accepts sizes that no font has. The dialog must open even then, without a sample, or the size
    // could not be corrected.
    if (isFontSize(options_.font.size)) PreviewIt();
}

// ---- the sample

void frmOptions::PreviewIt()
{
    previewColor_ = picColor_.backColor();
    const int size = wholeNumberOf(cboFontSize_.text());
    if (!isFontSize(size)) throw RuntimeError(error_number::invalidPropertyValue);
    previewFont_ = {lblFontName_.text(), size, chkFontBold_.checked(), chkItalic_.checked()};
    picPreview_.refresh();
}

void frmOptions::paintPreview(HDC context, const RECT& area) const
{
    FillRect(context, &area, GetSysColorBrush(COLOR_WINDOW));
    const std::wstring& name = previewFont_.name;
    const FontHandle font = makeFont(previewFont_, dpi());
    const HGDIOBJ before = SelectObject(context, font.get());
    // As in every control, black means the system's own text colour.
    SetTextColor(context, previewColor_ == 0 ? GetSysColor(COLOR_WINDOWTEXT) : previewColor_);
    SetBkMode(context, TRANSPARENT);
    TextOutW(context, 0, 0, name.c_str(), static_cast<int>(name.size()));
    SelectObject(context, before);
}

void frmOptions::lstFonts_Click()
{
    if (const auto entry = lstFonts_.selected()) lblFontName_.setText(lstFonts_.text(*entry));
    PreviewIt();
}

void frmOptions::cmdFontColor_Click()
{
    // Contract: a cancelled dialog still gives its last colour, at first black.
    colorDialog_.show(handle());
    picColor_.setBackColor(colorDialog_.color);
    PreviewIt();
}

// ---- pages and buttons

void frmOptions::TabStrip1_Click()
{
    const bool appearance = TabStrip1_.selected() == 0;
    const PictureBox& leaving = appearance ? picHTML_ : picAppearance_;
    // A hidden control would still take the keys.
    if (IsChild(leaving.handle(), GetFocus()) != 0)
        SendMessageW(handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(TabStrip1_.handle()), TRUE);
    picAppearance_.setVisible(appearance);
    picHTML_.setVisible(!appearance);
}

// A text that is not a number stops it there: what comes before is already set, and the dialog stays open.
void frmOptions::cmdOK_Click()
{
    DisplayFont& font = options_.font;
    font.name = lblFontName_.text();
    font.color = picColor_.backColor();
    font.size = wholeNumberOf(cboFontSize_.text());
    font.bold = chkFontBold_.checked();
    font.italic = chkItalic_.checked();
    // Contract: other open windows keep their old font.
    ApplyFont(mainWindow_, font);
    const auto htmlFont = lstHTMLFont_.selected();
    options_.htmlFont = htmlFont ? lstHTMLFont_.text(*htmlFont) : std::wstring();
    options_.htmlBorder = wholeNumberOf(cboHTMLBorder_.text());
    options_.htmlTableWidth = cboTableWidth_.text();
    options_.generateEmpty = chkEmpty_.checked();
    unload();
}

// ---- layout

void frmOptions::layOut()
{
    const auto px = [this](Twips length) { return TabStrip1_.pixels(length); };
    const int pageLeft = px(120_twips);
    const int pageTop = px(420_twips);
    const SIZE page{px(6600_twips), px(4500_twips)};
    for (PictureBox* const box : {&picAppearance_, &picHTML_})
        box->place(pageLeft, pageTop, page.cx, page.cy);
    layOutAppearance(page);
    layOutHTML(page);
    picHTML_.setVisible(TabStrip1_.selected() == 1);

    const RECT strip = TabStrip1_.placeAround({pageLeft, pageTop, pageLeft + page.cx, pageTop + page.cy});

    const int gap = px(120_twips);
    const int buttonWidth = px(1200_twips);
    const int buttonHeight = cmdOK_.sizeOf(L"X").cy + px(150_twips);
    const int top = strip.bottom + gap;
    cmdCancel_.place(strip.right - buttonWidth, top, buttonWidth, buttonHeight);
    cmdOK_.place(strip.right - 2 * buttonWidth - gap, top, buttonWidth, buttonHeight);
    setClientSize(strip.right + strip.left, top + buttonHeight + gap);
}

// Both pages are made of lines of text, boxes a little higher than a line, and gaps.
struct frmOptions::Measures {
    int line = 0;
    int gap = 0;
    int margin = 0;
    int box = 0;
};

frmOptions::Measures frmOptions::measures() const
{
    const int line = lblFontCaption_.sizeOf(L"X").cy;
    const int gap = TabStrip1_.pixels(120_twips);
    return {.line = line, .gap = gap, .margin = gap / 2, .box = line + gap};
}

// Returns the right edge of the box.
int frmOptions::placeBeside(Label& label, ComboBox& box, POINT at, Twips boxWidth) const
{
    const auto [line, gap, margin, boxHeight] = measures();
    const int labelWidth = label.sizeOf(label.text()).cx;
    const int width = TabStrip1_.pixels(boxWidth);
    const int left = at.x + labelWidth + gap;
    box.place(left, at.y, width, TabStrip1_.pixels(2400_twips)); // with the open list
    label.place(at.x, at.y + (box.height() - line) / 2, labelWidth, line);
    return left + width;
}

void frmOptions::layOutAppearance(SIZE page)
{
    const auto px = [this](Twips length) { return TabStrip1_.pixels(length); };
    const auto [line, gap, margin, boxHeight] = measures();
    const int previewHeight = px(900_twips);
    const int frameHeight = page.cy - previewHeight - gap - 2 * margin;
    const int effectsWidth = px(1860_twips);
    const int fontsWidth = page.cx - effectsWidth - gap - 2 * margin;
    const int inner = fontsWidth - 2 * gap;
    const int frameLeft = margin + gap; // of the contents

    fraFonts_.place(margin, margin, fontsWidth, frameHeight);
    int top = margin + line + gap;
    const int captionWidth = lblFontCaption_.sizeOf(lblFontCaption_.text()).cx;
    lblFontCaption_.place(frameLeft, top, captionWidth, line);
    lblFontName_.place(frameLeft + captionWidth + margin, top, inner - captionWidth - margin, line);
    top += line + margin;
    const int sizeTop = margin + frameHeight - gap - boxHeight;
    lstFonts_.place(frameLeft, top, inner, sizeTop - gap - top);
    placeBeside(lblFontSize_, cboFontSize_, {frameLeft, sizeTop}, 1080_twips);

    const int left = margin + fontsWidth + gap;
    fraEffects_.place(left, margin, effectsWidth, frameHeight);
    const int effectsInner = effectsWidth - 2 * gap;
    top = margin + line + gap;
    for (CheckBox* const box : {&chkFontBold_, &chkItalic_}) {
        box->place(left + gap, top, effectsInner, boxHeight);
        top += boxHeight;
    }
    top += gap;
    cmdFontColor_.place(left + gap, top, effectsInner, line + px(150_twips));
    top += line + px(150_twips) + gap;
    picColor_.place(left + gap, top, effectsInner, px(480_twips));
    picPreview_.place(margin, margin + frameHeight + gap, page.cx - 2 * margin, previewHeight);
}

void frmOptions::layOutHTML(SIZE page)
{
    const auto [line, gap, margin, boxHeight] = measures();
    const int tableHeight = line + margin + boxHeight + gap;
    const int width = page.cx - 2 * margin;
    const int checkTop = page.cy - boxHeight - margin;
    const int tableTop = checkTop - margin - tableHeight;

    lblHTMLFont_.place(margin, margin, width, line);
    const int listTop = 2 * margin + line;
    lstHTMLFont_.place(margin, listTop, width, tableTop - margin - listTop);
    fraTable_.place(margin, tableTop, width, tableHeight);
    const int top = tableTop + line + margin;
    const int end = placeBeside(lblBorder_, cboHTMLBorder_, {margin + gap, top}, 1200_twips);
    placeBeside(lblWidth_, cboTableWidth_, {end + 3 * gap, top}, 1200_twips);
    chkEmpty_.place(margin + gap, checkTop, width - gap, boxHeight);
}

} // namespace vandrel
