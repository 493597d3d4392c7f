#include "bookmarks/bookmark_reader.h"

#include "bookmarks/character_references.h"
#include "bookmarks/letters.h"
#include "bookmarks/page_text.h"
#include "bookmarks/page_tokens.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace vandrel {
namespace {

// Takes the letters off the front that stand for themselves in every encoding and place, and appends them.
void takePlain(std::string_view& bytes, std::wstring& text)
{
    std::size_t length = 0;
    while (length < bytes.size() && bytes[length] > ' ' && bytes[length] < '\x7F' && bytes[length] != '&')
        ++length;
    const std::size_t before = text.size();
    text.resize(before + length);
    std::copy_n(bytes.begin(), length, text.begin() + static_cast<std::ptrdiff_t>(before));
    bytes.remove_prefix(length);
}

// The letter that comes next, or the one that a reference stands for.
char32_t takeCharacter(std::string_view& bytes, const PageText& page, ReferencePlace place)
{
    if (bytes.front() == '&') {
        if (const auto reference = characterReferenceAt(bytes, place)) {
            bytes.remove_prefix(reference->length);
            return reference->letter;
        }
    }
    return page.takeLetter(bytes);
}

// A text as a browser shows it.
class ShownText {
  public:
    void clear()
    {
        text_.clear();
        blank_ = false;
    }
    void addBlank() { blank_ = !text_.empty(); }
    void add(std::string_view bytes, const PageText& page)
    {
        while (!bytes.empty()) {
            const char first = bytes.front();
            if (isAsciiBlank(first)) addBlank();
            if (isAsciiBlank(first) || first == '\0') {
                bytes.remove_prefix(1);
                continue;
            }
            if (std::exchange(blank_, false)) text_ += L' ';
            appendLetter(text_, takeCharacter(bytes, page, ReferencePlace::text));
            takePlain(bytes, text_);
        }
    }
    const std::wstring& text() const { return text_; }

  private:
    std::wstring text_;
    bool blank_ = false; // before what comes next, if anything does
};

void readAddress(std::string_view bytes, const PageText& page, std::wstring& address)
{
    address.clear();
    while (!bytes.empty() && isAsciiBlank(bytes.front())) bytes.remove_prefix(1);
    while (!bytes.empty() && isAsciiBlank(bytes.back())) bytes.remove_suffix(1);
    for (takePlain(bytes, address); !bytes.empty(); takePlain(bytes, address)) {
        const char first = bytes.front();
        if (first == '\0' || (first != ' ' && isAsciiBlank(first))) bytes.remove_prefix(1);
        else appendLetter(address, takeCharacter(bytes, page, ReferencePlace::address));
    }
}

class BookmarkReader {
  public:
    BookmarkReader(std::string_view page, BookmarkHandler& handler) : page_(page), handler_(handler) {}

    std::size_t read()
    {
        PageTokens tokens(page_.bytes());
        while (const auto token = tokens.next()) {
            if (token->kind == PageToken::Kind::text) addText(token->text);
            else if (token->kind == PageToken::Kind::startTag) begin(*token);
            else end(token->tag);
        }
        endEntry();
        while (!lists_.empty()) endList();
        return tokens.steps() + lettersRead_;
    }

  private:
    enum class Into { nothing, folderName, name, description };
    // What the list that comes next is: the content of a folder, or nothing of its own.
    enum class Folder { none, begun, tooDeep };

    void addText(std::string_view text)
    {
        if (into_ == Into::nothing) return;
        lettersRead_ += text.size();
        text_.add(text, page_);
    }

    void begin(const PageToken& tag)
    {
        switch (tag.tag) {
        case PageTag::anchor:
            if (tag.address) beginBookmark(tag);
            break;
        case PageTag::heading: beginFolder(tag); break;
        case PageTag::list: beginList(); break;
        case PageTag::definition:
            endText();
            if (bookmarkPending_) into_ = Into::description;
            break;
        case PageTag::term:
        case PageTag::rule: endEntry(); break;
        case PageTag::lineBreak: text_.addBlank(); break;
        default: break;
        }
    }

    void end(PageTag tag)
    {
        switch (tag) {
        case PageTag::anchor:
            if (into_ == Into::name) endText();
            break;
        case PageTag::heading:
        case PageTag::term:
        case PageTag::definition: endText(); break;
        case PageTag::list:
            endEntry();
            endList();
            break;
        case PageTag::lineBreak: text_.addBlank(); break;
        default: break;
        }
    }

    void beginBookmark(const PageToken& tag)
    {
        endEntry();
        bookmarkPending_ = true;
        lettersRead_ += tag.address->size();
        readAddress(*tag.address, page_, bookmark_.url);
        bookmark_.name.clear();
        bookmark_.description.clear();
        bookmark_.added = tag.added ? addDateOf(*tag.added) : std::nullopt;
        into_ = Into::name;
    }

    void beginFolder(const PageToken& tag)
    {
        endEntry();
        folderAdded_ = tag.added ? addDateOf(*tag.added) : std::nullopt;
        into_ = Into::folderName;
    }

    // The text is complete that was being read.
    void endText()
    {
        switch (std::exchange(into_, Into::nothing)) {
        case Into::name: bookmark_.name = text_.text(); break;
        case Into::description: bookmark_.description = text_.text(); break;
        case Into::folderName:
            folder_ = lists_.size() < deepestList ? Folder::begun : Folder::tooDeep;
            if (folder_ == Folder::begun) handler_.folderBegins(text_.text(), folderAdded_);
            break;
        case Into::nothing: break;
        }
        text_.clear();
    }

    // The bookmark is complete that was being read.
    void endBookmark()
    {
        endText();
        if (std::exchange(bookmarkPending_, false)) handler_.bookmark(bookmark_);
    }

    // So is the folder, if no list has followed its name.
    void endEntry()
    {
        endBookmark();
        if (std::exchange(folder_, Folder::none) == Folder::begun) handler_.folderEnds();
    }

    void beginList()
    {
        endBookmark();
        const bool ofFolder = std::exchange(folder_, Folder::none) == Folder::begun;
        if (lists_.size() < deepestList) lists_.push_back(ofFolder);
        else ++deeperLists_;
    }

    void endList()
    {
        if (deeperLists_ > 0) {
            --deeperLists_;
        } else if (!lists_.empty()) {
            const bool ofFolder = lists_.back();
            lists_.pop_back();
            if (ofFolder) handler_.folderEnds();
        }
    }

    PageText page_;
    BookmarkHandler& handler_;
    Into into_ = Into::nothing;
    ShownText text_; // of what is being read
    Bookmark bookmark_;
    bool bookmarkPending_ = false; // its description may still come
    Folder folder_ = Folder::none;
    std::optional<AddDate> folderAdded_;
    std::vector<bool> lists_; // that have begun: whether each is a folder's
    std::size_t deeperLists_ = 0;
    std::size_t lettersRead_ = 0;
};

} // namespace

std::size_t readBookmarks(std::string_view page, BookmarkHandler& handler)
{
    return page.size() + BookmarkReader(page, handler).read();
}

} // namespace vandrel
