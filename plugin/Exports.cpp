// Marlux 3. The four functions by which a host drives the plug-in, and what happens when it loads and unloads us.
//
// Each one first gives back the references that nested message loops took of the module: a host that calls in holds a
// reference of its own, so this cannot unload the code that runs.
#include <windows.h>

#include <cstring>
#include <new>

#include "app/TmxWindow.h"
#include "foundation/Trace.h"
#include "plugin/ExceptionFrames.h"
#include "plugin/HostInfo.h"
#include "plugin/HostLink.h"
#include "plugin/InstanceList.h"
#include "toolkit/ModulePin.h"
#include "toolkit/TmyApplication.h"

// Fills the buffer as strncpy does: zeros behind a shorter text, no terminator in a buffer that is too short.
extern "C" uint32_t __stdcall zqnPluginInit(uint32_t, uint32_t, char* name, uint32_t nameSize) {
  ModulePin::ReleaseUnused();
  if (!name) return 1;
  const size_t length = sizeof(kProductCaption) - 1;
  const size_t copied = nameSize < length ? nameSize : length;
  std::memcpy(name, kProductCaption, copied);
  std::memset(name + copied, 0, nameSize - copied);
  return 1;
}

// Returns the instance, which is also the first argument of every later call to the host; 0 when there is no memory or
// no window for it.
extern "C" uint32_t __stdcall zqnPluginStart(uint32_t hostHandle, uint32_t, HostCallback callback,
                                             const void* hostInfo) {
  ModulePin::ReleaseUnused();
  try {
    const TmyWindowBase::Hold hold;  // the window may be closed while it starts
    auto* window = new (std::nothrow) TmxWindow(HostInfo::Copy(hostInfo));
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): one that was closed meanwhile goes with the hold
    if (!window || !window->IsAlive()) return 0;
    return window->Start(hostHandle, callback);
  } catch (const std::bad_alloc&) {  // nothing of ours may be thrown into a host
    return 0;
  }
}

extern "C" void __stdcall zqnPluginNotify(uint32_t hostHandle, uint32_t code, uint32_t a, uint32_t b, uint32_t c) {
  ModulePin::ReleaseUnused();
  try {
    Instances().Notify(hostHandle, code, a, b, c);
  } catch (const std::bad_alloc&) {
    Trace::Line("No memory for notification %x", code);
  }
}

extern "C" void __stdcall zqnPluginDone() {
  ModulePin::ReleaseUnused();
}

namespace {

// The runtime takes memory of its own for a thread's first exception and does not look whether it got any: that must
// not be when memory is short.
void PrepareExceptions() noexcept {
  try {
    throw std::bad_alloc();
  } catch (const std::bad_alloc&) {
  }
}

}  // namespace

// At the end of the whole process (`reserved` set) the system has taken the windows already.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void* reserved) {
  if (reason == DLL_PROCESS_ATTACH) {
    RegisterExceptionFrames();
    PrepareExceptions();
  }
  if (reason == DLL_PROCESS_DETACH && !reserved) {
    ModulePin::ModuleGoes();
    TmyApplication::Shutdown();
    ForgetExceptionFrames();
  }
  return TRUE;
}
