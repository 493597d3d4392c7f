#include "shared/vendor.h"
#include "tests/window/reach/reach_test.h"

namespace vandrel::test {
namespace {

// The controls in tab order, beginning with the one that has the focus at first.
const std::map<Shown, Names> stops{
    {Shown::mainWindow, {L"Categories", L"Sites", L"Quick Search", L"Quick Search"}},
    {Shown::siteEditor, {L"Site Name:", L"Site URL:", L"Description:", L"OK", L"Cancel", L"..."}},
    {Shown::properties, {L"OK", L"Name:", L"http://b.example/", L"Description:"}},
    {Shown::import, {L"Files:", L"Import", L"Import All", L"Cancel", L"Drive:", L"Folders:"}},
    {Shown::search,
     {L"Search Term:", L"Search", L"All Sections", L"Case Sensitive", L"Search Results", L"Close"}},
    {Shown::options,
     {L"Overall Font Name:", L"Font Size:", L"Bold", L"Italic", L"Font Color...", L"OK", L"Cancel",
      L"Pages"}},
    {Shown::htmlOptions,
     {L"Pages", L"HTML Font Name:", L"Border:", L"Width:", L"Generate Empty Categories", L"OK", L"Cancel"}},
    {Shown::about, {L"OK", L"Pages", makersEmail, makersSite.substr(makersSite.find(L"www"))}},
    {Shown::inputBox, {L"Please enter a title for the new category.", L"OK", L"Cancel"}},
};

class TabStops : public ReachTest, public testing::WithParamInterface<Shown> {};

TEST_P(TabStops, TabGoesThroughAllInOrder)
{
    in(GetParam(), [](HWND) { EXPECT_EQ(stopsFromFocus(false), stops.at(GetParam())); });
}

TEST_P(TabStops, ShiftTabGoesTheSameWayBack)
{
    Names backwards = stops.at(GetParam());
    std::reverse(backwards.begin() + 1, backwards.end());
    in(GetParam(), [&](HWND) { EXPECT_EQ(stopsFromFocus(true), backwards); });
}

INSTANTIATE_TEST_SUITE_P(EveryWindow, TabStops, testing::ValuesIn(allShown));

} // namespace
} // namespace vandrel::test
