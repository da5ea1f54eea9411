#include "host/Protocol.h"

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace {

struct Named {
  uint32_t code;
  const char* name;
};

constexpr Named kCallbacks[] = {
    {Callback::kSetFrequency, "SetFrequency"}, {Callback::kSetMode, "SetMode"},
    {Callback::kTuneFourth, "TuneFourth"},     {Callback::kTuneThird, "TuneThird"},
    {Callback::kMediaState, "MediaState"},     {Callback::kInstanceState, "InstanceState"},
    {Callback::kInstanceGone, "InstanceGone"}, {Callback::kQuery, "Query"},
};
constexpr Named kNotifications[] = {
    {Notification::kFrequencyChanged, "FrequencyChanged"},
    {Notification::kAudio, "Audio"},
    {Notification::kClose, "Close"},
    {Notification::kHostBlock, "HostBlock"},
};
constexpr const char* kModes[] = {"CW",  "AM",  "FMN", "FMW", "LSB", "USB",  "FMM",  "FSK", "AMS",  "DAB", "FM3",
                                  "FM6", "AMN", "DSB", "ISB", "PM",  "AMSU", "AMSL", "DRM", "APCO", "UDM"};

template <size_t kCount>
std::string NameOf(const Named (&table)[kCount], uint32_t code) {
  for (const Named& entry : table) {
    if (entry.code == code) return Text("%s(0x%X)", entry.name, code);
  }
  return Text("Code(0x%X)", code);
}

}  // namespace

std::string CallbackName(uint32_t code) {
  return NameOf(kCallbacks, code);
}
std::string NotificationName(uint32_t code) {
  return NameOf(kNotifications, code);
}

std::string ModeText(uint32_t number) {
  return number < std::size(kModes) ? kModes[number] : Text("mode %u", number);
}

std::string KilohertzText(int64_t hz) {
  std::string text = std::to_string(hz / 1000) + Text(".%03d", static_cast<int>(hz % 1000));
  while (text.back() == '0') text.pop_back();
  if (text.back() == '.') text.pop_back();
  return text;
}

bool ParseKilohertz(const std::string& text, int64_t& hz) {
  constexpr double kHighestKhz = 21474836.47;  // what Query can answer
  char* end = nullptr;
  const double khz = std::strtod(text.c_str(), &end);
  while (*end == ' ') ++end;
  if (text.empty() || *end != '\0' || !(khz > 0) || khz > kHighestKhz) return false;
  hz = std::llround(khz * 1000);
  return true;
}

uint32_t EncodeFrequency(int64_t hz) {
  constexpr uint32_t kTenHertzSteps = 0x80000000;
  return hz < kTenHertzSteps ? static_cast<uint32_t>(hz) : kTenHertzSteps | static_cast<uint32_t>(hz / 10);
}

std::string Text(const char* format, ...) {
  char buffer[1024];
  va_list arguments;  // NOLINT(cppcoreguidelines-init-variables): va_start sets it
  va_start(arguments, format);
  const int length = _vsnprintf(buffer, sizeof buffer, format, arguments);
  va_end(arguments);
  return std::string(buffer, length < 0 ? sizeof buffer : static_cast<size_t>(length));
}
