#include "schedule/DayTime.h"

namespace {

constexpr uint32_t kMasks = 128;
constexpr size_t kTextRoom = 32;  // six short names with separators are the longest text

// All 128 texts are made by the compiler, so that nothing has to be built or freed at run time.
struct MaskTexts {
  char texts[kMasks][kTextRoom] = {};

  constexpr MaskTexts() {
    for (uint32_t mask = 0; mask < kMasks; ++mask) Fill(texts[mask], mask);
  }

 private:
  static constexpr size_t Put(char* text, size_t length, std::string_view more) {
    for (const char c : more) text[length++] = c;
    return length;
  }

  static constexpr std::string_view SpecialName(uint32_t mask) {
    if (mask == kAllDaysMask) return "All days";
    if (mask == kWorkdaysMask) return "Workdays";
    if (mask == kWeekendMask) return "Weekend";
    for (uint32_t day = 0; day < kDaysOfWeek; ++day) {
      if (mask == DayBit(day)) return kFullDayNames[day];
    }
    return {};
  }

  static constexpr void Fill(char* text, uint32_t mask) {
    if (const std::string_view name = SpecialName(mask); !name.empty()) {
      Put(text, 0, name);
      return;
    }
    size_t length = 0;
    for (uint32_t day = 0; day < kDaysOfWeek; ++day) {
      if ((mask & DayBit(day)) == 0) continue;
      if (length > 0) length = Put(text, length, ", ");
      length = Put(text, length, kShortDayNames[day]);
    }
  }
};

constexpr MaskTexts kMaskTexts;

}  // namespace

int32_t DayIndex(std::string_view code) noexcept {
  for (uint32_t day = 0; day < kDaysOfWeek; ++day) {
    if (kDayCodes[day] == code) return static_cast<int32_t>(day);
  }
  return -1;
}

const char* DayMaskText(uint32_t mask) noexcept {
  return kMaskTexts.texts[mask % kMasks];
}
