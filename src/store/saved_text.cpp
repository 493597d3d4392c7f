#include "store/saved_text.h"

#include "platform/ansi_text.h"
#include "store/site_record.h"

namespace vandrel {

std::wstring savedText(std::wstring_view text)
{
    std::string bytes;
    encodeAnsi(withoutLineEnds(text), bytes);
    return decodeAnsi(bytes);
}

} // namespace vandrel
