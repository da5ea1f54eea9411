#include "foundation/TmyFile.h"

#include "foundation/SwapFile.h"
#include "tests/support/Test.h"

TEST(SwapFile, ReplacesWholeOrNotAtAll) {
  const TemporaryFolder folder;
  const std::string name = folder.File("a");
  ASSERT_TRUE(WriteFileBytes(name, "old"));
  EXPECT_TRUE(SwapFile(name.c_str()).Write("dropped", 7));
  SwapFile kept(name.c_str());
  EXPECT_TRUE(kept.Write("newer", 5));
  EXPECT_EQ(ReadFileBytes(name), "old");
  EXPECT_TRUE(kept.Commit());
  EXPECT_FALSE(kept.Write("x", 1));
  EXPECT_EQ(ReadFileBytes(name), "newer");
  EXPECT_EQ(GetFileAttributesA((name + SwapFile::kEnding).c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(SwapFile, AHeldFileIsWrittenOverWhereItsHolderLetsOthersWrite) {
  const TemporaryFolder folder;
  const std::string name = folder.File("a");
  for (const auto& [share, former] :
       {std::pair{DWORD{FILE_SHARE_READ}, 3}, {TmyFile::kShareAll, 3}, {TmyFile::kShareAll, 9000}}) {
    const std::string old(static_cast<size_t>(former), 'o');
    ASSERT_TRUE(WriteFileBytes(name, old));
    const HANDLE holder = CreateFileA(name.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr);
    SwapFile file(name.c_str());
    EXPECT_TRUE(file.Write(std::string(5000, 'n').data(), 5000));
    EXPECT_EQ(file.Commit(), share != FILE_SHARE_READ);
    CloseHandle(holder);
    EXPECT_EQ(ReadFileBytes(name), share == FILE_SHARE_READ ? old : std::string(5000, 'n'));
    EXPECT_EQ(GetFileAttributesA((name + SwapFile::kEnding).c_str()), INVALID_FILE_ATTRIBUTES);
  }
}
