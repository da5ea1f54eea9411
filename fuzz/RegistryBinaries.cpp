#include "app/SettingsStore.h"
#include "fuzz/Fuzz.h"

namespace {

constexpr const char* kNames[] = {"Left",        "Width",        "SchedulerPosX",      "SchedulerTable",
                                  "IsUtcTime",   "IsAutoTuning", "TranslatedCount",    "TranslatedPos",
                                  "DBDefault",   "SchX",         "GridColumsCountFcc", "GridColumsCountEibi",
                                  "CurrentFile", "ExportPath",   "SchTable",           "Height"};

}  // namespace

// Whatever stands in the key, what was read of it is read again once it is written.
void Try(Input& input) {
  RegDeleteKeyA(HKEY_CURRENT_USER, SettingsStore::kKey);
  while (!input.IsEmpty()) {
    const char* const name = kNames[input.Take<uint8_t>() % std::size(kNames)];
    const auto type = input.Take<uint8_t>();
    const std::string value = input.TakeText(type & 0x80 ? 4 : input.Take<uint8_t>());
    RegSetKeyValueA(HKEY_CURRENT_USER, SettingsStore::kKey, name, type % 8, value.data(),
                    static_cast<DWORD>(value.size()));
  }
  Settings read;
  SettingsStore::Load(read, "C:\\documents");
  REQUIRE(read.fccCount <= Settings::kFccSlots);
  int tasksSaved = 0;
  SettingsStore::Save(read, [&] { ++tasksSaved; });
  Settings again;
  SettingsStore::Load(again, "");
  REQUIRE(tasksSaved == 1 && read == again);
}
