#include "schedule/FccItem.h"

#include <algorithm>
#include <bit>
#include <string_view>

#include "schedule/DayTime.h"
#include "schedule/ModulationNames.h"
#include "schedule/WholeNumber.h"

namespace {

class Cells {
 public:
  explicit Cells(const char* const* cells) noexcept : cells_(cells) {}
  const char* operator[](HfccColumn column) const noexcept {
    const char* cell = cells_[static_cast<uint32_t>(column)];
    return cell ? cell : kFccNoText;
  }

 private:
  const char* const* cells_;
};

int32_t HzFromKhz(std::string_view text) noexcept {
  constexpr int32_t kMostKhz = INT32_MAX / 1000;
  return std::clamp(WholeNumber(text), -kMostKhz, kMostKhz) * 1000;
}

uint16_t ShortNumber(std::string_view text) noexcept {
  return static_cast<uint16_t>(std::clamp(WholeNumber(text), 0, int32_t{UINT16_MAX}));
}

// The number of two characters, of which one or both may be missing.
int32_t TwoDigits(std::string_view text, size_t at) noexcept {
  return at < text.size() ? WholeNumber(text.substr(at, 2)) : 0;
}

void SetTime(std::string_view hhmm, int32_t& seconds, char (&text)[6]) noexcept {
  if (hhmm.empty()) return;
  seconds = SecondsFromHhMm(hhmm);
  CopyTimeText(text, hhmm);
}

// date := DDMMYY
void SetDate(std::string_view ddmmyy, int32_t& number, char (&text)[9]) noexcept {
  if (ddmmyy.empty()) return;
  number = (TwoDigits(ddmmyy, 4) * 12 + TwoDigits(ddmmyy, 2)) * 31 + TwoDigits(ddmmyy, 0);
  size_t length = 0;
  for (size_t i = 0; i < 6 && i < ddmmyy.size(); ++i) {
    if (i == 2 || i == 4) text[length++] = '/';
    text[length++] = ddmmyy[i];
  }
  text[length] = 0;
}

// "1" for Sunday to "7" for Saturday; other characters are no day.
uint8_t MaskFromDigits(std::string_view digits) noexcept {
  uint32_t mask = 0;
  for (const char c : digits) {
    if (c >= '1' && c <= '7') mask |= 1U << (c - '1');
  }
  return static_cast<uint8_t>(mask);
}

bool HasDaysName(uint8_t mask) noexcept {
  return std::has_single_bit(mask) || mask == kAllDaysMask || mask == kWorkdaysMask || mask == kWeekendMask;
}

}  // namespace

void FccItem::SetCells(const char* const* row) noexcept {
  using enum HfccColumn;
  const Cells cells(row);
  frequencyText = cells[kFrequency];
  frequency = HzFromKhz(frequencyText);
  SetTime(cells[kStart], start, startText);
  SetTime(cells[kEnd], end, endText);
  powerText = cells[kPower];
  power = ShortNumber(powerText);
  azimuthText = cells[kAzimuth];
  azimuth = ShortNumber(azimuthText);
  SetDate(cells[kStartDate], startDate, startDateText);
  SetDate(cells[kEndDate], endDate, endDateText);
  language = cells[kLanguage];
  modulation = cells[kModulation][0];
  const char* name = ModulationName(modulation);
  modulationName = name ? name : cells[kModulation];
  dayMask = MaskFromDigits(cells[kDays]);
  daysText = HasDaysName(dayMask) ? DayMaskText(dayMask) : cells[kDays];
  oldRequest = cells[kOldRequest];
  for (uint32_t i = 0; i < 3; ++i) alternatives[i] = cells[HfccColumn{static_cast<uint32_t>(kAlternative1) + i}];
  notes = cells[kNotes];
  cirafText = cells[kCiraf];
  ciraf = ParseCiraf(cirafText);
  siteCode = cells[kSite];
  administrationCode = cells[kAdministration];
  broadcasterCode = cells[kBroadcaster];
  organisationCode = cells[kOrganisation];
}
