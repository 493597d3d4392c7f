#pragma once

#include <ostream>

namespace vandrel::test {

// A display font in which a window is tested; `name` is part of the test's name.
struct Look {
    const char* name;
    int size; // in points
    bool bold;
    bool italic;
    const wchar_t* face = L"Arial";
};

inline void PrintTo(const Look& look, std::ostream* out) { *out << look.name; }

} // namespace vandrel::test
