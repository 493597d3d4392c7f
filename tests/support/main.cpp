#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
