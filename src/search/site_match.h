#pragma once

#include "search/match.h"

#include <array>
#include <optional>

namespace vandrel {

// Name, URL, description and date of a site.
using SiteTexts = std::array<std::wstring_view, 4>;

// The fields in which a search looks.
enum class SearchSection { all, name, url, description };

// 0 and 1, as the routines of the program number them.
enum class SearchMode { binary = 0, text = 1 };

// Whether a site holds a term. In all sections only the name is compared in the given mode; URL and
// description are always compared letter by letter. This is how both searches are defined.
class SiteMatcher {
  public:
    // `folding` is borrowed.
    SiteMatcher(std::wstring_view term, SearchMode mode, SearchSection section, const CaseFolding& folding);

    bool matches(const SiteTexts& site) const;
    // Finds whatever `matches` may find, and more.
    const Matcher& widest() const { return chosen_; }

  private:
    SearchSection section_;
    Matcher chosen_; // in the given mode
    Matcher binary_;
};

// Asks about sites one after the other. Sites that were read from one file lie behind each other in memory;
// there it looks for the next place that may matter, and takes every site before it for none without looking
// at it.
class SiteSequence {
  public:
    // `matcher` is borrowed.
    explicit SiteSequence(const SiteMatcher& matcher) : matcher_(matcher) {}
    // The memory in which the sites may lie.
    void setBlock(std::wstring_view block);

    bool matches(const SiteTexts& site);

  private:
    const SiteMatcher& matcher_;
    std::wstring_view block_;
    std::size_t searchedFrom_ = 0;
    std::optional<std::size_t> candidate_; // the first at or behind searchedFrom_, npos for none
};

} // namespace vandrel
