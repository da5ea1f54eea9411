#include "fuzz/Fuzz.h"
#include "plugin/HostInfo.h"

// A block of the size that it tells, some of whose pointers lead into it or just beyond.
void Try(Input& input) {
  const auto inside = input.Take<uint16_t>();
  std::vector<char> block(4);
  const std::string_view rest = input.Rest();
  block.insert(block.end(), rest.begin(), rest.end());
  block.shrink_to_fit();
  const auto told = static_cast<uint32_t>(block.size());
  std::memcpy(block.data(), &told, sizeof told);
  for (size_t i = 0; i < std::size(HostInfo::kPointerOffsets); ++i) {
    char* const at = block.data() + HostInfo::kPointerOffsets[i];
    if ((inside >> i & 1) == 0 || HostInfo::kPointerOffsets[i] + 4 > told) continue;
    uint32_t pointer = 0;
    std::memcpy(&pointer, at, 4);
    pointer = reinterpret_cast<uint32_t>(block.data()) + pointer % (told + 40);
    std::memcpy(at, &pointer, 4);
  }
  const HostInfo info = HostInfo::Copy(block.data());
  REQUIRE(info.Size() == told && info.ReceiverDefault() <= 99);
  REQUIRE(info.ModeNumbers().size() <= told / 28);
  if (info.FrequencyRangeKhz()) REQUIRE(told >= 228);
}
