// Marlux 3. A clock of the test's own for a loaded module: what it asks the system for the time of day is answered
// here.
//
//   ASSERT_TRUE(ModuleClock::Replace("marlux3.dll"));
//   ModuleClock::utc += std::chrono::seconds(1);
//
// Not for tick counts and timers, which go on as they are. It lasts as long as the module stays loaded.
#pragma once

#include <windows.h>

#include <chrono>
#include <cstdint>

namespace ModuleClock {

inline std::chrono::sys_seconds utc;
inline std::chrono::seconds localOffset{0};  // local time is so much later

[[nodiscard]] uint64_t Ticks(std::chrono::sys_seconds time);  // 100 ns since 1601
[[nodiscard]] SYSTEMTIME Calendar(std::chrono::sys_seconds time);
// False when the module is not there or does not ask the system in the way that is known.
[[nodiscard]] bool Replace(const char* module);

}  // namespace ModuleClock
