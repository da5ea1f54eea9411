// The built module as a host has it: from its start to the first picture of its window, and the memory that it takes.

#include <windows.h>
// The process status header needs the one above first.
#include <psapi.h>

#include <memory>
#include <string>

#include "bench/Bench.h"
#include "plugin/HostLink.h"
#include "tests/support/FreshDocumentsFolder.h"

namespace {

constexpr uint32_t kHostHandle = 1;
constexpr uint32_t kLaterRuns = 9;

uint32_t __stdcall AnswerNothing(uint32_t, uint32_t, uint32_t, uint32_t, uint32_t) {
  return 0;
}

struct FreeModule {
  void operator()(HMODULE module) const noexcept { FreeLibrary(module); }
};

// The module that lies beside this program, through its exports.
class Plugin {
 public:
  Plugin() : module_(LoadLibraryA(BesideUs("marlux3.dll").c_str())) {
    Find(init_, "zqnPluginInit");
    Find(start_, "zqnPluginStart");
    Find(notify_, "zqnPluginNotify");
    Find(done_, "zqnPluginDone");
    char name[64];
    if (IsLoaded()) init_(0, 0, name, sizeof name);
  }
  ~Plugin() {
    if (IsLoaded()) done_();
  }
  Plugin(const Plugin&) = delete;
  Plugin& operator=(const Plugin&) = delete;

  [[nodiscard]] bool IsLoaded() const noexcept { return init_ && start_ && notify_ && done_; }
  // 0 when it did not start.
  [[nodiscard]] uint32_t Start() const { return start_(kHostHandle, 0, &AnswerNothing, nullptr); }
  void Close() const { notify_(kHostHandle, HostNotification::kClose, 0, 0, 0); }

 private:
  static std::string BesideUs(const char* name) {
    char path[MAX_PATH];
    const std::string program(path, GetModuleFileNameA(nullptr, path, sizeof path));
    return program.substr(0, program.rfind('\\') + 1) + name;
  }
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

BOOL CALLBACK PaintOne(HWND window, LPARAM painted) {
  char caption[64];
  GetWindowTextA(window, caption, sizeof caption);
  if (!IsWindowVisible(window) || std::string(caption) != kProductCaption) return TRUE;
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  *reinterpret_cast<bool*>(painted) = true;
  return FALSE;
}

// What is invalid in the plug-in's window and its children; false without such a window.
bool PaintPlugin() {
  bool painted = false;
  EnumThreadWindows(GetCurrentThreadId(), PaintOne, reinterpret_cast<LPARAM>(&painted));
  return painted;
}

void DispatchWaiting() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
}

double WorkingSet() {
  PROCESS_MEMORY_COUNTERS counters = {};
  counters.cb = sizeof counters;
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return static_cast<double>(counters.WorkingSetSize) / (1024.0 * 1024.0);
}

struct StartTimes {
  double returned = 0;   // milliseconds to the end of the start call
  double painted = 0;    // to the end of the first picture
  double megabytes = 0;  // working set of the process with the window open
};

bool StartOnce(const Plugin& plugin, StartTimes& times) {
  const double begin = Bench::Milliseconds();
  if (plugin.Start() == 0) return false;
  times.returned = Bench::Milliseconds() - begin;
  if (!PaintPlugin()) return false;
  times.painted = Bench::Milliseconds() - begin;
  DispatchWaiting();
  times.megabytes = WorkingSet();
  plugin.Close();
  DispatchWaiting();
  return true;
}

uint32_t RowsOf(const std::string& text) {
  const auto lines = static_cast<uint32_t>(std::count(text.begin(), text.end(), '\n'));
  return std::min(lines, ScheduleText::kMaximumLines) - ScheduleText::kHeaderLines;
}

// The first start in a process also makes what all windows share, such as fonts.
void BenchOn(const Plugin& plugin, const FreshDocumentsFolder& documents, const std::string& text, double before) {
  WriteSchedule(documents.DataFolder(), text);
  const uint32_t rows = RowsOf(text);
  StartTimes first;
  if (!StartOnce(plugin, first)) {
    printf("the plug-in did not start\n");
    return;
  }
  std::vector<double> returned;
  std::vector<double> painted;
  for (uint32_t run = 0; run < kLaterRuns; ++run) {
    StartTimes times;
    if (!StartOnce(plugin, times)) return;
    returned.push_back(times.returned);
    painted.push_back(times.painted);
  }
  Bench::PrintMs("start to painted grid, first time", rows, first.painted);
  Bench::PrintMs("start to painted grid, later", rows, Bench::Median(painted));
  Bench::PrintMs("  of which the start call", rows, Bench::Median(returned));
  Bench::PrintMegabytes("working set of the process after load", rows, first.megabytes);
  Bench::PrintMegabytes("  more than before the module was loaded", rows, first.megabytes - before);
}

}  // namespace

void BenchStart(const ScheduleText& schedule) {
  const FreshDocumentsFolder documents;
  const double before = WorkingSet();
  const Plugin plugin;
  if (!plugin.IsLoaded()) {
    printf("no marlux3.dll beside this program\n");
    return;
  }
  BenchOn(plugin, documents, schedule.Given(), before);
  BenchOn(plugin, documents, schedule.Largest(), before);
}
