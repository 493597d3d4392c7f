#pragma once

#include "platform/controls/link_label.h"
#include "platform/controls/simple_controls.h"
#include "platform/windows/dialog.h"
#include "shared/properties_hand_off.h"

namespace vandrel {

// Shows what is stored of one site, and changes nothing.
class frmProperties : public Dialog {
  public:
    // Loads the dialog with the texts handed over. It has its own font, not the display font.
    frmProperties(HWND owner, const PropertiesHandOff& handOff);

    std::vector<Control*> controls() override;

  protected:
    void layOut() override;

  private:
    void Form_Load(const PropertiesHandOff& handOff);
    void lblSiteURL_Click();
    // Contract: what was typed into the boxes is discarded.
    void cmdOK_Click() { unload(); }

    // In tab order; each label comes before what it names.
    Label lblName_;
    TextBox lblSiteName_;
    Label lblURL_;
    LinkLabel lblSiteURL_;
    Label lblLastVisited_;
    Label lblDate_;
    Label lblSiteDescription_;
    TextBox txtSiteDescription_;
    Button cmdOK_;
    Frame Frame1_;
};

// A stored date as it is shown: month-day-year, whatever the order in the text; "Never" if it is empty, and
// the text itself if it is not a date.
std::wstring shownDate(const std::wstring& stored);

} // namespace vandrel
