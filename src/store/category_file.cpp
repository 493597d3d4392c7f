#include "store/category_file.h"

#include "model/category_title.h"
#include "model/site_bytes.h"
#include "model/site_lines.h"
#include "model/site_record.h"
#include "model/text_memory.h"
#include "platform/base/runtime_error.h"
#include "platform/files/ansi_text_file.h"
#include "platform/files/ansi_text_writer.h"
#include "platform/files/folder.h"
#include "platform/text/ansi_text.h"
#include "shared/list_images.h"

#include <vector>

namespace vandrel {
namespace {

using Rows = std::span<const RowTable::Row>;

// An estimate, to avoid growing the rows again and again; a wrong one does no harm.
constexpr std::size_t charactersOfASite = 100;

// What the texts of a category are views of where most of its bytes are Latin-1.
struct FileTexts {
    FileBytes file;
    TextMemory decoded;
};

std::vector<RowTable::Row> sitesOf(std::wstring_view text)
{
    std::vector<RowTable::Row> rows;
    rows.reserve(text.size() / charactersOfASite + 1);
    SiteRecordReader reader(text);
    while (const auto site = reader.next()) {
        rows.push_back({RowTexts::ofLine({site->name, site->url, site->description, site->date}), siteImage});
    }
    return rows;
}

// None if so many sites would have to be decoded that decoding all takes less memory.
std::optional<std::vector<RowTable::Row>> sitesOf(std::string_view bytes, SiteDecoder decoder)
{
    std::size_t mostDecoded = bytes.size() / 2;
    std::vector<RowTable::Row> rows;
    rows.reserve(bytes.size() / charactersOfASite + 1);
    BasicSiteRecordReader<char> reader(bytes);
    while (const auto site = reader.next()) {
        const RowTexts texts = decoder.decode(*site);
        rows.push_back({texts, siteImage});
        if (texts.isLatin()) continue;
        if (texts.bytes() > mostDecoded) return std::nullopt;
        mostDecoded -= texts.bytes();
        decoder.keep(texts);
    }
    return rows;
}

// What `read` gives; none when there is no such file. A missing folder (a removed stick, a lost share) says
// nothing about its files, so that is an error.
template <typename Read>
auto ifThere(const std::wstring& folder, Read read) -> std::optional<decltype(read())>
{
    try {
        return read();
    } catch (const RuntimeError& error) {
        if (error.number() != error_number::fileNotFound) throw;
        requireFolder(folder);
        return std::nullopt;
    }
}

// Reads the file part by part, so that it and its text never are in memory together.
Category readDecoded(const std::wstring& folder, const std::wstring& title)
{
    Category category;
    category.title = title;
    const auto text = ifThere(folder, [&] { return AnsiTextFile(categoryPath(folder, title)).read(); });
    if (!text) return category;
    category.sites.fill(text->units, sitesOf(*text));
    category.text = *text;
    category.reading = Reading::read;
    return category;
}

} // namespace

std::wstring categoryPath(const std::wstring& folder, const std::wstring& title)
{
    return folder + L"\\" + title + std::wstring(categoryExtension);
}

Category readCategory(const std::wstring& folder, const std::wstring& title)
{
    const CodePageLetters* const letters = ansiLetters();
    if (letters == nullptr) return readDecoded(folder, title);
    Category category;
    category.title = title;
    auto texts = std::make_shared<FileTexts>();
    const auto bytes = categoryBytes(folder, title, texts->file);
    if (!bytes) return category;
    auto sites = sitesOf(*bytes, SiteDecoder(*letters, latinInAnsi(), texts->decoded));
    if (!sites) {
        texts.reset(); // first, so that both never are in memory
        return readDecoded(folder, title);
    }
    category.sites.fill(std::move(texts), *std::move(sites));
    category.reading = Reading::read;
    return category;
}

std::optional<std::string_view> categoryBytes(const std::wstring& folder, const std::wstring& title,
                                              FileBytes& file)
{
    return ifThere(folder, [&] { return file.read(categoryPath(folder, title)); });
}

void writeCategory(const std::wstring& folder, const std::wstring& title, Rows rows, FileLayer& files)
{
    const auto addLines = [&](AnsiTextWriter& file) {
        SiteLines lines(rows);
        CompactText piece = lines.next();
        while (!piece.empty() && file.add(piece)) piece = lines.next();
    };
    AnsiTextFile(categoryPath(folder, title)).write(addLines, files);
}

} // namespace vandrel
