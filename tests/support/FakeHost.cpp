#include "tests/support/FakeHost.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace {

constexpr DWORD kLate = 5000;  // ms
FakeHost* theHost = nullptr;   // the callback carries no data of the host's own

std::string ClassOf(HWND window) {
  char name[64] = "";
  GetClassNameA(window, name, sizeof name);
  return name;
}

BOOL CALLBACK Collect(HWND window, LPARAM to) {
  reinterpret_cast<std::vector<HWND>*>(to)->push_back(window);
  return TRUE;
}

// The build tells the path as its own system writes it; Wine's drive Z is that system's root.
std::string WindowsPath(std::string path) {
  std::replace(path.begin(), path.end(), '/', '\\');
  return path[0] == '\\' ? "Z:" + path : path;
}

}  // namespace

std::string TextOf(HWND window) {
  char text[256] = "";
  GetWindowTextA(window, text, sizeof text);
  return text;
}

void PrintTo(const HostCall& call, std::ostream* out) {
  *out << std::hex << "(" << call.instance << ", " << call.code << ", " << std::dec << call.a << ", " << call.b << ", "
       << call.text << ")";
}

std::vector<uint32_t> HostBlockOfReceiver() {
  constexpr uint32_t kSize = 400 + 2 * 28;
  std::vector<uint32_t> block(kSize / 4);
  const auto base = reinterpret_cast<uint32_t>(block.data());
  block[0] = kSize;
  block[76 / 4] = 0x3231;  // the digits "12"
  for (const uint32_t offset : {172u, 184u, 188u, 196u, 264u, 308u, 316u, 324u, 336u, 360u, 384u}) {
    block[offset / 4] = base + 392;
  }
  block[224 / 4] = base + 392;
  block[392 / 4] = 9, block[396 / 4] = 30000;  // kHz
  block[228 / 4] = 2;
  block[236 / 4] = base + 400;
  block[400 / 4] = 1, block[428 / 4] = 9;  // mode numbers
  return block;
}

FakeHost::FakeHost(std::string modulePath) : modulePath_(std::move(modulePath)) {
  theHost = this;
  Load();
}

FakeHost::~FakeHost() {
  if (timer_) KillTimer(nullptr, timer_);
  during_.clear();
  for (const auto& [handle, window] : windows_) Close(handle);
  Done();
  Unload();
  theHost = nullptr;
}

std::string FakeHost::ModulePath() {
  return WindowsPath(MARLUX_MODULE);
}

std::string FakeHost::LoopbackModulePath() {
  return WindowsPath(MARLUX_LOOPBACK_MODULE);
}

bool FakeHost::Load() {
  if (!module_) module_ = LoadLibraryA(modulePath_.c_str());
  return module_ != nullptr;
}

void FakeHost::Unload() {
  if (module_) FreeLibrary(std::exchange(module_, nullptr));
}

bool FakeHost::IsModuleInMemory() {
  return GetModuleHandleA("marlux3.dll") != nullptr;
}

template <class Result, class... Arguments>
Result FakeHost::Call(const char* name, Arguments... arguments) const {
  using Function = Result(__stdcall*)(Arguments...);
  const FARPROC found = module_ ? GetProcAddress(module_, name) : nullptr;
  return found ? reinterpret_cast<Function>(reinterpret_cast<void*>(found))(arguments...) : Result();
}

void FakeHost::Init(char* name, uint32_t size) {
  Call<uint32_t>("zqnPluginInit", 0u, 0u, name, size);
}

uint32_t FakeHost::Start(uint32_t handle) {
  return Start(handle, HostBlockOfReceiver().data());
}

uint32_t FakeHost::Start(uint32_t handle, const void* block) {
  const std::vector<HWND> before = TopWindows();
  const auto instance = Call<uint32_t>("zqnPluginStart", handle, 0u, &Callback, block);
  for (const HWND window : TopWindows()) {
    const bool isNew = std::find(before.begin(), before.end(), window) == before.end();
    if (isNew && TextOf(window) == "Marlux 3" && GetMenu(window)) windows_[handle] = window;
  }
  return instance;
}

void FakeHost::Notify(uint32_t handle, uint32_t code, const void* c, uint32_t a) {
  Call<void>("zqnPluginNotify", handle, code, a, 0u, c);
}

void FakeHost::Done() {
  Call<void>("zqnPluginDone");
}

uint32_t __stdcall FakeHost::Callback(uint32_t instance, uint32_t code, uint32_t a, uint32_t b, uint32_t c) {
  const bool isText = code == 0x4000 && c != 0;
  std::string text = isText ? reinterpret_cast<const char*>(c) : std::to_string(c);
  theHost->calls_.push_back({instance, code, a, b, std::move(text)});
  if (const auto found = theHost->during_.find(code); found != theHost->during_.end()) {
    const auto action = std::move(found->second);
    theHost->during_.erase(found);
    action();
  }
  return code == 0x4002 && a == 0x800 ? 6005000 : 0;
}

void FakeHost::During(uint32_t code, std::function<void()> action) {
  during_[code] = std::move(action);
}

HWND FakeHost::WindowOf(uint32_t handle) const {
  return windows_.contains(handle) ? windows_.at(handle) : nullptr;
}

void FakeHost::DispatchAll() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) hasSeenQuit_ = true;
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

void FakeHost::PumpFor(DWORD milliseconds) {
  static_cast<void>(PumpUntil([] { return false; }, milliseconds));
}

bool FakeHost::PumpUntil(const std::function<bool()>& condition, DWORD milliseconds) {
  const DWORD begin = GetTickCount();
  for (;;) {
    DispatchAll();
    if (condition()) return true;
    const DWORD passed = GetTickCount() - begin;
    if (passed >= milliseconds) return false;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, std::min<DWORD>(10, milliseconds - passed), QS_ALLINPUT);
  }
}

void FakeHost::When(std::function<bool()> condition, std::function<void()> action) {
  condition_ = std::move(condition);
  action_ = std::move(action);
  timerStart_ = GetTickCount();
  timer_ = SetTimer(nullptr, 0, 20, &Tick);
}

void CALLBACK FakeHost::Tick(HWND, UINT, UINT_PTR id, DWORD) {
  if (!theHost || id != theHost->timer_) return;
  const bool holds = theHost->condition_();
  if (!holds && GetTickCount() - theHost->timerStart_ < kLate) return;
  KillTimer(nullptr, std::exchange(theHost->timer_, 0));
  if (holds) {
    const auto action = std::move(theHost->action_);
    action();
    return;
  }
  theHost->wasLate_ = true;
  EndMenu();
  for (const HWND window : TopWindows()) PostMessageA(window, WM_CLOSE, 0, 0);
}

std::vector<HWND> FakeHost::TopWindows(const std::string& classPrefix) {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), &Collect, reinterpret_cast<LPARAM>(&windows));
  std::erase_if(windows, [&](HWND window) { return !ClassOf(window).starts_with(classPrefix); });
  return windows;
}

HWND FakeHost::Find(const std::string& caption, const std::string& classPrefix) {
  for (const HWND window : TopWindows(classPrefix)) {
    if (IsWindowVisible(window) && TextOf(window) == caption) return window;
  }
  return nullptr;
}
