// Marlux 3. A host for tests: loads the built module, drives it through its four exports and writes down each callback.
//
//   FakeHost host;
//   host.Start(7);
//   host.During(0xF00, [&] { host.Close(7); });   // inside that call of the plug-in
//   SendMessageA(host.WindowOf(7), WM_CLOSE, 0, 0);
//   EXPECT_EQ(host.Calls().size(), 3u);           // what the plug-in has said
//
// One at a time, on one thread. The destructor closes what is open and unloads the module.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

struct HostCall {
  uint32_t instance = 0, code = 0, a = 0, b = 0;
  std::string text;  // what c points to where that is a text, else c as a number

  bool operator==(const HostCall&) const = default;
  friend std::ostream& operator<<(std::ostream& out, const HostCall& call) {
    return out << std::hex << call.code << std::dec << " of " << call.instance << ": " << call.a << ", " << call.b
               << ", " << call.text;
  }
};

// A block as a host hands it over: size first, pointers into itself, a frequency range, two modes.
[[nodiscard]] std::vector<uint32_t> HostBlockOfReceiver();

class FakeHost {
 public:
  static constexpr char kClassPrefix[] = "TmyComponent ";
  static constexpr char kModulePath[] = MARLUX_MODULE;
  static constexpr char kLoopbackModulePath[] = MARLUX_LOOPBACK_MODULE;  // the one whose servers are on this machine

  explicit FakeHost(std::string modulePath = kModulePath);
  ~FakeHost();
  FakeHost(const FakeHost&) = delete;
  FakeHost& operator=(const FakeHost&) = delete;

  bool Load();
  [[nodiscard]] bool IsLoaded() const { return module_ != nullptr; }  // by this host
  void Unload();                                                      // without closing anything first

  void Init(char* name, uint32_t size) { Call<uint32_t>("zqnPluginInit", 0u, 0u, name, size); }
  // Returns the instance. Without a block the receiver's one is used.
  uint32_t Start(uint32_t handle, const void* block = HostBlockOfReceiver().data());
  void Notify(uint32_t handle, uint32_t code, const void* c = nullptr, uint32_t a = 0) {
    Call<void>("zqnPluginNotify", handle, code, a, 0u, c);
  }
  void Close(uint32_t handle) { Notify(handle, 0x4000); }
  void Done() { Call<void>("zqnPluginDone"); }

  // All since the last Clear, in order.
  [[nodiscard]] const std::vector<HostCall>& Calls() const { return calls_; }
  void Clear() { calls_.clear(); }
  // Once, at the next call with this code.
  void During(uint32_t code, std::function<void()> action) { during_[code] = std::move(action); }
  // The main window that came with Start; the handle stays when the window is gone.
  [[nodiscard]] HWND WindowOf(uint32_t handle) const {
    return windows_.contains(handle) ? windows_.at(handle) : nullptr;
  }

  // Runs the action from a timer once the condition holds, so also inside the plug-in's own loops. When it never does,
  // all menus and windows are closed instead, so that the test goes on, and WasLate says so.
  void When(std::function<bool()> condition, std::function<void()> action);
  [[nodiscard]] bool WasLate() const { return wasLate_; }

  // The thread's top-level windows whose class begins so; hidden ones too.
  [[nodiscard]] static std::vector<HWND> TopWindows(const std::string& classPrefix = kClassPrefix);
  // A visible one with this caption, or null.
  [[nodiscard]] static HWND Find(const std::string& caption, const std::string& classPrefix = kClassPrefix);

 private:
  static uint32_t __stdcall Callback(uint32_t instance, uint32_t code, uint32_t a, uint32_t b, uint32_t c);
  static void CALLBACK Tick(HWND window, UINT message, UINT_PTR id, DWORD time);
  template <class Result, class... Arguments>
  Result Call(const char* name, Arguments... arguments) const {  // Result() while the module is not loaded
    using Function = Result(__stdcall*)(Arguments...);
    const FARPROC found = module_ ? GetProcAddress(module_, name) : nullptr;
    return found ? reinterpret_cast<Function>(reinterpret_cast<void*>(found))(arguments...) : Result();
  }

  std::string modulePath_;
  HMODULE module_ = nullptr;
  std::vector<HostCall> calls_;
  std::map<uint32_t, std::function<void()>> during_;
  std::map<uint32_t, HWND> windows_;
  std::function<bool()> condition_;
  std::function<void()> action_;
  UINT_PTR timer_ = 0;
  DWORD timerStart_ = 0;
  bool wasLate_ = false;
};

[[nodiscard]] std::string TextOf(HWND window);
[[nodiscard]] std::string CountsOf(HWND window);  // "2 of 5 broadcasts", of a main window; empty when it has none
