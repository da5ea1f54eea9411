// Marlux 3. A byte queue with a lock of its own: one side writes at the end, the other takes from the front.
#pragma once

#include "foundation/TmyBuffer.h"
#include "foundation/TmyCriticalSection.h"

class TmyStream : public TmyBuffer {
 public:
  TmyStream(uint32_t initial, uint32_t maximum);  // bytes
  ~TmyStream() override = default;

  // Appends. Returns n when all of it went in; what passes the maximum is cut and the count that went in returned.
  virtual uint32_t Write(const void* source, uint32_t n);
  // All n bytes or none: returns n or 0. `destination` may be null; `remove` takes them out of the queue.
  virtual uint32_t Read(void* destination, uint32_t n, bool remove);
  virtual void Clear();
  // Between these two the caller owns the bytes; n of them, cut to the size, are taken from the front.
  [[nodiscard]] virtual uint8_t* Lock();
  virtual void UnlockAndConsume(uint32_t n);

 private:
  void Consume(uint32_t n) noexcept;

  TmyCriticalSection section_;
};
