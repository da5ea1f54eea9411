// Marlux 3. The head of a recording: a RIFF file of one format chunk and one data chunk.
//
//   WaveHeader header = MakeWaveHeader(44100, 1, 16);
//   SetWaveDataSize(header, 882000);                   // header.riffSize is 882040
//
// The record is the file's first 48 bytes as they stand, little-endian. The format chunk has 20 bytes: the extra size
// and a filler follow the usual 16, so the samples begin at offset 48.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

struct WaveHeader {
  char riff[4];       // "RIFF"
  uint32_t riffSize;  // 40 + dataSize
  char wave[4];       // "WAVE"
  char format[4];     // "fmt "
  uint32_t formatSize;
  uint16_t formatTag;  // 1: PCM
  uint16_t channels;
  uint32_t sampleRate;  // Hz
  uint32_t byteRate;    // bytes a second, modulo 2^32
  uint16_t blockAlign;  // bytes of a sample of all channels
  uint16_t bitsPerSample;
  uint16_t extraSize;  // 0
  uint8_t filler[2];
  char data[4];       // "data"
  uint32_t dataSize;  // bytes of samples
};

static_assert(std::endian::native == std::endian::little);
static_assert(sizeof(WaveHeader) == 48);
static_assert(offsetof(WaveHeader, riffSize) == 4 && offsetof(WaveHeader, formatSize) == 16);
static_assert(offsetof(WaveHeader, formatTag) == 20 && offsetof(WaveHeader, channels) == 22);
static_assert(offsetof(WaveHeader, sampleRate) == 24 && offsetof(WaveHeader, byteRate) == 28);
static_assert(offsetof(WaveHeader, blockAlign) == 32 && offsetof(WaveHeader, bitsPerSample) == 34);
static_assert(offsetof(WaveHeader, extraSize) == 36 && offsetof(WaveHeader, filler) == 38);
static_assert(offsetof(WaveHeader, data) == 40 && offsetof(WaveHeader, dataSize) == 44);

// Without data. Channels and bits are cut to 16 bits, which is what the record has room for.
[[nodiscard]] WaveHeader MakeWaveHeader(uint32_t sampleRate, uint32_t channels, uint32_t bits) noexcept;
// The sizes stay.
void SetWaveFormat(WaveHeader& header, uint32_t sampleRate, uint32_t channels, uint32_t bits) noexcept;
void SetWaveDataSize(WaveHeader& header, uint32_t bytes) noexcept;  // the RIFF size, too
