#pragma once

#include "model/row_table.h"
#include "platform/controls/list_view.h"
#include "platform/controls/simple_controls.h"
#include "platform/controls/status_bar.h"
#include "platform/controls/tool_tip.h"
#include "platform/text/single_bytes.h"
#include "platform/windows/dialog.h"
#include "platform/windows/message_throttle.h"
#include "search/site_match.h"

#include <array>

namespace vandrel {

class HitList;
struct Workspace;

// The Search All Categories window: lists the sites of every category that contain a term. The main window
// follows the search.
class frmSearch : public Dialog {
  public:
    explicit frmSearch(Workspace& workspace);

    // Shows the window, above all windows that are not topmost themselves.
    void show();
    // Searches; returns when that is done, the window was closed or the program quits. Messages are
    // dispatched meanwhile.
    void DoSearch(const std::wstring& SearchString);
    // While a search runs the object must not be deleted.
    bool searching() const { return searching_; }
    // The least time between two turns at dispatching messages; 0 gives a turn after every fifth site.
    void setTurnMilliseconds(ULONGLONG milliseconds) { throttleMilliseconds_ = milliseconds; }

    ListView& results() { return lstResults_; }

    std::vector<Control*> controls() override;

  protected:
    void layOut() override;
    SIZE smallestSize() const override;
    void scaleChanged(unsigned dpi) override { tip_.dpiChanged(dpi); }
    POINT firstCorner(SIZE own, const RECT& around, const RECT& work) const override;
    void onOk() override { cmdSearch_Click(); }
    void onCancel() override { cmdCancel_Click(); }

  private:
    struct Remembered;
    struct Search;

    void Form_Load();
    void cmdSearch_Click();
    void cmdCancel_Click() { unload(); }
    void lstResults_ColumnClick(std::size_t column);
    void lstResults_DblClick();
    void lstResults_MouseMove();

    // The search.
    std::size_t searchCategory(const Remembered& category, Search& search);
    std::size_t searchBytes(const Remembered& category, Search& search, const CodePageLetters& letters);
    std::size_t searchText(const Remembered& category, Search& search);
    void takeTurn(const Remembered& category, Search& search, std::size_t sites, bool first);
    bool leaveShownCategory();
    void follow(const Remembered& category, bool first);
    void showHits(HitList& hits);
    std::optional<SearchSection> section() const;
    std::optional<std::size_t> rowOf(const std::wstring& title, std::size_t likely) const;
    void restore(const Remembered& category);
    void setSearchEnabled(bool on);
    bool ended() const { return quitting_ || unloaded(); }

    // Layout, in pixels.
    struct Measures;
    Measures measures() const;
    Twips statusExtra() const;
    int hitsPanel() const;
    void growToRows();

    Workspace& workspace_;
    bool searching_ = false;
    bool quitting_ = false; // the program is ending: nothing may be touched any more
    ULONGLONG throttleMilliseconds_ = MessageThrottle::usualMilliseconds;
    MessageThrottle throttle_;

    // In tab order.
    Label lblCaptions_;
    TextBox txtSearch_;
    Button cmdSearch_;
    std::array<OptionButton, 4> optSection_;
    CheckBox chkCase_;
    Label lblResults_;
    RowTable hitRows_;
    ListView lstResults_;
    Button cmdCancel_;
    StatusBar StatusBar1_;
    Frame fraWhat_;
    Frame fraSearch_;
    Frame fraResults_;
    ToolTip tip_;
};

} // namespace vandrel
