#include "exchange_tool/exchange_report.h"

#include <algorithm>

namespace vandrel {
namespace {

constexpr std::size_t mostTitlesTold = 5;
constexpr std::size_t mostLinesShown = 10;

std::wstring sites(std::size_t count) { return counted(count, L"site", L"sites"); }

std::wstring quoted(const std::wstring& text) { return L"\u201C" + text + L"\u201D"; }

// "a, b and 3 more"
std::wstring someOf(const std::vector<std::wstring>& texts, std::size_t all)
{
    std::wstring some;
    for (const std::wstring& text : texts) some += (some.empty() ? L"" : L", ") + quoted(text);
    if (all > texts.size()) some += L" and " + std::to_wstring(all - texts.size()) + L" more";
    return some;
}

void tellNewTitles(const ImportOutcome& outcome, ExchangeReport& report)
{
    std::vector<std::wstring> some;
    std::size_t renamed = 0;
    for (const auto& category : outcome.categories) {
        if (category.title == category.wanted) continue;
        if (++renamed <= mostTitlesTold) some.push_back(category.title);
    }
    if (renamed == 0) return;
    report.details.push_back((renamed == 1 ? L"One title was taken already, so the new category is called "
                                           : L"Some titles were taken already, so the new categories are "
                                             L"called ") +
                             someOf(some, renamed) + L".");
}

} // namespace

std::wstring counted(std::size_t count, const std::wstring& one, const std::wstring& many)
{
    return std::to_wstring(count) + L" " + (count == 1 ? one : many);
}

ExchangeReport reportOf(const ImportOutcome& outcome)
{
    ExchangeReport report;
    report.headline = sites(outcome.sites) + L" brought in, in " +
                      counted(outcome.categories.size(), L"new category", L"new categories");
    tellNewTitles(outcome, report);
    if (outcome.sitesWithLostLetters > 0) {
        report.allKept = false;
        const bool one = outcome.sitesWithLostLetters == 1;
        report.details.push_back(sites(outcome.sitesWithLostLetters) + (one ? L" has" : L" have") +
                                 L" letters that the code page of category files lacks. \u201C?\u201D stands "
                                 L"for each of these letters, in " +
                                 someOf(outcome.firstWithLostLetters, outcome.sitesWithLostLetters) + L".");
    }
    report.details.emplace_back(L"Vandrel shows new categories the next time it is started.");
    for (const auto& category : outcome.categories)
        report.list.push_back(category.title + L": " + sites(category.sites));
    return report;
}

ExchangeReport reportOf(const ExportOutcome& outcome, const std::wstring& file)
{
    ExchangeReport report;
    report.headline = sites(outcome.sites) + L" of " +
                      counted(outcome.categories, L"category", L"categories") + L" written";
    report.details.push_back(file);
    if (outcome.sitesWithoutDate > 0) {
        report.allKept = false;
        const bool one = outcome.sitesWithoutDate == 1;
        report.details.push_back(sites(outcome.sitesWithoutDate) + (one ? L" has a date" : L" have dates") +
                                 L" that cannot be read, and " + (one ? L"is" : L"are") +
                                 L" in the file without.");
    }
    if (outcome.sitesWithLostLetters > 0) {
        report.allKept = false;
        const bool one = outcome.sitesWithLostLetters == 1;
        report.details.push_back(
            sites(outcome.sitesWithLostLetters) + (one ? L" has" : L" have") +
            L" bytes that are no letters in the code page. \u201C\uFFFD\u201D stands for "
            L"each of them.");
    }
    return report;
}

std::wstring linesOf(const ExchangeReport& report)
{
    constexpr const wchar_t* lineEnd = L"\r\n";
    std::wstring lines = report.headline + lineEnd;
    for (const std::wstring& line : report.list) lines += L"  " + line + lineEnd;
    for (const std::wstring& line : report.details) lines += line + lineEnd;
    return lines;
}

std::wstring firstOf(const std::vector<std::wstring>& list)
{
    std::wstring text;
    const std::size_t shown = list.size() <= mostLinesShown ? list.size() : mostLinesShown - 1;
    for (std::size_t i = 0; i < shown; ++i) text += (text.empty() ? L"" : L"\n") + list[i];
    if (shown < list.size()) text += L"\nand " + std::to_wstring(list.size() - shown) + L" more";
    return text;
}

} // namespace vandrel
