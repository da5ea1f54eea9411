// What an export writes, and what it leaves behind when it fails.
#include "app/GridExport.h"

#include "app/EibiGrid.h"
#include "tests/support/EibiLine.h"
#include "tests/support/Test.h"

struct GridExportTest : testing::Test {
  void SetUp() override {
    ASSERT_TRUE(WriteFileBytes(folder_.File("eibi.txt"), EibiHeader() +
                                                             EibiLine("6005", "0600-0800", "", "Say \"Hello\"") + "\n" +
                                                             EibiLine("9420", "", "Mo", "Second", "F", "")));
    grid_.Load(folder_.Path().c_str());
    grid_.Refresh(FilterRecord{}, {true, 0}, false);
  }
  void TearDown() override { window_->Destroy(); }
  std::string Exported() {
    EXPECT_EQ(WriteCsv(grid_, path_), static_cast<DWORD>(ERROR_SUCCESS));
    return ReadFileBytes(path_.Chars());
  }

  TemporaryFolder folder_;
  TmyString path_{folder_.File("out.csv").c_str()};
  TmyComponent* window_ = new TmyComponent("", WS_POPUP, 0, 0, 0, 300, 200, nullptr);
  EibiGrid grid_{*window_};
};

TEST_F(GridExportTest, WritesTheGridsTextsOfMarkedRowsOrOfAll) {
  const std::string titles = "\"Freq\",\"Start\",\"Stop\",\"Days\",\"Station\",\"Language\",\"Target\",\"Remarks\"\r\n";
  const std::string first = "\"6005\",\"06:00\",\"08:00\",\"All days\",\"Say \"\"Hello\"\"\",\"E\",\"CEu\",\"ka\"\r\n";
  const std::string second = "\"9420\",\"-\",\"-\",\"Monday\",\"Second\",\"F\",\"CEu\",\"\"\r\n";
  EXPECT_EQ(Exported(), titles + first + second);
  grid_.Control().rowClicked(TmyRowClick{2, true, false});
  EXPECT_EQ(Exported(), titles + second);
  grid_.ClearMarks();
  grid_.Refresh({1, 1, 0, 0, FilterFlag::kFrequency}, {true, 0}, false);  // passes none
  EXPECT_EQ(Exported(), titles);
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
