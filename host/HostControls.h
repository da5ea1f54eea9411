// Marlux host. Identifiers of the window's controls. Those of one choice follow each other.
#pragma once

namespace Control {

inline constexpr int kRetuneField = 100;
inline constexpr int kRetune = 101;
inline constexpr int kInstances = 102;
inline constexpr int kStart = 103;
inline constexpr int kClose = 104;
inline constexpr int kCloseAll = 105;
inline constexpr int kSourceOff = 110;
inline constexpr int kSourceTone = 111;
inline constexpr int kSourceNoise = 112;
inline constexpr int kRate = 120;  // to kLastRate
inline constexpr int kLastRate = 123;
inline constexpr int kMono = 130;
inline constexpr int kStereo = 131;
inline constexpr int kInteger = 140;
inline constexpr int kFloat = 141;
inline constexpr int kCopy = 150;
inline constexpr int kClear = 151;
inline constexpr int kLog = 152;

inline constexpr unsigned kRates[] = {8000, 12000, 44100, 48000};

}  // namespace Control
