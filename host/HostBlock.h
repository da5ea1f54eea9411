// Marlux host. The block that describes the receiver to a plug-in: its size, pointers into itself, range and modes.
#pragma once

#include <cstdint>
#include <vector>

class HostBlock {
 public:
  // Also the ways in which a careless host gets it wrong, for trying a plug-in's patience.
  enum class Shape { kGood, kNull, kSize };

  HostBlock() { SetShape(Shape::kGood); }
  HostBlock(const HostBlock&) = delete;  // it points into itself
  HostBlock& operator=(const HostBlock&) = delete;

  // With kSize the block is as long as `size` says (at least its 4-byte size field), cut or with zeros behind.
  void SetShape(Shape shape, uint32_t size = 0);
  [[nodiscard]] const void* Address() const { return shape_ == Shape::kNull ? nullptr : bytes_.data(); }
  [[nodiscard]] uint32_t Size() const { return static_cast<uint32_t>(bytes_.size()); }

 private:
  void Build();
  void Put(uint32_t offset, uint32_t word);

  Shape shape_ = Shape::kGood;
  std::vector<uint8_t> bytes_;
};
