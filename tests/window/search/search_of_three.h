#pragma once

#include "tests/support/search_test.h"

namespace vandrel::test {

// Categories of twelve, three and seven sites. A search dispatches messages three times.
class SearchOfThreeTest : public SearchTest {
  protected:
    SearchOfThreeTest()
    {
        folder.write(L"A.udb", manySites("a", 12));
        folder.write(L"B.udb", manySites("b", 3));
        folder.write(L"C.udb", manySites("c", 7));
        start();
        open();
    }
};

} // namespace vandrel::test
