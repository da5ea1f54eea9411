#include "scheduler/TmyWaveFilePCM.h"

#include "foundation/Clock.h"
#include "tests/support/Test.h"

namespace {

std::string Bytes(uint32_t count, uint32_t seed = 1) {
  std::string bytes(count, '\0');
  for (char& byte : bytes) byte = static_cast<char>((seed = seed * 1664525 + 1013904223) >> 24);
  return bytes;
}

struct DiskOfBlocks : TmyWaveFilePCM {
  explicit DiskOfBlocks(const std::string& name) : TmyWaveFilePCM(name.c_str(), 8000, 3, 16, 0x10000) {}
  bool Add(const std::string& bytes) { return Write(bytes.data(), static_cast<uint32_t>(bytes.size())); }
  int32_t WriteBlock() { return IsOpen() && StartWrite(0, Staging(), BlockSize()) ? WaitForTransfer(20) : 0; }
  void LoseHandle() {  // what has its number now takes no bytes
    const HANDLE lost = Handle();
    CloseHandle(lost);
    while (CreateEventA(nullptr, FALSE, FALSE, nullptr) != lost) {
    }
  }
  bool StartWrite(uint64_t offset, const void* buffer, uint32_t length) override {
    const uint32_t taken = std::min(room, length / BlockSize());
    room -= taken;
    return taken != 0 && TmyWaveFilePCM::StartWrite(offset, buffer, taken * BlockSize());
  }
  uint32_t room = 0xFFFFFFFF;
};

std::string Expected(const std::string& data, bool asMade) {
  const char made[] = "RIFF(\0\0\0WAVEfmt \24\0\0\0\1\0\3\0\100\37\0\0\200\273\0\0\6\0\20\0\0\0\336\255data\0\0\0";
  const char set[] = "RIFF(\0\0\0WAVEfmt \24\0\0\0\1\0\2\0\104\254\0\0\20\261\2\0\4\0\20\0\0\0\336\255data\0\0\0";
  const auto size = asMade ? 0 : static_cast<uint32_t>(data.size()), riffSize = size + 40;
  std::string file = std::string(asMade ? made : set, 48) + data;
  file.replace(4, 4, (char*)&riffSize, 4).replace(44, 4, (char*)&size, 4);
  file.resize(std::max<size_t>(file.size(), 4096));
  return file;
}

TEST(TmyWaveFilePCMTest, IsByteForByteWhatWasWrittenInAnySlices) {
  const TemporaryFolder folder;
  const std::string name = folder.File(std::string(258 - folder.Path().size(), 'n'));  // the longest path
  for (const uint32_t size : {0U, 1U, 463U, 464U, 465U, 4047U, 4048U, 4049U, 1048575U, 1048576U, 1048577U}) {
    for (const uint32_t slice : {1048577U, 4093U, 101U}) {
      ASSERT_TRUE(WriteFileBytes(name, std::string(5000, 'x')));  // replaced
      const std::string data = Bytes(size);
      auto file = std::make_unique<DiskOfBlocks>(name);
      const bool isShort = size + 48 < file->BlockSize();
      file->SetFormat(44100, 2, 16);
      for (uint32_t i = 0; i < size; i += slice) ASSERT_TRUE(file->Add(data.substr(i, slice)));
      if (slice == 101 && !isShort) file->LoseHandle();
      file.reset();
      EXPECT_TRUE(ReadFileBytes(name) == Expected(data, isShort)) << size << " in " << slice;
    }
  }
}

TEST(TmyWaveFilePCMTest, AFullDiskCostsOnlyItsOwnTimeAndNoChannelChangesPlaces) {
  const TemporaryFolder folder;
  const std::string before = Bytes(60000), cut = Bytes(60000, 2), after = Bytes(6000, 3);
  auto file = std::make_unique<DiskOfBlocks>(folder.File("a.wav"));
  EXPECT_TRUE(file->Add(before));
  file->room = 5;
  EXPECT_FALSE(file->Add(cut) || file->Add(cut));
  file->room = 0xFFFFFFFF;
  EXPECT_TRUE(file->Add(after));
  EXPECT_FALSE(file->Write(nullptr, TmyWaveFilePCM::kLargestData - file->DataSize() + 1));
  const uint32_t size = file->DataSize(), kept = size - 66000;
  file.reset();
  const std::string whole = ReadFileBytes(folder.File("a.wav"));
  EXPECT_TRUE(kept > 2000 && kept % 6 == 0 && size == whole.size() - 48 && whole.compare(44, 4, (char*)&size, 4) == 0);
  EXPECT_TRUE(whole.substr(48).starts_with(before + cut.substr(0, kept - 5)) && whole.ends_with(after));
}

TEST(TmyWaveFilePCMTest, ADriveThatWasGoneGoesOnUnderItsName) {
  const TemporaryFolder folder;
  const std::string before = Bytes(60000), after = Bytes(6000, 3);
  auto file = std::make_unique<DiskOfBlocks>(folder.File("a.wav"));
  EXPECT_TRUE(file->Add(before));
  file->LoseHandle();
  EXPECT_FALSE(file->Add(after) || file->Add(after)) << "not at once";
  Clock::AdvanceTicks(2001);
  EXPECT_TRUE(file->Add(after));
  file.reset();
  EXPECT_TRUE(ReadFileBytes(folder.File("a.wav")).substr(48) == before + after);
}

TEST(TmyWaveFilePCMTest, WhatCannotBeMadeStaysUnopenedAndLeavesTheTargetAlone) {
  const TemporaryFolder folder;
  ASSERT_TRUE(WriteFileBytes(folder.File("held"), "old"));
  const TmyFile holder(folder.File("held").c_str(), GENERIC_READ, OPEN_EXISTING, FILE_SHARE_READ);
  for (const std::string& name : {folder.File("held"), folder.File("none\\a"), std::string(300, 'n')}) {
    DiskOfBlocks file(name);
    EXPECT_FALSE(file.IsOpen() || file.Add("ab") || file.DataSize() != 0) << name;
  }
  EXPECT_EQ(ReadFileBytes(folder.File("held")), "old");
}

TEST(TmyWaveFilePCMTest, ADriveThatHangsIsTriedAgainAfterAMinute) {
  const char drive[] = "\\\\.\\pipe\\marlux-wave-test";
  const HANDLE pipe = CreateNamedPipeA(drive, PIPE_ACCESS_DUPLEX, 0, 1, 16, 16, 0, nullptr);  // that nobody reads
  const bool hasPipes = pipe != INVALID_HANDLE_VALUE;
  DiskOfBlocks file(drive);
  EXPECT_EQ(file.IsOpen() && file.Add("ab"), hasPipes);  // a first block that is late costs no recording
  const int32_t late = hasPipes ? -1 : 0;
  EXPECT_EQ(file.WriteBlock(), late);
  EXPECT_EQ(file.WriteBlock(), 0);
  Clock::AdvanceTicks(60001);
  EXPECT_EQ(file.WriteBlock(), late);
  CloseHandle(pipe);
}

TEST(TmyFileDirectTest, AppendsToAFileOfAnyLengthAndReadsItInPieces) {
  const TemporaryFolder folder;
  const std::string name = folder.File("a"), more = Bytes(30000);
  ASSERT_TRUE(WriteFileBytes(name, more.substr(0, 1001)));
  EXPECT_TRUE(TmyFileDirect(name.c_str(), false, false, 0).Write(more.data() + 1001, 28999));
  TmyFileDirect file(name.c_str(), true, false, 0);
  std::string got(30000, ' ');
  EXPECT_TRUE(file.Read(got.data(), 777) && file.Read(got.data() + 777, 99999));
  EXPECT_TRUE(got == more && file.Size() == 30000);
}

}  // namespace
