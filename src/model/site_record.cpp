#include "model/site_record.h"

#include "platform/text/simd.h"

#include <array>

namespace vandrel {
namespace {

constexpr std::wstring_view loneLineEnds = L"\r\n";

// Takes the text up to the first of `ends` off the front of `text`.
std::wstring_view takeLine(std::wstring_view& text, std::wstring_view ends)
{
    const std::size_t end = text.find_first_of(ends);
    const std::wstring_view line = text.substr(0, end);
    text = end == std::wstring_view::npos ? std::wstring_view{} : text.substr(end + 1);
    return line;
}

struct ScannedLine {
    std::array<std::size_t, 4> separators{}; // of the first four
    std::size_t separatorCount = 0;
    std::size_t length = 0;   // without the line end
    std::size_t consumed = 0; // with it
    bool loneLineEnd = false;
};

// The next unit that may matter in a line: a separator, a line end, or another control character.
const wchar_t* nextSpecial(const wchar_t* p, const wchar_t* end)
{
    const UnitVector lastControl = UnitVector::all(L'\r');
    const UnitVector separator = UnitVector::all(fieldSeparator);
    for (; p + unitsInVector <= end; p += unitsInVector) {
        const UnitVector units = UnitVector::load(p);
        const UnitVector special = units.atMost(lastControl) | units.equal(separator);
        if (const std::size_t unit = special.first(); unit < unitsInVector) return p + unit;
    }
    while (p != end && *p > L'\r' && *p != fieldSeparator) ++p;
    return p;
}

// One pass over the line at the front of `text`: opening a large category spends its time in this loop.
ScannedLine scanLine(std::wstring_view text)
{
    ScannedLine line;
    const wchar_t* const begin = text.data();
    const wchar_t* const end = begin + text.size();
    for (const wchar_t* p = nextSpecial(begin, end); p != end; p = nextSpecial(p + 1, end)) {
        if (*p == fieldSeparator) {
            if (line.separatorCount < line.separators.size()) {
                line.separators[line.separatorCount] = static_cast<std::size_t>(p - begin);
            }
            ++line.separatorCount;
        } else if (*p == L'\r') {
            if (p + 1 != end && p[1] == L'\n') {
                line.length = static_cast<std::size_t>(p - begin);
                line.consumed = line.length + 2;
                return line;
            }
            line.loneLineEnd = true;
        } else if (*p == L'\n') {
            line.loneLineEnd = true;
        }
    }
    line.length = line.consumed = text.size();
    return line;
}

bool isComment(std::wstring_view line) { return line.starts_with(L';'); }

SiteRecord siteOf(std::wstring_view text, const ScannedLine& line)
{
    std::array<std::wstring_view, 4> pieces;
    std::size_t start = 0;
    for (std::size_t piece = 0; piece < pieces.size(); ++piece) {
        const std::size_t end = piece < line.separatorCount ? line.separators[piece] : line.length;
        pieces[piece] = text.substr(start, end - start);
        if (piece >= line.separatorCount) break;
        start = end + 1;
    }
    // Contract: pieces after the fourth are dropped.
    return {pieces[0], pieces[1], pieces[2], pieces[3]};
}

} // namespace

std::optional<SiteRecord> siteOfLine(std::wstring_view line)
{
    const ScannedLine scanned = scanLine(line);
    if (isComment(line) || scanned.separatorCount == 0) return std::nullopt;
    return siteOf(line, scanned);
}

std::optional<SiteRecord> SiteRecordReader::nextOfCut()
{
    while (!cut_.empty()) {
        if (const auto site = siteOfLine(takeLine(cut_, loneLineEnds))) return site;
    }
    return std::nullopt;
}

std::optional<SiteRecord> SiteRecordReader::next()
{
    if (const auto site = nextOfCut()) return site;
    while (!rest_.empty()) {
        const std::wstring_view text = rest_;
        const ScannedLine line = scanLine(text);
        rest_.remove_prefix(line.consumed);
        const bool comment = isComment(text);
        if (line.loneLineEnd && (comment || line.separatorCount > 3)) {
            cut_ = text.substr(0, line.length);
            if (const auto site = nextOfCut()) return site;
        } else if (!comment && line.separatorCount > 0) {
            return siteOf(text, line);
        }
    }
    return std::nullopt;
}

std::wstring withoutLineEnds(std::wstring_view text)
{
    std::wstring line;
    line.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool lineEnd = text[at] == L'\r' || text[at] == L'\n';
        line += lineEnd ? L' ' : text[at];
        if (text.substr(at, 2) == L"\r\n") ++at;
    }
    return line;
}

} // namespace vandrel
