#include "plugin/HostLink.h"

#include <utility>

void HostLink::Connect(HostCallback callback, uint32_t instance) noexcept {
  callback_ = callback;
  instance_ = instance;
}

void HostLink::Disconnect() noexcept {
  callback_ = nullptr;
}

uint32_t HostLink::Call(uint32_t code, uint32_t a, uint32_t b, uint32_t c) noexcept {
  return callback_ ? callback_(instance_, code, a, b, c) : 0;
}

void HostLink::TellStarted() noexcept {
  // The host does not know the instance yet.
  if (callback_) callback_(0, HostCode::kInstanceState, HostCode::kInstanceStarted, 0, 0);
}

void HostLink::TellClosed() noexcept {
  Call(HostCode::kInstanceState, HostCode::kInstanceClosed);
  const HostCallback last = callback_;
  const uint32_t instance = instance_;
  Disconnect();
  if (last)
    last(instance, HostCode::kInstanceGone, 0, sizeof kProductCaption, reinterpret_cast<uint32_t>(kProductCaption));
}

void HostLink::Tune(uint32_t frequencyHz, uint32_t mode) noexcept {
  const std::pair<uint32_t, uint32_t> steps[] = {{HostCode::kTuneFrequency, frequencyHz},
                                                 {HostCode::kTuneMode, mode},
                                                 {HostCode::kTuneThird, 0},
                                                 {HostCode::kTuneFourth, HostCode::kTuneFourthValue}};
  const uint32_t tuning = ++tunings_;
  for (const auto& [code, a] : steps) {
    if (tuning == tunings_)
      Call(code, a);  // else the host let something else tune inside, to which the rest belongs not
  }
}

void HostLink::TellMediaState(bool playing) noexcept {
  Call(HostCode::kMediaState, playing ? 1 : 0);
}

uint32_t HostLink::CurrentFrequencyRaw() noexcept {
  return Call(HostCode::kQuery, HostCode::kTuneFrequency);
}
