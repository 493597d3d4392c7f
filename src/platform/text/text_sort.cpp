#include "platform/text/text_sort.h"

#include "platform/base/prefetch.h"
#include "platform/text/sort_key.h"

#include <algorithm>
#include <array>
#include <bit>
#include <memory>
#include <numeric>

namespace vandrel {
namespace {

struct Entry {
    std::uint64_t key;
    std::uint32_t index;
};

// From this many entries on, sorting by the keys' bytes is faster than comparing keys.
constexpr std::ptrdiff_t manyEntries = 256;
// Of entries, whose texts are anywhere in memory: so many are fetched while the ones before are read.
constexpr std::ptrdiff_t ahead = 16;

class Sorter {
  public:
    Sorter(std::span<const CompactText> texts, bool descending)
        : texts_(texts), flipped_(descending ? ~std::uint64_t{} : 0)
    {}

    // The entries of [first, last) agree in all units before `depth` and are in order of index.
    void sort(Entry* first, Entry* last, std::size_t depth)
    {
        while (last - first > 1) {
            std::uint64_t differences = 0;
            for (Entry* e = first; e != last; ++e) {
                if (last - e > 2 * ahead) prefetch(addressOf(texts_[e[2 * ahead].index]));
                if (last - e > ahead) fetchText(e[ahead].index, depth);
                e->key = SortKey::of(texts_[e->index], depth) ^ flipped_;
                differences |= e->key ^ first->key;
            }
            if (differences != 0) return split(first, last, depth, differences);
            if (!settle(first, last, depth)) return;
            depth += SortKey::units;
        }
    }

  private:
    static std::uintptr_t addressOf(const CompactText& text)
    {
        return reinterpret_cast<std::uintptr_t>(&text);
    }

    void fetchText(std::uint32_t index, std::size_t depth) const
    {
        const CompactText& text = texts_[index];
        const std::size_t unit = text.isLatin() ? sizeof(char) : sizeof(wchar_t);
        prefetch(reinterpret_cast<std::uintptr_t>(text.data()) + depth * unit);
    }

    void split(Entry* first, Entry* last, std::size_t depth, std::uint64_t differences)
    {
        sortByKeys(first, last, differences);
        while (first != last) {
            Entry* const end = std::find_if(first + 1, last,
                                            [&](const Entry& e) { return e.key != first->key; });
            if (end - first > 1 && settle(first, end, depth)) sort(first, end, depth + SortKey::units);
            first = end;
        }
    }

    // Sorts entries with the same key if they may differ within it. Returns whether what follows it decides.
    bool settle(Entry* first, Entry* last, std::size_t depth) const
    {
        const std::uint64_t key = first->key ^ flipped_;
        if (!SortKey::inexact(key)) return !SortKey::ended(key);
        std::sort(first, last, [&](const Entry& a, const Entry& b) {
            const int order = texts_[a.index].substr(depth).compare(texts_[b.index].substr(depth));
            return order != 0 ? (order < 0) == (flipped_ == 0) : a.index < b.index;
        });
        return false;
    }

    // `differences` has the bits in which the keys differ.
    void sortByKeys(Entry* first, Entry* last, std::uint64_t differences)
    {
        if (last - first >= manyEntries) return sortByBytes(first, last, differences);
        std::sort(first, last, [](const Entry& a, const Entry& b) {
            return a.key != b.key ? a.key < b.key : a.index < b.index;
        });
    }

    // By the highest byte in which keys differ, which keeps the order of equal ones; then those with the same byte by
    // the others. So entries soon move only among neighbours that the cache holds.
    void sortByBytes(Entry* first, Entry* last, std::uint64_t differences)
    {
        const auto count = static_cast<std::size_t>(last - first);
        if (otherSize_ < count) {
            other_ = std::make_unique_for_overwrite<Entry[]>(count);
            otherSize_ = count;
        }
        const unsigned shift = (63U - static_cast<unsigned>(std::countl_zero(differences))) / 8 * 8;
        const auto byteOf = [shift](const Entry& e) { return e.key >> shift & 0xFF; };
        std::array<std::uint32_t, 256> ends{};
        for (const Entry* e = first; e != last; ++e) ++ends[byteOf(*e)];
        std::exclusive_scan(ends.begin(), ends.end(), ends.begin(), std::uint32_t{0});
        for (const Entry* e = first; e != last; ++e) other_[ends[byteOf(*e)]++] = *e;
        std::copy(other_.get(), other_.get() + count, first);
        Entry* begin = first;
        for (const std::uint32_t end : ends) {
            Entry* const next = first + end;
            sortTheSame(begin, next);
            begin = next;
        }
    }

    // Entries that agree in a byte, in order of index.
    void sortTheSame(Entry* first, Entry* last)
    {
        std::uint64_t differences = 0;
        for (const Entry* e = first; e != last; ++e) differences |= e->key ^ first->key;
        if (differences != 0) sortByKeys(first, last, differences);
    }

    std::span<const CompactText> texts_;
    std::uint64_t flipped_; // all bits for a descending order
    std::unique_ptr<Entry[]> other_;
    std::size_t otherSize_ = 0;
};

bool inOrder(std::span<const CompactText> texts, bool descending)
{
    return std::is_sorted(texts.begin(), texts.end(), [=](const CompactText& a, const CompactText& b) {
        return descending ? a.compare(b) > 0 : a.compare(b) < 0;
    });
}

} // namespace

std::vector<std::uint32_t> sortedOrder(std::span<const CompactText> texts, bool descending)
{
    std::vector<Entry> entries;
    entries.reserve(texts.size());
    for (std::uint32_t i = 0; i < texts.size(); ++i) entries.push_back({0, i});
    if (!inOrder(texts, descending)) {
        Sorter(texts, descending).sort(entries.data(), entries.data() + entries.size(), 0);
    }
    std::vector<std::uint32_t> order(entries.size());
    std::ranges::transform(entries, order.begin(), &Entry::index);
    return order;
}

} // namespace vandrel
