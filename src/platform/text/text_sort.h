#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace vandrel {

// The order in which `texts` stand when sorted: element i is the index of the text that comes i-th. Texts compare
// by code unit, so letter case counts. Equal texts keep the order they came in, ascending and descending alike.
//
// Addresses share long beginnings ("https://www."), which makes a comparison sort walk them again for every
// comparison. Here each text is read a few units at a time, once for each depth at which it still has rivals.
std::vector<std::uint32_t> sortedOrder(std::span<const std::wstring_view> texts, bool descending);

} // namespace vandrel
