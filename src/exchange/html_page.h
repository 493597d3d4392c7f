#pragma once

#include "platform/text/compact_text.h"
#include "shared/options_state.h"

#include <string>
#include <string_view>

namespace vandrel {

inline constexpr std::size_t siteRowMarkup = 53; // units of a site's row without its texts

// Adds the row of a site to a page, in letters or in the bytes of a code page that contains ASCII. Nothing is
// escaped: a description may hold markup of its own.
template <typename Page, typename Text>
void appendSiteRow(Page& page, const Text& name, const Text& url, const Text& description)
{
    const auto markup = [&page](std::string_view ascii) { page.append(ascii.begin(), ascii.end()); };
    markup("<tr><td>");
    page += name;
    markup("</td><td><a href=\"");
    page += url;
    markup("\">");
    page += url;
    markup("</a></td><td>");
    page += description;
    markup("</td></tr>\r\n");
}

// A page that lists sites in a table, as text. Nothing is escaped.
class HtmlPage {
  public:
    // Begins the page with its font, and the table with its width and border.
    explicit HtmlPage(const OptionsState& options);

    void addTitle(std::wstring_view category); // a row across all columns
    void addSite(const CompactText& name, const CompactText& url, const CompactText& description);
    // Ends the page; `site` is the maker's web site.
    void end(std::wstring_view site);

    // What was added since clear() was last called, so that nobody has to hold the whole page.
    std::wstring_view text() const { return text_; }
    void clear() { text_.clear(); }

  private:
    std::wstring text_;
};

} // namespace vandrel
