#include "host/Session.h"

#include <windows.h>

#include <algorithm>

Session* Session::current_ = nullptr;

Session::Session(CallLog& log) : log_(log) {
  current_ = this;
}

Session::~Session() {
  current_ = nullptr;
}

bool Session::Fail(std::string text) {
  log_.Add(LogKind::kError, std::move(text));
  return false;
}

void Session::Changed() const {
  if (onChange) onChange();
}

bool Session::Load(const std::string& path) {
  if (module_.IsLoaded()) return Fail("a plug-in is loaded already");
  std::string reason;
  if (!module_.Load(path, reason)) return Fail(reason);
  log_.Add(LogKind::kHost, "loaded " + module_.Path());
  CallInit();
  Changed();
  return true;
}

void Session::CallInit() {
  char name[64] = {};
  const uint32_t result = module_.init(0, 0, name, sizeof name - 1);
  name_ = name;
  log_.Add(LogKind::kCall, Text("Init -> %u name=\"%s\"", result, name));
}

bool Session::Start(std::optional<uint32_t> wanted) {
  if (!module_.IsLoaded() || unloadRequested_) return Fail("no plug-in is loaded");
  uint32_t handle = wanted.value_or(1);
  while (!wanted && Find(handle)) ++handle;
  if (Find(handle)) return Fail(Text("instance %u runs already", handle));
  if (handle == 0) return Fail("handle 0 stands for no instance");
  instances_.push_back({handle, 0});
  log_.Add(LogKind::kCall, Text("Start handle=%u block=%u bytes", handle, block_.Address() ? block_.Size() : 0));
  const uint32_t value = module_.start(handle, 0, Entry, block_.Address());
  log_.Add(LogKind::kCall, Text("Start handle=%u -> 0x%08X", handle, value));
  const auto own = [handle](const Instance& instance) { return instance.handle == handle && instance.value == 0; };
  const auto at = std::find_if(instances_.begin(), instances_.end(), own);
  if (value != 0 && at != instances_.end()) {
    at->value = value;
  } else if (at != instances_.end()) {
    instances_.erase(at);
  }
  Changed();
  return value != 0 || Fail(Text("instance %u did not start", handle));
}

bool Session::Notify(uint32_t handle, uint32_t code, uint32_t a, uint32_t b, std::optional<uint32_t> c) {
  if (!module_.IsLoaded()) return Fail("no plug-in is loaded");
  if (!c) c = code == Notification::kHostBlock ? reinterpret_cast<uint32_t>(block_.Address()) : 0;
  log_.Add(LogKind::kNotify, Text("instance=%u %s a=%u b=%u c=%u", handle, NotificationName(code).c_str(), a, b, *c));
  module_.notify(handle, code, a, b, *c);
  return true;
}

bool Session::Close(uint32_t handle) {
  if (!Find(handle)) return Fail(Text("there is no instance %u", handle));
  if (!Notify(handle, Notification::kClose)) return false;
  return !Find(handle) || Fail(Text("instance %u was told to close and did not go", handle));
}

bool Session::CloseAll() {
  const std::vector<Instance> all = instances_;
  bool gone = true;
  for (const Instance& instance : all) {
    if (Find(instance.handle)) gone = Close(instance.handle) && gone;  // one may take others with it
  }
  return gone;
}

void Session::Retune(int64_t hz) {
  receiver_.hz = hz;
  receiver_.setBy = 0;
  log_.Add(LogKind::kHost, "receiver tuned to " + std::to_string(hz) + " Hz");
  Changed();
  const std::vector<Instance> all = instances_;
  for (const Instance& instance : all) {
    if (Find(instance.handle)) Notify(instance.handle, Notification::kFrequencyChanged);
  }
}

bool Session::SetAudio(const AudioFormat& format) {
  if (!audio_.SetFormat(format)) return Fail("this audio format is out of range");
  constexpr const char* kKinds[] = {"off", "tone", "noise"};
  log_.Add(LogKind::kAudio, Text("%s rate=%u channels=%u format=%s", kKinds[static_cast<size_t>(format.kind)],
                                 format.sampleRate, format.channels, format.isFloat ? "float" : "16"));
  audioBegin_ = GetTickCount();
  audioBlocks_ = 0;
  Changed();
  return true;
}

void Session::DeliverAudio() {
  if (!audio_.IsOn() || deliveringAudio_ || instances_.empty() || !module_.IsLoaded()) return;
  constexpr uint32_t kMostAtOnce = 10;
  constexpr uint32_t kBlockMs = 1000 / AudioSource::kBlocksPerSecond;
  const auto due = [this] { return (GetTickCount() - audioBegin_) / kBlockMs; };  // other audio may begin inside
  if (due() > audioBlocks_ + kMostAtOnce) audioBlocks_ = due() - kMostAtOnce;     // after a pause it does not hurry
  deliveringAudio_ = true;
  for (uint32_t left = kMostAtOnce; left > 0 && audio_.IsOn() && audioBlocks_ < due(); --left) {
    ++audioBlocks_;
    SendAudio();
  }
  deliveringAudio_ = false;
}

void Session::SendAudio() {
  const AudioHeader* const block = audio_.NextBlock();
  const uint32_t count = audioBlocks_, samples = block->sampleCount;  // an instance may start other audio
  const uint32_t subCode = audio_.SubCode();
  const std::vector<Instance> all = instances_;
  for (const Instance& instance : all) {
    if (!Find(instance.handle)) continue;
    module_.notify(instance.handle, Notification::kAudio, subCode, 0, reinterpret_cast<uint32_t>(block));
  }
  if (count % loggedBlocks_ == 0) {
    log_.Add(LogKind::kAudio, Text("%u blocks, the last with %u samples", count, samples));
  }
}

void Session::RequestUnload() {
  if (unloadRequested_) return;
  unloadRequested_ = true;
  CloseAll();
}

void Session::RequestQuit(int exitCode) {
  if (exitCode_) return;
  exitCode_ = exitCode;
  quitBegin_ = GetTickCount();
  RequestUnload();
  PostMessageA(nullptr, WM_NULL, 0, 0);  // wakes the loop
}

bool Session::IsStuck() const {
  constexpr uint32_t kPatienceMs = 10000;
  return exitCode_ && GetTickCount() - quitBegin_ > kPatienceMs;
}

bool Session::FinishRequests() {
  if (unloadRequested_) {
    unloadRequested_ = false;
    if (module_.IsLoaded()) {
      instances_.clear();  // those that would not go: their code goes now
      log_.Add(LogKind::kCall, "Done");
      module_.done();
      module_.Unload();
      log_.Add(LogKind::kHost, "unloaded");
      Changed();
    }
  }
  return exitCode_.has_value();
}
