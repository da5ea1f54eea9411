// Marlux 3. What fuzz targets share: cutting the input into numbers and texts, files, and a check.
//
//   Input input(data, size);
//   const auto count = input.Take<uint8_t>();
//   REQUIRE(Count(input.TakeText(count)) <= count);
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

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

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
  // Copies in blocks of their own: one byte too many is seen.
  std::vector<char> TakeBytes(size_t most) {
    const std::string_view bytes = Cut(most);
    return {bytes.begin(), bytes.end()};
  }
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

template <size_t kSize>
[[nodiscard]] bool IsText(const char (&field)[kSize]) {
  return std::memchr(field, 0, kSize) != nullptr;
}
