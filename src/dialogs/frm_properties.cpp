#include "dialogs/frm_properties.h"

#include "platform/system/shell.h"
#include "platform/text/date_reading.h"
#include "shared/stored_date.h"

namespace vandrel {
namespace {

enum ControlId { idName = 101, idURL, idDescription };

} // namespace

std::wstring shownDate(const std::wstring& stored)
{
    if (stored.empty()) return L"Never";
    const auto date = storedDate(stored, dateOrderOf(shortDatePattern()));
    return date ? monthDayYearText(*date) : stored;
}

frmProperties::frmProperties(HWND owner, const PropertiesHandOff& handOff)
    : Dialog(owner, L"<insert title>'s Properties"),
      lblName_(handle(), L"Name:"),
      lblSiteName_(handle(), idName),
      lblURL_(handle(), L"URL:"),
      lblSiteURL_(handle(), idURL, L"<Site URL Here>"),
      lblLastVisited_(handle(), L"Last Visited:"),
      lblDate_(handle(), L"<Date Added Here>"),
      lblSiteDescription_(handle(), L"Description:"),
      txtSiteDescription_(handle(), idDescription, TextBox::Lines::many),
      cmdOK_(handle(), IDOK, L"&OK", true),
      Frame1_(handle(), L"")
{
    lblSiteName_.setText(L"<Site Name Here>");
    txtSiteDescription_.setGrey();
    lblSiteURL_.Click = [this] { lblSiteURL_Click(); };
    cmdOK_.Click = [this] { cmdOK_Click(); };
    setFirstFocus(cmdOK_.handle());
    // Contract: the dialog keeps its own font, not the display font.
    for (Control* const control : controls()) control->setFont({});
    Form_Load(handOff);
    layOut();
}

std::vector<Control*> frmProperties::controls()
{
    return {&lblName_,
            &lblSiteName_,
            &lblURL_,
            &lblSiteURL_,
            &lblLastVisited_,
            &lblDate_,
            &lblSiteDescription_,
            &txtSiteDescription_,
            &cmdOK_,
            &Frame1_};
}

void frmProperties::Form_Load(const PropertiesHandOff& handOff)
{
    setCaption(handOff.PropSiteName + L"'s Properties");
    lblSiteName_.setText(handOff.PropSiteName);
    lblSiteURL_.setText(handOff.PropSiteURL);
    lblDate_.setText(shownDate(handOff.PropSiteDate));
    txtSiteDescription_.setText(handOff.PropSiteDesc);
}

// Contract: the site's date is not touched.
void frmProperties::lblSiteURL_Click() { shellOpen(handle(), lblSiteURL_.text()); }

void frmProperties::layOut()
{
    SIZE label{};
    for (const Label* const l : {&lblName_, &lblURL_, &lblLastVisited_, &lblSiteDescription_}) {
        const SIZE size = l->sizeOf(l->text());
        label.cx = std::max(label.cx, size.cx);
        label.cy = std::max(label.cy, size.cy);
    }
    const auto px = [this](Twips length) { return lblName_.pixels(length); };
    const int gap = px(120_twips);
    const int boxHeight = label.cy + px(120_twips);
    const int linesHeight = 4 * label.cy + px(120_twips);
    const int boxLeft = 3 * gap + label.cx;
    const int boxWidth = px(5400_twips);
    const int frameWidth = boxLeft + boxWidth;

    int top = 2 * gap;
    const auto row = [&](Label& caption, Control& content, int height, bool box) {
        // In every row the text is level with its label.
        const int inset = (boxHeight - label.cy) / 2;
        caption.place(2 * gap, top + inset, label.cx, label.cy);
        content.place(boxLeft, box ? top : top + inset, boxWidth, box ? height : label.cy);
        top += height + gap / 2;
    };
    row(lblName_, lblSiteName_, boxHeight, true);
    row(lblURL_, lblSiteURL_, boxHeight, false);
    row(lblLastVisited_, lblDate_, boxHeight, false);
    row(lblSiteDescription_, txtSiteDescription_, linesHeight, true);
    Frame1_.place(gap, gap / 2, frameWidth, top);

    const int buttonWidth = px(1200_twips);
    const int buttonHeight = label.cy + px(150_twips);
    top += gap * 3 / 2;
    const int right = gap + frameWidth;
    cmdOK_.place(right - buttonWidth, top, buttonWidth, buttonHeight);
    setClientSize(right + gap, top + buttonHeight + gap);
}

} // namespace vandrel
