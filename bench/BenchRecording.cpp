// Recording through the built module: what a block of audio costs the host's thread, beside an ordinary file that takes
// the same bytes, and the memory of a recording of an hour.

#include <windows.h>
// The process status header needs the one above first.
#include <psapi.h>

#include <array>
#include <cstring>
#include <string>

#include "bench/AllocationCount.h"
#include "bench/Bench.h"
#include "bench/HostedPlugin.h"
#include "bench/ScheduleText.h"
#include "tests/support/FreshDocumentsFolder.h"

namespace {

constexpr uint32_t kBlocksASecond = 50;  // of 20 ms
constexpr double kBlockMicroseconds = 1e6 / kBlocksASecond;
constexpr uint32_t kBlocks = 20 * kBlocksASecond;  // a recording that is timed
constexpr uint32_t kTurns = 9;
constexpr double kLeastRatio = 0.8;
constexpr double kMostOfRealTime = 1.0;  // per cent, of the format that has most to write
constexpr double kMostGrowth = 0.5;      // MB in an hour
constexpr uint32_t kHeaderBytes = 48;

struct Format {
  const char* name;
  uint32_t rate;
  uint32_t channels;
};

constexpr Format kFormats[] = {
    {"16 kHz mono", 16000, 1}, {"44.1 kHz mono", 44100, 1}, {"48 kHz stereo", 48000, 2}, {"192 kHz stereo", 192000, 2}};

// 20 ms as a host gives them: the values of all channels are counted, and the module takes channels x count x 2 bytes.
class HostBlock {
 public:
  HostBlock(const Format& format, uint32_t kind)
      : kind_(kind),
        bytes_(format.channels * format.channels * (format.rate / kBlocksASecond) * 2),
        words_(4 + std::max(bytes_ / 4, ValuesOf(format))) {
    const std::array<uint32_t, 4> header = {format.rate, 0, format.channels, ValuesOf(format)};
    std::copy(header.begin(), header.end(), words_.begin());
    for (uint32_t i = 4; i < words_.size(); ++i) {
      const float value = static_cast<float>(i % 2000) / 1000.0F - 1.0F;
      std::memcpy(&words_[i], &value, sizeof value);
    }
  }
  [[nodiscard]] uint32_t Kind() const noexcept { return kind_; }
  [[nodiscard]] const void* Data() const noexcept { return words_.data(); }
  [[nodiscard]] const void* Samples() const noexcept { return &words_[4]; }
  [[nodiscard]] uint32_t Bytes() const noexcept { return bytes_; }  // that reach the file

 private:
  static uint32_t ValuesOf(const Format& format) noexcept { return format.channels * (format.rate / kBlocksASecond); }

