#pragma once

namespace vandrel::test::disk_calls {

// The exit codes of disk_call_child.
inline constexpr int endedByItself = 0;
inline constexpr int unknown = 2;
inline constexpr int unanswered = 3;
inline constexpr int endedAtTheCall = 86;

// The name under which it keeps its preferences.
inline constexpr const wchar_t* application = L"VandrelTest-disk-calls";

} // namespace vandrel::test::disk_calls
