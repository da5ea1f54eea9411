#include "bench/HostedPlugin.h"

#include <string>

namespace {

uint32_t __stdcall AnswerNothing(uint32_t, uint32_t, uint32_t, uint32_t, uint32_t) {
  return 0;
}

std::string BesideUs(const char* name) {
  char path[MAX_PATH];
  const std::string program(path, GetModuleFileNameA(nullptr, path, sizeof path));
  return program.substr(0, program.rfind('\\') + 1) + name;
}

BOOL CALLBACK FindShown(HWND window, LPARAM found) {
  char caption[64];
  GetWindowTextA(window, caption, sizeof caption);
  if (!IsWindowVisible(window) || std::string(caption) != kProductCaption) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

}  // namespace

HostedPlugin::HostedPlugin() : module_(LoadLibraryA(BesideUs("marlux3.dll").c_str())) {
  Find(init_, "zqnPluginInit");
  Find(start_, "zqnPluginStart");
  Find(notify_, "zqnPluginNotify");
  Find(done_, "zqnPluginDone");
  if (!IsLoaded()) return;
  char name[64];
  init_(0, 0, name, sizeof name);
}

HostedPlugin::~HostedPlugin() {
  if (IsLoaded()) done_();
}

uint32_t HostedPlugin::Start() const {
  return start_(kHandle, 0, &AnswerNothing, nullptr);
}

void HostedPlugin::Close() const {
  notify_(kHandle, HostNotification::kClose, 0, 0, 0);
}

HWND HostedPlugin::Window() {
  HWND window = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), FindShown, reinterpret_cast<LPARAM>(&window));
  return window;
}

void DispatchWaiting() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
}
