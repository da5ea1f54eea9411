// The built module as a host has it: from its start to the first picture of its window, and the memory that it takes.

#include <windows.h>
// The process status header needs the one above first.
#include <psapi.h>

#include <string>

#include "bench/Bench.h"
#include "bench/HostedPlugin.h"
#include "tests/support/FreshDocumentsFolder.h"

namespace {

constexpr uint32_t kLaterRuns = 9;

// What is invalid in the plug-in's window and its children; false without such a window.
bool PaintPlugin() {
  const HWND window = HostedPlugin::Window();
  return window && RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
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

bool StartOnce(const HostedPlugin& plugin, StartTimes& times) {
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
void BenchOn(const HostedPlugin& plugin, const FreshDocumentsFolder& documents, const std::string& text,
             double before) {
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
  const HostedPlugin plugin;
  if (!plugin.IsLoaded()) {
    printf("no marlux3.dll beside this program\n");
    return;
  }
  BenchOn(plugin, documents, schedule.Given(), before);
  BenchOn(plugin, documents, schedule.Largest(), before);
}
