#include "store/category_file.h"

#include "model/category_title.h"
#include "model/site_lines.h"
#include "model/site_record.h"
#include "platform/base/runtime_error.h"
#include "platform/files/ansi_text_file.h"
#include "platform/files/ansi_text_writer.h"
#include "platform/files/folder.h"
#include "shared/list_images.h"

#include <algorithm>

namespace vandrel {
namespace {

using Rows = std::span<const ListRows::Row>;

// An estimate that saves growing the rows over and over; a wrong one costs nothing else.
constexpr std::size_t charactersOfASite = 100;

void addSitesOf(std::wstring_view text, std::vector<ListRows::Row>& rows)
{
    rows.reserve(text.size() / charactersOfASite + 1);
    SiteRecordReader reader(text);
    while (const auto site = reader.next()) {
        rows.push_back({{site->name, site->url, site->description, site->date}, siteImage});
    }
}

// A folder that has gone, with the stick or the share that it is on, says nothing about its files.
DecodedText textOf(const std::wstring& folder, const std::wstring& title)
{
    try {
        return AnsiTextFile(categoryPath(folder, title)).read();
    } catch (const RuntimeError& error) {
        if (error.number() != error_number::fileNotFound) throw;
        requireFolder(folder);
        return {};
    }
}

std::size_t unitsOf(Rows rows)
{
    std::size_t units = 0;
    for (const ListRows::Row& row : rows) {
        for (const std::wstring_view text : row.texts) units += text.size();
    }
    return units;
}

// In one piece of memory, as a file's own sites are: who searches them goes through it from end to end.
CategorySites joined(std::wstring_view text, Rows behind)
{
    const std::size_t size = text.size() + unitsOf(behind);
    const auto units = std::make_shared_for_overwrite<wchar_t[]>(size);
    CategorySites sites{units, size, {}};
    wchar_t* end = std::ranges::copy(text, units.get()).out;
    addSitesOf({units.get(), text.size()}, sites.rows);
    for (const ListRows::Row& row : behind) {
        ListRows::Row& copy = sites.rows.emplace_back(row);
        for (std::wstring_view& field : copy.texts) {
            wchar_t* const begin = end;
            end = std::ranges::copy(field, begin).out;
            field = {begin, field.size()};
        }
    }
    return sites;
}

} // namespace

std::wstring categoryPath(const std::wstring& folder, const std::wstring& title)
{
    return folder + L"\\" + title + std::wstring(categoryExtension);
}

CategorySites readCategory(const std::wstring& folder, const std::wstring& title, Rows behind)
{
    DecodedText text = textOf(folder, title);
    if (!behind.empty()) return joined(text, behind);
    CategorySites sites{text.units, text.size, {}};
    addSitesOf(text, sites.rows);
    return sites;
}

void writeCategory(const std::wstring& folder, const std::wstring& title, Rows rows, FileLayer& files)
{
    const auto addLines = [&](AnsiTextWriter& file) {
        SiteLines lines(rows);
        std::wstring_view piece = lines.next();
        while (!piece.empty() && file.add(piece)) piece = lines.next();
    };
    AnsiTextFile(categoryPath(folder, title)).write(addLines, files);
}

} // namespace vandrel
