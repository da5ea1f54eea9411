#include "fuzz/Fuzz.h"
#include "schedule/CGZip.h"
#include "schedule/HfccDatabase.h"
#include "tests/schedule/ArchiveMaker.h"

namespace {

// The bytes as they are, or behind checksums that fit, which no mutation finds.
std::string ArchiveOf(uint8_t kind, Input& input) {
  if (kind % 3 == 0) return std::string(input.Rest());
  if (kind % 3 == 1) return Gzipped(input.Rest());
  std::string tar;
  while (!input.IsEmpty()) {
    const uint8_t name = input.Take<uint8_t>() % 101;
    const char type = input.Take<char>();
    const std::string octal = input.TakeText(12);
    tar += TarHeaderBytes(input.TakeText(name), octal, type) + input.TakeText(512);
  }
  return Gzipped(tar);
}

}  // namespace

void Try(Input& input) {
  const auto kind = input.Take<uint8_t>();
  const std::string bytesOfFile = ArchiveOf(kind, input);
  const std::string path = FileOf("a26all.zip", bytesOfFile);
  zlib::CGZip archive;
  const bool opened = archive.Open(path.c_str());
  REQUIRE(opened == archive.IsOpen());
  const int32_t told = archive.GetCount(), count = std::min(told, 50);
  REQUIRE(archive.GetKind() != 1 || told <= static_cast<int32_t>(bytesOfFile.size()) / 46);
  for (int32_t i = -1; i <= count; ++i) {
    const int32_t index = kind & 0x80 ? count - i : i;  // also backwards
    const char* bytes = nullptr;
    uint32_t length = 0;
    bool isFile = false;
    char name[12];
    if (!archive.GetFile(index, &bytes, &length, &isFile, name, sizeof name)) continue;
    REQUIRE(bytes[length] == 0 && IsText(name));
    if (length > 0) REQUIRE(std::memchr(bytes, 1, length) != bytes + length);
  }
  const HfccLoad result = HfccDatabase().LoadHfcc(path.c_str());
  REQUIRE(opened || result == HfccLoad::kNotOpened);
}
