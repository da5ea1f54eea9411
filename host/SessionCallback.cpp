// The plug-in's calls to the host.
#include <windows.h>

#include <algorithm>

#include "host/Session.h"

namespace {

// The text that a plug-in hands over, cut at a sensible length; it is the plug-in's duty that it can be read.
std::string TextAt(uint32_t address, uint32_t size) {
  constexpr uint32_t kLongest = 256;
  const auto* text = reinterpret_cast<const char*>(address);
  if (!text) return {};
  const char* const end = text + std::min(size, kLongest);
  return {text, std::find(text, end, '\0')};
}

}  // namespace

uint32_t __stdcall Session::Entry(uint32_t instance, uint32_t code, uint32_t a, uint32_t b, uint32_t c) {
  return current_ ? current_->Answer(instance, code, a, b, c) : 0;
}

uint32_t Session::Answer(uint32_t value, uint32_t code, uint32_t a, uint32_t b, uint32_t c) {
  const std::string start = Caller(value) + " " + CallbackName(code);
  if (code == Callback::kInstanceGone) {
    Forget(value, b, c);
    return 0;
  }
  if (code == Callback::kQuery) {
    const uint32_t answer = QueryAnswer(a);
    log_.Add(LogKind::kCallback, Text("%s a=0x%X b=%u c=%u -> %u", start.c_str(), a, b, c, answer));
    return answer;
  }
  log_.Add(LogKind::kCallback, Text("%s a=%u b=%u c=%u", start.c_str(), a, b, c));
  if (code == Callback::kSetFrequency || code == Callback::kSetMode) {
    if (code == Callback::kSetFrequency) receiver_.hz = a;
    if (code == Callback::kSetMode) receiver_.mode = a;
    receiver_.setBy = HandleOf(value);
    Changed();
  }
  return 0;
}

std::string Session::Caller(uint32_t value) {
  if (value == 0) return "instance=0";
  const uint32_t handle = HandleOf(value);
  if (handle != 0) return Text("instance=%u", handle);
  Fail(Text("a callback comes from 0x%08X, which is no instance (any more)", value));
  return Text("instance=0x%08X", value);
}

uint32_t Session::QueryAnswer(uint32_t a) const {
  if (a == Callback::kSetFrequency) return EncodeFrequency(receiver_.hz);
  return a == Callback::kSetMode ? receiver_.mode : 0;
}

void Session::Forget(uint32_t value, uint32_t textSize, uint32_t text) {
  const uint32_t handle = HandleOf(value);
  log_.Add(LogKind::kCallback,
           Text("%s %s a=0 b=%u text=\"%s\"", Caller(value).c_str(), CallbackName(Callback::kInstanceGone).c_str(),
                textSize, TextAt(text, textSize).c_str()));
  std::erase_if(instances_, [handle](const Instance& instance) { return instance.handle == handle; });
  Changed();
}

const Instance* Session::Find(uint32_t handle) const {
  for (const Instance& instance : instances_) {
    if (instance.handle == handle) return &instance;
  }
  return nullptr;
}

uint32_t Session::HandleOf(uint32_t value) const {
  for (const Instance& instance : instances_) {
    if (instance.value == value) return instance.handle;
  }
  // An instance that calls before Start has told its value is the one that starts.
  for (const Instance& instance : instances_) {
    if (instance.value == 0 && value != 0) return instance.handle;
  }
  return 0;
}
