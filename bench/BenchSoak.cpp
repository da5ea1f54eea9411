// A long time of everything at once: two instances, 192 kHz stereo, scheduled recordings in the first, the button's in
// the second, filters that change. Eight hours by the host's clock as fast as it goes, then minutes in real time. What
// the process holds is written down at equal steps and must not grow; each sample is the number of its frame, so that
// the recordings show whether one was lost. They are deleted as they come.

#include <windows.h>
// The process status header needs the one above first.
#include <psapi.h>

#include <filesystem>

#include "bench/Bench.h"
#include "foundation/TmyFile.h"
#include "tests/support/FakeHost.h"
#include "tests/support/FreshDocumentsFolder.h"
#include "tests/support/ModuleClock.h"
#include "tests/support/ProcessCounts.h"
#include "tests/support/Pump.h"

namespace {

using std::chrono::seconds;

constexpr uint32_t kRate = 192000, kBlocksPerSecond = 50, kFrames = kRate / kBlocksPerSecond;
constexpr uint32_t kHeader = 48;  // bytes in front of the samples of a file
constexpr uint32_t kScheduled = 7, kByButton = 8;
constexpr uint32_t kSteps = 16;
constexpr int64_t kGrowth = 10, kMenus = 40, kBlocks = 100;  // what may come and go; the USER objects are the desktop's
constexpr double kGrowthMegabytes = 4, kSlower = 1.5;

struct Task {  // a record of the task file
  uint64_t frequency;
  uint32_t mode, reserved;
  uint64_t from, to;  // 100 ns since 1601
  uint32_t start, stop, days, enabled;
};

struct Sample {
  ProcessCounts counts;
  double privateBytes, workingSet;  // MB
  double median, worst;             // ms that a notification took since the last one
};

// Wine does not tell it.
size_t PrivateBytes() {
  size_t sum = 0;
  MEMORY_BASIC_INFORMATION region;
  for (const char* at = nullptr; VirtualQuery(at, &region, sizeof region) != 0;) {
    if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) sum += region.RegionSize;
    at = static_cast<const char*>(region.BaseAddress) + region.RegionSize;
  }
  return sum;
}

class Soak {
 public:
  Soak(const ScheduleText& schedule, seconds taskLength) : taskLength_(taskLength) {
    WriteSchedule(documents_.DataFolder(), schedule.Given());
    times_.reserve(size_t{8} * 3600 / kSteps * kBlocksPerSecond + 1000);
    samples_.reserve(kSteps + 1);
    host_.Start(kByButton);
    WriteTasks();
    host_.Start(kScheduled);
    PumpFor(500);
    block_.resize(4 + kFrames * 2);  // behind the samples room for the count of values, which a recording takes twice
  }

  void Fast(seconds length) {
    ModuleClock::utc = std::chrono::sys_days(std::chrono::year(2026) / 3 / 2);
    if (!ModuleClock::Replace("marlux3.dll")) return;
    for (seconds at{0}; at < length; at += seconds(1), ModuleClock::utc += seconds(1)) {
      Second(at, length, [&] {
        for (uint32_t i = 0; i < kBlocksPerSecond; ++i) SendBlock();
        for (const uint32_t handle : {kScheduled, kByButton}) SendMessageA(host_.WindowOf(handle), WM_TIMER, 1, 0);
        if (at.count() % 5 == 0) PumpFor(0);
      });
    }
  }
  void Real(seconds length) {
    const double begin = Bench::Milliseconds();
    uint32_t blocks = 0;
    for (seconds at{0}; at < length; at += seconds(1)) {
      Second(at, length, [&] {
        for (uint32_t i = 0; i < kBlocksPerSecond; ++i) {
          const double wait = begin + ++blocks * 1000.0 / kBlocksPerSecond - Bench::Milliseconds();
          PumpFor(wait > 0 ? static_cast<DWORD>(wait) : 0);
          SendBlock();
        }
      });
    }
  }
  void Print(const char* title);

 private:
  template <class Work>
  void Second(seconds at, seconds length, Work work) {
    work();
    if (at.count() % 10 == 3) ChangeFilter(at.count() % 20 == 3 ? kScheduled : kByButton);
    if (at % (taskLength_ * 2) == seconds(5)) PressRecordOrStop(true);
    if (at % (taskLength_ * 2) == taskLength_ / 2) PressRecordOrStop(false);
    if (at.count() % 10 == 0) CheckFiles();
    if ((at + seconds(1)) % (length / kSteps) == seconds(0)) TakeSample();
    host_.Clear();
  }
  void WriteTasks();
  void SendBlock();
  void ChangeFilter(uint32_t handle);
  void PressRecordOrStop(bool record);
  void Click(uint32_t handle, int x, int y);
  void CheckFiles();
  bool IsSequence(std::FILE* file);
  void TakeSample();
  [[nodiscard]] bool IsFlat() const;

  const FreshDocumentsFolder documents_;
  FakeHost host_;
  const seconds taskLength_;
  std::vector<uint32_t> block_;
  uint32_t frame_ = 0;
  std::vector<double> times_;
  std::vector<Sample> samples_;
  uint32_t filterChanges_ = 0, files_ = 0, faults_ = 0;
  double seconds_ = 0;  // recorded
};

// One after the other, round the clock, with a second between them.
void Soak::WriteTasks() {
  TmyFile file((documents_.DataFolder() + "\\tasks.mxt").c_str(), GENERIC_WRITE, CREATE_ALWAYS);
  const auto length = static_cast<uint32_t>(taskLength_.count());
  for (uint32_t at = 0; at < 86400; at += length) {
    const Task task = {9420000, 1, 0, 0, UINT64_MAX, at, at + length - 2, 127, 1};
    file.Write(&task, sizeof task);
  }
}

