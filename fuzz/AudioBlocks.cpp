#include "fuzz/Fuzz.h"
#include "plugin/HostLink.h"
#include "scheduler/AudioFeed.h"

namespace {

constexpr uint64_t kLargestData = 6000;
constexpr uint32_t kUnknown = 5;
constexpr uint32_t kKinds[] = {HostNotification::kAudioPcm16, HostNotification::kAudioFloat, kUnknown};

// A host's block that ends where its memory does.
std::vector<char> BlockOf(Input& input, uint32_t kind) {
  constexpr uint32_t kMask[] = {0xFFFFFFFF, 0x3FFF, 0x3FF, 0x3FF};
  const auto shape = input.Take<uint8_t>();
  const uint32_t header[] = {input.Take<uint32_t>() & (shape & 4 ? 0xFFFF : 3), 0,
                             input.Take<uint32_t>() & (shape & 8 ? 0xFFFFFFFF : 3),
                             input.Take<uint32_t>() & kMask[shape % 4]};
  const AudioBlock read(header);
  const std::string samples = input.TakeText(24);
  // Of several channels there may be samples behind the certain ones, or not.
  const uint64_t there = uint64_t{kind == HostNotification::kAudioFloat ? 4U : 2U} * header[3] +
                         static_cast<uint64_t>(samples.size()) * shape;
  if (read.IsUsable() && read.Bytes() + there > 1 << 20) return {};  // slow
  std::vector<char> block(sizeof header + (read.IsUsable() ? static_cast<size_t>(there) : 0));
  std::memcpy(block.data(), header, sizeof header);
  for (size_t i = sizeof header; i < block.size() && !samples.empty(); ++i) block[i] = samples[i % samples.size()];
  return block;
}

}  // namespace

// All that was taken is in the files, each of which tells its own size.
void Try(Input& input) {
  std::vector<std::string> names = {PathOf("r.wav")};
  TmyMediaPlayer player;
  AudioFeed feed(player, kLargestData);
  player.StartRecording(names[0].c_str(), 44100, 1, 16);
  while (!input.IsEmpty() && names.size() < 12) {
    const uint32_t kind = kKinds[input.Take<uint8_t>() % 3];
    const std::vector<char> block = BlockOf(input, kind);
    if (!block.empty()) feed.Feed(kind, block.data());
    if (player.FileName() != names.back().c_str()) names.emplace_back(player.FileName().Chars());
  }
  player.StopRecording();
  for (const std::string& name : names) {
    const std::string file = ReadFileBytes(name);
    REQUIRE(DeleteFileA(name.c_str()) && file.size() >= 4096 && file.starts_with("RIFF"));
    WaveHeader header = {};
    std::memcpy(&header, file.data(), sizeof header);
    REQUIRE(header.dataSize + sizeof header <= file.size() && header.riffSize == header.dataSize + 40);
  }
}