  uint32_t kind_;
  uint32_t bytes_;
  std::vector<uint32_t> words_;
};

BOOL CALLBACK FindPanel(HWND window, LPARAM found) {
  char caption[64];
  GetWindowTextA(window, caption, sizeof caption);
  if (std::string(caption) != "00:00:00 / 00:00:00") return TRUE;  // it tells the time
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

uint64_t SizeOf(const WIN32_FIND_DATAA& file) noexcept {
  return uint64_t{file.nFileSizeHigh} << 32 | file.nFileSizeLow;
}

// The plug-in, started and recording from the construction to Finish. A fresh one has only its record button enabled of
// those that Tab comes to first.
class Recording {
 public:
  Recording(const HostedPlugin& plugin, std::string folder) : plugin_(plugin), folder_(std::move(folder)) {
    HWND panel = nullptr;
    if (plugin_.Start() != 0) EnumChildWindows(HostedPlugin::Window(), FindPanel, reinterpret_cast<LPARAM>(&panel));
    for (uint32_t i = 0; panel && GetFocus() != panel && i < 100; ++i) Press(VK_TAB);
    Press(VK_SPACE);
  }

  // The file is whole when it returns.
  static void Stop() { Press(VK_SPACE); }  // the keyboard has gone to that button by itself
  // Sees to it that the disk has what the system has taken.
  void Flush() const {
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((folder_ + "\\*.wav").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    FindClose(search);
    const HANDLE file = CreateFileA((folder_ + "\\" + found.cFileName).c_str(), GENERIC_WRITE, 0, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    FlushFileBuffers(file);
    CloseHandle(file);
  }
  // Closes the plug-in and takes the file away; whether it held so many bytes of samples.
  [[nodiscard]] bool Finish(uint64_t bytes) const {
    plugin_.Close();
    DispatchWaiting();
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((folder_ + "\\*.wav").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
      printf("nothing was recorded\n");
      return false;
    }
    FindClose(search);
    const bool whole = SizeOf(found) == bytes + kHeaderBytes;
    if (!whole) printf("the recording has %.0f bytes\n", static_cast<double>(SizeOf(found)));
    return DeleteFileA((folder_ + "\\" + found.cFileName).c_str()) && whole;
  }

 private:
  static void Press(WPARAM key) {
    SendMessageA(GetFocus(), WM_KEYDOWN, key, 0);
    SendMessageA(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    DispatchWaiting();
  }

  const HostedPlugin& plugin_;
  std::string folder_;
};

struct Subject {
  const HostedPlugin& plugin;
  std::string folder;     // of recordings
  std::string plainFile;  // beside it
};

struct Blocks {
  std::vector<double> microseconds;
  uint32_t mostAllocations = 0;  // of a block
  uint32_t allocating = 0;       // blocks that allocated

  void Add(double time, uint32_t calls, bool mayAllocate) {
    microseconds.push_back(time);
    if (mayAllocate || calls == 0) return;
    ++allocating;
    mostAllocations = std::max(mostAllocations, calls);
  }
};

// What the window has to paint is painted between the blocks, as in a host, and not counted. The first block of floats
// may take the memory that those behind it use.
double RecordTimed(const Subject& subject, const HostBlock& block, Blocks& blocks) {
  double sum = 0;
  for (uint32_t i = 0; i < kBlocks; ++i) {
    const uint32_t calls = AllocationCount::calls;
    const double start = Bench::Milliseconds();
    subject.plugin.Audio(block.Kind(), block.Data());
    const double time = (Bench::Milliseconds() - start) * 1000;
    blocks.Add(time, AllocationCount::calls - calls, i == 0 && block.Kind() == HostNotification::kAudioFloat);
    sum += time;
    if (i % 5 == 0) DispatchWaiting();
  }
  return sum;
}

HANDLE OpenPlain(const Subject& subject) {
  return CreateFileA(subject.plainFile.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                     nullptr);
}

double WritePlain(const Subject& subject, const HostBlock& block) {
  const HANDLE file = OpenPlain(subject);
  double sum = 0;
  for (uint32_t i = 0; i < kBlocks; ++i) {
    DWORD written = 0;
    const double start = Bench::Milliseconds();
    WriteFile(file, block.Samples(), block.Bytes(), &written, nullptr);
    sum += (Bench::Milliseconds() - start) * 1000;
    if (i % 5 == 0) DispatchWaiting();
  }
  CloseHandle(file);
  DeleteFileA(subject.plainFile.c_str());
  return sum;
}

double Percentile(std::vector<double> figures, uint32_t percent) {
  const auto at = figures.begin() + static_cast<ptrdiff_t>(figures.size() * percent / 100);
  std::nth_element(figures.begin(), at, figures.end());
  return *at;
}

void PrintBlocks(const std::string& name, const Blocks& blocks) {
  const double worst = *std::max_element(blocks.microseconds.begin(), blocks.microseconds.end());
  const double median = Bench::Median(blocks.microseconds);
  printf("%-24s median %7.1f us, 99 %% %7.1f us, worst %8.1f us, %5.2f %% of real time (aim %.0f: %s)\n", name.c_str(),
         median, Percentile(blocks.microseconds, 99), worst, median * 100 / kBlockMicroseconds, kMostOfRealTime,
         Bench::Verdict(median * 100 / kBlockMicroseconds, kMostOfRealTime));
  printf("%-24s %u of %u blocks allocate, at most %u times (aim 0: %s)\n", "", blocks.allocating,
         static_cast<uint32_t>(blocks.microseconds.size()), blocks.mostAllocations,
         Bench::Verdict(blocks.mostAllocations, 0));
}

void PrintSustained(const char* name, uint32_t bytes, uint32_t blocks, const std::vector<double>& recorded,
                    const std::vector<double>& plain) {
  std::vector<double> ratios;
  for (uint32_t i = 0; i < recorded.size(); ++i) ratios.push_back(plain[i] / recorded[i]);
  const double all = static_cast<double>(bytes) * blocks;  // a microsecond is 1/1,000,000, as is a megabyte
  const double ratio = Bench::Median(ratios);
  printf("%-24s %7.1f MB/s, plain file %7.1f MB/s, ratio %.2f (aim %.1f: %s)\n", name, all / Bench::Median(recorded),
         all / Bench::Median(plain), ratio, kLeastRatio, ratio >= kLeastRatio ? "ok" : "missed");
}

void BenchFormat(const Subject& subject, const Format& format, uint32_t kind) {
  const HostBlock block(format, kind);
  Blocks blocks;
  std::vector<double> recorded;
  std::vector<double> plain;
  for (uint32_t turn = 0; turn < kTurns; ++turn) {
    const Recording recording(subject.plugin, subject.folder);
    recorded.push_back(RecordTimed(subject, block, blocks));
    Recording::Stop();
    if (!recording.Finish(uint64_t{block.Bytes()} * kBlocks)) return;
    plain.push_back(WritePlain(subject, block));
  }
  PrintBlocks(std::string(format.name) + (kind == HostNotification::kAudioFloat ? ", float" : ", 16-bit"), blocks);
  PrintSustained("  into the cache", block.Bytes(), kBlocks, recorded, plain);
}

// From the first block until the disk has all of them: three minutes of the format that has most to write.
void BenchToDisk(const Subject& subject) {
  constexpr uint32_t kLong = 180 * kBlocksASecond;
  const HostBlock block(kFormats[3], HostNotification::kAudioPcm16);
  std::vector<double> recorded;
  std::vector<double> plain;
  for (uint32_t turn = 0; turn < 5; ++turn) {
    const Recording recording(subject.plugin, subject.folder);
    double start = Bench::Milliseconds();
    for (uint32_t i = 0; i < kLong; ++i) subject.plugin.Audio(block.Kind(), block.Data());
    Recording::Stop();
    recording.Flush();
    recorded.push_back((Bench::Milliseconds() - start) * 1000);
    if (!recording.Finish(uint64_t{block.Bytes()} * kLong)) return;
    const HANDLE file = OpenPlain(subject);
    start = Bench::Milliseconds();
    for (uint32_t i = 0; i < kLong; ++i) {
      DWORD written = 0;
      WriteFile(file, block.Samples(), block.Bytes(), &written, nullptr);
    }
    FlushFileBuffers(file);
    plain.push_back((Bench::Milliseconds() - start) * 1000);
    CloseHandle(file);
    DeleteFileA(subject.plainFile.c_str());
  }
  PrintSustained("192 kHz, to the disk", block.Bytes(), kLong, recorded, plain);
}

// Pages that are the process's own: its heap, stacks, and what modules and the C library keep.
double PrivateMegabytes() {
  SIZE_T bytes = 0;
  MEMORY_BASIC_INFORMATION pages;
  const uint8_t* at = nullptr;
  while (VirtualQuery(at, &pages, sizeof pages) == sizeof pages) {
    if (pages.State == MEM_COMMIT && pages.Type == MEM_PRIVATE) bytes += pages.RegionSize;
    const auto next = reinterpret_cast<uintptr_t>(pages.BaseAddress) + pages.RegionSize;
    if (next <= reinterpret_cast<uintptr_t>(at)) break;  // the end of the address space
    at = reinterpret_cast<const uint8_t*>(next);
  }
  return static_cast<double>(bytes) / (1024.0 * 1024.0);
}

// Of this process, in MB.
double PrintMemory(uint32_t minute) {
  PROCESS_MEMORY_COUNTERS counters = {};
  counters.cb = sizeof counters;
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  const double held = PrivateMegabytes();
  printf("minute %2u of a recording: working set %.2f MB, private %.2f MB\n", minute,
         static_cast<double>(counters.WorkingSetSize) / (1024.0 * 1024.0), held);
  return held;
}

void BenchHour(const Subject& subject) {
  const HostBlock block(kFormats[2], HostNotification::kAudioPcm16);
  const Recording recording(subject.plugin, subject.folder);
  const double start = Bench::Milliseconds();
  double first = 0, last = 0;
  for (uint32_t minute = 1; minute <= 60; ++minute) {
    for (uint32_t i = 0; i < 60 * kBlocksASecond; ++i) {
      subject.plugin.Audio(block.Kind(), block.Data());
      if (i % kBlocksASecond == 0) DispatchWaiting();
    }
    if (minute == 1) first = PrintMemory(minute);
    if (minute == 30 || minute == 60) last = PrintMemory(minute);
  }
  const double seconds = (Bench::Milliseconds() - start) / 1000;
  printf("more private memory at the end than after a minute: %.2f MB  (aim %.1f: %s)\n", last - first, kMostGrowth,
         Bench::Verdict(last - first, kMostGrowth));
  const uint64_t bytes = uint64_t{block.Bytes()} * kBlocksASecond * 3600;
  Recording::Stop();
  const bool whole = recording.Finish(bytes);
  printf("an hour of 48 kHz stereo, 16-bit: %.0f MB in %.1f s, %s\n", static_cast<double>(bytes) / 1e6, seconds,
         whole ? "whole" : "not whole");
}

}  // namespace

void BenchRecording(const ScheduleText& schedule) {
  const FreshDocumentsFolder documents;
  WriteSchedule(documents.DataFolder(), schedule.Given());  // without one the window asks whether to download
  const HostedPlugin plugin;
  if (!plugin.IsLoaded()) {
    printf("no marlux3.dll beside this program\n");
    return;
  }
  if (!AllocationCount::Install(plugin.Module())) {
    printf("the module's allocations cannot be counted\n");
    return;
  }
  const Subject subject = {plugin, documents.DataFolder() + "\\Recordings", documents.Path() + "\\plain"};
  for (const Format& format : kFormats) {
    BenchFormat(subject, format, HostNotification::kAudioPcm16);
    BenchFormat(subject, format, HostNotification::kAudioFloat);
  }
  BenchToDisk(subject);
  BenchHour(subject);
}
