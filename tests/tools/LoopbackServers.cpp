// The servers of the module that tests load: both on this machine, at the port that the test tells, one of
// them by its name.
#include <windows.h>

#include <cstdlib>

#include "download/ServerNames.h"

namespace {

uint32_t Setting(const char* name, uint32_t otherwise) noexcept {
  char text[16] = "";
  GetEnvironmentVariableA(name, text, sizeof text);
  return text[0] ? std::strtoul(text, nullptr, 10) : otherwise;
}

}  // namespace

const char* ServerNames::EibiHost() noexcept {
  return "localhost";
}

const char* ServerNames::HfccHost() noexcept {
  return "127.0.0.2";
}

uint16_t ServerNames::Port() noexcept {
  return static_cast<uint16_t>(Setting("MARLUX_LOOPBACK_PORT", 8080));
}

uint32_t ServerNames::TimeOut() noexcept {
  return Setting("MARLUX_LOOPBACK_TIMEOUT", 30000);
}
