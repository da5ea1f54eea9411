// Marlux 3. What fuzz targets share: cutting the input into numbers and texts, a scratch folder, and a check.
//
//   Input input(data, size);
//   const auto count = input.Take<uint8_t>();
//   REQUIRE(Count(input.TakeText(count)) <= count);
#pragma once

#include <unistd.h>
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

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

// A file of this process; removed by whoever wants it gone.
inline std::string ScratchFile(const std::string& name) {
  const char* const folder = std::getenv("TMPDIR");
  return std::string(folder ? folder : "/tmp") + "\\" + std::to_string(getpid()) + name;
}
inline void WriteScratch(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}
inline std::string ReadScratch(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}
