#include "app/SettingsStore.h"

#include "app/PlacedWindow.h"
#include "tests/support/FreshRegistry.h"
#include "tests/support/Test.h"

using testing::Each;

struct SettingsStoreTest : testing::Test {
  static Settings Loaded() {
    Settings settings;
    settings.fccWidths.fill(68);  // as the grids have them by themselves
    settings.eibiWidths.fill(70);
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

TEST(PlacedWindowTest, MovesInsideWhatCannotBeDragged) {
  const RECT area = {100, 50, 1100, 850};
  EXPECT_EQ(PlacedWindow::Inside({1050, 840, 300, 200}, area), (Settings::Place{800, 650, 300, 200}));
  EXPECT_EQ(PlacedWindow::Inside({0, 300, 5000, 100}, area), (Settings::Place{100, 300, 1000, 100}));
  EXPECT_TRUE(PlacedWindow::IsReachable({900, 700, 300, 900}, area)) << "on to the monitors beside and below";
  EXPECT_FALSE(PlacedWindow::IsReachable({900, 40, 300, 900}, area)) << "nothing to drag it by";
}
