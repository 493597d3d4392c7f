#pragma once

#include "platform/controls/list_box.h"
#include "platform/controls/simple_controls.h"
#include "platform/controls/tab_strip.h"
#include "platform/windows/color_dialog.h"
#include "platform/windows/dialog.h"
#include "platform/windows/picture_box.h"
#include "shared/options_state.h"

namespace vandrel {

// The display font, and the settings of the HTML page, each on a page of its own.
class frmOptions : public Dialog {
  public:
    // OK writes to `options` and puts the display font on `mainWindow`. The dialog itself stays in its own
    // font.
    frmOptions(HWND owner, OptionsState& options, Form& mainWindow);

    std::vector<Control*> controls() override;

  protected:
    void layOut() override;
    void onOk() override { cmdOK_Click(); }
    bool filterKey(const MSG& message) override { return TabStrip1_.takeKey(message); }

  private:
    void Form_Load();
    void PreviewIt();
    void lstFonts_Click();
    void cmdFontColor_Click();
    void TabStrip1_Click();
    void cmdOK_Click();
    void cmdCancel_Click() { unload(); }
    void paintPreview(HDC context, const RECT& area) const;
    struct Measures; // in pixels
    Measures measures() const;
    int placeBeside(Label& label, ComboBox& box, POINT at, Twips boxWidth) const;
    void layOutAppearance(SIZE page);
    void layOutHTML(SIZE page);

    OptionsState& options_;
    Form& mainWindow_;
    ColorDialog colorDialog_;
    FontDescription previewFont_{.name = L""}; // nothing is shown before the first sample
    COLORREF previewColor_ = 0;

    // In tab order, the tab strip last: the pages lie on top of it.
    PictureBox picAppearance_;
    Label lblFontName_;
    Label lblFontCaption_; // just before the list, which it names
    ListBox lstFonts_;
    Label lblFontSize_;
    ComboBox cboFontSize_;
    Frame fraFonts_;
    CheckBox chkFontBold_;
    CheckBox chkItalic_;
    Button cmdFontColor_;
    PictureBox picColor_;
    Frame fraEffects_;
    PictureBox picPreview_;

    PictureBox picHTML_;
    Label lblHTMLFont_;
    ListBox lstHTMLFont_;
    Label lblBorder_;
    ComboBox cboHTMLBorder_;
    Label lblWidth_;
    ComboBox cboTableWidth_;
    Frame fraTable_;
    CheckBox chkEmpty_;

    Button cmdOK_;
    Button cmdCancel_;
    TabStrip TabStrip1_;
};

} // namespace vandrel
