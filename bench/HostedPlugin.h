// Marlux 3. The built module that lies beside this program, driven through its exports as a host does it.
//
//   const HostedPlugin plugin;
//   if (!plugin.IsLoaded() || plugin.Start() == 0) return;
//   plugin.Audio(HostNotification::kAudioPcm16, block);
//   plugin.Close();
//   DispatchWaiting();
//
// The host's callback answers each question with 0.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <type_traits>

#include "plugin/HostLink.h"

class HostedPlugin {
 public:
  HostedPlugin();
  ~HostedPlugin();
  HostedPlugin(const HostedPlugin&) = delete;
  HostedPlugin& operator=(const HostedPlugin&) = delete;

  [[nodiscard]] bool IsLoaded() const noexcept { return init_ && start_ && notify_ && done_; }
  [[nodiscard]] HMODULE Module() const noexcept { return module_.get(); }

  [[nodiscard]] uint32_t Start() const;  // 0 when it did not start
  void Close() const;
  void Audio(uint32_t kind, const void* block) const noexcept {
    notify_(kHandle, HostNotification::kAudio, kind, 0, reinterpret_cast<uint32_t>(block));
  }

  // The plug-in's window, null when none is shown.
  [[nodiscard]] static HWND Window();

 private:
  static constexpr uint32_t kHandle = 1;

  struct FreeModule {
    void operator()(HMODULE module) const noexcept { FreeLibrary(module); }
  };
  template <class Function>
  void Find(Function& function, const char* name) const {
    if (module_) function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_.get(), name)));
  }

  std::unique_ptr<std::remove_pointer_t<HMODULE>, FreeModule> module_;
  uint32_t(__stdcall* init_)(uint32_t, uint32_t, char*, uint32_t) = nullptr;
  uint32_t(__stdcall* start_)(uint32_t, uint32_t, HostCallback, const void*) = nullptr;
  void(__stdcall* notify_)(uint32_t, uint32_t, uint32_t, uint32_t, uint32_t) = nullptr;
  void(__stdcall* done_)() = nullptr;
};

// Hands out what waits in the thread's queue.
void DispatchWaiting();
