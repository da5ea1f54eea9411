// Marlux 3. Where C++ exceptions in flight live. The runtime's own reserve is behind a mutex that takes memory at its
// first use; without any it throws from within the throw, until the stack ends. Here a throw needs no memory: these
// functions stand in place of the runtime's by their names.
#include <windows.h>

#include <cxxabi.h>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <exception>

namespace {

constexpr size_t kHeader = 256;  // bytes in front of an exception, zero at first: more than the runtime's record of it
constexpr size_t kLargest = 512;
constexpr size_t kCount = 16;  // in flight at once, one inside the handling of another, all threads together

struct alignas(16) Room {
  std::byte bytes[kLargest];
  volatile LONG isTaken;
};
Room rooms[kCount];

void* ReservedRoom(size_t size) noexcept {
  if (size > kLargest) return nullptr;
  for (Room& room : rooms) {
    if (InterlockedExchange(&room.isTaken, 1) == 0) return room.bytes;
  }
  return nullptr;
}

}  // namespace

extern "C" {

void* abi::__cxa_allocate_exception(size_t size) noexcept {  // NOLINT(bugprone-reserved-identifier)
  void* block = std::malloc(size + kHeader);
  if (!block) block = ReservedRoom(size + kHeader);
  if (!block) std::terminate();
  std::memset(block, 0, kHeader);
  return static_cast<std::byte*>(block) + kHeader;
}

void abi::__cxa_free_exception(void* exception) noexcept {  // NOLINT(bugprone-reserved-identifier)
  void* const block = static_cast<std::byte*>(exception) - kHeader;
  for (Room& room : rooms) {
    if (block != room.bytes) continue;
    InterlockedExchange(&room.isTaken, 0);
    return;
  }
  std::free(block);
}

}  // extern "C"
