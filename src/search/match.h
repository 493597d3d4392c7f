#pragma once

#include "platform/text/compact_text.h"
#include "search/letter_pattern.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vandrel {

// Which letters count as the same when case is ignored.
struct CaseFolding {
    // One letter that counts as several: "ß" as "ss".
    struct Expansion {
        wchar_t unit;
        std::wstring text; // folded
    };

    // For each unit, the one that represents it; a unit beyond the end represents itself.
    std::vector<wchar_t> units;
    std::vector<Expansion> expansions;

    wchar_t operator()(wchar_t unit) const
    {
        const auto index = static_cast<std::size_t>(unit);
        return index < units.size() ? units[index] : unit;
    }
    const Expansion* expansionOf(wchar_t unit) const;
    std::wstring fold(std::wstring_view text) const;
};

// Whether a term occurs in a text, exactly or with letter case ignored. An empty term occurs in every text.
class Matcher {
  public:
    explicit Matcher(std::wstring_view term);
    // Keeps a reference to `folding`.
    Matcher(std::wstring_view term, const CaseFolding& folding);

    bool occursIn(const CompactText& text) const;
    // A position in `text`, at or after `from`, that may be part of an occurrence: its beginning, or a
    // letter in it that counts as several. npos when the term occurs nowhere after `from`. Much faster than
    // trying every position, so it pays to ask about many texts at once that are contiguous in memory
    // before trying each of them.
    std::size_t candidate(std::wstring_view text, std::size_t from) const;

    // What an occurrence is made of, by units: how many the term has, which ones the first and the last of it
    // may be, which may stand for several letters of it, and whether this one may be in this place.
    std::size_t length() const { return term_.size(); }
    std::wstring_view firstUnits() const { return first_; }
    std::wstring_view lastUnits() const { return last_; }
    std::wstring_view expansionUnits() const { return expansions_; }
    bool isLetterAt(std::size_t place, wchar_t unit) const;

  private:
    void makePatterns();
    template <typename Unit>
    bool occursIn(std::basic_string_view<Unit> text, const LetterPattern<Unit>& pattern) const;
    template <typename Unit> bool occursAt(std::basic_string_view<Unit> text, std::size_t place) const;

    const CaseFolding* folding_ = nullptr;
    std::wstring term_;       // folded where case is ignored
    std::wstring first_;      // the units that an occurrence may begin with
    std::wstring last_;       // the units that it may end with
    std::wstring expansions_; // units that may stand for several letters of the term
    LetterPattern<wchar_t> wide_{0, {}, {}, {}};
    LetterPattern<char> latin_{0, {}, {}, {}};
};

} // namespace vandrel
