#pragma once

namespace vandrel::test::disk_calls {

// How disk_call_child ends.
inline constexpr int endedByItself = 0;
inline constexpr int unknown = 2;
inline constexpr int unanswered = 3;
inline constexpr int endedAtTheCall = 86;

// Under which its preferences are kept.
inline constexpr const wchar_t* application = L"VandrelTest-disk-calls";

} // namespace vandrel::test::disk_calls
