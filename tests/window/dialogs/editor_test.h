#pragma once

#include "dialogs/frm_input.h"
#include "tests/support/site_editor.h"
#include "tests/support/test_window.h"

#include <gtest/gtest.h>

namespace vandrel::test {

// The site editor over a window of the test's own, with a hand-off of its own.
class EditorTest : public testing::Test {
  protected:
    EditorTest() { owner.show(); }
    ~EditorTest() override { pump(); }

    // The editor, loaded but not yet shown.
    frmInput load() { return frmInput(owner.handle(), site, font); }
    // Shows it until the answer closes it.
    void show(std::function<void(HWND)> answer)
    {
        Answers answers;
        answers.expect(site.SiteEditMode ? editCaption : addCaption, std::move(answer));
        frmInput editor(owner.handle(), site, font);
        editor.showModal();
        EXPECT_ANSWERED(answers);
    }
    void beginEditing(const std::wstring& name, const std::wstring& url, const std::wstring& description)
    {
        site.SiteEditMode = true;
        site.SiteEditName = name;
        site.SiteEditURL = url;
        site.SiteEditDesc = description;
    }

    TestWindow owner;
    SiteHandOff site;
    DisplayFont font{.name = L"Arial", .color = 0, .size = 8, .bold = false, .italic = false};
};

inline constexpr int editorFields[] = {editor::name, editor::address, editor::description};

} // namespace vandrel::test
