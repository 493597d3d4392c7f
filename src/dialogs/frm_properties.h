#pragma once

#include "platform/controls/link_label.h"
#include "platform/controls/simple_controls.h"
#include "platform/windows/dialog.h"
#include "shared/properties_hand_off.h"

namespace vandrel {

// What is stored of one site. It changes nothing: what is typed into its boxes is gone with it.
class frmProperties : public Dialog {
  public:
    // Loads the dialog with the texts handed over. It has a font of its own, not the display font.
    frmProperties(HWND owner, const PropertiesHandOff& handOff);

    std::vector<Control*> controls() override;

  protected:
    void layOut() override;

  private:
    void Form_Load(const PropertiesHandOff& handOff);
    void lblSiteURL_Click();
    void cmdOK_Click() { unload(); }

    // In the order in which Tab goes through them; each label stands before what it is about.
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

// A stored date as it is shown: month, day and year, whatever the order in which the text has them; "Never"
// when there is none, and the text itself when it is no date.
std::wstring shownDate(const std::wstring& stored);

} // namespace vandrel
