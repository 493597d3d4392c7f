#include "tests/support/search_test.h"

namespace vandrel::test {
namespace {

// Names with letters of code page 1252.
class BothSearches : public SearchTest {
  protected:
    BothSearches()
    {
        folder.write(L"Names.udb", "first||\r\nMusterstra\xDF"
                                   "e||\r\nCAF\xC9||\r\n\xC6on||\r\nI||\r\n");
        start();
        open();
    }
    std::wstring foundByQuickSearch(const std::wstring& term)
    {
        lstInfo().select(0);
        main->searchPanel().cmbSearch.setText(term);
        SendMessageW(main->searchPanel().cmdSearch.handle(), BM_CLICK, 0, 0);
        return lstInfo().text(*lstInfo().currentRow());
    }
};

TEST_F(BothSearches, TreatTheSameLettersAsEqual)
{
    const std::pair<const wchar_t*, const wchar_t*> terms[] = {
        {L"MUSTERSTRASSE", L"Musterstra\u00DFe"},
        {L"musterstra\u1E9Ee", L"Musterstra\u00DFe"},
        {L"caf\u00E9", L"CAF\u00C9"},
        {L"\u00E6ON", L"\u00C6on"},
    };
    for (const auto& [term, name] : terms) {
        EXPECT_EQ(foundByQuickSearch(term), name);
        EXPECT_EQ(foundIn(allSections, false, term), Lines{name});
        EXPECT_EQ(foundIn(nameOnly, false, term), Lines{name});
        EXPECT_EQ(foundIn(nameOnly, true, term), Lines{L"No results found."});
    }
}

} // namespace
} // namespace vandrel::test
