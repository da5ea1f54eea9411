// Marlux 3. Archives for tests, honest and lying ones, as bytes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// A member of a zip. What the optional fields hold is written in place of the truth.
struct ZipMemberSource {
  std::string name;
  std::string data;
  uint16_t method = 8;
  uint32_t attributes = 0x20;
  std::optional<uint32_t> claimedSize = {};
  std::optional<uint32_t> claimedPacked = {};
  std::optional<uint32_t> claimedCrc = {};
  uint32_t emptyBlocks = 0;  // before the data
};

[[nodiscard]] std::string MakeZip(const std::vector<ZipMemberSource>& members);
// A header for data of `size` bytes, which is an octal number as text, with a checksum that fits.
[[nodiscard]] std::string TarHeaderBytes(std::string_view name, std::string_view size, char type = '0');
[[nodiscard]] std::string TarMemberBytes(std::string_view name, std::string_view data);  // header, data, padding
[[nodiscard]] std::string Gzipped(std::string_view data);
