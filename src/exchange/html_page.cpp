#include "exchange/html_page.h"

#include "platform/text/number_text.h"

#include <initializer_list>

namespace vandrel {
namespace {

constexpr std::wstring_view lineEnd = L"\r\n";

void append(std::wstring& text, std::initializer_list<std::wstring_view> pieces)
{
    for (const std::wstring_view piece : pieces) text += piece;
}

} // namespace

HtmlPage::HtmlPage(const OptionsState& options)
{
    append(text_, {L"<font face=\"", options.htmlFont, L"\"><table align=center width=",
                   options.htmlTableWidth, L" border=", decimalText(static_cast<long>(options.htmlBorder)),
                   L" bordercolorlight=#ffffff bordercolordark=#999999>",
                   L"<tr><th>Site Name</th><th>Site URL</th><th>Site Description</th></tr>", lineEnd});
}

void HtmlPage::addTitle(std::wstring_view category)
{
    // Contract: no line end here: the first site follows on the same line.
    append(text_, {L"<tr><td colspan=3 align=center><b>", category, L"</b></td></tr>"});
}

void HtmlPage::addSite(const CompactText& name, const CompactText& url, const CompactText& description)
{
    // Contract: nothing is escaped.
    appendSiteRow(text_, name, url, description);
}

void HtmlPage::end(std::wstring_view site)
{
    append(text_, {L"</table><center><font size=2>Generated with Vandrel by <a href=\"", site,
                   L"\">Brisan Software</a></font></center></font>"});
}

} // namespace vandrel
