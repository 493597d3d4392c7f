#pragma once

#include "platform/files/file_layer.h"
#include "platform/text/compact_text.h"
#include "platform/text/single_bytes.h"

#include <memory>
#include <string_view>

namespace vandrel {

// Encodes a long text in the ANSI code page part by part (see encodeAnsi), reusing its memory: touching new
// memory for all of a large file takes longer than writing the file. Short pieces are gathered first, because
// encoding each by itself takes several times as long. What is the same in Latin-1 is not encoded at all.
class AnsiTextWriter {
  public:
    explicit AnsiTextWriter(const WritePart& write);

    // Adds a piece of the text, which must stay valid until the next call: how its end is encoded may depend
    // on what follows. False once a part could not be written; further calls are pointless then.
    bool add(const CompactText& piece);
    // To be called once, after the last piece.
    bool end();

  private:
    bool addWide(std::wstring_view piece);
    bool addLatin(std::string_view piece);
    bool gather(std::wstring_view piece);
    void encodeWaiting(wchar_t behind);
    void encode(std::wstring_view text, wchar_t behind);
    void makeRoom(std::size_t bytes);
    void writeOut();

    const WritePart& write_;
    const LatinBytes& latin_;
    std::wstring_view waiting_; // what was gathered, or a long piece
    std::unique_ptr<wchar_t[]> gathered_;
    std::unique_ptr<char[]> bytes_;
    std::size_t room_ = 0;
    std::size_t used_ = 0;
    bool good_ = true;
};

} // namespace vandrel
