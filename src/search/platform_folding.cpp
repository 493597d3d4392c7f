#include "search/platform_folding.h"

#include <windows.h>

#include <numeric>

namespace vandrel {
namespace {

constexpr std::size_t unitCount = 0x10000;

bool isSame(std::wstring_view a, std::wstring_view b)
{
    return CompareStringEx(LOCALE_NAME_USER_DEFAULT, NORM_IGNORECASE, a.data(), static_cast<int>(a.size()),
                           b.data(), static_cast<int>(b.size()), nullptr, nullptr, 0) == CSTR_EQUAL;
}

std::wstring mapped(const std::wstring& text, DWORD mapping)
{
    const auto length = static_cast<int>(text.size());
    std::wstring result(text.size(), L'\0');
    LCMapStringEx(LOCALE_NAME_USER_DEFAULT, mapping, text.data(), length, result.data(), length, nullptr,
                  nullptr, 0);
    return result;
}

CaseFolding makeFolding()
{
    std::wstring units(unitCount, L'\0');
    std::iota(units.begin(), units.end(), L'\0');
    // Through the capital letter, which two small ones may share.
    const std::wstring lower = mapped(mapped(units, LCMAP_UPPERCASE), LCMAP_LOWERCASE);
    CaseFolding folding;
    folding.units.assign(units.begin(), units.end());
    for (std::size_t unit = 0; unit < unitCount; ++unit) {
        const wchar_t other = lower[unit];
        if (other != units[unit] && isSame({&units[unit], 1}, {&other, 1})) folding.units[unit] = other;
    }
    // The system gives the sigma at the end of a word no capital letter, yet compares it like any other
    // sigma.
    constexpr wchar_t finalSigma = L'\u03C2';
    constexpr wchar_t sigma = L'\u03C3';
    if (isSame({&finalSigma, 1}, {&sigma, 1})) folding.units[finalSigma] = sigma;
    // Candidates for letters that count as several; the system decides which do.
    constexpr std::pair<wchar_t, std::wstring_view> several[] = {
        {L'\u00DF', L"ss"}, {L'\u1E9E', L"ss"},  {L'\u00E6', L"ae"},  {L'\u00C6', L"ae"},
        {L'\u0153', L"oe"}, {L'\u0152', L"oe"},  {L'\u00FE', L"th"},  {L'\u00DE', L"th"},
        {L'\u0133', L"ij"}, {L'\u0132', L"ij"},  {L'\uFB00', L"ff"},  {L'\uFB01', L"fi"},
        {L'\uFB02', L"fl"}, {L'\uFB03', L"ffi"}, {L'\uFB04', L"ffl"}, {L'\uFB06', L"st"},
    };
    for (const auto& [unit, text] : several) {
        if (isSame({&unit, 1}, text)) folding.expansions.push_back({unit, std::wstring(text)});
    }
    return folding;
}

} // namespace

const CaseFolding& platformFolding()
{
    static const CaseFolding folding = makeFolding();
    return folding;
}

} // namespace vandrel
