// Marlux 3. The user's settings as they stand in the registry: one value each, read once when a main window is made and
// written when it goes or the user's session ends.
//
//   Settings settings = ...;                  // the widths that the grids have now
//   SettingsStore::Load(settings, folder);
//   SettingsStore::Save(settings, [&] { tasks.Save(); });
//
// Load tells whether something may have been missed, Save nothing. What is missing, of another type or unreadable takes
// its default; a binary value that is too short fills only its own length.
#pragma once

#include <array>
#include <functional>

#include "foundation/TmyRegistry.h"

struct Settings {
  static constexpr uint32_t kFccSlots = 22;
  static constexpr uint32_t kEibiColumns = 9;  // one more than are shown
  static constexpr uint32_t kTaskColumns = 8;

  struct Place {  // screen pixels
    int32_t left, top, width, height;
    bool operator==(const Place&) const = default;
  };

  Place window = {0, 0, 800, 600};
  Place scheduler = {0, 0, 600, 200};
  std::array<int32_t, kTaskColumns> taskWidths = {};  // pixels, as all widths
  bool isUtc = false;
  bool isAutoTuning = false;
  uint32_t fccCount = 0;                          // shown columns of the HFCC grid; never above kFccSlots once loaded
  std::array<uint32_t, kFccSlots> fccSlots = {};  // the HFCC field of each; behind fccCount they mean nothing
  uint32_t database = 0;
  std::array<int32_t, kFccSlots> fccWidths = {};
  std::array<int32_t, kEibiColumns> eibiWidths = {};
  TmyString currentFile;  // archive, without folder
  TmyString exportFolder;

  bool operator==(const Settings&) const = default;
};

namespace SettingsStore {

inline constexpr char kKey[] = "Software\\Corvane Communications\\Marlux 3";  // of the current user

// Before the call the widths in `settings` are those that the grids have by themselves. Also removes the values of an
// earlier layout. False when something could not be read that may be there: saving would put a default in its place.
bool Load(Settings& settings, const TmyString& documentsFolder);
// The task list has its place amid the values: what was written before it is kept when that never returns.
void Save(const Settings& settings, const std::function<void()>& saveTasks);

}  // namespace SettingsStore