void Soak::SendBlock() {
  const uint32_t header[] = {kRate, 0, 2, kFrames};
  std::copy_n(header, 4, block_.data());
  for (uint32_t i = 0; i < kFrames; ++i) block_[4 + i] = frame_++;
  for (const uint32_t handle : {kScheduled, kByButton}) {
    const double begin = Bench::Milliseconds();
    host_.Notify(handle, 0xE07, block_.data(), 3);
    if (handle == kScheduled) times_.push_back(Bench::Milliseconds() - begin);  // the other one records now and then
  }
}

// As the window is when it opens; a click that misses shows in the number of changes and recordings.
void Soak::Click(uint32_t handle, int x, int y) {
  const HWND window = host_.WindowOf(handle);
  POINT at = {x, y};
  const HWND child = ChildWindowFromPointEx(window, at, CWP_SKIPINVISIBLE);
  MapWindowPoints(window, child, &at, 1);
  for (const UINT message : {UINT{WM_LBUTTONDOWN}, UINT{WM_LBUTTONUP}})
    PostMessageA(child, message, 0, MAKELPARAM(at.x, at.y));
  PumpFor(0);
}

// The box of the frequency filter.
void Soak::ChangeFilter(uint32_t handle) {
  const std::string before = CountsOf(host_.WindowOf(handle));
  Click(handle, 330, 19);
  filterChanges_ += CountsOf(host_.WindowOf(handle)) != before;
}

void Soak::PressRecordOrStop(bool record) {
  RECT client;
  GetClientRect(host_.WindowOf(kByButton), &client);
  Click(kByButton, record ? 192 : 89, client.bottom - 23);
}

bool Soak::IsSequence(std::FILE* file) {
  static uint32_t values[1 << 18];
  uint32_t next = 0;
  bool isFirst = true, isWhole = true;
  while (const size_t count = std::fread(values, 4, std::size(values), file)) {
    if (isFirst) next = values[0];
    isFirst = false;
    for (size_t i = 0; i < count; ++i) isWhole = isWhole && values[i] == next++;
    seconds_ += static_cast<double>(count) / kRate;
  }
  return isWhole && !isFirst;
}

// Those that are closed: the header tells the size then.
void Soak::CheckFiles() {
  for (const auto& entry : std::filesystem::directory_iterator(documents_.DataFolder() + "\\Recordings")) {
    std::FILE* const file = _wfopen(entry.path().c_str(), L"rb");
    uint32_t header[kHeader / 4] = {};
    const bool isRead = file && std::fread(header, sizeof header, 1, file) == 1;
    const uint32_t told = header[11];
    if (isRead && told != 0) {
      const bool isWhole = IsSequence(file) && entry.file_size() == kHeader + told;
      ++files_;
      if (!isWhole) ++faults_, printf("not whole: %s\n", entry.path().string().c_str());
    }
    if (file) std::fclose(file);
    std::error_code isOpen;
    if (told != 0) std::filesystem::remove(entry.path(), isOpen);
  }
}

void Soak::TakeSample() {
  PROCESS_MEMORY_COUNTERS memory = {};
  memory.cb = sizeof memory;
  GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
  constexpr double kMegabyte = 1024.0 * 1024.0;
  std::ranges::sort(times_);
  samples_.push_back({ProcessCounts::Now(), static_cast<double>(PrivateBytes()) / kMegabyte,
                      static_cast<double>(memory.WorkingSetSize) / kMegabyte, times_[times_.size() / 2],
                      times_.back()});
  times_.clear();
}

// Since the second sample: the first steps make what is kept.
bool Soak::IsFlat() const {
  const Sample &first = samples_[1], &last = samples_.back();
  return last.counts.handles - first.counts.handles <= kGrowth &&
         last.counts.gdiObjects - first.counts.gdiObjects <= kGrowth &&
         last.counts.userObjects - first.counts.userObjects <= kMenus &&
         last.counts.heapBlocks - first.counts.heapBlocks <= kBlocks &&
         last.privateBytes - first.privateBytes <= kGrowthMegabytes &&
         last.workingSet - first.workingSet <= kGrowthMegabytes && last.median <= first.median * kSlower;
}

void Soak::Print(const char* title) {
  printf("%s\n", title);
  printf("  step  private MB  working set MB  handles  GDI  USER  heap blocks  heap KB  median us  worst ms\n");
  for (size_t i = 0; i < samples_.size(); ++i) {
    const Sample& sample = samples_[i];
    printf("  %4u %11.1f %15.1f %8lld %4lld %5lld %12lld %8lld %10.1f %9.2f\n", static_cast<unsigned>(i + 1),
           sample.privateBytes, sample.workingSet, sample.counts.handles, sample.counts.gdiObjects,
           sample.counts.userObjects, sample.counts.heapBlocks, sample.counts.heapBytes / 1024, sample.median * 1000,
           sample.worst);
  }
  printf("  %.0f s in %u recordings, %u of them faulty; %u filter changes; memory, handles, objects and median: %s\n",
         seconds_, files_, faults_, filterChanges_, samples_.size() > 1 && IsFlat() ? "flat" : "NOT FLAT");
}

}  // namespace

void BenchSoak(const ScheduleText& schedule, uint32_t minutes) {
  {
    Soak soak(schedule, seconds(300));
    soak.Fast(seconds(8 * 3600));
    soak.Print("8 hours of host time, sixteen steps");
  }
  Soak soak(schedule, seconds(60));
  soak.Real(seconds(minutes * 60));
  soak.Print("in real time, sixteen steps");
}
