// What an export writes, and what it leaves behind when it fails.
#include "app/GridExport.h"

#include <gtest/gtest.h>

#include "app/EibiGrid.h"
#include "tests/support/TestEnvironment.h"

namespace {

class GridExportTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string text;
    for (int i = 0; i < 17; ++i) text += "\n";
    text += "6005          0600-0800       D   Say \"Hello\"              E   Eu          x\n";
    text += "9420          2200-0100 Mo    D   Second                   F   Eu\n";
    text += "11780                         D   Third                    F   Eu          y\n";
    ASSERT_TRUE(WriteFileBytes(folder_.File("eibi.txt"), text));
    grid_.Load(folder_.Path().c_str());
    grid_.Refresh(FilterRecord{}, {true, 0}, false);
  }
  void TearDown() override { window_->Destroy(); }
  void Press(uint32_t row) {
    grid_.Control().SetCurrentRow(row, false);
    SendMessageA(grid_.Control().Handle(), WM_KEYDOWN, VK_SPACE, 0);
  }
  std::string Exported() {
    EXPECT_EQ(WriteCsv(grid_, path_), static_cast<DWORD>(ERROR_SUCCESS));
    return ReadFileBytes(path_.Chars());
  }

  TemporaryFolder folder_;
  TmyString path_{folder_.File("out.csv").c_str()};
  TmyComponent* window_ = new TmyComponent("", WS_POPUP, 0, 0, 0, 300, 200, nullptr);
  EibiGrid grid_{*window_};
};

constexpr char kTitles[] = R"("Freq","Start","Stop","Days","Station","Language","Target","Remarks")"
                           "\r\n";

TEST_F(GridExportTest, WritesTheGridsTextsCellByCell) {
  EXPECT_EQ(Exported(), std::string(kTitles) +
                            "\"6005\",\"06:00\",\"08:00\",\"All days\",\"Say \"\"Hello\"\"\",\"E\",\"Eu\",\"x\"\r\n"
                            "\"9420\",\"22:00\",\"01:00\",\"Monday\",\"Second\",\"F\",\"Eu\",\"\"\r\n"
                            "\"11780\",\"-\",\"-\",\"All days\",\"Third\",\"F\",\"Eu\",\"y\"\r\n");
}

TEST_F(GridExportTest, MarkedRowsAloneAreWrittenAndTheTitlesAlways) {
  BYTE keys[256] = {};
  keys[VK_CONTROL] = 0x80;
  SetKeyboardState(keys);
  Press(2);
  keys[VK_CONTROL] = 0;
  SetKeyboardState(keys);
  EXPECT_EQ(Exported(),
            std::string(kTitles) + "\"9420\",\"22:00\",\"01:00\",\"Monday\",\"Second\",\"F\",\"Eu\",\"\"\r\n");
  FilterRecord nothing;
  nothing.flags = FilterFlag::kFrequency;
  grid_.ClearMarks();
  grid_.Refresh(nothing, {true, 0}, false);
  EXPECT_EQ(Exported(), kTitles);
}

TEST_F(GridExportTest, AFailureLeavesWhatWasThereAndNothingElse) {
  EXPECT_EQ(WriteCsv(grid_, (folder_.File("none\\out.csv")).c_str()), static_cast<DWORD>(ERROR_DIRECTORY));
  ASSERT_TRUE(WriteFileBytes(path_.Chars(), "before"));
  SetFileAttributesA(path_.Chars(), FILE_ATTRIBUTE_READONLY);
  EXPECT_NE(WriteCsv(grid_, path_), static_cast<DWORD>(ERROR_SUCCESS));
  SetFileAttributesA(path_.Chars(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(ReadFileBytes(path_.Chars()), "before");
  WIN32_FIND_DATAA entry;
  EXPECT_EQ(FindFirstFileA(folder_.File("*.tmp").c_str(), &entry), INVALID_HANDLE_VALUE) << entry.cFileName;
}

}  // namespace
