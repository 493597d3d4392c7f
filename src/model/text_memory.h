#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace vandrel {

// Memory for many texts, in pieces that come as texts do and stay where they are: small ones at first, so that a
// single text takes little.
class TextMemory {
  public:
    TextMemory() = default;
    TextMemory(const TextMemory&) = delete; // the texts would not move with it
    TextMemory& operator=(const TextMemory&) = delete;

    // Room for so many bytes, aligned for wchar_t. It stays free until it is taken.
    char* room(std::size_t bytes)
    {
        if (bytes > freeBytes_) addPiece(bytes);
        return free_;
    }
    // Takes so many bytes of the room that was given last.
    void take(std::size_t bytes)
    {
        free_ += aligned(bytes);
        freeBytes_ -= aligned(bytes);
    }

  private:
    static std::size_t aligned(std::size_t bytes)
    {
        constexpr std::size_t unit = sizeof(wchar_t);
        return (bytes + unit - 1) / unit * unit;
    }
    void addPiece(std::size_t bytes);

    std::vector<std::unique_ptr<char[]>> pieces_;
    char* free_ = nullptr; // of the last piece
    std::size_t freeBytes_ = 0;
    std::size_t usual_ = 1U << 10; // bytes of the next piece
};

} // namespace vandrel
