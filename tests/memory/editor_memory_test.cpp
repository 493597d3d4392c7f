#include "dialogs/frm_input.h"
#include "tests/memory/quiet_answers.h"
#include "tests/support/failing_new.h"
#include "tests/support/site_editor.h"
#include "tests/support/test_window.h"

#include <gtest/gtest.h>

namespace vandrel::test {
namespace {

// Presses OK with the n-th allocation failing, and cancels what is still open. Returns whether there was an
// n-th.
bool pressOk(unsigned n, SiteHandOff& site)
{
    TestWindow owner;
    frmInput dialog(owner.handle(), site, {});
    typeOver(dialog.handle(), editor::name, L"A name that is long");
    typeOver(dialog.handle(), editor::address, L"http://long.example/");
    typeOver(dialog.handle(), editor::description, L"A description that is long");
    const Typed typed;
    const QuietAnswers answers(typed);
    failing_new::arm(n, failing_new::How::once, failing_new::Where::thisThread);
    press(dialog.handle(), IDOK);
    failing_new::disarm();
    EXPECT_EQ(answers.toldOutOfMemory(), failing_new::failed()) << n;
    press(dialog.handle(), IDCANCEL);
    return failing_new::failed();
}

TEST(EditorMemory, AFailedOkCountsAsNone)
{
    for (const bool edit : {false, true}) {
        for (unsigned n = 1;; ++n) {
            SiteHandOff site;
            site.SiteEditMode = edit;
            const bool failed = pressOk(n, site);
            EXPECT_EQ(site.SiteDialogCancelled, failed) << n << (edit ? ", editing" : ", adding");
            if (!failed) {
                EXPECT_EQ(edit ? site.SiteEditDesc : site.newSiteDescription, L"A description that is long");
                EXPECT_GT(n, 3U);
                break;
            }
        }
    }
}

} // namespace
} // namespace vandrel::test
