#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace vandrel {

// The letters of a code page in which every byte is one and ASCII is itself.
using CodePageLetters = std::array<wchar_t, 256>;

// Into `text`, which has room for as many units as there are bytes.
void decodeSingleBytes(std::string_view bytes, wchar_t* text, const CodePageLetters& letters);

// The bytes that are the same letters in a code page and in Latin-1. ASCII is among them.
class LatinBytes {
  public:
    explicit LatinBytes(const std::array<bool, 256>& same) : same_(same) {}

    // How many bytes, from the first, are such letters.
    std::size_t prefixOf(std::string_view bytes) const;
    bool areAll(std::string_view bytes) const { return prefixOf(bytes) == bytes.size(); }
    // The same, and copies them. Of the memory at `to` as much as there are bytes may be written to.
    std::size_t copyPrefix(std::string_view bytes, char* to) const;

  private:
    template <typename Take> std::size_t passPrefix(std::string_view bytes, Take take) const;

    std::array<bool, 256> same_;
};

} // namespace vandrel
