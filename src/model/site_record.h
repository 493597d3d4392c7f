#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vandrel {

// The fields of a site in the order of its line: views of the text they were read from.
struct SiteRecord {
    std::wstring_view name;
    std::wstring_view url;
    std::wstring_view description;
    std::wstring_view date;

    friend bool operator==(const SiteRecord&, const SiteRecord&) = default;
};

inline constexpr wchar_t fieldSeparator = L'|';

// The site on one line, without its line end; none for a comment or a line without a separator. Missing
// fields are empty, pieces after the fourth are dropped.
std::optional<SiteRecord> siteOfLine(std::wstring_view line);

// The text with one blank in place of each line end: CR LF, CR or LF.
std::wstring withoutLineEnds(std::wstring_view text);

// Reads the sites of a decoded category file in turn.
//
// CR LF ends a line. A lone CR or LF is a character like any other, except in a line that is a comment or
// has more than four pieces: there another editor wrote it as a line end, and reading it as one saves what
// would otherwise be dropped.
class SiteRecordReader {
  public:
    explicit SiteRecordReader(std::wstring_view text) : rest_(text) {}

    std::optional<SiteRecord> next();

  private:
    std::optional<SiteRecord> nextOfCut();

    std::wstring_view rest_;
    std::wstring_view cut_; // the rest of a line that lone line ends divide
};

} // namespace vandrel
