// What an export writes, and what it leaves behind when it fails.
#include "app/GridExport.h"

#include "app/EibiGrid.h"
#include "tests/support/EibiLine.h"
#include "tests/support/Test.h"

TEST(GridExport, WritesTheTextsOfMarkedRowsOrOfAllAndReplacesNothingWhenItFails) {
  const TemporaryFolder folder;
  const std::string out = folder.File("out.csv");
  ASSERT_TRUE(WriteFileBytes(folder.File("eibi.txt"), EibiHeader() +
                                                          EibiLine("6005", "0600-0800", "", "Say \"Hello\"") + "\n" +
                                                          EibiLine("9420", "", "Mo", "Second", "F", "")));
  auto* window = new TmyComponent("", WS_POPUP, 0, 0, 0, 300, 200, nullptr);
  EibiGrid grid(*window);
  grid.Load(folder.Path().c_str());
  grid.Refresh(FilterRecord{}, {true, 0}, false);
  const auto exported = [&] { return WriteCsv(grid, out.c_str()) == ERROR_SUCCESS ? ReadFileBytes(out) : "failed"; };
  const std::string titles = "\"Freq\",\"Start\",\"Stop\",\"Days\",\"Station\",\"Language\",\"Target\",\"Remarks\"\r\n";
  const std::string first = "\"6005\",\"06:00\",\"08:00\",\"All days\",\"Say \"\"Hello\"\"\",\"E\",\"CEu\",\"ka\"\r\n";
  const std::string second = "\"9420\",\"-\",\"-\",\"Monday\",\"Second\",\"F\",\"CEu\",\"\"\r\n";
  EXPECT_EQ(exported(), titles + first + second);
  grid.Control().rowClicked(TmyRowClick{2, true, false});
  EXPECT_EQ(exported(), titles + second);
  SetFileAttributesA(out.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(exported(), "failed");
  SetFileAttributesA(out.c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(ReadFileBytes(out), titles + second);
  WIN32_FIND_DATAA entry;
  EXPECT_EQ(FindFirstFileA(folder.File("*.tmp").c_str(), &entry), INVALID_HANDLE_VALUE) << entry.cFileName;
  EXPECT_EQ(WriteCsv(grid, folder.File("none\\out.csv").c_str()), static_cast<DWORD>(ERROR_DIRECTORY));
  window->Destroy();
}
