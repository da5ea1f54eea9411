// Marlux 3. One broadcast of the EiBi schedule, and the reading of its line.
//
//   EibiItem item;
//   if (item.Parse("6005          0900-1000 Mo-Fr D   Radio Example            D   CEu         ka")) ...
//
// The texts are zero-terminated, in Latin-1 as the file has them; what is longer than its field is cut.
#pragma once

#include <string_view>
#include <type_traits>

#include "foundation/Compiler.h"
#include "schedule/EibiPool.h"

struct EibiItem {
  uint32_t valid = 0;           // 1 once a line was read into the record
  int32_t frequency = 0;        // Hz
  char frequencyText[20] = {};  // kHz, as written
  int32_t start = 0;            // seconds after 00:00 UTC, -1 without a time
  char startText[12] = {};      // HH:MM, "-" without a time
  int32_t end = 0;              // as start; smaller than it over midnight, 86400 for 24:00
  char endText[10] = {};
  char rawDays[10] = {};     // as written
  char daysText[100] = {};   // for display
  uint8_t dayFlags[7] = {};  // 1 for each day on which it runs, Monday first
  uint8_t dayMask = 0;       // the same with bit 0 for Sunday to bit 6 for Saturday
  char itu[10] = {};         // country code
  char station[50] = {};
  char language[10] = {};
  char target[10] = {};
  char remarks[20] = {};
  uint32_t shown = 0;  // set by the filter pass: 1 while the record passes

  // The days field, trimmed: "" (all days), "135" (digits from 1 = Monday), "SaSu", "Sa,Su", "Mo-Fr", "Tu". A range may
  // wrap over Sunday ("Fr-Mo"). Unknown codes and the digits 0, 8 and 9 set no day and add no text; any other text
  // ("irr", "1.Sa") stays as the display text.
  void SetDays(std::string_view field) noexcept;

  // Fills the record from one line; false, with the valid flag clear, when the line is shorter than 63 characters or
  // its frequency is unreadable, 0 or does not fit. Allocates nothing.
  bool Parse(std::string_view text) noexcept;

  // `new (pool) EibiItem` takes the memory from a pool, plain new a heap block; delete knows which it was.
  static void* operator new(size_t) { return EibiPool::TakeSingle(); }
  static void* operator new(size_t, EibiPool& pool) { return pool.Take(); }
  static void operator delete(void* memory) noexcept { EibiPool::GiveBack(memory); }
  static void operator delete(void* memory, EibiPool&) noexcept { EibiPool::GiveBack(memory); }
};

static_assert(std::is_standard_layout_v<EibiItem> && std::is_trivially_copyable_v<EibiItem>);
static_assert(sizeof(EibiItem) == 280);
static_assert(offsetof(EibiItem, frequency) == 4);
static_assert(offsetof(EibiItem, frequencyText) == 8);
static_assert(offsetof(EibiItem, start) == 28);
static_assert(offsetof(EibiItem, startText) == 32);
static_assert(offsetof(EibiItem, end) == 44);
static_assert(offsetof(EibiItem, endText) == 48);
static_assert(offsetof(EibiItem, rawDays) == 58);
static_assert(offsetof(EibiItem, daysText) == 68);
static_assert(offsetof(EibiItem, dayFlags) == 168);
static_assert(offsetof(EibiItem, dayMask) == 175);
static_assert(offsetof(EibiItem, itu) == 176);
static_assert(offsetof(EibiItem, station) == 186);
static_assert(offsetof(EibiItem, language) == 236);
static_assert(offsetof(EibiItem, target) == 246);
static_assert(offsetof(EibiItem, remarks) == 256);
static_assert(offsetof(EibiItem, shown) == 276);
