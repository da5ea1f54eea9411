#include "schedule/TarHeader.h"

namespace {

constexpr size_t kNameLength = 100;
constexpr size_t kSizeAt = 124;
constexpr size_t kSizeLength = 12;
constexpr size_t kChecksumAt = 148;
constexpr size_t kChecksumLength = 8;
constexpr size_t kTypeAt = 156;
constexpr uint64_t kBadSize = uint64_t{1} << 40;  // twelve octal digits stay below

// field := { " " } { octal digit } [ ( NUL | " " ) anything ]      (no digit at all is 0)
std::optional<uint64_t> Octal(std::string_view field) noexcept {
  size_t i = 0;
  while (i < field.size() && field[i] == ' ') ++i;
  uint64_t value = 0;
  for (; i < field.size() && field[i] >= '0' && field[i] <= '7'; ++i) {
    value = value * 8 + static_cast<uint64_t>(field[i] - '0');
  }
  if (i < field.size() && field[i] != 0 && field[i] != ' ') return std::nullopt;
  return value;
}

uint64_t Checksum(std::string_view header) noexcept {
  uint64_t sum = uint64_t{kChecksumLength} * ' ';
  for (size_t i = 0; i < header.size(); ++i) {
    if (i < kChecksumAt || i >= kChecksumAt + kChecksumLength) sum += static_cast<unsigned char>(header[i]);
  }
  return sum;
}

}  // namespace

std::optional<TarHeader> TarHeader::At(std::string_view archive, uint64_t position) noexcept {
  if (archive.size() < kBytes || position > archive.size() - kBytes) return std::nullopt;
  const std::string_view bytes = archive.substr(static_cast<size_t>(position), kBytes);
  if (Octal(bytes.substr(kChecksumAt, kChecksumLength)) != Checksum(bytes)) return std::nullopt;
  TarHeader header;
  header.name = bytes.substr(0, kNameLength);
  header.name = header.name.substr(0, header.name.find('\0'));
  header.size = Octal(bytes.substr(kSizeAt, kSizeLength)).value_or(kBadSize);
  header.next = position + kBytes + (header.size + kBytes - 1) / kBytes * kBytes;
  const char type = bytes[kTypeAt];
  header.isFile = type == '0' || type == 0 || type == '7';
  return header;
}
