#include "bookmarks/bookmark_categories.h"

#include "bookmarks/letters.h"
#include "model/incoming_link.h"
#include "model/site_record.h"

#include <algorithm>
#include <utility>

namespace vandrel {
namespace {

constexpr std::wstring_view outsideFolders = L"Bookmarks";
constexpr std::size_t mostNamesTold = 5;

bool isAscii(wchar_t unit) { return unit < 0x80; }

// Puts "?" for each letter that the code page lacks. Returns whether there is one.
bool replaceLostLetters(std::wstring& text, const ImportRules& rules)
{
    if (std::ranges::all_of(text, isAscii)) return false;
    bool lost = false;
    std::wstring kept;
    kept.reserve(text.size());
    for (std::wstring_view rest = text; !rest.empty();) {
        std::wstring_view letter = rest;
        const bool ascii = takeLetter(rest) < 0x80;
        letter.remove_suffix(rest.size());
        if (ascii || rules.inCodePage(letter)) {
            kept += letter;
        } else {
            kept += L'?';
            lost = true;
        }
    }
    text = std::move(kept);
    return lost;
}

class BookmarkCategories : public BookmarkHandler {
  public:
    explicit BookmarkCategories(const ImportRules& rules) : rules_(rules) {}

    void folderBegins(const std::wstring& name, std::optional<AddDate>) override
    {
        open_.push_back(namesCategory(name) ? folderIn(current(), name) : current());
    }

    void folderEnds() override { open_.pop_back(); }

    void bookmark(const Bookmark& bookmark) override
    {
        const std::size_t at = current() != noFolder ? current()
                                                     : folderIn(noFolder, std::wstring(outsideFolders));
        ImportedCategory& category = folders_[at].category;
        bool lost = false;
        std::wstring name = fieldOf(bookmark.name, lost);
        if (name.starts_with(L';')) name.insert(0, 1, L' '); // or the line would be a comment
        const std::wstring url = fieldOf(bookmark.url, lost);
        const std::wstring description = fieldOf(bookmark.description, lost);
        const std::wstring date = bookmark.added ? rules_.shortDate(*bookmark.added) : std::wstring();
        for (const std::wstring_view field :
             {std::wstring_view(name), std::wstring_view(url), std::wstring_view(description)}) {
            category.text += field;
            category.text += fieldSeparator;
        }
        category.text += date;
        category.text += L"\r\n";
        ++category.sites;
        ++result_.sites;
        if (lost) {
            ++result_.sitesWithLostLetters;
            if (result_.firstWithLostLetters.size() < mostNamesTold)
                result_.firstWithLostLetters.push_back(bookmark.name);
        }
        rules_.siteTaken(result_.sites);
    }

    ImportedBookmarks result(std::span<const std::wstring> existing)
    {
        CategoryTitles titles(existing, rules_.foldCase);
        for (std::size_t at = 0; at < folders_.size(); ++at) {
            ImportedCategory& category = folders_[at].category;
            if (category.sites == 0) continue;
            category.wanted = titleOf(at);
            category.title = titles.take(category.wanted);
            result_.categories.push_back(std::move(category));
        }
        return std::move(result_);
    }

  private:
    static constexpr std::size_t noFolder = static_cast<std::size_t>(-1);

    struct Place {
        std::size_t parent;
        std::wstring name;

        friend bool operator==(const Place&, const Place&) = default;
    };
    struct PlaceHash {
        std::size_t operator()(const Place& place) const
        {
            return std::hash<std::wstring>()(place.name) ^ place.parent * 0x9E3779B1U;
        }
    };
    struct Folder {
        const Place* place;
        ImportedCategory category;
    };

    std::size_t current() const { return open_.empty() ? noFolder : open_.back(); }

    std::size_t folderIn(std::size_t parent, std::wstring name)
    {
        const auto [found, added] = indices_.try_emplace(Place{parent, std::move(name)}, folders_.size());
        if (added) folders_.push_back({&found->first, {}});
        return found->second;
    }

    std::wstring titleOf(std::size_t folder) const
    {
        std::vector<std::wstring_view> names;
        for (; folder != noFolder; folder = folders_[folder].place->parent)
            names.emplace_back(folders_[folder].place->name);
        std::ranges::reverse(names);
        return titleOfFolders(names);
    }

    std::wstring fieldOf(const std::wstring& text, bool& lost) const
    {
        std::wstring field = withoutLineEnds(withoutSeparators(text));
        lost = replaceLostLetters(field, rules_) || lost;
        return field;
    }

    const ImportRules& rules_;
    std::vector<Folder> folders_; // in the order in which they began
    std::unordered_map<Place, std::size_t, PlaceHash> indices_;
    std::vector<std::size_t> open_; // the folders that have begun, from the outermost
    ImportedBookmarks result_;
};

} // namespace

ImportedBookmarks importedBookmarks(std::string_view page, std::span<const std::wstring> existing,
                                    const ImportRules& rules)
{
    BookmarkCategories categories(rules);
    readBookmarks(page, categories);
    return categories.result(existing);
}

} // namespace vandrel
