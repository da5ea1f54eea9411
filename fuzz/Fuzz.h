// Marlux 3. What fuzz targets share: cutting the input into numbers and texts, files, and a check. A target is
//
//   void Try(Input& input) {
//     const auto count = input.Take<uint8_t>();
//     REQUIRE(Count(input.TakeText(count)) <= count);
//   }
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/TestEnvironment.h"

// Stops the program: the fuzzer keeps the input.
#define REQUIRE(condition) ((condition) ? void() : Stop(#condition))

[[noreturn]] inline void Stop(const char* condition) {
  std::fprintf(stderr, "does not hold: %s\n", condition);
  std::abort();
}

class Input {
 public:
  Input(const uint8_t* data, size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

  [[nodiscard]] bool IsEmpty() const { return rest_.empty(); }
  // Zeros behind the end.
  template <class Number>
  Number Take() {
    Number number = {};
    const std::string_view bytes = Cut(sizeof number);
    std::memcpy(&number, bytes.data(), bytes.size());
    return number;
  }
  // A copy in a block of its own: one byte too many is seen.
  std::string TakeText(size_t most) { return std::string(Cut(most)); }
  std::string_view Rest() { return Cut(rest_.size()); }  // the end of the fuzzer's own block

 private:
  std::string_view Cut(size_t most) {
    const std::string_view cut = rest_.substr(0, most);
    rest_.remove_prefix(cut.size());
    return cut;
  }

  std::string_view rest_;
};

void Try(Input& input);  // each target's own

// NOLINTNEXTLINE(misc-definitions-in-headers): only targets include this, and each is a program
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Input input(data, size);
  Try(input);
  return 0;
}

// A path of the target's own, the same each time.
inline std::string PathOf(const char* name) {
  static const TemporaryFolder folder;
  return folder.File(name);
}
// The same, where these bytes are now.
inline std::string FileOf(const char* name, std::string_view bytes) {
  REQUIRE(WriteFileBytes(PathOf(name), bytes));
  return PathOf(name);
}

template <size_t kSize>
[[nodiscard]] bool IsText(const char (&field)[kSize]) {
  return std::memchr(field, 0, kSize) != nullptr;
}
