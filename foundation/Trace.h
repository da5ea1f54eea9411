// Marlux 3. Lines for developers in the debugger's output, switched on by the host's command line "/l".
// Off, a trace costs one test of a flag. A buffer, when one is set, holds the last lines for whoever looks at a memory
// dump.
#pragma once

#include <cstddef>

#include "foundation/Compiler.h"

namespace Trace {

[[nodiscard]] bool IsOn() noexcept;
void SwitchOn(bool state) noexcept;
// Lines are written into it, too, each with a line feed; where one no longer fits they begin again at its start. The
// caller owns it and takes it away with null; the byte behind the last line is zero.
void SetBuffer(char* buffer, size_t size) noexcept;
// One line, printf-style, cut at 1,000 characters.
void Line(const char* format, ...) noexcept MARLUX_PRINTF(1, 2);

// Writes "<name> IN" now and "<name> OUT" at the end of the block. The name must be a literal.
class Scope {
 public:
  explicit Scope(const char* name) noexcept : name_(IsOn() ? name : nullptr) {
    if (name_) Enter();
  }
  ~Scope() {
    if (name_) Leave();
  }
  Scope(const Scope&) = delete;
  Scope& operator=(const Scope&) = delete;

 private:
  void Enter() const noexcept;
  void Leave() const noexcept;

  const char* name_;  // null when tracing was off at the start
};

}  // namespace Trace
