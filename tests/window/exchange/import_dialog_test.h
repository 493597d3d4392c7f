#pragma once

#include "tests/support/import_test.h"

namespace vandrel::test {

class ImportDialogTest : public ImportTest {
  protected:
    // Opens the dialog, calls `at` with it and cancels it.
    void look(const std::function<void(const ImportDialog&)>& at)
    {
        open([&](const ImportDialog& dialog) {
            at(dialog);
            dialog.cancel();
        });
    }
    static std::wstring driveOf(const std::wstring& path) { return path.substr(0, 2); }
    static std::wstring nameOf(const std::wstring& path) { return path.substr(path.rfind(L'\\') + 1); }
};

} // namespace vandrel::test
