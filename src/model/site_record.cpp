#include "model/site_record.h"

#include "platform/text/simd_bytes.h"

#include <array>
#include <bit>

namespace vandrel {
namespace {

template <typename Unit> using View = std::basic_string_view<Unit>;

constexpr std::size_t npos = std::wstring_view::npos;

// Takes the text up to the first CR or LF off the front of `text`.
template <typename Unit> View<Unit> takeLine(View<Unit>& text)
{
    constexpr std::array<Unit, 2> ends{'\r', '\n'};
    const std::size_t end = text.find_first_of(View<Unit>(ends.data(), ends.size()));
    const View<Unit> line = text.substr(0, end);
    text = end == npos ? View<Unit>{} : text.substr(end + 1);
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

const char* nextSpecial(const char* p, const char* end)
{
    const ByteVector lastControl = ByteVector::all('\r');
    const ByteVector separator = ByteVector::all('|');
    for (; end - p >= static_cast<std::ptrdiff_t>(bytesInVector); p += bytesInVector) {
        const ByteVector bytes = ByteVector::load(p);
        const std::uint32_t special = (bytes.atMost(lastControl) | bytes.equal(separator)).mask();
        if (special != 0) return p + std::countr_zero(special);
    }
    while (p != end && static_cast<unsigned char>(*p) > '\r' && *p != '|') ++p;
    return p;
}

// One pass over the line at the front of `text`: opening a large category spends its time in this loop.
template <typename Unit> ScannedLine scanLine(View<Unit> text)
{
    ScannedLine line;
    const Unit* const begin = text.data();
    const Unit* const end = begin + text.size();
    for (const Unit* p = nextSpecial(begin, end); p != end; p = nextSpecial(p + 1, end)) {
        if (*p == '|') {
            if (line.separatorCount < line.separators.size()) {
                line.separators[line.separatorCount] = static_cast<std::size_t>(p - begin);
            }
            ++line.separatorCount;
        } else if (*p == '\r') {
            if (p + 1 != end && p[1] == '\n') {
                line.length = static_cast<std::size_t>(p - begin);
                line.consumed = line.length + 2;
                return line;
            }
            line.loneLineEnd = true;
        } else if (*p == '\n') {
            line.loneLineEnd = true;
        }
    }
    line.length = line.consumed = text.size();
    return line;
}

template <typename Unit> bool isComment(View<Unit> line) { return line.starts_with(Unit{';'}); }

template <typename Unit> BasicSiteRecord<Unit> siteOf(View<Unit> text, const ScannedLine& line)
{
    std::array<View<Unit>, 4> pieces;
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

template <typename Unit> std::optional<BasicSiteRecord<Unit>> siteOfOneLine(View<Unit> line)
{
    const ScannedLine scanned = scanLine(line);
    if (isComment(line) || scanned.separatorCount == 0) return std::nullopt;
    return siteOf(line, scanned);
}

} // namespace

std::optional<SiteRecord> siteOfLine(std::wstring_view line) { return siteOfOneLine(line); }

template <typename Unit> std::optional<BasicSiteRecord<Unit>> BasicSiteRecordReader<Unit>::nextOfCut()
{
    while (!cut_.empty()) {
        if (const auto site = siteOfOneLine(takeLine(cut_))) return site;
    }
    return std::nullopt;
}

template <typename Unit> std::optional<BasicSiteRecord<Unit>> BasicSiteRecordReader<Unit>::next()
{
    if (const auto site = nextOfCut()) return site;
    while (!rest_.empty()) {
        const Text text = rest_;
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

template class BasicSiteRecordReader<wchar_t>;
template class BasicSiteRecordReader<char>;

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
