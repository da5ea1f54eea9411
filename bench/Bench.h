// Marlux 3. What measured runs share: timing and one line of output a figure.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <utility>
#include <vector>

#include "bench/ScheduleText.h"

namespace Bench {

[[nodiscard]] inline double Milliseconds() noexcept {
  LARGE_INTEGER now;
  LARGE_INTEGER frequency;
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&frequency);
  return static_cast<double>(now.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

[[nodiscard]] inline double Median(std::vector<double> figures) {
  const auto middle = figures.begin() + static_cast<ptrdiff_t>(figures.size() / 2);
  std::nth_element(figures.begin(), middle, figures.end());
  return *middle;
}

// The median of so many runs in milliseconds; `prepare` runs before each of them and is not counted.
template <class Prepare, class Run>
[[nodiscard]] double MedianMs(uint32_t runs, Prepare prepare, Run run) {
  std::vector<double> times;
  for (uint32_t i = 0; i < runs; ++i) {
    prepare();
    const double start = Milliseconds();
    run();
    times.push_back(Milliseconds() - start);
  }
  return Median(std::move(times));
}

inline void PrintMs(const char* what, uint32_t rows, double milliseconds) {
  printf("%-44s %7u rows %10.3f ms\n", what, rows, milliseconds);
}

// Figures that have an aim: the text says at once whether it is met.
inline const char* Verdict(double figure, double aim) {
  return figure <= aim ? "ok" : "missed";
}

inline void PrintRatio(const char* what, uint32_t rows, double ratio, double aim) {
  printf("%-44s %7u rows %10.2f x   (aim %.1f: %s)\n", what, rows, ratio, aim, Verdict(ratio, aim));
}

inline void PrintMs(const char* what, uint32_t rows, double milliseconds, double aim) {
  printf("%-44s %7u rows %10.3f ms  (aim %.1f: %s)\n", what, rows, milliseconds, aim, Verdict(milliseconds, aim));
}

inline void PrintMegabytes(const char* what, uint32_t rows, double megabytes) {
  printf("%-44s %7u rows %10.1f MB\n", what, rows, megabytes);
}

}  // namespace Bench

// One function a subject; each takes the text of an eibi.txt and its repetition to the most lines that are read.
void BenchStart(const ScheduleText& schedule);
void BenchWindow(const ScheduleText& schedule);
void BenchSchedule(const ScheduleText& schedule);
void BenchTasks(const ScheduleText& schedule);
void BenchRecording(const ScheduleText& schedule);
// In fast motion first, then so many minutes in real time.
void BenchSoak(const ScheduleText& schedule, uint32_t minutes);
// This one takes the folder that holds the archives.
void BenchHfcc(const char* dataFolder);
// This one the port of a web server on this machine and the time that curl takes for the same body.
void BenchDownload(uint16_t serverPort, double curlMs);
