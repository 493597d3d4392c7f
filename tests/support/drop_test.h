#pragma once

#include "mainwindow/menu_entries.h"
#include "tests/support/dropped_object.h"
#include "tests/support/site_editor.h"
#include "tests/support/store_test.h"

#include <gtest/gtest.h>

namespace vandrel::test {

inline constexpr DWORD everyEffect = DROPEFFECT_COPY | DROPEFFECT_LINK | DROPEFFECT_MOVE;
inline constexpr const char* oneSite = "Old|http://z/||1/1/2001\r\n";

// The main window with things dropped on its site list, as the system hands them over.
class DropTest : public StoreTest {
  protected:
    void startWithOneSite()
    {
        folder.write(L"Work.udb", oneSite);
        start();
    }
    // The drop target that the system calls when something is dragged over the window; null when the window
    // takes no drops.
    static IDropTarget* dropTargetOf(HWND window)
    {
        return static_cast<IDropTarget*>(GetPropW(window, L"OleDropTargetInterface"));
    }
    IDropTarget* target() { return dropTargetOf(lstInfo().handle()); }

    // Drags from entering the list to letting go, and returns the effect that Drop answers. What the
    // program does with the drop waits until messages are dispatched.
    DWORD letGo(DroppedObject& data, DWORD allowed = everyEffect, POINTL at = {5, 5}, DWORD keys = MK_LBUTTON)
    {
        DWORD effect = allowed;
        EXPECT_EQ(target()->DragEnter(&data, keys, at, &effect), S_OK);
        effect = allowed;
        EXPECT_EQ(target()->DragOver(keys, at, &effect), S_OK);
        effect = allowed;
        EXPECT_EQ(target()->Drop(&data, 0, at, &effect), S_OK);
        EXPECT_FALSE(data.inUse());
        return effect;
    }
    void drop(DroppedObject& data)
    {
        letGo(data);
        pump();
    }
    // Drops it, and answers the editor that opens.
    void dropAndAnswer(DroppedObject& data, std::function<void(HWND)> answer)
    {
        Answers answers;
        answers.expect(addCaption, std::move(answer));
        drop(data);
        EXPECT_ANSWERED(answers);
    }
    // The address that the editor shows after a drop. The editor is then cancelled.
    std::wstring addressAfter(DroppedObject& data)
    {
        std::wstring address = L"(no editor)";
        dropAndAnswer(data, [&](HWND dialog) {
            address = fieldText(dialog, editor::address);
            press(dialog, IDCANCEL);
        });
        return address;
    }
    std::wstring addressOfTheNextAdd()
    {
        std::wstring address = L"(no editor)";
        Answers answers;
        answers.expect(addCaption, [&](HWND dialog) {
            address = fieldText(dialog, editor::address);
            press(dialog, IDCANCEL);
        });
        choose(mnuAddWebsite);
        EXPECT_ANSWERED(answers);
        return address;
    }
};

} // namespace vandrel::test
