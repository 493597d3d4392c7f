#pragma once

namespace vandrel {

// The program's title in its message boxes, its window and the settings store.
inline constexpr const wchar_t* programTitle = L"Vandrel";

} // namespace vandrel
