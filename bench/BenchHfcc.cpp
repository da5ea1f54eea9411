// Reading an HFCC season archive, whole and part by part.

#include <filesystem>
#include <string>

#include "bench/Bench.h"
#include "schedule/CGZip.h"
#include "schedule/HfccDatabase.h"

namespace {

constexpr uint32_t kRuns = 51;
constexpr double kLoadAim = 3.0;
constexpr uint32_t kScheduleStarts[kHfccColumns] = {0,  6,   11,  16,  47,  52,  56,  64,  72,  80,  87, 94,
                                                    96, 102, 113, 117, 121, 125, 131, 133, 139, 145, 151};

std::string FirstArchive(const char* folder) {
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".zip") return entry.path().string();
  }
  return {};
}

// Every member, or those that a load reads.
void InflateMembers(const std::string& path, bool all) {
  zlib::CGZip archive;
  if (!archive.Open(path.c_str())) return;
  for (int32_t i = 0, count = archive.GetCount(); i < count; ++i) {
    const char* data = nullptr;
    char name[260];
    if (!archive.GetFile(i, nullptr, nullptr, nullptr, name, sizeof name)) continue;
    const bool isOther = std::string_view(name) == "antenna.txt" || std::string_view(name) == "language.txt";
    if (all || !isOther) (void)archive.GetFile(i, &data, nullptr, nullptr, nullptr, 0);
  }
}

// The text of the largest table that a load reads.
std::string ScheduleText(const std::string& path) {
  zlib::CGZip archive;
  if (!archive.Open(path.c_str())) return {};
  const std::string season = std::filesystem::path(path).filename().string().substr(0, 6);
  for (int32_t i = 0, count = archive.GetCount(); i < count; ++i) {
    const char* data = nullptr;
    uint32_t size = 0;
    char name[260];
    if (!archive.GetFile(i, &data, &size, nullptr, name, sizeof name)) continue;
    if (_strnicmp(name, season.c_str(), season.size()) == 0) return {data, size};
  }
  return {};
}

}  // namespace

void BenchHfcc(const char* dataFolder) {
  const std::string path = FirstArchive(dataFolder);
  if (path.empty()) {
    printf("no HFCC archive in %s\n", dataFolder);
    return;
  }
  HfccDatabase database;
  std::vector<double> loads, inflates, inflatesOfRead, tables, items;
  const std::string schedule = ScheduleText(path);
  ColumnTable table;
  // By turns, so that a busy moment of the machine meets all of them.
  for (uint32_t run = 0; run < kRuns; ++run) {
    const auto time = [](auto what) {
      return Bench::MedianMs(
          1, [] {}, what);
    };
    loads.push_back(time([&] { database.LoadHfcc(path.c_str()); }));
    inflates.push_back(time([&] { InflateMembers(path, true); }));
    inflatesOfRead.push_back(time([&] { InflateMembers(path, false); }));
    tables.push_back(time([&] {
      table.Load(schedule.data(), static_cast<uint32_t>(schedule.size()), kScheduleStarts, kHfccColumns, 0, false);
    }));
    std::vector<FccItem> records(table.Rows());
    items.push_back(time([&] {
      for (uint32_t row = 0; row < table.Rows(); ++row) records[row].SetCells(table.Row(row));
    }));
  }
  const uint32_t rows = database.Items().Count();
  Bench::PrintMs("HFCC load", rows, Bench::Median(loads));
  Bench::PrintMs("  inflate all members", rows, Bench::Median(inflates));
  Bench::PrintMs("  inflate the members that are read", rows, Bench::Median(inflatesOfRead));
  Bench::PrintMs("  cut the schedule into cells", rows, Bench::Median(tables));
  Bench::PrintMs("  records from cells, codes aside", rows, Bench::Median(items));
  Bench::PrintRatio("HFCC load / inflate all", rows, Bench::Median(loads) / Bench::Median(inflates), kLoadAim);
  Bench::PrintRatio("HFCC load / inflate what is read", rows, Bench::Median(loads) / Bench::Median(inflatesOfRead),
                    kLoadAim);
}
