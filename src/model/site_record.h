#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vandrel {

// The fields of a site in the order of its line; they look into the text that they were read from. Units are those of a
// decoded text (wchar_t), or bytes (char) in a code page in which every byte is a letter and ASCII is itself.
template <typename Unit> struct BasicSiteRecord {
    std::basic_string_view<Unit> name;
    std::basic_string_view<Unit> url;
    std::basic_string_view<Unit> description;
    std::basic_string_view<Unit> date;

    friend bool operator==(const BasicSiteRecord&, const BasicSiteRecord&) = default;
};
using SiteRecord = BasicSiteRecord<wchar_t>;

inline constexpr wchar_t fieldSeparator = L'|';

// The site on one line, without its line end; none for a comment and for a line without a separator. Missing
// fields are empty, pieces after the fourth are dropped.
std::optional<SiteRecord> siteOfLine(std::wstring_view line);

// The text with one blank in place of each line end: CR LF, CR or LF.
std::wstring withoutLineEnds(std::wstring_view text);

// Reads the sites of a category file one after the other.
//
// CR LF ends a line. A CR or LF that stands alone is a character like any other, except where a line that
// holds one is a comment or has more than four pieces: then another editor wrote it as a line end, and taking
// it for one saves what would be dropped.
template <typename Unit> class BasicSiteRecordReader {
  public:
    using Text = std::basic_string_view<Unit>;
    explicit BasicSiteRecordReader(Text text) : rest_(text) {}

    std::optional<BasicSiteRecord<Unit>> next();

  private:
    std::optional<BasicSiteRecord<Unit>> nextOfCut();

    Text rest_;
    Text cut_; // what is left of a line that is read with lone line ends
};
using SiteRecordReader = BasicSiteRecordReader<wchar_t>;

extern template class BasicSiteRecordReader<wchar_t>;
extern template class BasicSiteRecordReader<char>;

} // namespace vandrel
