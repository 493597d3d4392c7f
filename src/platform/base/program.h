#pragma once

namespace vandrel {

// The program's title: of its boxes, of its window and in the settings store.
inline constexpr const wchar_t* programTitle = L"Vandrel";

} // namespace vandrel
