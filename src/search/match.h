#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vandrel {

// Which letters are the same letter when case is ignored.
struct CaseFolding {
    // One letter that counts as several: "ß" as "ss".
    struct Expansion {
        wchar_t unit;
        std::wstring text; // folded
    };

    std::vector<wchar_t>
        units; // for each unit the one that stands for it; units beyond the end are themselves
    std::vector<Expansion> expansions;

    wchar_t operator()(wchar_t unit) const
    {
        const auto index = static_cast<std::size_t>(unit);
        return index < units.size() ? units[index] : unit;
    }
    const Expansion* expansionOf(wchar_t unit) const;
    std::wstring fold(std::wstring_view text) const;
};

// Whether a term occurs in a text, letter by letter or with letter case ignored. A term that has no letters
// occurs in every text.
class Matcher {
  public:
    explicit Matcher(std::wstring_view term);
    // `folding` is borrowed.
    Matcher(std::wstring_view term, const CaseFolding& folding);

    bool occursIn(std::wstring_view text) const;
    // A place in `text`, at or after `from`, that may be part of an occurrence: its beginning, or a letter in
    // it that counts as several. npos when the term occurs nowhere behind `from`. Much faster than looking at
    // every place, so that it pays to ask it about many texts at once that lie behind each other in memory,
    // before each of them is looked at.
    std::size_t candidate(std::wstring_view text, std::size_t from) const;

    // What `candidate` looks for, by units: how many the term has, which ones the first and the last letter of
    // an occurrence may be, and which may stand for several letters of it.
    std::size_t length() const { return term_.size(); }
    std::wstring_view firstUnits() const { return first_; }
    std::wstring_view lastUnits() const { return last_; }
    std::wstring_view expansionUnits() const { return expansions_; }

  private:
    bool occursAt(std::wstring_view text, std::size_t place) const;

    const CaseFolding* folding_ = nullptr;
    std::wstring term_;       // folded where case is ignored
    std::wstring first_;      // the units that the first letter of an occurrence may be
    std::wstring last_;       // likewise of the last one
    std::wstring expansions_; // units that may stand for several letters of the term
};

} // namespace vandrel
