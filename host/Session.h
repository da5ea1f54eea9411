// Marlux host. One plug-in at work: its module, its instances, the receiver that they share, the audio that they get.
//
// A plug-in may run a message loop of its own inside any call of ours, and our timer and our window work on in it. So
// every call out is the last use of anything that the call may change, and a library is only let go of by
// FinishRequests, which the outermost message loop calls with no plug-in code on the stack.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/AudioSource.h"
#include "host/CallLog.h"
#include "host/HostBlock.h"
#include "host/PluginModule.h"

struct Instance {
  uint32_t handle;  // ours
  uint32_t value;   // the plug-in's; 0 until Start has returned
};

struct Receiver {
  int64_t hz = 6005000;
  uint32_t mode = 1;
  uint32_t setBy = 0;  // handle of the instance that tuned last, 0 the user
};

class Session {
 public:
  explicit Session(CallLog& log);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  // Each returns false after logging an error.
  bool Load(const std::string& path);
  bool Start(std::optional<uint32_t> wanted = {});  // without one: the lowest that is free
  // Without a `c` the host block is sent where one belongs.
  bool Notify(uint32_t handle, uint32_t code, uint32_t a = 0, uint32_t b = 0, std::optional<uint32_t> c = {});
  bool Close(uint32_t handle);
  bool CloseAll();
  bool SetAudio(const AudioFormat& format);
  void Retune(int64_t hz);  // as a user at the receiver does
  void SetBlock(HostBlock::Shape shape, uint32_t size) { block_.SetShape(shape, size); }

  void DeliverAudio();                                             // what is due; call it often
  void LogAudioEvery(uint32_t blocks) { loggedBlocks_ = blocks; }  // once all instances have had them; not 0

  // Closes the instances now and lets go of the library in FinishRequests.
  void RequestUnload();
  void RequestQuit(int exitCode);
  // True when the program is to end.
  bool FinishRequests();
  [[nodiscard]] bool IsUnloading() const { return unloadRequested_; }
  [[nodiscard]] bool IsQuitting() const { return exitCode_.has_value(); }
  // True when the plug-in's own code has kept the end away for so long that it will not come.
  [[nodiscard]] bool IsStuck() const;
  [[nodiscard]] int ExitCode() const { return exitCode_.value_or(0); }

  [[nodiscard]] bool IsLoaded() const { return module_.IsLoaded(); }
  [[nodiscard]] const std::string& ModulePath() const { return module_.Path(); }
  [[nodiscard]] const std::string& PluginName() const { return name_; }  // as Init gave it
  [[nodiscard]] const std::vector<Instance>& Instances() const { return instances_; }
  [[nodiscard]] const Receiver& State() const { return receiver_; }
  [[nodiscard]] const AudioFormat& Audio() const { return audio_.Format(); }
  [[nodiscard]] CallLog& Log() { return log_; }

  std::function<void()> onChange;  // anything above has changed

 private:
  static uint32_t __stdcall Entry(uint32_t instance, uint32_t code, uint32_t a, uint32_t b, uint32_t c);
  uint32_t Answer(uint32_t value, uint32_t code, uint32_t a, uint32_t b, uint32_t c);
  [[nodiscard]] std::string Caller(uint32_t value);
  [[nodiscard]] uint32_t QueryAnswer(uint32_t a) const;
  void Forget(uint32_t value, uint32_t textSize, uint32_t text);
  [[nodiscard]] const Instance* Find(uint32_t handle) const;
  [[nodiscard]] uint32_t HandleOf(uint32_t value) const;  // 0 unknown
  void CallInit();
  void SendAudio();
  bool Fail(std::string text);
  void Changed() const;

  static Session* current_;  // plug-ins call back without a context

  CallLog& log_;
  PluginModule module_;
  std::string name_;
  HostBlock block_;
  std::vector<Instance> instances_;
  Receiver receiver_;
  AudioSource audio_;
  uint32_t audioBegin_ = 0;
  uint32_t audioBlocks_ = 0;  // since audioBegin_
  uint32_t loggedBlocks_ = AudioSource::kBlocksPerSecond;
  bool deliveringAudio_ = false;
  bool unloadRequested_ = false;
  std::optional<int> exitCode_;
  uint32_t quitBegin_ = 0;
};
