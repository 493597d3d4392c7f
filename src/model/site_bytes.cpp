#include "model/site_bytes.h"

#include "model/text_memory.h"

#include <string_view>

namespace vandrel {

RowTexts SiteDecoder::decode(const SiteBytes& site)
{
    const char* const begin = site.name.data();
    RowTexts::Ends ends{};
    std::size_t end = 0;
    std::size_t text = 0;
    for (const std::string_view field : {site.name, site.url, site.description, site.date}) {
        if (field.data() != nullptr) end = static_cast<std::size_t>(field.data() - begin) + field.size();
        ends[text++] = end;
    }
    const std::string_view line(begin, end);
    if (latin_.areAll(line)) return RowTexts::ofLine(CompactText::ofLatin(line), ends);
    auto* const decoded = reinterpret_cast<wchar_t*>(memory_.room(line.size() * sizeof(wchar_t)));
    decodeSingleBytes(line, decoded, letters_);
    return RowTexts::ofLine(std::wstring_view(decoded, line.size()), ends);
}

void SiteDecoder::keep(const RowTexts& decoded)
{
    if (!decoded.isLatin()) memory_.take(decoded.bytes());
}

} // namespace vandrel
