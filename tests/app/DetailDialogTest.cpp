#include "app/DetailDialog.h"

#include <gtest/gtest.h>

#include "app/EibiDetailDialog.h"
#include "app/FccDetailDialog.h"
#include "toolkit/ClipboardText.h"

namespace {

class DetailDialogTest : public testing::Test {
 protected:
  ~DetailDialogTest() override { owner_->Destroy(); }

  std::string EibiText(const ShownZone& zone) {
    EibiItem item;
    EXPECT_TRUE(item.Parse("6005          2200-2400 Mo-Fr D   Radio Example            E   CEu         ka"));
    return (new EibiDetailDialog(*owner_, item, zone))->TextToCopy();
  }
  std::string FccText(const ShownZone& zone) {
    const char* cells[kHfccColumns] = {"9420", "2230",   "2400",   "27,28", "RDR",   "250", "105", nullptr,
                                       "17",   "290326", "251026", "N",     nullptr, "Eng", "LUX", nullptr};
    cells[16] = "FMX";
    for (uint32_t i = 0; i < 3; ++i) cells[19 + i] = &"1\0002\0003"[2 * i];
    cells[22] = "tests";
    FccItem item;
    item.SetCells(cells);
    return (new FccDetailDialog(*owner_, item, HfccDatabase(), zone))->TextToCopy();
  }

  TmyComponent* owner_ = new TmyComponent("Owner", WS_POPUP | WS_VISIBLE, 0, 0, 0, 300, 200, nullptr);
};

TEST_F(DetailDialogTest, ShowsTheFieldsWithTimesInTheZoneOfTheGrid) {
  EXPECT_EQ(EibiText({}),
            "Freq\t6005\r\nDays\tWorkdays\r\nTime\tFrom 22:00 to 24:00\r\nStation\tRadio Example\r\nLanguage\tE\r\n"
            "Target\tCEu\r\nRemarks\tka\r\nITU country\tD\r\n");
  EXPECT_NE(EibiText({false, 7200}).find("From 00:00 to 02:00"), std::string::npos);
  EXPECT_EQ(FccText({}),
            "Freq\t9420\r\nDate\tFrom 29/03/26 to 25/10/26\r\nDays\tWeekend\r\nTime\tFrom 22:30 to 24:00\r\n"
            "CIRAFs\t27,28\r\nLocation\tRDR\r\nPower\t250\r\nAzimuth\t105\r\nMode\tDigital (DRM)\r\nLanguage\tEng\r\n"
            "Admin\tLUX\r\nBroadcaster\t\r\nFMO\tFMX\r\nOld\t\r\nAlt 1\t1\r\nAlt 2\t2\r\nAlt 3\t3\r\nNotes\ttests\r\n");
  EXPECT_NE(FccText({false, -82800}).find("From 23:30 to 01:00"), std::string::npos);
  EXPECT_NE(FccText({false, 0}).find("to 24:00"), std::string::npos);
}

TEST_F(DetailDialogTest, ControlCCopiesTheCurrentRowOrAll) {
  auto* dialog = new EibiDetailDialog(*owner_, EibiItem(), {});
  dialog->Show(true);
  BYTE keys[256] = {};
  keys[VK_CONTROL] = 0x80;
  ASSERT_TRUE(SetKeyboardState(keys));
  const auto press = [&](WPARAM key) { SendMessageA(dialog->Grid().Handle(), WM_KEYDOWN, key, 0); };
  dialog->Grid().SetCurrentRow(8, true);
  press('C');
  const TmyString row = ClipboardText(owner_->Handle());
  press('A');
  press('C');
  const TmyString all = ClipboardText(owner_->Handle());
  keys[VK_CONTROL] = 0;
  SetKeyboardState(keys);
  EXPECT_EQ(row, "ITU country\t");
  EXPECT_EQ(std::string(all.Chars()), dialog->TextToCopy());
  EXPECT_EQ(all.View().substr(0, 7), "Freq\t\r\n");
}

TEST_F(DetailDialogTest, IsSizedForItsRowsAndClosesAlone) {
  auto* dialog = new EibiDetailDialog(*owner_, EibiItem(), {});
  auto* other = new EibiDetailDialog(*owner_, EibiItem(), {});
  dialog->Show(true);
  const GridGeometry::Layout& layout = dialog->Grid().Layout();
  EXPECT_EQ(GridGeometry::FullRecords(layout), layout.records);
  EXPECT_EQ(GridGeometry::ColumnsWidth(layout), layout.area.right - layout.area.left);
  dialog->SetBounds(0, 0, dialog->Width() + 80, dialog->Height() - layout.rowHeight);
  EXPECT_EQ(GridGeometry::ColumnsWidth(layout), layout.area.right - layout.area.left) << "beside the scroll bar";
  dialog->SetBounds(0, 0, dialog->Width() - 40, dialog->Height() + layout.rowHeight);
  EXPECT_EQ(GridGeometry::ColumnsWidth(layout), layout.area.right - layout.area.left) << "narrower again";
  const HWND handle = dialog->Handle();
  SendMessageA(dialog->Grid().Handle(), kMsgEscape, 0, 0);
  EXPECT_FALSE(IsWindow(handle));
  EXPECT_TRUE(other->IsAlive());
}

}  // namespace
