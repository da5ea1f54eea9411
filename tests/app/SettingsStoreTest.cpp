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

TEST_F(SettingsStoreTest, WithoutWidthsOfOneGridNineOfTheOtherHaveADefault) {
  const int32_t width = 55;
  Key().WriteBinary("GridColumsCountFcc", &width, sizeof width);
  const Settings settings = Loaded();
  EXPECT_THAT(std::vector(settings.fccWidths.begin(), settings.fccWidths.begin() + 9), Each(100));
  EXPECT_EQ(settings.fccWidths[9], 68);
  Key().WriteDword("GridColumsCountEibi", 7);  // of another type, but there
  EXPECT_EQ(Loaded().fccWidths[0], 55);
  EXPECT_EQ(Loaded().fccWidths[1], 68);
  EXPECT_THAT(Loaded().eibiWidths, Each(70));
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
  EXPECT_EQ(PlacedWindow::Inside({1050, 0, 300, 5000}, area), (Settings::Place{800, 50, 300, 800}));
  EXPECT_TRUE(PlacedWindow::IsReachable({900, 700, 300, 900}, area)) << "on to the monitors beside and below";
  EXPECT_FALSE(PlacedWindow::IsReachable({900, 40, 300, 900}, area)) << "nothing to drag it by";
}
