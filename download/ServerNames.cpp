#include "download/ServerNames.h"

const char* ServerNames::EibiHost() noexcept {
  return MARLUX_EIBI_HOST;
}

const char* ServerNames::HfccHost() noexcept {
  return MARLUX_HFCC_HOST;
}

uint16_t ServerNames::Port() noexcept {
  return 80;
}

uint32_t ServerNames::TimeOut() noexcept {
  return 30000;
}
