#include "app/EibiDetailDialog.h"
#include "app/FccDetailDialog.h"
#include "tests/support/EibiLine.h"
#include "tests/support/Test.h"
#include "toolkit/ClipboardText.h"

struct DetailDialogTest : testing::Test {
  ~DetailDialogTest() override { owner_->Destroy(); }

  TmyComponent* owner_ = new TmyComponent("Owner", WS_POPUP | WS_VISIBLE, 0, 0, 0, 300, 200, nullptr);
};

TEST_F(DetailDialogTest, ControlCCopiesTheCurrentRowOrAllAndEscapeClosesOne) {
  EibiItem item;
  ASSERT_TRUE(item.Parse(EibiLine("6005", "2200-2400", "Mo-Fr")));
  const ShownZone zone = {false, 7200};
  auto *dialog = new EibiDetailDialog(*owner_, item, zone), *other = new EibiDetailDialog(*owner_, item, zone);
  const HWND grid = dialog->Grid().Handle();
  BYTE keys[256] = {};
  keys[VK_CONTROL] = 0x80;
  ASSERT_TRUE(SetKeyboardState(keys));
  dialog->Grid().SetCurrentRow(8, true);
  SendMessageA(grid, WM_KEYDOWN, 'C', 0);
  EXPECT_EQ(ClipboardText(owner_->Handle()), "ITU country\tD");
  for (const WPARAM key : {'A', 'C'}) SendMessageA(grid, WM_KEYDOWN, key, 0);
  EXPECT_EQ(ClipboardText(owner_->Handle()),
            "Freq\t6005\r\nDays\tWorkdays\r\nTime\tFrom 00:00 to 02:00\r\nStation\tRadio Example\r\nLanguage\tE\r\n"
            "Target\tCEu\r\nRemarks\tka\r\nITU country\tD\r\n");
  keys[VK_CONTROL] = 0;
  SetKeyboardState(keys);
  const TmyWindowBase::Hold hold;
  SendMessageA(grid, kMsgEscape, 0, 0);
  EXPECT_TRUE(!dialog->IsAlive() && other->IsAlive());
}

// A time that the schedule leaves blank has no other zone.
TEST_F(DetailDialogTest, ShowsTheFieldsOfTheOtherDatabaseWithTimesInTheZoneOfTheGrid) {
  const char* const cells[kHfccColumns] = {"9420", "2400",   nullptr,  "27,28", "RDR",   "250", "105",  nullptr,
                                           "17",   "290326", "251026", "N",     nullptr, "Eng", "LUX",  nullptr,
                                           "FMX",  nullptr,  nullptr,  "1",     "2",     "3",   "tests"};
  FccItem item;
  item.SetCells(cells);
  EXPECT_EQ((new FccDetailDialog(*owner_, item, HfccDatabase(), {false, -82800}))->TextToCopy(),
            "Freq\t9420\r\nDate\tFrom 29/03/26 to 25/10/26\r\nDays\tWeekend\r\nTime\tFrom 01:00 to \r\n"
            "CIRAFs\t27,28\r\nLocation\tRDR\r\nPower\t250\r\nAzimuth\t105\r\nMode\tDigital (DRM)\r\nLanguage\tEng\r\n"
            "Admin\tLUX\r\nBroadcaster\t\r\nFMO\tFMX\r\nOld\t\r\nAlt 1\t1\r\nAlt 2\t2\r\nAlt 3\t3\r\nNotes\ttests\r\n");
}
