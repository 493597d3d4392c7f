#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vandrel {

// The fields of a site in the order of its line: views of the text they were read from. Units are those of
// decoded text (wchar_t), or bytes (char) in a code page in which every byte is a character and ASCII is
// itself.
template <typename Unit> struct BasicSiteRecord {
    std::basic_string_view<Unit> name;
    std::basic_string_view<Unit> url;
    std::basic_string_view<Unit> description;
    std::basic_string_view<Unit> date;

    friend bool operator==(const BasicSiteRecord&, const BasicSiteRecord&) = default;
};
using SiteRecord = BasicSiteRecord<wchar_t>;

inline constexpr wchar_t fieldSeparator = L'|';

// The site on one line, without its line end; none for a comment or a line without a separator. Missing
// fields are empty, pieces after the fourth are dropped.
std::optional<SiteRecord> siteOfLine(std::wstring_view line);

// The text with one blank in place of each line end: CR LF, CR or LF.
std::wstring withoutLineEnds(std::wstring_view text);

// Reads the sites of a category file in turn.
//
// CR LF ends a line. A lone CR or LF is a character like any other, except in a line that is a comment or
// has more than four pieces: there another editor wrote it as a line end, and reading it as one saves what
// would otherwise be dropped.
template <typename Unit> class BasicSiteRecordReader {
  public:
    using Text = std::basic_string_view<Unit>;
    explicit BasicSiteRecordReader(Text text) : rest_(text) {}

    std::optional<BasicSiteRecord<Unit>> next();
    // What follows the line of the site that was given last, and whether that line has more for `next` first.
    Text rest() const { return rest_; }
    bool withinLine() const { return !cut_.empty(); }
    // Leaves out so much of the rest, which must be whole lines.
    void skip(std::size_t units) { rest_.remove_prefix(units); }

  private:
    std::optional<BasicSiteRecord<Unit>> nextOfCut();

    Text rest_;
    Text cut_; // the rest of a line that lone line ends divide
};
using SiteRecordReader = BasicSiteRecordReader<wchar_t>;

extern template class BasicSiteRecordReader<wchar_t>;
extern template class BasicSiteRecordReader<char>;

} // namespace vandrel
