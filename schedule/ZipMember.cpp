#include "schedule/ZipMember.h"

#include <unzip.h>
#include <zlib.h>

#include <algorithm>
#include <new>

namespace {

constexpr uint32_t kSpareBytes = 10;  // behind the size: one shows that more follows, one is for the zero
constexpr uint32_t kInputBytes = 16384;
constexpr uint32_t kSparePacked = 1024;
constexpr unsigned long kDosFolder = 0x10;
constexpr unsigned long kDosVolume = 0x08;
constexpr unsigned long kEncryptedFlag = 1;

// The member as it lies in the archive. minizip would inflate as well, but says only "bad" where a member has more
// bytes than its entry claims.
class RawMember {
 public:
  explicit RawMember(unzFile zip) noexcept : zip_(zip) {
    int level = 0;
    open_ = unzOpenCurrentFile2(zip, &method_, &level, 1) == UNZ_OK;
  }
  ~RawMember() {
    if (open_) unzCloseCurrentFile(zip_);
  }
  RawMember(const RawMember&) = delete;
  RawMember& operator=(const RawMember&) = delete;

  bool IsOpen() const noexcept { return open_; }
  int Method() const noexcept { return method_; }
  // Bytes read, 0 at the end and on errors.
  uint32_t Read(void* to, uint32_t n) noexcept {
    const int got = unzReadCurrentFile(zip_, to, n);
    return got > 0 ? static_cast<uint32_t>(got) : 0;
  }

 private:
  unzFile zip_;
  int method_ = -1;
  bool open_ = false;
};

// Both give how many bytes they wrote, at most `room`; nothing useful when the data are damaged before the end.
uint32_t CopyStored(RawMember& member, char* to, uint32_t room) noexcept {
  uint32_t total = 0;
  while (const uint32_t got = member.Read(to + total, room - total)) total += got;
  return total;
}

uint32_t Inflate(RawMember& member, char* to, uint32_t room) noexcept {
  z_stream stream{};
  if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) return 0;  // deflated data without a header
  unsigned char input[kInputBytes];
  // Deflating makes nothing twice as long, but a member can be padded with empty blocks: what it costs must not be out
  // of all proportion to what it brings.
  uint32_t mostInput = 2 * room + kSparePacked;
  stream.next_out = reinterpret_cast<unsigned char*>(to);
  stream.avail_out = room;
  int result = Z_OK;
  while (result == Z_OK && stream.avail_out > 0) {
    if (stream.avail_in == 0) {
      stream.next_in = input;
      stream.avail_in = member.Read(input, std::min(kInputBytes, mostInput));
      mostInput -= stream.avail_in;
    }
    result = inflate(&stream, Z_NO_FLUSH);  // without input, because the member was cut off, this is no Z_OK
  }
  inflateEnd(&stream);
  return room - stream.avail_out;
}

uint32_t Checksum(const char* data, uint32_t size) noexcept {
  return static_cast<uint32_t>(crc32(0, reinterpret_cast<const unsigned char*>(data), size));
}

}  // namespace

bool ReadZipEntry(void* zip, ZipEntry& entry, char* name, uint32_t nameSize) noexcept {
  unz_file_info64 info{};
  // minizip leaves out the zero when the name fills the field.
  const bool wantsName = name && nameSize > 0;
  if (wantsName) name[nameSize - 1] = 0;
  if (unzGetCurrentFileInfo64(zip, &info, wantsName ? name : nullptr, wantsName ? nameSize - 1 : 0, nullptr, 0, nullptr,
                              0) != UNZ_OK) {
    return false;
  }
  entry.size = info.uncompressed_size;
  entry.crc = static_cast<uint32_t>(info.crc);
  entry.isFile = (info.external_fa & (kDosFolder | kDosVolume)) == 0;
  entry.isEncrypted = (info.flag & kEncryptedFlag) != 0;
  return true;
}

std::unique_ptr<char[]> UnzipMember(void* zip, const ZipEntry& entry, uint32_t mostBytes) {
  if (entry.size > mostBytes || entry.isEncrypted) return nullptr;
  RawMember member(zip);
  if (!member.IsOpen() || (member.Method() != 0 && member.Method() != Z_DEFLATED)) return nullptr;
  const auto size = static_cast<uint32_t>(entry.size);
  std::unique_ptr<char[]> bytes(new (std::nothrow) char[size + kSpareBytes]);
  if (!bytes) return nullptr;
  const uint32_t got =
      member.Method() == 0 ? CopyStored(member, bytes.get(), size + 1) : Inflate(member, bytes.get(), size + 1);
  if (got < size || (got == size && Checksum(bytes.get(), size) != entry.crc)) return nullptr;
  bytes[size] = 0;
  return bytes;
}
