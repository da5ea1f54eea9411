#include "app/EibiDetailDialog.h"
#include "app/FccDetailDialog.h"
#include "tests/support/EibiLine.h"
#include "tests/toolkit/ControlFixture.h"
#include "toolkit/ClipboardText.h"

using DetailDialogTest = ControlFixture;

TEST_F(DetailDialogTest, ControlCCopiesTheCurrentRowOrAllAndEscapeClosesOne) {
  EibiItem item;
  ASSERT_TRUE(item.Parse(EibiLine("6005", "2200-2400", "Mo-Fr")));
  const ShownZone zone = {false, 7200};
  auto *dialog = new EibiDetailDialog(*window_, item, zone), *other = new EibiDetailDialog(*window_, item, zone);
  TmyStringGrid& grid = dialog->Grid();
  grid.SetCurrentRow(8, true);
  Input::Key(grid, 'C', VK_CONTROL);
  EXPECT_EQ(ClipboardText(window_->Handle()), "ITU country\tD");
  for (const uint32_t key : {'A', 'C'}) Input::Key(grid, key, VK_CONTROL);
  EXPECT_EQ(ClipboardText(window_->Handle()),
            "Freq\t6005\r\nDays\tWorkdays\r\nTime\tFrom 00:00 to 02:00\r\nStation\tRadio Example\r\nLanguage\tE\r\n"
            "Target\tCEu\r\nRemarks\tka\r\nITU country\tD\r\n");
  const TmyWindowBase::Hold hold;
  SendMessageA(grid.Handle(), kMsgEscape, 0, 0);
  EXPECT_TRUE(!dialog->IsAlive() && other->IsAlive());
}

// A time that the schedule leaves blank has no other zone.
TEST_F(DetailDialogTest, ShowsTheFieldsOfTheOtherDatabaseWithTimesInTheZoneOfTheGrid) {
  const char* const cells[kHfccColumns] = {"9420", "2400",   nullptr,  "27,28", "RDR",   "250", "105",  nullptr,
                                           "17",   "290326", "251026", "N",     nullptr, "Eng", "LUX",  nullptr,
                                           "FMX",  nullptr,  nullptr,  "1",     "2",     "3",   "tests"};
  FccItem item;
  item.SetCells(cells);
  EXPECT_EQ((new FccDetailDialog(*window_, item, HfccDatabase(), {false, -82800}))->TextToCopy(),
            "Freq\t9420\r\nDate\tFrom 29/03/26 to 25/10/26\r\nDays\tWeekend\r\nTime\tFrom 01:00 to \r\n"
            "CIRAFs\t27,28\r\nLocation\tRDR\r\nPower\t250\r\nAzimuth\t105\r\nMode\tDigital (DRM)\r\nLanguage\tEng\r\n"
            "Admin\tLUX\r\nBroadcaster\t\r\nFMO\tFMX\r\nOld\t\r\nAlt 1\t1\r\nAlt 2\t2\r\nAlt 3\t3\r\nNotes\ttests\r\n");
}
