#pragma once

#include "model/row_texts.h"
#include "model/site_record.h"
#include "platform/text/single_bytes.h"

namespace vandrel {

class TextMemory;

// The bytes of a site in a category file, in a code page in which every byte is a letter.
using SiteBytes = BasicSiteRecord<char>;

// Makes texts of them.
class SiteDecoder {
  public:
    // All are borrowed.
    SiteDecoder(const CodePageLetters& letters, const LatinBytes& latin, TextMemory& memory)
        : letters_(letters), latin_(latin), memory_(memory)
    {}

    // Views of the site's bytes if these are Latin-1 as they are; otherwise decoded, in room of the memory
    // that stays free until it is taken.
    RowTexts decode(const SiteBytes& site);
    // Takes the room of such texts.
    void keep(const RowTexts& decoded);

  private:
    const CodePageLetters& letters_;
    const LatinBytes& latin_;
    TextMemory& memory_;
};

} // namespace vandrel
