#pragma once

#include "platform/controls/simple_controls.h"
#include "platform/windows/dialog.h"
#include "platform/windows/file_dialog.h"
#include "shared/options_state.h"
#include "shared/site_hand_off.h"

namespace vandrel {

// The site editor: name, address and description of one site, new or stored. It deals with its caller
// through the hand-off alone and stores nothing.
class frmInput : public Dialog {
  public:
    // Loads the dialog: in add mode from IncomingLink, in edit mode from the SiteEdit texts. IncomingLink
    // is empty afterwards either way.
    frmInput(HWND owner, SiteHandOff& handOff, const DisplayFont& font);

    std::vector<Control*> controls() override;

  protected:
    // Shows the file dialog of the Browse button; virtual, so that a test can make it fail.
    virtual void showBrowse(FileDialog& CD1) { CD1.showOpen(handle()); }
    void layOut() override;
    void onOk() override { cmdOK_Click(); }
    void onCancel() override { cmdCancel_Click(); }

  private:
    void Form_Load(const DisplayFont& font);
    void cmdBrowse_Click();
    void cmdOK_Click();
    void cmdCancel_Click() { unload(); }

    SiteHandOff& handOff_;
    // In tab order; each label comes before its box, for screen readers.
    Label lblName_;
    TextBox txtName_;
    Label lblAddress_;
    TextBox txtAddress_;
    Label lblDescription_;
    TextBox txtDescription_;
    Button cmdOK_;
    Button cmdCancel_;
    Button cmdBrowse_;
    Frame Frame1_;
};

} // namespace vandrel
