// Marlux 3. A list of plain pointers. It owns none of them; TmyTypeList does.
#pragma once

#include "foundation/TmyBuffer.h"

class TmyList : public TmyBuffer {
 public:
  static constexpr uint32_t kAtEnd = 0xFFFFFFFF;

  TmyList() noexcept;                                     // grows from nothing, without limit
  TmyList(uint32_t initialCount, uint32_t maximumCount);  // entries; beyond the maximum inserts are dropped silently
  ~TmyList() override = default;

  // An index beyond the count appends.
  virtual void Insert(void* item, uint32_t index);
  // Removes the entry and returns it, not destroyed; null when the index is not below the count. May give memory back.
  virtual void* Delete(uint32_t index);

  void Add(void* item) { Insert(item, kAtEnd); }
  // False when the maximum is reached or memory is short: then the list stays as it is.
  [[nodiscard]] bool TryAdd(void* item);
  // Whether the next insert will succeed. False: the maximum is reached, or memory is short.
  [[nodiscard]] bool MakeRoomForOne();
  [[nodiscard]] uint32_t Count() const noexcept { return size_ / sizeof(void*); }
  // The entry itself; out of range a shared empty one, reset to null at each such call.
  [[nodiscard]] void*& Get(uint32_t index) noexcept;
  [[nodiscard]] void* Get(uint32_t index) const noexcept;
  [[nodiscard]] int32_t IndexOf(const void* item) const noexcept;  // the last such entry, or -1
  // Swaps two entries; nothing when one of them is out of range.
  void Exchange(uint32_t i, uint32_t j) noexcept;
  // Deletes from the last entry down through the virtual Delete, then gives the memory back.
  void Clear();

  [[nodiscard]] void** Entries() noexcept { return reinterpret_cast<void**>(data_); }
  [[nodiscard]] void* const* Entries() const noexcept { return reinterpret_cast<void* const*>(data_); }

 protected:
  void PlaceAt(void* item, uint32_t index);    // room must have been made
  [[nodiscard]] void* TakeAt(uint32_t index);  // null when the index is not below the count
};
