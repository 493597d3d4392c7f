#include "benchmarks/site_generator.h"

#include <array>
#include <random>
#include <string_view>

namespace vandrel::bench {
namespace {

constexpr std::array<std::string_view, 32> words{
    "garden",  "atlas",    "river",   "compiler", "music",   "weather", "train",   "museum",
    "recipe",  "football", "physics", "novel",    "camera",  "forum",   "library", "market",
    "history", "network",  "caf\xE9", "K\xF6ln",  "station", "manual",  "letter",  "archive",
    "wiki",    "journal",  "school",  "theatre",  "bicycle", "kitchen", "ocean",   "signal"};
constexpr std::array<std::string_view, 5> endings{".example", ".test", ".invalid", ".example/en",
                                                  ".example/blog"};
constexpr std::array<std::string_view, 3> starts{"https://www.", "http://www.", "https://"};

class Text {
  public:
    explicit Text(unsigned seed) : random_(seed) {}

    std::size_t below(std::size_t limit) { return random_() % limit; }
    template <std::size_t N> std::string_view one(const std::array<std::string_view, N>& of)
    {
        return of[below(N)];
    }
    std::string sentence(std::size_t count)
    {
        std::string text;
        for (std::size_t i = 0; i < count; ++i) text.append(i > 0 ? " " : "").append(one(words));
        return text;
    }

  private:
    std::mt19937 random_;
};

} // namespace

std::string generatedSites(std::size_t count, unsigned seed)
{
    Text text(seed);
    std::string bytes;
    bytes.reserve(count * 128);
    for (std::size_t i = 0; i < count; ++i) {
        bytes += text.sentence(2 + text.below(2));
        bytes.append("|").append(text.one(starts));
        for (const char c : text.one(words)) bytes += static_cast<unsigned char>(c) < 0x80 ? c : 'x';
        bytes.append(text.one(endings))
            .append("/")
            .append(std::to_string(text.below(count * 4)))
            .append("/page.html|");
        if (text.below(10) < 7) bytes += text.sentence(6 + text.below(8));
        bytes.append("|")
            .append(std::to_string(1 + text.below(12)))
            .append("/")
            .append(std::to_string(1 + text.below(28)));
        bytes.append("/").append(std::to_string(1999 + text.below(28))).append("\r\n");
    }
    return bytes;
}

} // namespace vandrel::bench
