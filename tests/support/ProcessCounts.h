// Marlux 3. What this process holds of the system, to compare before and after: rounds that leave something behind make
// the numbers grow.
#pragma once

#include <cstdint>
#include <ostream>

struct ProcessCounts {
  int64_t gdiObjects;
  int64_t userObjects;  // of the whole desktop where the system does not tell it by process
  int64_t handles;
  int64_t heapBlocks;  // of all heaps
  int64_t heapBytes;

  [[nodiscard]] static ProcessCounts Now(bool withUser = true);  // objects of USER take a while to count
};

inline std::ostream& operator<<(std::ostream& out, const ProcessCounts& counts) {
  return out << counts.gdiObjects << " GDI, " << counts.userObjects << " USER, " << counts.handles << " handles, "
             << counts.heapBlocks << " blocks, " << counts.heapBytes << " bytes";
}
