// Marlux 3. A list that owns its items.
//
//   TmyTypeList<EibiItem> items(1024, 0);
//   items.Insert(std::make_unique<EibiItem>(), items.kAtEnd);
//   std::unique_ptr<EibiItem> first = items.Extract(0);
#pragma once

#include <memory>

#include "foundation/TmyList.h"

template <class T>
class TmyTypeList : public TmyList {
 public:
  TmyTypeList() noexcept = default;
  TmyTypeList(uint32_t initialCount, uint32_t maximumCount) : TmyList(initialCount, maximumCount) {}
  ~TmyTypeList() override {
    for (uint32_t left = Count(); left > 0; --left) delete static_cast<T*>(TakeAt(left - 1));
  }

  // Takes the item over. At the maximum it is destroyed and the list stays as it is. True when it is in the list.
  bool Insert(std::unique_ptr<T> item, uint32_t index) {
    if (!MakeRoomForOne()) return false;
    PlaceAt(item.release(), index);
    return true;
  }
  bool Add(std::unique_ptr<T> item) { return Insert(std::move(item), kAtEnd); }

  // Destroys the item at the index; nothing out of range. Always null: the item is gone.
  void* Delete(uint32_t index) override {
    delete static_cast<T*>(TakeAt(index));
    return nullptr;
  }
  // Gives the item up to the caller, null out of range.
  [[nodiscard]] virtual std::unique_ptr<T> Extract(uint32_t index) {
    return std::unique_ptr<T>(static_cast<T*>(TakeAt(index)));
  }

  [[nodiscard]] T* Get(uint32_t index) noexcept { return static_cast<T*>(TmyList::Get(index)); }
  [[nodiscard]] const T* Get(uint32_t index) const noexcept { return static_cast<const T*>(TmyList::Get(index)); }

 private:
  using TmyList::Add;
  using TmyList::Insert;  // a pointer of unknown owner must not get in
};
