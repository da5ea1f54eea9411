// Records bytes as 16-bit stereo, 16000 Hz, in blocks of odd sizes: make-wave BYTES OUT.WAV
#include "scheduler/TmyWaveFilePCM.h"

int main(int, char** argv) {
  TmyFile bytes(argv[1], GENERIC_READ, OPEN_EXISTING);
  TmyWaveFilePCM wave(argv[2], 16000, 2, 16, 0x100000);
  char block[30011];
  uint32_t length = 1;
  while (const uint32_t got = bytes.ReadSome(block, length = length * 7 % sizeof block).value_or(0)) {
    if (!wave.Write(block, got)) return 1;
  }
}
