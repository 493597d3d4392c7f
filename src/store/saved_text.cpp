#include "store/saved_text.h"

#include "model/site_record.h"
#include "platform/text/ansi_text.h"

namespace vandrel {

std::wstring savedText(std::wstring_view text)
{
    std::string bytes;
    encodeAnsi(withoutLineEnds(text), bytes);
    return decodeAnsi(bytes);
}

} // namespace vandrel
