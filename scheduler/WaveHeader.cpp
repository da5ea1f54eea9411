#include "scheduler/WaveHeader.h"

namespace {
constexpr uint32_t kSizeWithoutData = 40;
}

WaveHeader MakeWaveHeader(uint32_t sampleRate, uint32_t channels, uint32_t bits) noexcept {
  WaveHeader header = {
      {'R', 'I', 'F', 'F'}, 0, {'W', 'A', 'V', 'E'}, {'f', 'm', 't', ' '}, 20, 1, 0, 0, 0, 0, 0, 0, {0xDE, 0xAD},
      {'d', 'a', 't', 'a'}, 0};
  SetWaveFormat(header, sampleRate, channels, bits);
  SetWaveDataSize(header, 0);
  return header;
}

void SetWaveFormat(WaveHeader& header, uint32_t sampleRate, uint32_t channels, uint32_t bits) noexcept {
  header.channels = static_cast<uint16_t>(channels);
  header.sampleRate = sampleRate;
  header.bitsPerSample = static_cast<uint16_t>(bits);
  header.blockAlign = static_cast<uint16_t>(uint32_t{header.channels} * header.bitsPerSample / 8);
  header.byteRate = header.blockAlign * sampleRate;
}

void SetWaveDataSize(WaveHeader& header, uint32_t bytes) noexcept {
  header.riffSize = kSizeWithoutData + bytes;
  header.dataSize = bytes;
}
