// Marlux 3. Inflating one member of a zip archive into a block of memory.
#pragma once

#include <memory>

#include "foundation/Compiler.h"

// What the directory says of a member.
struct ZipEntry {
  uint64_t size = 0;  // uncompressed
  uint32_t crc = 0;
  bool isFile = false;
  bool isEncrypted = false;
};

// The entry of the member that minizip's handle stands on, with its name cut to `nameSize` - 1 characters; false when
// the directory is damaged.
[[nodiscard]] bool ReadZipEntry(void* zip, ZipEntry& entry, char* name, uint32_t nameSize) noexcept;
// That member's bytes with a zero behind them. Null when it is damaged, cut off, encrypted, packed in a way other than
// stored and deflated, shorter than its entry claims, larger than `mostBytes` or packed into far more than its size,
// and when memory is short. A member with more bytes than its entry claims is cut there.
[[nodiscard]] std::unique_ptr<char[]> UnzipMember(void* zip, const ZipEntry& entry, uint32_t mostBytes);
