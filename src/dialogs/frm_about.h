#pragma once

#include "platform/controls/link_label.h"
#include "platform/controls/simple_controls.h"
#include "platform/controls/tab_strip.h"
#include "platform/windows/dialog.h"
#include "platform/windows/picture_box.h"

namespace vandrel {

// Which version this is, who made it, and where to find them.
class frmAbout : public Dialog {
  public:
    // `version` is that of the running program, "1.3.0".
    frmAbout(HWND owner, const std::wstring& version);

    // Selects a tab, counted from 1, and shows its panel.
    void DoTab(int n);

    std::vector<Control*> controls() override;

  protected:
    void layOut() override;
    bool filterKey(const MSG& message) override { return Tabs_.takeKey(message); }

  private:
    void Form_Load(const std::wstring& version);
    void lblSite_Click();
    void lblEmail_Click();
    void highlight(LinkLabel* link); // null: none
    void cmdOK_Click() { unload(); }

    PictureBox fraAbout_;
    PictureBox picInfo_;
    PictureBox Picture1_;
    Label lblInfo_;
    LinkLabel lblEmail_;
    LinkLabel lblSite_;
    Button cmdOK_;
    TabStrip Tabs_;
    IconHandle logo_;
};

} // namespace vandrel
