// Marlux 3. Everything that the plug-in says to its host, and the names of all codes in both directions.
//
//   link.Connect(callback, instance);
//   link.Tune(9420000, ModeOfModulation('D'));
//
// The host runs inside each call and may close the plug-in there. A link that is not connected drops its calls.
#pragma once

#include "foundation/Compiler.h"

// A host's function: (instance, code, a, b, c).
using HostCallback = uint32_t(__stdcall*)(uint32_t, uint32_t, uint32_t, uint32_t, uint32_t);

// Plug-in to host. What the host does at the third and fourth step of tuning is its own affair.
namespace HostCode {
inline constexpr uint32_t kTuneFrequency = 0x800;  // a = Hz
inline constexpr uint32_t kTuneMode = 0x900;       // a = mode number
inline constexpr uint32_t kTuneThird = 0xF00;
inline constexpr uint32_t kTuneFourth = 0x902;      // a = kTuneFourthValue
inline constexpr uint32_t kMediaState = 0x1101;     // a = 1 playing, 0 anything else
inline constexpr uint32_t kInstanceState = 0x1509;  // a = kInstanceStarted or kInstanceClosed
inline constexpr uint32_t kInstanceGone = 0x4000;   // b = size of the caption with its zero, c = the caption
inline constexpr uint32_t kQuery = 0x4002;          // a = the code whose value is wanted
inline constexpr uint32_t kInstanceStarted = 3;
inline constexpr uint32_t kInstanceClosed = 0xFFFFFFFF;
inline constexpr uint32_t kTuneFourthValue = 5000;
}  // namespace HostCode

// Host to plug-in.
namespace HostNotification {
inline constexpr uint32_t kFrequencyChanged = 0x800;
inline constexpr uint32_t kAudio = 0xE07;  // a = kAudioPcm16 or kAudioFloat, c = the audio block
inline constexpr uint32_t kClose = 0x4000;
inline constexpr uint32_t kHostInfo = 0x4005;  // c = a new host info block
inline constexpr uint32_t kAudioPcm16 = 3;
inline constexpr uint32_t kAudioFloat = 8;
}  // namespace HostNotification

// The host's numbers of the modes that the plug-in tunes by itself. ModeNames has all of them.
namespace HostMode {
inline constexpr uint32_t kForT = 5;
inline constexpr uint32_t kForN = 9;
inline constexpr uint32_t kOtherwise = 1;
}  // namespace HostMode

inline constexpr char kProductCaption[] = "Marlux 3";

// The mode for an HFCC record's modulation character.
[[nodiscard]] constexpr uint32_t ModeOfModulation(char modulation) noexcept {
  return modulation == 'N' ? HostMode::kForN : modulation == 'T' ? HostMode::kForT : HostMode::kOtherwise;
}

class HostLink {
 public:
  HostLink() = default;
  HostLink(const HostLink&) = delete;
  HostLink& operator=(const HostLink&) = delete;
  ~HostLink() { Disconnect(); }

  // `instance` is the value that zqnPluginStart returns. A null callback leaves the link disconnected.
  void Connect(HostCallback callback, uint32_t instance) noexcept;
  void Disconnect() noexcept;

  void TellStarted() noexcept;
  // Tells that the instance is gone, with the product caption, and disconnects: the host may unload us inside the last
  // of the two calls.
  void TellClosed() noexcept;
  // The four steps in order, the rest of which is left out when something else tunes inside one of them. The host may
  // close the plug-in there: the caller holds the window that the link is of.
  void Tune(uint32_t frequencyHz, uint32_t mode) noexcept;
  void TellMediaState(bool playing) noexcept;

  // The host's answer as it stands; 0 when not connected.
  [[nodiscard]] uint32_t CurrentFrequencyRaw() noexcept;
  [[nodiscard]] int64_t CurrentFrequency() noexcept { return DecodeFrequency(CurrentFrequencyRaw()); }
  // Hz. An answer with bit 31 set counts in steps of 10 Hz.
  [[nodiscard]] static constexpr int64_t DecodeFrequency(uint32_t raw) noexcept {
    constexpr uint32_t kTenHertzSteps = 0x80000000;
    return raw & kTenHertzSteps ? int64_t{raw & ~kTenHertzSteps} * 10 : int64_t{raw};
  }

 private:
  uint32_t Call(uint32_t code, uint32_t a, uint32_t b = 0, uint32_t c = 0) noexcept;

  HostCallback callback_ = nullptr;
  uint32_t instance_ = 0;
  uint32_t tunings_ = 0;  // tells one from another that the host begins inside it
};
