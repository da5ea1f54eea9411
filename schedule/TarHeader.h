// Marlux 3. Reading the headers of a tar archive that lies in memory.
#pragma once

#include <optional>
#include <string_view>

#include "foundation/Compiler.h"

// One header and where its data lie; the views point into the archive.
struct TarHeader {
  static constexpr uint32_t kBytes = 512;

  std::string_view name;  // of at most 100 characters
  uint64_t size = 0;      // of the data behind the header; more than any archive has when the header's number is bad
  uint64_t next = 0;      // where the next header must lie; it may well be beyond the end
  bool isFile = false;

  // Nothing when no whole header lies at the position or its checksum does not fit.
  [[nodiscard]] static std::optional<TarHeader> At(std::string_view archive, uint64_t position) noexcept;
};
