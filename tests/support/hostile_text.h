#pragma once

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

namespace vandrel::test {

// How many random records, texts or pages a test tries: `usual`, or the number in VANDREL_HOSTILE.
inline std::size_t hostileCount(std::size_t usual)
{
    const char* const text = std::getenv("VANDREL_HOSTILE");
    return text != nullptr ? static_cast<std::size_t>(std::strtoull(text, nullptr, 10)) : usual;
}

// Texts that no careful program writes. A seed gives the same texts on every machine; VANDREL_SEED sets it.
class HostileText {
  public:
    HostileText() : seed_(seed()), random_(seed_) {}

    unsigned usedSeed() const { return seed_; }
    std::size_t below(std::size_t limit) { return random_() % limit; }
    bool oneIn(std::size_t chances) { return below(chances) == 0; }
    wchar_t oneOf(std::wstring_view letters) { return letters[below(letters.size())]; }

    // A code unit that some rule treats specially, or any other.
    wchar_t unit()
    {
        using namespace std::literals;
        switch (below(8)) {
        case 0: return oneOf(L"\r\n|;\0\x1A \t"sv);
        case 1: return oneOf(L"\"\\/:*?<>.~-"sv);
        case 2: return static_cast<wchar_t>(0xD800 + below(0x800)); // half of a pair, or both by chance
        case 3: return static_cast<wchar_t>(below(0xD800));
        case 4: return oneOf(L"0123456789+-.eE"sv);
        default: return static_cast<wchar_t>(L'a' + below(26));
        }
    }
    // Mostly short, and now and then as long as the program can take.
    std::wstring text(std::size_t usual)
    {
        std::wstring made(oneIn(5000) ? below(70'000) : below(usual + 1), L'\0');
        for (wchar_t& letter : made) letter = unit();
        return made;
    }
    // The text with some code units replaced, removed, doubled or inserted.
    std::wstring mutated(std::wstring text)
    {
        for (std::size_t changes = 1 + below(4); changes > 0; --changes) {
            const std::size_t at = below(text.size() + 1);
            switch (below(4)) {
            case 0: text.insert(at, 1, unit()); break;
            case 1: text.erase(at, below(4)); break;
            case 2: text.insert(at, text.substr(at, below(8))); break;
            default:
                if (at < text.size()) text[at] = unit();
            }
        }
        return text;
    }

  private:
    static unsigned seed()
    {
        const char* const text = std::getenv("VANDREL_SEED");
        const unsigned chosen = text != nullptr ? static_cast<unsigned>(std::strtoul(text, nullptr, 10))
                                                : 20021116;
        std::printf("seed %u\n", chosen);
        return chosen;
    }

    unsigned seed_;
    std::mt19937 random_;
};

} // namespace vandrel::test
