#include "dialogs/frm_about.h"

#include "platform/controls/image_list.h"
#include "platform/system/shell.h"
#include "shared/vendor.h"
#include "shared/window_edges.h"

#include <algorithm>

namespace vandrel {
namespace {

enum ControlId { idPanel = 101, idInfo, idLogo, idEmail, idSite, idTabs };

constexpr Twips logoSize{960};
constexpr COLORREF black = 0x000000;
constexpr COLORREF blue = 0xFF0000;

std::wstring withoutScheme(const std::wstring& address)
{
    const std::size_t scheme = address.find(L"://");
    return scheme == std::wstring::npos ? address : address.substr(scheme + 3);
}

} // namespace

frmAbout::frmAbout(HWND owner, const std::wstring& version)
    : Dialog(owner, L"About Vandrel"),
      fraAbout_(handle(), idPanel),
      picInfo_(fraAbout_.handle(), idInfo),
      Picture1_(picInfo_.handle(), idLogo),
      lblInfo_(picInfo_.handle(), L""),
      lblEmail_(picInfo_.handle(), idEmail, makersEmail),
      lblSite_(picInfo_.handle(), idSite, withoutScheme(makersSite)),
      cmdOK_(handle(), IDOK, L"OK", true),
      Tabs_(handle(), idTabs)
{
    // Contract: the dialog keeps its own font, not the display font.
    for (Control* const control : controls()) control->setFont({});
    Tabs_.add(L"About");
    Tabs_.Click = [this] { DoTab(static_cast<int>(Tabs_.selected()) + 1); };
    lblInfo_.center();
    lblEmail_.Click = [this] { lblEmail_Click(); };
    lblSite_.Click = [this] { lblSite_Click(); };
    // Contract: no timer: a link stays highlighted until the mouse moves over one of these.
    lblEmail_.MouseMove = [this] { highlight(&lblEmail_); };
    lblSite_.MouseMove = [this] { highlight(&lblSite_); };
    picInfo_.MouseMove = [this] { highlight(nullptr); }; // labels let the mouse through to it
    Picture1_.Paint = [this](HDC context, const RECT& area) {
        DrawIconEx(context, 0, 0, logo_.get(), area.right, area.bottom, 0, nullptr, DI_NORMAL);
    };
    cmdOK_.Click = [this] { cmdOK_Click(); };
    for (PictureBox* const box : {&fraAbout_, &picInfo_, &Picture1_}) box->setPageOf(Tabs_.handle());
    Picture1_.setCaption(L"Vandrel's logo");
    Tabs_.setAccessibleName(L"Pages");
    setFirstFocus(cmdOK_.handle());
    highlight(nullptr);
    Form_Load(version);
    layOut();
}

std::vector<Control*> frmAbout::controls() { return {&lblInfo_, &lblEmail_, &lblSite_, &cmdOK_, &Tabs_}; }

void frmAbout::Form_Load(const std::wstring& version)
{
    Off2000::addStaticAndDialogEdge(picInfo_.handle());
    lblInfo_.setText(L"Version " + version + L"\r\n" + makersNotice + L"\r\nContact:");
}

void frmAbout::DoTab(int n)
{
    Tabs_.select(static_cast<std::size_t>(n - 1));
    fraAbout_.setVisible(n == 1);
}

void frmAbout::lblSite_Click() { shellOpen(handle(), makersSite); }

void frmAbout::lblEmail_Click() { shellOpen(handle(), L"mailto:" + makersEmail); }

void frmAbout::highlight(LinkLabel* link)
{
    for (LinkLabel* const label : {&lblEmail_, &lblSite_}) {
        label->setLook(label == link ? blue : black, label == link);
    }
}

void frmAbout::layOut()
{
    const auto px = [this](Twips length) { return lblInfo_.pixels(length); };
    const int gap = px(120_twips);
    const int line = lblInfo_.sizeOf(L"X").cy;
    const int logo = px(logoSize);
    constexpr int lines = 3;
    int textWidth = 0;
    for (const Control* const label : {static_cast<Control*>(&lblEmail_), static_cast<Control*>(&lblSite_)}) {
        textWidth = std::max<int>(textWidth, label->sizeOf(label->text()).cx);
    }
    const int infoWidth = std::max(px(3900_twips), textWidth + 2 * gap);
    const int infoHeight = logo + lines * line + 2 * line + 5 * gap;

    const int left = px(120_twips);
    const int top = px(420_twips);
    fraAbout_.place(left, top, infoWidth, infoHeight);
    picInfo_.place(0, 0, infoWidth, infoHeight);
    const int inner = picInfo_.innerSize().cx;
    if (logo_.get() == nullptr || Picture1_.innerSize().cx != logo) logo_ = loadIcon(L"logo", logo);
    Picture1_.place((inner - logo) / 2, gap, logo, logo);
    int y = gap + logo + gap;
    lblInfo_.place(0, y, inner, lines * line);
    y += lines * line + gap / 2;
    for (LinkLabel* const link : {&lblEmail_, &lblSite_}) {
        const int width = link->sizeOf(link->text()).cx + px(60_twips);
        link->place((inner - width) / 2, y, width, line + px(30_twips));
        y += line + gap;
    }

    const RECT strip = Tabs_.placeAround({left, top, left + infoWidth, top + infoHeight});
    const int buttonWidth = px(1200_twips);
    const int buttonHeight = line + px(150_twips);
    cmdOK_.place(strip.right - buttonWidth, strip.bottom + gap, buttonWidth, buttonHeight);
    setClientSize(strip.right + strip.left, strip.bottom + gap + buttonHeight + gap);
}

} // namespace vandrel
