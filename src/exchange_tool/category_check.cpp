#include "exchange_tool/category_check.h"

#include "model/site_record.h"

#include <algorithm>
#include <utility>

namespace vandrel {
namespace {

constexpr std::size_t piecesOfASite = 4;

bool isLineEnd(wchar_t c) { return c == L'\r' || c == L'\n'; }

// Takes a line off the front of the text: up to CR LF alone, or up to any line end.
enum class Ends { crLf, any };
std::wstring_view takeLine(std::wstring_view& text, Ends ends)
{
    std::size_t end = ends == Ends::crLf ? text.find(L"\r\n") : text.find_first_of(L"\r\n");
    end = std::min(end, text.size());
    const std::wstring_view line = text.substr(0, end);
    text.remove_prefix(end);
    if (!text.empty()) text.remove_prefix(text.starts_with(L"\r\n") ? 2 : 1);
    return line;
}

std::size_t piecesOf(std::wstring_view line)
{
    return static_cast<std::size_t>(std::ranges::count(line, fieldSeparator)) + 1;
}

// Everything beyond ASCII is but punctuation.
bool isLetter(wchar_t c)
{
    if (c < 0x80) return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
    const bool punctuation = c < 0xC0 || (c >= 0x2000 && c <= 0x206F) || (c >= 0x3000 && c <= 0x303F) ||
                             (c >= 0xDC80 && c <= 0xDCFF); // a byte that is no letter
    return !punctuation;
}

} // namespace

void CategoryCheck::addCategory(const std::wstring& fileName, std::wstring_view text)
{
    files_.push_back(fileName);
    std::size_t number = 1;
    while (!text.empty()) {
        std::wstring_view line = takeLine(text, Ends::crLf);
        const bool loneEnd = std::ranges::any_of(line, isLineEnd);
        // As the reader of category files takes such a line: see BasicSiteRecordReader.
        const bool cut = loneEnd && (line.starts_with(L';') || piecesOf(line) > piecesOfASite);
        if (!cut) {
            checkLine(line, number++);
            number += static_cast<std::size_t>(std::ranges::count_if(line, isLineEnd));
            continue;
        }
        for (bool more = true; more; ++number) {
            more = std::ranges::any_of(line, isLineEnd);
            checkLine(takeLine(line, Ends::any), number);
        }
    }
}

void CategoryCheck::addFinding(const std::wstring& fileName, std::wstring_view what)
{
    ++findings_;
    new_.push_back(fileName + L": " + std::wstring(what));
}

void CategoryCheck::checkLine(std::wstring_view line, std::size_t number)
{
    if (line.starts_with(L';')) {
        add(number, L"a remark, which is gone after the next save");
    } else if (line.empty()) {
        add(number, L"an empty line");
    } else {
        const std::size_t pieces = piecesOf(line);
        const std::wstring count = std::to_wstring(pieces) + L" pieces instead of 4";
        if (pieces == 1) add(number, L"1 piece instead of 4, so this is no site");
        else if (pieces < piecesOfASite) add(number, count);
        else if (pieces > piecesOfASite) add(number, count + L"; those after the fourth are not read");
        if (pieces > 1) checkSite(line, number);
    }
}

void CategoryCheck::checkSite(std::wstring_view line, std::size_t number)
{
    const auto site = siteOfLine(line);
    if (!site) return;
    ++sites_;
    if (seemsToLackLetters(site->name))
        add(number, L"letters seem to be lost in the name: " + std::wstring(site->name));
    if (seemsToLackLetters(site->description))
        add(number, L"letters seem to be lost in the description: " + std::wstring(site->description));
    if (site->url.empty()) return;
    const auto [first, isNew] = addresses_.try_emplace(std::wstring(site->url),
                                                       Place{files_.size() - 1, number});
    if (isNew) return;
    add(number, L"the address is that of " + files_[first->second.file] + L":" +
                    std::to_wstring(first->second.line) + L", too: " + first->first);
}

void CategoryCheck::add(std::size_t line, const std::wstring& what)
{
    addFinding(files_.back() + L":" + std::to_wstring(line), what);
}

std::vector<std::wstring> CategoryCheck::takeFindings() { return std::exchange(new_, {}); }

bool seemsToLackLetters(std::wstring_view text)
{
    constexpr wchar_t lost = L'?';
    for (std::size_t at = text.find(lost); at != text.npos; at = text.find(lost, at)) {
        const std::size_t begin = at;
        while (at < text.size() && text[at] == lost) ++at;
        const bool inWord = begin > 0 && isLetter(text[begin - 1]);
        const bool wordGoesOn = at < text.size() && isLetter(text[at]);
        if (at - begin == 1 ? inWord && wordGoesOn : !inWord || wordGoesOn) return true;
    }
    return false;
}

} // namespace vandrel
