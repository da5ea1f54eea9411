#include "foundation/Clock.h"

namespace {

constexpr int64_t kFileTimePerSecond = 10'000'000;

bool held = false;
SYSTEMTIME heldUtc;
int32_t heldOffset = 0;
uint32_t ticksAhead = 0;

int64_t ToTicks(const FILETIME& time) noexcept {
  return static_cast<int64_t>(uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
}

SYSTEMTIME Moved(const SYSTEMTIME& utc, int32_t seconds) noexcept {
  FILETIME time;
  if (!SystemTimeToFileTime(&utc, &time)) return utc;
  const auto ticks = static_cast<uint64_t>(ToTicks(time) + seconds * kFileTimePerSecond);
  time.dwHighDateTime = static_cast<DWORD>(ticks >> 32);
  time.dwLowDateTime = static_cast<DWORD>(ticks);
  SYSTEMTIME moved;
  return FileTimeToSystemTime(&time, &moved) ? moved : utc;
}

}  // namespace

SYSTEMTIME Clock::Utc() noexcept {
  if (held) return heldUtc;
  SYSTEMTIME now;
  GetSystemTime(&now);
  return now;
}

SYSTEMTIME Clock::Local() noexcept {
  if (held) return Moved(heldUtc, heldOffset);
  SYSTEMTIME now;
  GetLocalTime(&now);
  return now;
}

int32_t Clock::LocalOffsetSeconds() noexcept {
  if (held) return heldOffset;
  // Asked for the present moment, this conversion counts summer time in; a time zone's plain bias would not.
  FILETIME utc;
  FILETIME local;
  GetSystemTimeAsFileTime(&utc);
  if (!FileTimeToLocalFileTime(&utc, &local)) return 0;
  return static_cast<int32_t>((ToTicks(local) - ToTicks(utc)) / kFileTimePerSecond);
}

uint32_t Clock::Ticks() noexcept {
  return GetTickCount() + ticksAhead;
}

void Clock::Hold(const SYSTEMTIME& utc, int32_t localOffsetSeconds) noexcept {
  held = true;
  heldUtc = utc;
  heldOffset = localOffsetSeconds;
}

void Clock::Release() noexcept {
  held = false;
}

void Clock::AdvanceTicks(uint32_t milliseconds) noexcept {
  ticksAhead += milliseconds;
}
