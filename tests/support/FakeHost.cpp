#include "tests/support/FakeHost.h"

#include <algorithm>
#include <utility>

namespace {

constexpr DWORD kLate = 5000;  // ms
FakeHost* theHost = nullptr;   // the callback carries no data of the host's own

BOOL CALLBACK Collect(HWND window, LPARAM to) {
  reinterpret_cast<std::vector<HWND>*>(to)->push_back(window);
  return TRUE;
}

}  // namespace

std::string TextOf(HWND window) {
  char text[256] = "";
  GetWindowTextA(window, text, sizeof text);
  return text;
}

std::string CountsOf(HWND window) {
  for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (TextOf(child).find(" broadcast") != std::string::npos) return TextOf(child);
  }
  return "";
}

std::vector<uint32_t> HostBlockOfReceiver() {
  std::vector<uint32_t> block((400 + 2 * 28) / 4);
  const auto base = reinterpret_cast<uint32_t>(block.data());
  block[0] = static_cast<uint32_t>(block.size() * 4);
  block[76 / 4] = 0x3231;  // the digits "12"
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

bool FakeHost::Load() {
  if (!module_) module_ = LoadLibraryA(modulePath_.c_str());
  return module_ != nullptr;
}

void FakeHost::Unload() {
  if (module_) FreeLibrary(std::exchange(module_, nullptr));
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

uint32_t __stdcall FakeHost::Callback(uint32_t instance, uint32_t code, uint32_t a, uint32_t b, uint32_t c) {
  const bool isText = code == 0x4000 && c != 0;
  theHost->calls_.push_back({instance, code, a, b, isText ? reinterpret_cast<const char*>(c) : std::to_string(c)});
  if (const auto action = theHost->during_.extract(code)) action.mapped()();
  return code == 0x4002 && a == 0x800 ? 6005000 : 0;
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
  std::erase_if(windows, [&](HWND window) {
    char name[64] = "";
    GetClassNameA(window, name, sizeof name);
    return !std::string_view(name).starts_with(classPrefix);
  });
  return windows;
}

HWND FakeHost::Find(const std::string& caption, const std::string& classPrefix) {
  for (const HWND window : TopWindows(classPrefix)) {
    if (IsWindowVisible(window) && TextOf(window) == caption) return window;
  }
  return nullptr;
}
