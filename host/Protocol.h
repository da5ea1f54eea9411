// Marlux host. The interface between a receiver-control host and its plug-ins: entry points, codes, records, names.
// Written for the host alone, so that a plug-in and this program check each other.
#pragma once

#include <cstdint>
#include <string>

using HostCallback = uint32_t(__stdcall*)(uint32_t instance, uint32_t code, uint32_t a, uint32_t b, uint32_t c);
using PluginInit = uint32_t(__stdcall*)(uint32_t, uint32_t, char* name, uint32_t nameSize);
using PluginStart = uint32_t(__stdcall*)(uint32_t handle, uint32_t, HostCallback callback, const void* hostBlock);
using PluginNotify = void(__stdcall*)(uint32_t handle, uint32_t code, uint32_t a, uint32_t b, uint32_t c);
using PluginDone = void(__stdcall*)();

// What a plug-in calls.
namespace Callback {
inline constexpr uint32_t kSetFrequency = 0x800;  // a = Hz
inline constexpr uint32_t kSetMode = 0x900;       // a = mode number
inline constexpr uint32_t kTuneFourth = 0x902;
inline constexpr uint32_t kTuneThird = 0xF00;
inline constexpr uint32_t kMediaState = 0x1101;     // a = 1 while it plays
inline constexpr uint32_t kInstanceState = 0x1509;  // a = 3 started, 0xFFFFFFFF closed
inline constexpr uint32_t kInstanceGone = 0x4000;   // b = size of a text, c = the text
inline constexpr uint32_t kQuery = 0x4002;          // a = code of the value wanted
}  // namespace Callback

// What a plug-in is told.
namespace Notification {
inline constexpr uint32_t kFrequencyChanged = 0x800;
inline constexpr uint32_t kAudio = 0xE07;  // a = kPcm16 or kFloat, c = AudioHeader and samples
inline constexpr uint32_t kClose = 0x4000;
inline constexpr uint32_t kHostBlock = 0x4005;  // c = the new block
inline constexpr uint32_t kPcm16 = 3;
inline constexpr uint32_t kFloat = 8;
}  // namespace Notification

struct AudioHeader {
  uint32_t sampleRate;  // Hz
  uint32_t reserved;
  uint32_t channels;
  uint32_t sampleCount;  // values that follow, all channels together
};
static_assert(sizeof(AudioHeader) == 16);

// "SetFrequency(0x800)"; a code without a name gives "Code(0x1234)".
[[nodiscard]] std::string CallbackName(uint32_t code);
[[nodiscard]] std::string NotificationName(uint32_t code);
[[nodiscard]] std::string ModeText(uint32_t number);  // "AM"; "mode 77" for one without a name

// A frequency for reading: kHz with no more decimals than needed.
[[nodiscard]] std::string KilohertzText(int64_t hz);
// The reverse. False when the text is no positive number of kHz.
[[nodiscard]] bool ParseKilohertz(const std::string& text, int64_t& hz);
// As Query answers: above 2^31 - 1 Hz bit 31 is set and the rest counts in 10 Hz.
[[nodiscard]] uint32_t EncodeFrequency(int64_t hz);

// printf into a string.
[[nodiscard]] std::string Text(const char* format, ...) __attribute__((format(ms_printf, 1, 2)));
