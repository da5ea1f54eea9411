#include "app/DetailDialog.h"

#include "app/EibiDetailDialog.h"
#include "app/FccDetailDialog.h"
#include "tests/support/EibiLine.h"
#include "tests/support/Test.h"
#include "toolkit/ClipboardText.h"

struct DetailDialogTest : testing::Test {
  ~DetailDialogTest() override { owner_->Destroy(); }
  EibiDetailDialog& OfEibi(const ShownZone& zone = {}) {
    EibiItem item;
    EXPECT_TRUE(item.Parse(EibiLine("6005", "2200-2400", "Mo-Fr")));
    return *new EibiDetailDialog(*owner_, item, zone);
  }

  TmyComponent* owner_ = new TmyComponent("Owner", WS_POPUP | WS_VISIBLE, 0, 0, 0, 300, 200, nullptr);
};

TEST_F(DetailDialogTest, ShowsTheFieldsWithTimesInTheZoneOfTheGrid) {
  EXPECT_EQ(OfEibi().TextToCopy(),
            "Freq\t6005\r\nDays\tWorkdays\r\nTime\tFrom 22:00 to 24:00\r\nStation\tRadio Example\r\nLanguage\tE\r\n"
            "Target\tCEu\r\nRemarks\tka\r\nITU country\tD\r\n");
  EXPECT_NE(OfEibi({false, 7200}).TextToCopy().find("From 00:00 to 02:00"), std::string::npos);
  const char* const cells[kHfccColumns] = {"9420", "2230",   "2400",   "27,28", "RDR",   "250", "105",  nullptr,
                                           "17",   "290326", "251026", "N",     nullptr, "Eng", "LUX",  nullptr,
                                           "FMX",  nullptr,  nullptr,  "1",     "2",     "3",   "tests"};
  FccItem item;
  item.SetCells(cells);
  EXPECT_EQ((new FccDetailDialog(*owner_, item, HfccDatabase(), {false, -82800}))->TextToCopy(),
            "Freq\t9420\r\nDate\tFrom 29/03/26 to 25/10/26\r\nDays\tWeekend\r\nTime\tFrom 23:30 to 01:00\r\n"
            "CIRAFs\t27,28\r\nLocation\tRDR\r\nPower\t250\r\nAzimuth\t105\r\nMode\tDigital (DRM)\r\nLanguage\tEng\r\n"
            "Admin\tLUX\r\nBroadcaster\t\r\nFMO\tFMX\r\nOld\t\r\nAlt 1\t1\r\nAlt 2\t2\r\nAlt 3\t3\r\nNotes\ttests\r\n");
}

TEST_F(DetailDialogTest, ControlCCopiesTheCurrentRowOrAll) {
  TmyStringGrid& grid = OfEibi().Grid();
  BYTE keys[256] = {};
  keys[VK_CONTROL] = 0x80;
  ASSERT_TRUE(SetKeyboardState(keys));
  grid.SetCurrentRow(8, true);
  SendMessageA(grid.Handle(), WM_KEYDOWN, 'C', 0);
  EXPECT_EQ(ClipboardText(owner_->Handle()), "ITU country\tD");
  for (const WPARAM key : {'A', 'C'}) SendMessageA(grid.Handle(), WM_KEYDOWN, key, 0);
  EXPECT_EQ(ClipboardText(owner_->Handle()).View().substr(0, 12), "Freq\t6005\r\nD");
  keys[VK_CONTROL] = 0;
  SetKeyboardState(keys);
}

TEST_F(DetailDialogTest, IsSizedForItsRowsAndClosesAlone) {
  EibiDetailDialog& dialog = OfEibi();
  EibiDetailDialog& other = OfEibi();
  dialog.Show(true);
  const GridGeometry::Layout& layout = dialog.Grid().Layout();
  EXPECT_EQ(GridGeometry::FullRecords(layout), layout.records);
  for (const int wider : {0, 80, -80}) {  // with all rows, beside a scroll bar, and narrower again
    dialog.SetBounds(0, 0, dialog.Width() + wider, dialog.Height() - wider / 2);
    EXPECT_EQ(GridGeometry::ColumnsWidth(layout), layout.area.right - layout.area.left) << wider;
  }
  const TmyWindowBase::Hold hold;
  SendMessageA(dialog.Grid().Handle(), kMsgEscape, 0, 0);
  EXPECT_TRUE(!dialog.IsAlive() && other.IsAlive());
}
