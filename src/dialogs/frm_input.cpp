#include "dialogs/frm_input.h"

#include "model/incoming_link.h"
#include "platform/base/message_box.h"
#include "platform/base/runtime_error.h"
#include "shared/apply_font.h"

#include <algorithm>

namespace vandrel {
namespace {

enum ControlId { idName = 101, idAddress, idDescription, idBrowse };

// Contract: the focus selects this many characters, more than a box can hold.
constexpr int wholeText = 65535;

} // namespace

frmInput::frmInput(HWND owner, SiteHandOff& handOff, const DisplayFont& font)
    : Dialog(owner, L"Add Site..."),
      handOff_(handOff),
      lblName_(handle(), L"Site Name:"),
      txtName_(handle(), idName),
      lblAddress_(handle(), L"Site URL:"),
      txtAddress_(handle(), idAddress),
      lblDescription_(handle(), L"Description:"),
      txtDescription_(handle(), idDescription),
      cmdOK_(handle(), IDOK, L"OK", true),
      cmdCancel_(handle(), IDCANCEL, L"Cancel"),
      cmdBrowse_(handle(), idBrowse, L"..."),
      Frame1_(handle(), L"")
{
    for (TextBox* const box : {&txtName_, &txtAddress_, &txtDescription_}) {
        box->GotFocus = [box] { box->select(0, wholeText); };
    }
    cmdBrowse_.Click = [this] { cmdBrowse_Click(); };
    cmdOK_.Click = [this] { cmdOK_Click(); };
    cmdCancel_.Click = [this] { cmdCancel_Click(); };
    setFirstFocus(txtName_.handle());
    Form_Load(font);
}

std::vector<Control*> frmInput::controls()
{
    return {&lblName_,        &txtName_, &lblAddress_, &txtAddress_, &lblDescription_,
            &txtDescription_, &cmdOK_,   &cmdCancel_,  &cmdBrowse_,  &Frame1_};
}

void frmInput::Form_Load(const DisplayFont& font)
{
    ApplyFont(*this, font);
    handOff_.SiteDialogCancelled = true;
    const LinkParts link = partsOfLink(handOff_.IncomingLink);
    txtAddress_.setText(link.url);
    txtName_.setText(link.name);
    handOff_.IncomingLink.clear();
    if (handOff_.SiteEditMode) {
        setCaption(L"Edit selected site...");
        txtName_.setText(handOff_.SiteEditName);
        txtAddress_.setText(handOff_.SiteEditURL);
        txtDescription_.setText(handOff_.SiteEditDesc);
    }
}

void frmInput::cmdBrowse_Click()
{
    FileDialog CD1;
    CD1.filter = L"All Files (*.*)|*.*";
    CD1.cancelError = true;
    CD1.title = L"Browse for item...";
    try {
        showBrowse(CD1);
        if (!CD1.fileName.empty()) txtAddress_.setText(CD1.fileName);
    } catch (const RuntimeError& error) {
        if (error.number() == error_number::cancelled) return;
        const std::wstring number = std::to_wstring(error.number());
        tell(handle(), number + L" - " + error.description(), L"Error #" + number, BoxIcon::exclamation);
    }
}

void frmInput::cmdOK_Click()
{
    if (handOff_.SiteEditMode) {
        // Contract: an edited site keeps its "|"; only a new one gets "-" instead.
        handOff_.SiteEditName = txtName_.text();
        handOff_.SiteEditURL = txtAddress_.text();
        handOff_.SiteEditDesc = txtDescription_.text();
        handOff_.SiteEditMode = false;
    } else {
        for (TextBox* const box : {&txtName_, &txtAddress_, &txtDescription_}) {
            box->setText(withoutSeparators(box->text()));
        }
        // Contract: handed over in this order.
        handOff_.newSiteURL = txtAddress_.text();
        handOff_.newSiteName = txtName_.text();
        handOff_.newSiteDescription = txtDescription_.text();
    }
    // Not before everything is handed over: an OK that failed may still be cancelled.
    handOff_.SiteDialogCancelled = false;
    unload();
}

void frmInput::layOut()
{
    const SIZE label = [this] {
        SIZE widest{};
        for (const Label* const l : {&lblName_, &lblAddress_, &lblDescription_}) {
            const SIZE size = l->sizeOf(l->text());
            widest.cx = std::max(widest.cx, size.cx);
            widest.cy = std::max(widest.cy, size.cy);
        }
        return widest;
    }();
    const auto px = [this](Twips length) { return lblName_.pixels(length); };
    const int gap = px(120_twips);
    const int boxHeight = label.cy + px(120_twips);
    const int boxWidth = px(5400_twips);
    const int browseWidth = boxHeight + px(60_twips);
    const int boxLeft = 3 * gap + label.cx;
    const int frameWidth = boxLeft + boxWidth + px(60_twips) + browseWidth;

    int top = 2 * gap + px(60_twips);
    const auto row = [&](Label& caption, TextBox& box, int width) {
        caption.place(2 * gap, top + (boxHeight - label.cy) / 2, label.cx, label.cy);
        box.place(boxLeft, top, width, boxHeight);
        top += boxHeight + gap;
    };
    const int fullWidth = boxWidth + px(60_twips) + browseWidth;
    row(lblName_, txtName_, fullWidth);
    cmdBrowse_.place(boxLeft + boxWidth + px(60_twips), top, browseWidth, boxHeight);
    row(lblAddress_, txtAddress_, boxWidth);
    row(lblDescription_, txtDescription_, fullWidth);
    Frame1_.place(gap, gap / 2, frameWidth, top - gap / 2);

    const int buttonWidth = std::max(px(1200_twips), static_cast<int>(label.cx));
    const int buttonHeight = label.cy + px(150_twips);
    top += gap;
    const int right = gap + frameWidth;
    cmdCancel_.place(right - buttonWidth, top, buttonWidth, buttonHeight);
    cmdOK_.place(right - 2 * buttonWidth - gap, top, buttonWidth, buttonHeight);
    setClientSize(right + gap, top + buttonHeight + gap);
}

} // namespace vandrel
