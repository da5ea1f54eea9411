// Marlux 3. What the filter panel asks for, in the one form that filter passes use and compare.
//
// The panel fills a FilterChoices with what its controls show; BuildFilterRecord turns it into the record. Two equal
// records let a refresh skip its filter pass, so that every byte of a record is defined: texts are filled with zeros.
#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <type_traits>

#include "foundation/Compiler.h"

namespace FilterFlag {

inline constexpr uint32_t kFrequency = 1;
inline constexpr uint32_t kText1 = 2;  // the second to fourth text filter follow with 4, 8 and 16
inline constexpr uint32_t kText2 = 4;
inline constexpr uint32_t kText3 = 8;
inline constexpr uint32_t kText4 = 16;
inline constexpr uint32_t kTime = 32;
// "from" lies above "to" because a range in local time crosses midnight UTC: what either side of midnight passes,
// passes.
inline constexpr uint32_t kTimeWraps = 64;

}  // namespace FilterFlag

struct FilterRecord {
  uint32_t lowest = 0;   // Hz, inclusive
  uint32_t highest = 0;  // Hz, inclusive
  uint32_t from = 0;     // UTC seconds of the day
  uint32_t to = 0;
  uint32_t flags = 0;
  char text1[50] = {};
  char text2[10] = {};
  char text3[10] = {};
  char text4[10] = {};

  friend bool operator==(const FilterRecord& left, const FilterRecord& right) noexcept;
};

static_assert(sizeof(FilterRecord) == 100 && std::has_unique_object_representations_v<FilterRecord>);
static_assert(std::is_trivially_copyable_v<FilterRecord>);
static_assert(offsetof(FilterRecord, highest) == 4);
static_assert(offsetof(FilterRecord, from) == 8);
static_assert(offsetof(FilterRecord, to) == 12);
static_assert(offsetof(FilterRecord, flags) == 16);
static_assert(offsetof(FilterRecord, text1) == 20);
static_assert(offsetof(FilterRecord, text2) == 70);
static_assert(offsetof(FilterRecord, text3) == 80);
static_assert(offsetof(FilterRecord, text4) == 90);

// The two frequency edits in Hz: lowest and highest with "Between", centre and span with "Around". Values stay within
// 2^62 either way.
struct FrequencyEdits {
  int64_t first = 0;
  int64_t second = 0;
};

// What the edits hold after the other option was chosen. The span never exceeds the lower bound, a centre that is too
// low for its span is moved up. Both run at each click of an option, also when it was chosen before.
[[nodiscard]] FrequencyEdits SwitchToAround(FrequencyEdits edits) noexcept;
[[nodiscard]] FrequencyEdits SwitchToBetween(FrequencyEdits edits) noexcept;

struct FilterChoices {
  bool frequencyOn = false;
  bool around = false;  // else between
  FrequencyEdits frequencies;

  bool timeOn = false;
  bool useCurrentTime = false;  // else the two edits
  int32_t from = 0;             // seconds of the day as shown, UTC or local
  int32_t to = 0;
  bool utcShown = true;
  int32_t localOffset = 0;  // seconds that local time is ahead of UTC
  int32_t utcNow = 0;       // UTC seconds of the day

  // Text filters that are on and have a selection.
  std::array<std::optional<std::string_view>, 4> texts;
};

[[nodiscard]] FilterRecord BuildFilterRecord(const FilterChoices& choices) noexcept;
