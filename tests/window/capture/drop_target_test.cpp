#include "tests/support/drop_test.h"

namespace vandrel::test {
namespace {

class SiteListAsDropTarget : public DropTest {
  protected:
    DWORD enterAnswers(DWORD allowed)
    {
        DroppedObject data;
        DWORD effect = allowed;
        EXPECT_EQ(target()->DragEnter(&data, MK_LBUTTON, {5, 5}, &effect), S_OK);
        return effect;
    }
    DWORD overAnswers(DWORD allowed)
    {
        DWORD effect = allowed;
        EXPECT_EQ(target()->DragOver(MK_LBUTTON, {5, 5}, &effect), S_OK);
        return effect;
    }
};

TEST_F(SiteListAsDropTarget, IsTheOnlyOneInTheWindow)
{
    startWithOneSite();
    EXPECT_NE(target(), nullptr);
    EXPECT_EQ(dropTargetOf(main->handle()), nullptr);
    std::vector<HWND> takers;
    EnumChildWindows(
        main->handle(),
        [](HWND child, LPARAM param) -> BOOL {
            if (dropTargetOf(child) != nullptr) reinterpret_cast<std::vector<HWND>*>(param)->push_back(child);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&takers));
    EXPECT_EQ(takers, std::vector<HWND>{lstInfo().handle()});
    EXPECT_EQ(dropTargetOf(lstCategory().handle()), nullptr);
}

TEST_F(SiteListAsDropTarget, PrefersCopyingToLinkingAndLinkingToMoving)
{
    startWithOneSite();
    for (const auto& [allowed, answer] : {std::pair<DWORD, DWORD>{everyEffect, DROPEFFECT_COPY},
                                          {DROPEFFECT_COPY, DROPEFFECT_COPY},
                                          {DROPEFFECT_COPY | DROPEFFECT_LINK, DROPEFFECT_COPY},
                                          {DROPEFFECT_COPY | DROPEFFECT_MOVE, DROPEFFECT_COPY},
                                          {DROPEFFECT_LINK | DROPEFFECT_MOVE, DROPEFFECT_LINK},
                                          {DROPEFFECT_LINK, DROPEFFECT_LINK},
                                          {DROPEFFECT_MOVE, DROPEFFECT_MOVE},
                                          {DROPEFFECT_NONE, DROPEFFECT_NONE}}) {
        EXPECT_EQ(enterAnswers(allowed), answer) << allowed;
        EXPECT_EQ(overAnswers(allowed), answer) << allowed;
    }
}

TEST_F(SiteListAsDropTarget, AnswersADropWithTheSameEffect)
{
    startWithOneSite();
    for (const auto& [allowed, answer] : {std::pair<DWORD, DWORD>{everyEffect, DROPEFFECT_COPY},
                                          {DROPEFFECT_LINK | DROPEFFECT_MOVE, DROPEFFECT_LINK}}) {
        DroppedObject link;
        link.withAnsi("http://x/");
        Answers answers;
        answers.expect(addCaption, pressing(IDCANCEL));
        EXPECT_EQ(letGo(link, allowed), answer);
        pump();
        EXPECT_ANSWERED(answers);
    }
}

TEST_F(SiteListAsDropTarget, TakesWhatCanOnlyBeMovedButDoesNotMoveIt)
{
    startWithOneSite();
    DroppedObject link;
    link.withAnsi("http://x/");
    Answers answers;
    answers.expect(addCaption, pressing(IDCANCEL));
    EXPECT_EQ(letGo(link, DROPEFFECT_MOVE), DWORD{DROPEFFECT_NONE});
    pump();
    EXPECT_ANSWERED(answers);
    EXPECT_FALSE(link.wasWrittenTo());
}

TEST_F(SiteListAsDropTarget, ReturnsNothingToTheSourceButTheEffect)
{
    startWithOneSite();
    DroppedObject link;
    link.withAnsi("http://x/").withUnicode(L"http://x/");
    dropAndAnswer(link, typeSite(L"x", L"http://x/", L""));
    EXPECT_FALSE(link.wasWrittenTo());
    EXPECT_FALSE(link.inUse());
}

TEST_F(SiteListAsDropTarget, TakesNothingFromASourceThatAllowsNothing)
{
    startWithOneSite();
    DroppedObject link;
    link.withAnsi("http://x/");
    Answers none;
    EXPECT_EQ(letGo(link, DROPEFFECT_NONE), DWORD{DROPEFFECT_NONE});
    pump();
    EXPECT_ANSWERED(none);
}

TEST_F(SiteListAsDropTarget, TakesNothingWhileTheMainWindowWaitsForADialog)
{
    startWithOneSite();
    DroppedObject link;
    link.withAnsi("http://dropped/");
    Answers answers;
    answers.expect(addCaption, [&](HWND dialog) {
        EXPECT_EQ(enterAnswers(everyEffect), DWORD{DROPEFFECT_NONE});
        EXPECT_EQ(overAnswers(everyEffect), DWORD{DROPEFFECT_NONE});
        EXPECT_EQ(letGo(link), DWORD{DROPEFFECT_NONE});
        pump();
        EXPECT_EQ(fieldText(dialog, editor::address), L"http://");
        press(dialog, IDCANCEL);
    });
    choose(mnuAddWebsite);
    EXPECT_ANSWERED(answers);
    EXPECT_EQ(workspace().site.IncomingLink, L"");
    EXPECT_EQ(enterAnswers(everyEffect), DWORD{DROPEFFECT_COPY}) << "afterwards it does again";
}

TEST_F(SiteListAsDropTarget, DraggingOverItAndAwayDoesNothing)
{
    startWithOneSite();
    Answers none;
    EXPECT_EQ(enterAnswers(everyEffect), DWORD{DROPEFFECT_COPY});
    EXPECT_EQ(overAnswers(everyEffect), DWORD{DROPEFFECT_COPY});
    EXPECT_EQ(target()->DragLeave(), S_OK);
    pump();
    EXPECT_ANSWERED(none);
    EXPECT_EQ(sites(), Lines{L"Old|http://z/||1/1/2001"});
}

TEST_F(SiteListAsDropTarget, RefusesCallsWithoutDataOrEffect)
{
    startWithOneSite();
    DroppedObject link;
    DWORD effect = everyEffect;
    Answers none;
    EXPECT_EQ(target()->DragEnter(&link, 0, {}, nullptr), E_INVALIDARG);
    EXPECT_EQ(target()->DragOver(0, {}, nullptr), E_INVALIDARG);
    EXPECT_EQ(target()->Drop(&link, 0, {}, nullptr), E_INVALIDARG);
    EXPECT_EQ(target()->Drop(nullptr, 0, {}, &effect), E_INVALIDARG);
    pump();
    EXPECT_ANSWERED(none);
}

TEST_F(SiteListAsDropTarget, ThatASourceStillHoldsAfterTheWindowIsGoneTakesNothing)
{
    startWithOneSite();
    IDropTarget* const held = target();
    held->AddRef();
    stop();
    DroppedObject link;
    link.withAnsi("http://x/");
    DWORD effect = everyEffect;
    EXPECT_EQ(held->DragEnter(&link, 0, {}, &effect), S_OK);
    EXPECT_EQ(effect, DWORD{DROPEFFECT_NONE});
    effect = everyEffect;
    EXPECT_EQ(held->Drop(&link, 0, {}, &effect), S_OK);
    EXPECT_EQ(effect, DWORD{DROPEFFECT_NONE});
    pump();
    EXPECT_EQ(held->Release(), 0U);
    EXPECT_FALSE(link.inUse());
}

} // namespace
} // namespace vandrel::test
