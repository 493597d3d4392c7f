#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace vandrel {

// The tags that mean something in a page of bookmarks.
enum class PageTag {
    other,
    anchor,     // A
    heading,    // H3: the name of a folder
    list,       // DL: what is in it
    term,       // DT: an entry
    definition, // DD: what is said about it
    rule,       // HR: a line between entries
    lineBreak,  // BR, P
    meta,
};

// A piece of a page. Texts and values stand as they are written and lie in the page.
struct PageToken {
    enum class Kind { text, startTag, endTag };

    Kind kind = Kind::text;
    PageTag tag = PageTag::other;
    std::string_view text; // what stands between tags
    // Attributes of a tag: HREF, ADD_DATE, CHARSET, CONTENT. Of two alike, the first counts.
    std::optional<std::string_view> address;
    std::optional<std::string_view> added;
    std::optional<std::string_view> charset;
    std::optional<std::string_view> content;
};

bool isAsciiBlank(char c); // a blank, a tab, a form feed or a line end

// Whether `text` is `lower` but for the case of ASCII letters.
bool isAsciiText(std::string_view text, std::string_view lower);

// Cuts a page into texts and tags, as browsers do, and where a quotation mark is missing, or an angle
// bracket, as the writer must have meant it. Comments and declarations are left out; a tag that the end of
// the page cuts is, too. Works on the bytes of any encoding in which ASCII is ASCII.
class PageTokens {
  public:
    explicit PageTokens(std::string_view page); // which must outlive the tokens

    std::optional<PageToken> next();

    // How many bytes were looked at, each as often as it was.
    std::size_t steps() const { return steps_; }

  private:
    bool beginsMarkup(std::size_t at) const;
    PageToken takeText();
    void skipDeclaration();
    std::optional<PageToken> takeTag();
    void takeAttribute(PageToken& token);
    std::string_view takeValue();
    std::string_view takeQuoted(char mark);
    // The kinds of bytes are flags.
    std::string_view takeUpTo(unsigned kinds);
    void skip(unsigned kinds);
    bool isUnclosed(std::string_view value);
    std::size_t find(char c, std::size_t from); // the page's size when there is none

    std::string_view page_;
    std::size_t at_ = 0;
    std::size_t steps_ = 0;
    // Where the last of each stands: whoever looks for one behind it need not go to the end each time.
    std::size_t lastQuote_;
    std::size_t lastApostrophe_;
    std::size_t lastCommentEnd_;
};

} // namespace vandrel
