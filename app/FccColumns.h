// Marlux 3. The columns that an HFCC grid can have: titles, widths, texts and the order that a click on a title asks
// for.
#pragma once

#include <span>
#include <string_view>

#include "app/RecordSort.h"
#include "app/ShownZone.h"
#include "foundation/TmyList.h"
#include "schedule/HfccDatabase.h"

// Numbers that settings store: those of the schedule's columns. Two columns that records do not keep stand for where
// the site lies; 17 is no field.
struct FccFieldNumbers {
  enum Field : uint32_t {
    kFrequency = 0,
    kStart = 1,
    kStop = 2,
    kCiraf = 3,
    kLocation = 4,
    kPower = 5,
    kAzimuth = 6,
    kLatitude = 7,
    kDays = 8,
    kFrom = 9,
    kTo = 10,
    kMode = 11,
    kLongitude = 12,
    kLanguage = 13,
    kAdministration = 14,
    kBroadcaster = 15,
    kOrganisation = 16,
    kOld = 18,
    kAlternative1 = 19,
    kAlternative2 = 20,
    kAlternative3 = 21,
    kNotes = 22,
  };
};
using FccField = FccFieldNumbers::Field;  // reads as a number, too
inline constexpr uint32_t kFccFields = 22;
inline constexpr uint32_t kFirstFccFields[] = {0, 1, 2, 3, 4, 9, 13, 14, 15, 16};  // until the user chooses others

struct FccColumn {
  FccField field;
  const char* title;
  int32_t width;  // pixels at 96 dpi
  bool alignRight;
  const char* (*text)(const HfccDatabase& database, const FccItem& item) noexcept;  // with times in UTC
  uint32_t (*number)(const FccItem& item, const ShownZone& zone) noexcept;          // null: ordered by its text
};

[[nodiscard]] std::span<const FccColumn, kFccFields> FccColumns() noexcept;  // ascending fields
// For a stored number; one that is no field counts as the frequency.
[[nodiscard]] const FccColumn& FccColumnOf(uint32_t field) noexcept;

// The text of a cell, zero-terminated, valid while database and buffer are. Coded fields show the name that the tables
// have, else the code. Only local times are written into the buffer; a blank time stays blank.
[[nodiscard]] std::string_view FccCellText(const HfccDatabase& database, const FccItem& item, const FccColumn& column,
                                           const ShownZone& zone, CellBuffer& buffer) noexcept;

// "Greater" for an ascending sort: frequencies, times, dates, power and azimuth as unsigned numbers, the other columns
// by the shown texts as unsigned characters. Database and column must outlive it.
class FccGreater {
 public:
  FccGreater(const HfccDatabase& database, const FccColumn& column, const ShownZone& zone) noexcept
      : database_(database), column_(column), zone_(zone) {}

  [[nodiscard]] bool operator()(const FccItem& left, const FccItem& right) const noexcept;

 private:
  const HfccDatabase& database_;
  const FccColumn& column_;
  ShownZone zone_;
};

// Sorts a list of FccItem pointers.
void SortFcc(TmyList& records, SortDirection direction, const FccGreater& greater);
