#pragma once

#include "platform/text/ansi_text.h"

#include <string>

namespace vandrel::test {

inline std::string encoded(std::wstring_view text)
{
    std::string bytes;
    encodeAnsi(text, bytes);
    return bytes;
}

inline std::string roundTrip(const std::string& bytes) { return encoded(decodeAnsi(bytes)); }

} // namespace vandrel::test
