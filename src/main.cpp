#include "mainwindow/frm_main.h"
#include "platform/base/guarded.h"
#include "platform/base/program.h"
#include "platform/base/system_error.h"
#include "platform/files/folder.h"
#include "platform/text/clock.h"

#include <commctrl.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR arguments, int showCommand)
{
    using namespace vandrel;
    keepSystemBoxesAway();
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);

    return static_cast<int>(guarded(nullptr, 1, [&]() -> LRESULT {
        frmMain window({.dataFolder = programFolder(),
                        .commandLine = arguments,
                        .settings = SettingsStore(programTitle),
                        .today = todayAsText});
        guarded(window.handle(), 0, [&]() -> LRESULT {
            window.Form_Load();
            return 0;
        });
        window.show(showCommand);
        MessageLoop::current().run();
        return 0;
    }));
}
