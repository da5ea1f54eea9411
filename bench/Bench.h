// Marlux 3. What measured runs share: timing and one line of output a figure.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <utility>
#include <vector>

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

// A figure that has an aim: the text says at once whether it is met.
inline void PrintRatio(const char* what, uint32_t rows, double ratio, double aim) {
  printf("%-44s %7u rows %10.2f x   (aim %.1f: %s)\n", what, rows, ratio, aim, ratio <= aim ? "met" : "MISSED");
}

}  // namespace Bench

// One function a subject; each takes the folder that holds the schedules.
void BenchSchedule(const char* dataFolder);
void BenchHfcc(const char* dataFolder);
