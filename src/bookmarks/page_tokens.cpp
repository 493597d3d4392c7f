#include "bookmarks/page_tokens.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vandrel {
namespace {

constexpr std::size_t none = std::string_view::npos;

char asciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
bool isAsciiLetter(char c) { return asciiLower(c) >= 'a' && asciiLower(c) <= 'z'; }

// Kinds of bytes, as flags.
enum Kind : unsigned char { blank = 1, bracket = 2, slash = 4, equals = 8 };

constexpr std::array<unsigned char, 256> kindsOfBytes = [] {
    std::array<unsigned char, 256> kinds{};
    for (const char c : {' ', '\n', '\r', '\t', '\f'}) kinds[static_cast<unsigned char>(c)] = blank;
    kinds['<'] = kinds['>'] = bracket;
    kinds['/'] = slash;
    kinds['='] = equals;
    return kinds;
}();

unsigned kindOf(char c) { return kindsOfBytes[static_cast<unsigned char>(c)]; }

PageTag tagOf(std::string_view name)
{
    static constexpr std::array<std::pair<std::string_view, PageTag>, 9> tags{{{"a", PageTag::anchor},
                                                                               {"dt", PageTag::term},
                                                                               {"dl", PageTag::list},
                                                                               {"h3", PageTag::heading},
                                                                               {"dd", PageTag::definition},
                                                                               {"p", PageTag::lineBreak},
                                                                               {"br", PageTag::lineBreak},
                                                                               {"hr", PageTag::rule},
                                                                               {"meta", PageTag::meta}}};
    for (const auto& [known, tag] : tags) {
        if (isAsciiText(name, known)) return tag;
    }
    return PageTag::other;
}

// Not at all, or before `at`.
bool isBehind(std::size_t at, std::size_t last) { return last == none || last < at; }

} // namespace

bool isAsciiBlank(char c) { return kindOf(c) == blank; }

bool isAsciiText(std::string_view text, std::string_view lower)
{
    return text.size() == lower.size() &&
           std::ranges::equal(text, lower, [](char a, char b) { return asciiLower(a) == b; });
}

PageTokens::PageTokens(std::string_view page)
    : page_(page),
      lastQuote_(page.rfind('"')),
      lastApostrophe_(page.rfind('\'')),
      lastCommentEnd_(page.rfind("-->"))
{}

std::optional<PageToken> PageTokens::next()
{
    while (at_ < page_.size()) {
        if (!beginsMarkup(at_)) return takeText();
        const char kind = page_[at_ + 1];
        if (kind == '!' || kind == '?') skipDeclaration();
        else if (auto tag = takeTag()) return tag;
    }
    return std::nullopt;
}

// "a < b" and "<3" are text.
bool PageTokens::beginsMarkup(std::size_t at) const
{
    const std::string_view begin = page_.substr(at, 3);
    if (begin.size() < 2 || begin[0] != '<') return false;
    if (begin[1] == '/') return begin.size() > 2 && isAsciiLetter(begin[2]);
    return isAsciiLetter(begin[1]) || begin[1] == '!' || begin[1] == '?';
}

PageToken PageTokens::takeText()
{
    const std::size_t begin = at_;
    do at_ = find('<', at_ + 1);
    while (at_ < page_.size() && !beginsMarkup(at_));
    PageToken token;
    token.text = page_.substr(begin, at_ - begin);
    return token;
}

void PageTokens::skipDeclaration()
{
    const bool comment = page_.substr(at_).starts_with("<!--") && !isBehind(at_ + 2, lastCommentEnd_);
    const std::size_t last = comment ? page_.find("-->", at_ + 2) + 2 : find('>', at_);
    steps_ += comment ? last - at_ : 0;
    at_ = std::min(last + 1, page_.size());
}

std::optional<PageToken> PageTokens::takeTag()
{
    PageToken token;
    token.kind = page_[at_ + 1] == '/' ? PageToken::Kind::endTag : PageToken::Kind::startTag;
    at_ += token.kind == PageToken::Kind::endTag ? 2 : 1;
    token.tag = tagOf(takeUpTo(blank | bracket | slash));
    for (skip(blank | slash); at_ < page_.size() && kindOf(page_[at_]) != bracket; skip(blank | slash))
        takeAttribute(token);
    if (at_ == page_.size()) return std::nullopt;
    if (page_[at_] == '>') ++at_;
    ++steps_;
    return token;
}

void PageTokens::takeAttribute(PageToken& token)
{
    const std::size_t begin = at_;
    if (page_[at_] == '=') ++at_; // belongs to the name, or the name would be none
    takeUpTo(blank | bracket | slash | equals);
    const std::string_view name = page_.substr(begin, at_ - begin);
    skip(blank);
    if (at_ == page_.size() || page_[at_] != '=') return;
    ++at_;
    skip(blank);
    const std::string_view value = takeValue();
    const auto keep = [&](std::string_view known, std::optional<std::string_view>& kept) {
        if (!kept && isAsciiText(name, known)) kept = value;
    };
    keep("href", token.address);
    keep("add_date", token.added);
    keep("charset", token.charset);
    keep("content", token.content);
}

std::string_view PageTokens::takeValue()
{
    if (at_ == page_.size()) return {};
    const char first = page_[at_];
    if (first != '"' && first != '\'') return takeUpTo(blank | bracket);
    ++at_;
    return takeQuoted(first);
}

std::string_view PageTokens::takeQuoted(char mark)
{
    const std::size_t begin = at_;
    if (!isBehind(begin, mark == '"' ? lastQuote_ : lastApostrophe_)) {
        const std::size_t end = find(mark, begin);
        const std::string_view value = page_.substr(begin, end - begin);
        if (!isUnclosed(value)) {
            at_ = end + 1;
            return value;
        }
    }
    at_ = find('>', begin);
    return page_.substr(begin, at_ - begin);
}

// A value that goes on over the entries of the lines below lacks its quotation mark. In a script, which an
// address may be, "<" alone says nothing.
bool PageTokens::isUnclosed(std::string_view value)
{
    steps_ += value.size();
    for (std::size_t at = value.find('<'); at != none; at = value.find('<', at + 1)) {
        const std::string_view tag = value.substr(at + 1);
        if (!isAsciiText(tag.substr(0, 2), "dt") && !isAsciiText(tag.substr(0, 3), "/dl")) continue;
        std::size_t before = at;
        while (before > 0 && (value[before - 1] == ' ' || value[before - 1] == '\t')) --before;
        if (before > 0 && (value[before - 1] == '\n' || value[before - 1] == '\r')) return true;
    }
    return false;
}

std::string_view PageTokens::takeUpTo(unsigned kinds)
{
    const std::size_t begin = at_;
    while (at_ < page_.size() && (kindOf(page_[at_]) & kinds) == 0) ++at_;
    steps_ += at_ - begin;
    return page_.substr(begin, at_ - begin);
}

void PageTokens::skip(unsigned kinds)
{
    const std::size_t begin = at_;
    while (at_ < page_.size() && (kindOf(page_[at_]) & kinds) != 0) ++at_;
    steps_ += at_ - begin;
}

std::size_t PageTokens::find(char c, std::size_t from)
{
    const std::size_t found = std::min(page_.find(c, from), page_.size());
    steps_ += found - std::min(from, found);
    return found;
}

} // namespace vandrel
