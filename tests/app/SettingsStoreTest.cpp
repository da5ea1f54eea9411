#include "app/SettingsStore.h"

#include "app/PlacedWindow.h"
#include "tests/support/FreshRegistry.h"
#include "tests/support/Test.h"

using testing::Each;

struct SettingsStoreTest : testing::Test {
  // As the grids have them by themselves.
  static Settings Built() {
    Settings settings;
    settings.taskWidths.fill(60);
    settings.fccWidths.fill(68);
    settings.eibiWidths.fill(70);
    return settings;
  }
  static Settings Loaded() {
    Settings settings = Built();
    SettingsStore::Load(settings, "C:\\Documents");
    return settings;
  }
  TmyRegistry& Key() {
    EXPECT_TRUE(key_.Open(HKEY_CURRENT_USER, SettingsStore::kKey, KEY_ALL_ACCESS, true));
    return key_;
  }

  FreshRegistry registry_;
  TmyRegistry key_;
};

TEST_F(SettingsStoreTest, AFirstStartHasTheDefaults) {
  const Settings settings = Loaded();
  EXPECT_EQ(settings.window, (Settings::Place{0, 0, 800, 600}));
  EXPECT_EQ(settings.scheduler, (Settings::Place{0, 0, 600, 200}));
  EXPECT_FALSE(settings.isUtc || settings.isAutoTuning);
  EXPECT_EQ(settings.fccCount, 10U);
  EXPECT_THAT(std::vector(settings.fccSlots.begin(), settings.fccSlots.begin() + 10),
              ElementsAre(0, 1, 2, 3, 4, 9, 13, 14, 15, 16));
  EXPECT_EQ(settings.fccWidths[9], 100);
  EXPECT_EQ(settings.fccWidths[10], 68);
  EXPECT_THAT(settings.eibiWidths, Each(70));
  EXPECT_EQ(settings.exportFolder, "C:\\Documents");
  EXPECT_FALSE(TmyRegistry().Open(HKEY_CURRENT_USER, SettingsStore::kKey, KEY_READ)) << "loading makes no key";
}

TEST_F(SettingsStoreTest, WhatWasSavedComesBackAndTheTasksHaveTheirPlace) {
  Settings saved = Built();
  saved.window = {-1900, 20, 640, 480};
  saved.scheduler = {5, 6, 700, 300};
  saved.taskWidths = {1, 2, 3, 4, 5, 6, 7, 8};
  saved.isUtc = saved.isAutoTuning = true;
  saved.fccCount = 2;
  saved.fccSlots = {21, 20, 19};
  saved.database = 1;
  saved.fccWidths = {-1, 100000};
  saved.eibiWidths[8] = 9;
  saved.currentFile = "a26all00.zip";
  saved.exportFolder = "D:\\x";
  std::vector<bool> written;
  SettingsStore::Save(saved, [&] {
    for (const char* name : {"SchedulerTable", "IsAutoTuning", "DBDefault"}) written.push_back(Key().Exists(name));
  });
  EXPECT_THAT(written, ElementsAre(true, true, false));
  EXPECT_TRUE(Loaded() == saved);
}

TEST_F(SettingsStoreTest, DamagedValuesFillWhatTheyCan) {
  const std::vector<char> megabyte(1 << 20, 1);
  Key().WriteDword("TranslatedCount", 30);
  Key().WriteBinary("TranslatedPos", "\5", 1);
  Key().WriteBinary("GridColumsCountFcc", megabyte.data(), megabyte.size());
  Key().WriteDword("GridColumsCountEibi", 7);
  Key().WriteString("Width", "wide");
  Key().WriteDword("CurrentFile", 1);
  const Settings settings = Loaded();
  EXPECT_EQ(settings.fccCount, 22U);
  EXPECT_EQ(settings.fccSlots[0], 5U);
  EXPECT_EQ(settings.fccSlots[1], 0U);
  EXPECT_THAT(settings.fccWidths, Each(0x01010101));
  EXPECT_THAT(settings.eibiWidths, Each(70)) << "a value of another type is there all the same";
  EXPECT_EQ(settings.window.width, 800);
  EXPECT_EQ(settings.currentFile, "");
}

TEST_F(SettingsStoreTest, TheFallbackOfTheOtherGridsWidthsSetsNineOfThisOne) {
  const int32_t width = 55;
  Key().WriteBinary("GridColumsCountFcc", &width, sizeof width);
  const Settings settings = Loaded();
  EXPECT_THAT(std::vector(settings.fccWidths.begin(), settings.fccWidths.begin() + 9), Each(100));
  EXPECT_EQ(settings.fccWidths[9], 68);
}

TEST_F(SettingsStoreTest, AnEarlierLayoutIsRemovedOnlyWhenItsFirstValueIsThere) {
  Key().WriteDword("SchY", 4);
  Loaded();
  EXPECT_TRUE(Key().Exists("SchY"));
  for (const char* name : {"SchX", "SchW", "SchH", "SchTable", "SchedulerPosX"}) Key().WriteDword(name, 77);
  EXPECT_EQ(Loaded().scheduler.left, 77);
  for (const char* name : {"SchX", "SchY", "SchW", "SchH", "SchTable"}) EXPECT_FALSE(Key().Exists(name)) << name;
}

TEST(PlacedWindowTest, APlaceIsMovedInsideAndShrunkOnlyWhenItMust) {
  const RECT area = {100, 50, 1100, 850};
  const std::pair<Settings::Place, Settings::Place> kCases[] = {
      {{200, 60, 300, 200}, {200, 60, 300, 200}},     {{0, 0, 300, 200}, {100, 50, 300, 200}},
      {{1050, 840, 300, 200}, {800, 650, 300, 200}},  {{-32767, 32767, 300, 200}, {100, 650, 300, 200}},
      {{500, 300, 5000, 100}, {100, 300, 1000, 100}},
  };
  for (const auto& [stored, shown] : kCases) {
    EXPECT_EQ(PlacedWindow::Inside(stored, area), shown) << stored.left << ' ' << stored.top;
  }
  EXPECT_TRUE(PlacedWindow::IsReachable({900, 700, 300, 900}, area)) << "on to the monitors beside and below";
  EXPECT_FALSE(PlacedWindow::IsReachable({900, 40, 300, 900}, area)) << "nothing to drag it by";
}
