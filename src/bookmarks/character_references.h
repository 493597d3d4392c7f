#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace vandrel {

enum class ReferencePlace {
    text,
    address, // holds "&" as they are, mostly: "?a=1&copy=2" must not lose its "&copy"
};

struct CharacterReference {
    char32_t letter;
    std::size_t length; // in bytes, with "&" and the semicolon if there is one
};

// What the "&" at the front of `bytes` begins: "&eacute;", "&#233;", "&#xE9;". None when it stands for
// itself. A name may lack its semicolon in a text, if it is one of Latin-1 (or "&amp", "&lt", "&gt",
// "&quot"); a number anywhere. A number that stands for no letter gives the replacement letter; 128 to 159
// are the letters of code page 1252.
std::optional<CharacterReference> characterReferenceAt(std::string_view bytes, ReferencePlace place);

} // namespace vandrel
