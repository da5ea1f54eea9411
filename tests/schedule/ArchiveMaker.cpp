#include "tests/schedule/ArchiveMaker.h"

#include <zlib.h>

#include <cstdio>

namespace {

std::string Deflated(std::string_view data, int windowBits) {
  z_stream stream{};
  deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, windowBits, 8, Z_DEFAULT_STRATEGY);
  std::string packed(deflateBound(&stream, static_cast<uLong>(data.size())) + 32, 0);
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.data()));
  stream.avail_in = static_cast<uInt>(data.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  deflate(&stream, Z_FINISH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

void Put(std::string& to, uint64_t value, uint32_t bytes) {
  for (uint32_t i = 0; i < bytes; ++i) to += static_cast<char>(value >> 8 * i);
}

// The fields that the local header and the directory entry share.
std::string Common(const ZipMemberSource& member, uint32_t packed) {
  std::string bytes;
  Put(bytes, 20, 4);  // the version needed, and no flags
  Put(bytes, member.method, 2);
  Put(bytes, 0x5CE10000, 4);
  const auto* data = reinterpret_cast<const Bytef*>(member.data.data());
  Put(bytes, member.claimedCrc.value_or(crc32(0, data, static_cast<uInt>(member.data.size()))), 4);
  Put(bytes, member.claimedPacked.value_or(packed), 4);
  Put(bytes, member.claimedSize.value_or(static_cast<uint32_t>(member.data.size())), 4);
  Put(bytes, member.name.size(), 4);
  return bytes;
}

}  // namespace

std::string MakeZip(const std::vector<ZipMemberSource>& members) {
  std::string bytes;
  std::string directory;
  for (const ZipMemberSource& member : members) {
    std::string packed = member.method == 8 ? Deflated(member.data, -MAX_WBITS) : member.data;
    for (uint32_t i = 0; i < member.emptyBlocks; ++i) packed.insert(0, "\0\0\0\xff\xff", 5);
    const std::string common = Common(member, static_cast<uint32_t>(packed.size()));
    directory += "PK\1\2";
    Put(directory, 20, 2);
    directory += common;
    Put(directory, 0, 6);
    Put(directory, member.attributes, 4);
    Put(directory, bytes.size(), 4);
    directory += member.name;
    bytes += "PK\3\4" + common + member.name + packed;
  }
  const uint64_t at = bytes.size();
  bytes += directory + "PK\5\6";
  Put(bytes, 0, 4);
  for (int i = 0; i < 2; ++i) Put(bytes, members.size(), 2);
  Put(bytes, directory.size(), 4);
  Put(bytes, at, 4);
  Put(bytes, 0, 2);
  return bytes;
}

std::string TarHeaderBytes(std::string_view name, std::string_view size, char type) {
  std::string header(512, 0);
  header.replace(0, name.size(), name);
  header.replace(124, size.size(), size);
  header[156] = type;
  header.replace(148, 8, 8, ' ');
  uint32_t sum = 0;
  for (const char c : header) sum += static_cast<unsigned char>(c);
  char text[8];
  snprintf(text, sizeof text, "%06o", sum);
  header.replace(148, 7, text, 7);
  return header;
}

std::string TarMemberBytes(std::string_view name, std::string_view data) {
  char size[12];
  snprintf(size, sizeof size, "%011o", static_cast<unsigned>(data.size()));
  std::string bytes = TarHeaderBytes(name, size) + std::string(data);
  bytes.resize((bytes.size() + 511) / 512 * 512);
  return bytes;
}

std::string Gzipped(std::string_view data) {
  return Deflated(data, MAX_WBITS + 16);
}
