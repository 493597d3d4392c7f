#include "platform/text/compact_text.h"

#include "platform/text/simd.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace vandrel {
namespace {

using Unsigned = std::make_unsigned_t<wchar_t>;

void widen(std::string_view latin, wchar_t* text)
{
    const char* at = latin.data();
    const char* const end = at + latin.size();
    for (; end - at >= static_cast<std::ptrdiff_t>(unitsInVector); at += unitsInVector, text += unitsInVector)
        UnitVector::widenLatin(at, text);
    while (at != end) *text++ = static_cast<wchar_t>(static_cast<unsigned char>(*at++));
}

// As memcmp, which takes longer to call than most texts take to compare.
int compareLatin(std::string_view a, std::string_view b)
{
    const std::size_t both = std::min(a.size(), b.size());
    std::size_t at = 0;
    for (std::uint64_t one = 0, other = 0; at + sizeof one <= both; at += sizeof one) {
        std::memcpy(&one, a.data() + at, sizeof one);
        std::memcpy(&other, b.data() + at, sizeof other);
        if (one != other) break;
    }
    for (; at < both; ++at) {
        const auto one = static_cast<unsigned char>(a[at]);
        const auto other = static_cast<unsigned char>(b[at]);
        if (one != other) return one < other ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

} // namespace

std::wstring_view CompactText::wideIn(std::wstring& memory) const
{
    if (!isLatin()) return wide();
    memory.resize(size());
    widen(latin(), memory.data());
    return memory;
}

CompactText::operator std::wstring() const
{
    std::wstring text(size(), L'\0');
    copy(text.data(), size());
    return text;
}

CompactText CompactText::substr(std::size_t from, std::size_t most) const
{
    return isLatin() ? ofLatin(latin().substr(from, most)) : CompactText(wide().substr(from, most));
}

std::size_t CompactText::copy(wchar_t* to, std::size_t most) const
{
    if (!isLatin()) return wide().copy(to, most);
    const std::string_view part = latin().substr(0, most);
    widen(part, to);
    return part.size();
}

bool CompactText::wideFitsLatin() const
{
    return std::ranges::all_of(wide(), [](wchar_t unit) { return static_cast<Unsigned>(unit) <= 0xFF; });
}

void CompactText::narrow(char* to) const
{
    std::ranges::transform(wide(), to, [](wchar_t unit) { return static_cast<char>(unit); });
}

int CompactText::compare(const CompactText& other) const
{
    if (isLatin() && other.isLatin()) return compareLatin(latin(), other.latin());
    if (!isLatin() && !other.isLatin()) return wide().compare(other.wide());
    const std::size_t both = std::min(size(), other.size());
    for (std::size_t unit = 0; unit < both; ++unit) {
        if ((*this)[unit] != other[unit]) return (*this)[unit] < other[unit] ? -1 : 1;
    }
    return size() == other.size() ? 0 : (size() < other.size() ? -1 : 1);
}

std::wstring& operator+=(std::wstring& text, const CompactText& more)
{
    if (!more.isLatin()) return text += more.wide();
    const std::size_t before = text.size();
    text.resize(before + more.size());
    widen(more.latin(), text.data() + before);
    return text;
}

} // namespace vandrel
