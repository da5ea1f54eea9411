// A plug-in without a window: each notification makes it do one thing that plug-ins do to hosts.
#include <windows.h>

#include <cstdint>
#include <cstring>

#include "host/Protocol.h"

namespace {

constexpr uint32_t kFirstValue = 0x1000;  // instance value = this + handle
HostCallback host = nullptr;

void Leave(uint32_t instance) {
  static constexpr char kName[] = "Trial";
  host(instance, Callback::kInstanceState, 0xFFFFFFFF, 0, 0);
  host(instance, Callback::kInstanceGone, 0, sizeof kName, reinterpret_cast<uint32_t>(kName));
}

// A message loop of our own until a notification 0x104 comes.
bool inLoop = false;
void Loop() {
  inLoop = true;
  MSG message;
  while (inLoop && GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
}

}  // namespace

extern "C" {

uint32_t __stdcall zqnPluginInit(uint32_t, uint32_t, char* name, uint32_t nameSize) {
  for (uint32_t i = 0; i < nameSize; ++i) name[i] = i < 5 ? "Trial"[i] : '\0';
  return 1;
}

uint32_t __stdcall zqnPluginStart(uint32_t handle, uint32_t, HostCallback callback, const void*) {
  host = callback;
  host(0, Callback::kInstanceState, 3, 0, 0);
  return handle == 99 ? 0 : kFirstValue + handle;
}

void __stdcall zqnPluginNotify(uint32_t handle, uint32_t code, uint32_t a, uint32_t, uint32_t c) {
  const uint32_t instance = kFirstValue + handle;
  if (code == Notification::kClose) inLoop = false;
  switch (code) {
    case Notification::kClose:
    case 0x101:
      return Leave(instance);
    case Notification::kFrequencyChanged:
      host(instance, Callback::kQuery, Callback::kSetFrequency, 0, 0);
      return;
    case Notification::kAudio: {
      const auto* header = reinterpret_cast<const AudioHeader*>(c);
      host(instance, Callback::kMediaState, a, header->sampleRate, header->sampleCount);
      return;
    }
    case 0x102:
      host(instance, Callback::kSetFrequency, a, 0, 0);
      return;
    case 0x103:
      return Loop();
    case 0x104:
      inLoop = false;
      return;
    case 0x105:
      PostQuitMessage(0);
      return;
  }
}

void __stdcall zqnPluginDone() {}

}  // extern "C"
