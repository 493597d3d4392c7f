#pragma once

#include "model/row_texts.h"
#include "search/match.h"

#include <optional>
#include <string_view>

namespace vandrel {

// Name, URL, description and date of a site.
using SiteTexts = RowTexts::Views;

// The fields to search.
enum class SearchSection { all, name, url, description };

// The numbers are those that the search routines take.
enum class SearchMode { binary = 0, text = 1 };

// Whether a site contains a term. In all sections only the name is compared in the given mode; URL and
// description are always case-sensitive.
class SiteMatcher {
  public:
    // Keeps a reference to `folding`.
    SiteMatcher(std::wstring_view term, SearchMode mode, SearchSection section, const CaseFolding& folding);

    bool matches(const SiteTexts& site) const;
    // Finds everything that `matches` can find, and more.
    const Matcher& widest() const { return chosen_; }

  private:
    SearchSection section_;
    Matcher chosen_; // in the given mode
    Matcher binary_;
};

// Tests sites in turn. Sites read from one file are contiguous in memory; there it finds the next position
// that may matter, and rejects every site before it without looking at it.
class SiteSequence {
  public:
    // Keeps a reference to `matcher`.
    explicit SiteSequence(const SiteMatcher& matcher) : matcher_(matcher) {}
    // The text that the fields of the sites may be views of.
    void setBlock(std::wstring_view block);

    bool matches(const SiteTexts& site);

  private:
    const SiteMatcher& matcher_;
    std::wstring_view block_;
    std::size_t searchedFrom_ = 0;
    std::optional<std::size_t> candidate_; // the first at or after searchedFrom_, npos for none
};

} // namespace vandrel
