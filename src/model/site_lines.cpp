#include "model/site_lines.h"

#include "platform/base/prefetch.h"

#include <cstdint>
#include <utility>

namespace vandrel {
namespace {

constexpr std::wstring_view fieldEnd = L"|";
constexpr std::wstring_view lineEnd = L"\r\n";

// Whether `text` already follows the piece and the separator in memory. Texts of different owners are never
// that close.
bool continues(std::wstring_view piece, std::wstring_view separator, std::wstring_view text)
{
    const wchar_t* const end = piece.data() + piece.size();
    return end + separator.size() == text.data() && std::wstring_view(end, separator.size()) == separator;
}

constexpr std::size_t rowsAhead = 8;

void prefetchText(std::wstring_view text)
{
    constexpr std::uintptr_t cacheLine = 64; // bytes
    constexpr std::uintptr_t usualSite = 4 * cacheLine;
    const auto begin = reinterpret_cast<std::uintptr_t>(text.data());
    for (std::uintptr_t at = begin; at < begin + usualSite; at += cacheLine) prefetch(at);
}

} // namespace

std::wstring_view SiteLines::next()
{
    while (true) {
        if (!separator_.empty()) return std::exchange(separator_, {});
        if (rows_.empty()) return {};
        if (const std::wstring_view run = takeRun(); !run.empty()) return run;
    }
}

// A whole line where there is one, else a field.
std::wstring_view SiteLines::piece() const
{
    const RowTexts& texts = rows_.front().texts;
    const std::wstring_view line = field_ == 0 ? texts.line() : std::wstring_view();
    return line.empty() ? texts[field_] : line;
}

void SiteLines::passPiece()
{
    const bool wholeLine = field_ == 0 && !rows_.front().texts.line().empty();
    const bool lineEnds = wholeLine || field_ + 1 == RowTable::maxColumns;
    field_ = lineEnds ? 0 : field_ + 1;
    separator_ = lineEnds ? lineEnd : fieldEnd;
    if (lineEnds) rows_ = rows_.subspan(1);
}

std::wstring_view SiteLines::takeRun()
{
    // The texts of sorted rows are scattered in memory.
    if (rows_.size() > rowsAhead) prefetchText(rows_[rowsAhead].texts[0]);
    std::wstring_view run = piece();
    passPiece();
    while (!rows_.empty() && continues(run, separator_, piece())) {
        run = {run.data(), run.size() + separator_.size() + piece().size()};
        passPiece();
    }
    return run;
}

} // namespace vandrel
