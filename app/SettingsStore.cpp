#include "app/SettingsStore.h"

#include <algorithm>

#include "app/FccColumns.h"

namespace {

// The value names as installations out there have them; two are misspelt for good.
constexpr char kTaskWidths[] = "SchedulerTable";
constexpr char kFccCount[] = "TranslatedCount";
constexpr char kFccSlots[] = "TranslatedPos";
constexpr char kFccWidths[] = "GridColumsCountFcc";
constexpr char kEibiWidths[] = "GridColumsCountEibi";
constexpr const char* kEarlier[] = {"SchX", "SchY", "SchW", "SchH", "SchTable"};

struct PlaceNames {
  const char *left, *top, *width, *height;
};
constexpr PlaceNames kWindow = {"Left", "Top", "Width", "Height"};
constexpr PlaceNames kScheduler = {"SchedulerPosX", "SchedulerPosY", "SchedulerWidth", "SchedulerHeight"};

constexpr int32_t kFirstWidth = 100;

int32_t ReadInt(const TmyRegistry& key, const char* name, int32_t otherwise) {
  return static_cast<int32_t>(key.ReadDword(name, static_cast<uint32_t>(otherwise)));
}

void ReadPlace(const TmyRegistry& key, const PlaceNames& names, Settings::Place& place) {
  place = {ReadInt(key, names.left, place.left), ReadInt(key, names.top, place.top),
           ReadInt(key, names.width, place.width), ReadInt(key, names.height, place.height)};
}

void WritePlace(TmyRegistry& key, const PlaceNames& names, const Settings::Place& place) {
  key.WriteDword(names.left, static_cast<uint32_t>(place.left));
  key.WriteDword(names.top, static_cast<uint32_t>(place.top));
  key.WriteDword(names.width, static_cast<uint32_t>(place.width));
  key.WriteDword(names.height, static_cast<uint32_t>(place.height));
}

template <class Array>
void ReadArray(const TmyRegistry& key, const char* name, Array& array) {
  key.ReadBinary(name, array.data(), sizeof(array));
}

template <class Array>
void WriteArray(TmyRegistry& key, const char* name, const Array& array) {
  key.WriteBinary(name, array.data(), sizeof(array));
}

void RemoveEarlier(TmyRegistry& key) {
  if (!key.Exists(kEarlier[0])) return;
  for (const char* name : kEarlier) key.DeleteValue(name);
}

void ReadFields(const TmyRegistry& key, Settings& settings) {
  if (key.Exists(kFccCount)) {
    settings.fccCount = std::min(key.ReadDword(kFccCount, 0), Settings::kFccSlots);
    ReadArray(key, kFccSlots, settings.fccSlots);
    return;
  }
  settings.fccCount = std::size(kFirstFccFields);
  std::ranges::copy(kFirstFccFields, settings.fccSlots.begin());
}

// The second fallback also sets widths of the HFCC grid, and the EiBi grid keeps its own: that is how a first start
// has always looked, and installations have stored it.
void ReadWidths(const TmyRegistry& key, Settings& settings) {
  if (key.Exists(kFccWidths)) {
    ReadArray(key, kFccWidths, settings.fccWidths);
  } else {
    std::fill_n(settings.fccWidths.begin(), settings.fccCount, kFirstWidth);
  }
  if (key.Exists(kEibiWidths)) {
    ReadArray(key, kEibiWidths, settings.eibiWidths);
  } else {
    std::fill_n(settings.fccWidths.begin(), Settings::kEibiColumns, kFirstWidth);
  }
}

}  // namespace

// A key that cannot be opened reads as one without values.
bool SettingsStore::Load(Settings& settings, const TmyString& documentsFolder) {
  TmyRegistry key;
  static_cast<void>(key.Open(HKEY_CURRENT_USER, kKey, KEY_ALL_ACCESS));
  ReadPlace(key, kWindow, settings.window);
  RemoveEarlier(key);
  ReadPlace(key, kScheduler, settings.scheduler);
  settings.isUtc = key.ReadDword("IsUtcTime", 0) != 0;
  settings.isAutoTuning = key.ReadDword("IsAutoTuning", 0) != 0;
  ReadArray(key, kTaskWidths, settings.taskWidths);
  ReadFields(key, settings);
  settings.database = key.ReadDword("DBDefault", 0);
  ReadWidths(key, settings);
  settings.currentFile = key.ReadString("CurrentFile", "");
  settings.exportFolder = key.ReadString("ExportPath", documentsFolder);
  return !key.HasMissed();
}

void SettingsStore::Save(const Settings& settings, const std::function<void()>& saveTasks) {
  TmyRegistry key;
  static_cast<void>(key.Open(HKEY_CURRENT_USER, kKey, KEY_ALL_ACCESS, true));
  WritePlace(key, kWindow, settings.window);
  WritePlace(key, kScheduler, settings.scheduler);
  WriteArray(key, kTaskWidths, settings.taskWidths);
  key.WriteDword("IsUtcTime", settings.isUtc);
  key.WriteDword("IsAutoTuning", settings.isAutoTuning);
  saveTasks();
  key.WriteDword("DBDefault", settings.database);
  key.WriteDword(kFccCount, settings.fccCount);
  WriteArray(key, kFccSlots, settings.fccSlots);
  WriteArray(key, kFccWidths, settings.fccWidths);
  WriteArray(key, kEibiWidths, settings.eibiWidths);
  key.WriteString("CurrentFile", settings.currentFile);
  key.WriteString("ExportPath", settings.exportFolder);
}
