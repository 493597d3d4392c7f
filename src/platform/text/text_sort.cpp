#include "platform/text/text_sort.h"

#include <algorithm>

namespace vandrel {
namespace {

constexpr std::size_t unitsPerKey = 3;

struct Entry {
    std::uint64_t key;
    std::uint32_t index;
};

// Three code units from `depth` on, the most significant first, then how many of them the text really has,
// so that a text that ends sorts before one that continues with NULs.
std::uint64_t keyAt(std::wstring_view text, std::size_t depth)
{
    const std::size_t left = depth < text.size() ? text.size() - depth : 0;
    std::uint64_t key = 0;
    for (std::size_t i = 0; i < unitsPerKey; ++i) {
        key = key << 16 | (i < left ? static_cast<std::uint16_t>(text[depth + i]) : 0U);
    }
    return key << 16 | std::min(left, unitsPerKey);
}

bool textEndsIn(std::uint64_t key) { return (key & 0xFFFFU) < unitsPerKey; }

class Sorter {
  public:
    Sorter(std::span<const std::wstring_view> texts, bool descending) : texts_(texts), descending_(descending)
    {}

    // The entries of [first, last) agree in all units before `depth` and are in order of index.
    void sort(Entry* first, Entry* last, std::size_t depth)
    {
        while (last - first > 1) {
            bool allEqual = true;
            for (Entry* e = first; e != last; ++e) {
                e->key = keyAt(texts_[e->index], depth);
                allEqual = allEqual && e->key == first->key;
            }
            if (!allEqual) return split(first, last, depth);
            if (textEndsIn(first->key)) return;
            depth += unitsPerKey;
        }
    }

  private:
    void split(Entry* first, Entry* last, std::size_t depth)
    {
        std::sort(first, last, [this](const Entry& a, const Entry& b) {
            if (a.key != b.key) return (a.key < b.key) != descending_;
            return a.index < b.index;
        });
        while (first != last) {
            Entry* const end = std::find_if(first + 1, last,
                                            [&](const Entry& e) { return e.key != first->key; });
            if (!textEndsIn(first->key)) sort(first, end, depth + unitsPerKey);
            first = end;
        }
    }

    std::span<const std::wstring_view> texts_;
    bool descending_;
};

bool inOrder(std::span<const std::wstring_view> texts, bool descending)
{
    return descending ? std::is_sorted(texts.begin(), texts.end(), std::greater<>{})
                      : std::is_sorted(texts.begin(), texts.end());
}

} // namespace

std::vector<std::uint32_t> sortedOrder(std::span<const std::wstring_view> texts, bool descending)
{
    std::vector<Entry> entries(texts.size());
    for (std::uint32_t i = 0; i < entries.size(); ++i) entries[i] = {0, i};
    if (!inOrder(texts, descending)) {
        Sorter(texts, descending).sort(entries.data(), entries.data() + entries.size(), 0);
    }
    std::vector<std::uint32_t> order(entries.size());
    std::ranges::transform(entries, order.begin(), &Entry::index);
    return order;
}

} // namespace vandrel
