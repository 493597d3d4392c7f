#include "model/site_lines.h"

#include "platform/base/prefetch.h"

#include <cstdint>
#include <string_view>
#include <utility>

namespace vandrel {
namespace {

// What ends a field or a line, in both kinds of text.
struct Separator {
    std::string_view latin;
    std::wstring_view wide;
};
constexpr Separator fieldEnd{"|", L"|"};
constexpr Separator lineEnd{"\r\n", L"\r\n"};

CompactText like(const CompactText& text, const Separator& separator)
{
    return text.isLatin() ? CompactText::ofLatin(separator.latin) : CompactText(separator.wide);
}

const char* endOf(const CompactText& text)
{
    const std::size_t unit = text.isLatin() ? sizeof(char) : sizeof(wchar_t);
    return static_cast<const char*>(text.data()) + text.size() * unit;
}

// The piece, the separator and the text as one, which they are in memory.
CompactText joined(const CompactText& piece, const CompactText& separator, const CompactText& text)
{
    const std::size_t size = piece.size() + separator.size() + text.size();
    if (piece.isLatin()) return CompactText::ofLatin({piece.latin().data(), size});
    return std::wstring_view(piece.wide().data(), size);
}

// Whether `text` already follows the piece and the separator in memory. Texts of different owners are never
// that close.
bool continues(const CompactText& piece, const CompactText& separator, const CompactText& text)
{
    if (piece.isLatin() != text.isLatin()) return false;
    const CompactText behind = joined(piece, separator, {}).substr(piece.size());
    return endOf(behind) == text.data() && behind == separator;
}

constexpr std::size_t rowsAhead = 8;

void prefetchText(const CompactText& text)
{
    constexpr std::uintptr_t cacheLine = 64; // bytes
    const std::uintptr_t usualSite = (text.isLatin() ? 2 : 4) * cacheLine;
    const auto begin = reinterpret_cast<std::uintptr_t>(text.data());
    for (std::uintptr_t at = begin; at < begin + usualSite; at += cacheLine) prefetch(at);
}

} // namespace

CompactText SiteLines::next()
{
    while (true) {
        if (!separator_.empty()) return std::exchange(separator_, {});
        if (rows_.empty()) return {};
        if (const CompactText run = takeRun(); !run.empty()) return run;
    }
}

// A whole line where there is one, else a field.
CompactText SiteLines::piece() const
{
    const RowTexts& texts = rows_.front().texts;
    const CompactText line = field_ == 0 ? texts.line() : CompactText();
    return line.empty() ? texts[field_] : line;
}

void SiteLines::passPiece()
{
    const bool wholeLine = field_ == 0 && !rows_.front().texts.line().empty();
    const bool lineEnds = wholeLine || field_ + 1 == RowTable::maxColumns;
    field_ = lineEnds ? 0 : field_ + 1;
    separator_ = like(rows_.front().texts[0], lineEnds ? lineEnd : fieldEnd);
    if (lineEnds) rows_ = rows_.subspan(1);
}

CompactText SiteLines::takeRun()
{
    // The texts of sorted rows are scattered in memory.
    if (rows_.size() > rowsAhead) prefetchText(rows_[rowsAhead].texts[0]);
    CompactText run = piece();
    passPiece();
    while (!rows_.empty() && continues(run, separator_, piece())) {
        run = joined(run, separator_, piece());
        passPiece();
    }
    return run;
}

} // namespace vandrel
