#include "schedule/CGZip.h"

#include "tests/schedule/ArchiveMaker.h"
#include "tests/support/Test.h"

constexpr char kNotUnzipped[] = "Could not unzip file at the specified position from the archive !";
constexpr char kNoFileAtPosition[] = "Could not get file at the specified position from the archive !";
constexpr char kNoGzipData[] = "Could not read data from gzip archive !";
constexpr char kInvalidPosition[] = "Invalid file position !";

// An archive made of bytes, and GetFile in one word.
struct CGZip : testing::Test {
  bool Open(const std::string& bytes) {
    archive_.Close();
    const std::string path = folder_.File("archive");
    EXPECT_TRUE(WriteFileBytes(path, bytes));
    return archive_.Open(path.c_str());
  }

  // "name:bytes", a "/" in front of what is no file; the error text when there is no such member.
  std::string Member(int32_t index) {
    const char* data = nullptr;
    uint32_t size = 0;
    bool isFile = false;
    char name[260];
    if (!archive_.GetFile(index, &data, &size, &isFile, name, sizeof name)) return archive_.GetError();
    EXPECT_EQ(data[size], 0);
    std::string shown = isFile ? "" : "/";
    return shown.append(name).append(":").append(data, size);
  }

  TemporaryFolder folder_;
  zlib::CGZip archive_;
};

TEST_F(CGZip, TellsTheKindsApart) {
  const std::string tar = TarMemberBytes("a.txt", "one") + TarMemberBytes("b.txt", std::string(512, 'b'));
  const std::tuple<const char*, std::string, int32_t, int32_t> kCases[] = {
      {"zip", MakeZip({{"a", "1"}, {"b", "2"}, {"a", "3"}}), 1, 3},
      {"zip behind other bytes", std::string(1000, 'x') + MakeZip({{"a", "1"}}), 1, 1},
      {"gzip", Gzipped("text"), 2, 1},
      {"not compressed", std::string(600, 'x'), 2, 1},
      {"tar", Gzipped(tar + std::string(1024, 0)), 3, 2},
      {"tar not compressed", tar, 3, 2},
      {"empty file", "", 0, -1},
      {"gzip with a broken block", std::string("\x1F\x8B\x08\0\0\0\0\0\0\0\xFF\xFF\xFF\xFF", 14), 0, -1},
  };
  for (const auto& [what, bytes, kind, count] : kCases) {
    EXPECT_EQ(Open(bytes), kind != 0) << what;
    EXPECT_TRUE(kind != 0 || archive_.GetError() == std::string(kNoGzipData)) << what;
    EXPECT_EQ(archive_.GetKind(), kind) << what;
    EXPECT_EQ(archive_.GetCount(), count) << what;
  }
  EXPECT_FALSE(archive_.Open(folder_.File("missing").c_str()));
  EXPECT_STREQ(archive_.GetError(), "Could not determine archive type !");
  EXPECT_EQ(archive_.GetCount(), -1);
  EXPECT_EQ(Member(0), "Archive not opened");
}

TEST_F(CGZip, GivesMembersInAnyOrder) {
  const std::string longText(102400, 'z');
  const std::string zip =
      MakeZip({{"b", "two"}, {"dir/", "", 0, 0x10}, {"empty", ""}, {"b", longText}, {"s", "xyz", 0}});
  const std::string tar = TarMemberBytes("b", "two") + TarHeaderBytes("dir/", "", '5') + TarMemberBytes("empty", "") +
                          TarMemberBytes("b", longText) + TarHeaderBytes("s", "     3 ") + "xyz" +
                          std::string(509 + 1024, 0);
  for (const std::string& bytes : {zip, Gzipped(tar)}) {
    ASSERT_TRUE(Open(bytes));
    EXPECT_EQ(archive_.GetCount(), 5);
    EXPECT_EQ(Member(3), "b:" + longText);
    EXPECT_EQ(Member(0), "b:two");
    EXPECT_EQ(Member(1), "/dir/:");
    EXPECT_EQ(Member(2), "empty:");
    const std::string error = archive_.GetKind() == 1 ? kNoFileAtPosition : kInvalidPosition;
    for (const int32_t index : {5, 6, -1, INT32_MAX}) EXPECT_EQ(Member(index), error);
    EXPECT_EQ(Member(4), "s:xyz") << "still there after a failure";
    uint32_t size = 0;
    EXPECT_TRUE(archive_.GetFile(3, nullptr, &size, nullptr, nullptr, 0));
    EXPECT_EQ(size, longText.size());
  }
}

TEST_F(CGZip, KnowsLyingMembers) {
  const std::string text = "a text that is long enough to be deflated, deflated, deflated";
  const auto size = static_cast<uint32_t>(text.size());
  const std::string error = kNotUnzipped;
  const std::tuple<const char*, ZipMemberSource, std::string> kCases[] = {
      {"claims 4 GB", {"m", text, 8, 0, 0xFFFFFFFE}, error},
      {"claims 1 byte more", {"m", text, 8, 0, size + 1}, error},
      {"claims less", {"m", text, 8, 0, 6}, "m:a text"},
      {"claims nothing", {"m", std::string(5 << 20, 'x'), 8, 0, 0}, "m:"},
      {"cut off", {"m", text, 8, 0, {}, 20}, error},
      {"wrong checksum", {"m", text, 8, 0, {}, {}, 1}, error},
      {"other method", {"m", text, 12}, error},
      {"padded", {"m", text, 8, 0, {}, {}, {}, 100}, "m:" + text},
      {"padded out of all proportion", {"m", text, 8, 0, {}, {}, {}, 1000}, error},
      {"too large, though nothing lies", {"m", std::string(zlib::CZipper::kMostBytes + 1, 0)}, error},
  };
  for (const auto& [what, member, result] : kCases) {
    ASSERT_TRUE(Open(MakeZip({member, {"next", "fine"}}))) << what;
    EXPECT_EQ(Member(0), result) << what;
    EXPECT_EQ(Member(1), "next:fine") << what;
  }
}

TEST_F(CGZip, KnowsLyingTarHeaders) {
  for (const char* size : {"00000000011", "77777777777", "-1", "\x80\1\1\1\1\1\1\1"}) {
    ASSERT_TRUE(Open(Gzipped(TarMemberBytes("good", "one") + TarHeaderBytes("bad", size) + "8 bytes."))) << size;
    EXPECT_EQ(archive_.GetCount(), 2) << size;
    EXPECT_EQ(Member(1), kNoGzipData) << size;
    EXPECT_EQ(Member(0), "good:one") << size;
  }
}

TEST_F(CGZip, StopsInflatingAtItsLimit) {
  const std::string piece = Gzipped(std::string(1 << 20, 0));
  std::string pieces;
  for (int i = 0; i < 256; ++i) pieces += piece;
  EXPECT_TRUE(Open(pieces));
  EXPECT_FALSE(Open(pieces + Gzipped("x")));
}
