// Marlux 3. One transmission of the HFCC schedule.
//
// The texts are zero-terminated, in Latin-1 as the file has them, never null. Pointers to texts point into the tables
// of the HfccDatabase that made the record and live as long as its next load.
#pragma once

#include <type_traits>

#include "foundation/Compiler.h"
#include "schedule/Ciraf.h"

// The columns of the schedule, in their order in a line. Records do not keep 7, 12 and 17.
enum class HfccColumn : uint32_t {
  kFrequency = 0,
  kStart = 1,
  kEnd = 2,
  kCiraf = 3,
  kSite = 4,
  kPower = 5,
  kAzimuth = 6,
  kSlewAndAntenna = 7,
  kDays = 8,
  kStartDate = 9,
  kEndDate = 10,
  kModulation = 11,
  kAntennaFrequency = 12,
  kLanguage = 13,
  kAdministration = 14,
  kBroadcaster = 15,
  kOrganisation = 16,
  kRequest = 17,
  kOldRequest = 18,
  kAlternative1 = 19,
  kAlternative2 = 20,
  kAlternative3 = 21,
  kNotes = 22,
};
inline constexpr uint32_t kHfccColumns = 23;

inline constexpr char kFccNoText[] = "";  // what blank cells share

struct FccItem {
  int32_t frequency = 0;                   // Hz
  const char* frequencyText = kFccNoText;  // kHz, as written
  int32_t start = 0;                       // seconds after 00:00 UTC
  int32_t end = 0;                         // smaller than the start over midnight, 86400 for 24:00
  char startText[6] = {};                  // HH:MM
  char endText[6] = {};
  uint16_t power = 0;  // kW
  const char* powerText = kFccNoText;
  uint16_t azimuth = 0;  // degrees, of the first direction when there are several
  const char* azimuthText = kFccNoText;
  int32_t startDate = 0;  // a number that grows with the date: (year * 12 + month) * 31 + day, year of century
  int32_t endDate = 0;
  char startDateText[9] = {};  // DD/MM/YY
  char endDateText[9] = {};
  const char* language = kFccNoText;
  int32_t site = -1;  // rows of the database's tables, -1 for a code that they lack
  int32_t administration = -1;
  int32_t broadcaster = -1;
  int32_t organisation = -1;
  const char* longitude = kFccNoText;  // of the site, as its table writes it: "045E30"
  const char* latitude = kFccNoText;
  char modulation = 0;
  const char* modulationName = kFccNoText;
  uint8_t dayMask = 0;  // bit 0 for Sunday to bit 6 for Saturday
  const char* daysText = kFccNoText;
  const char* oldRequest = kFccNoText;
  const char* alternatives[3] = {kFccNoText, kFccNoText, kFccNoText};  // frequencies in kHz
  const char* notes = kFccNoText;
  const char* cirafText = kFccNoText;
  ZoneSet ciraf;
  uint32_t shown = 0;  // set by the filter pass: 1 while the record passes
  // The codes as the schedule writes them, also those that the tables lack.
  const char* siteCode = kFccNoText;
  const char* administrationCode = kFccNoText;
  const char* broadcasterCode = kFccNoText;
  const char* organisationCode = kFccNoText;

  // Fills a fresh record, all but what comes from the code tables, from a row's kHfccColumns cells, null for a
  // blank one. The cells are kept, not copied.
  void SetCells(const char* const* row) noexcept;
};

static_assert(std::is_standard_layout_v<FccItem> && std::is_trivially_copyable_v<FccItem>);
static_assert(sizeof(void*) != 4 || sizeof(FccItem) == 176);
static_assert(sizeof(void*) != 4 || offsetof(FccItem, power) == 28);
static_assert(sizeof(void*) != 4 || offsetof(FccItem, startDate) == 44);
static_assert(sizeof(void*) != 4 || offsetof(FccItem, language) == 72);
static_assert(sizeof(void*) != 4 || offsetof(FccItem, longitude) == 92);
static_assert(sizeof(void*) != 4 || offsetof(FccItem, cirafText) == 136);
static_assert(sizeof(void*) != 4 || offsetof(FccItem, shown) == 156);
