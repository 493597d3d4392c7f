#pragma once

namespace vandrel::test::key_status {

// The exit codes of interrupted_import that are none of the program's.
inline constexpr int notStarted = 90;
inline constexpr int notPressed = 91;
inline constexpr int notEnded = 92;

} // namespace vandrel::test::key_status
