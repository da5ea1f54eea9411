// Reading an HFCC season archive, whole and part by part; filtering and sorting its records; what they need of memory.

#include <windows.h>

#include <psapi.h>

#include <filesystem>
#include <random>
#include <string>

#include "app/FccColumns.h"
#include "app/FccFilter.h"
#include "bench/AllocationCount.h"
#include "bench/Bench.h"
#include "schedule/CGZip.h"
#include "schedule/HfccDatabase.h"

namespace {

constexpr uint32_t kRuns = 51;
constexpr double kLoadAim = 3.0;
constexpr double kSortAim = 1.5;
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

double WorkingSet() {  // in megabytes
  PROCESS_MEMORY_COUNTERS counters = {};
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return static_cast<double>(counters.WorkingSetSize) / (1024.0 * 1024.0);
}

// Of many, for the heap fills a single one into what unzipping has left.
void BenchMemory(const std::string& path) {
  constexpr uint32_t kDatabases = 32;
  std::vector<HfccDatabase> databases(kDatabases);
  databases[0].LoadHfcc(path.c_str());
  const double before = WorkingSet();
  for (HfccDatabase& database : databases) database.LoadHfcc(path.c_str());
  const uint32_t rows = databases[0].Items().Count();
  Bench::PrintMegabytes("HFCC memory of a database", rows, (WorkingSet() - before) / (kDatabases - 1));
}

void BenchFilter(const char* what, const HfccDatabase& database, const FilterChoices& choices) {
  const FilterRecord filter = BuildFilterRecord(choices);
  TmyList passing;
  const double time = Bench::MedianMs(
      kRuns, [] {}, [&] { FilterFcc(database.Items(), filter, passing); });
  Bench::PrintMs(what, database.Items().Count(), time);
}

void BenchFilters(const HfccDatabase& database) {
  FilterChoices choices;
  BenchFilter("HFCC filter pass, nothing on", database, choices);
  choices.texts[2] = "BBC";
  BenchFilter("HFCC filter pass, broadcaster only", database, choices);
  choices.frequencyOn = choices.timeOn = true;
  choices.frequencies = {5900000, 15800000};
  choices.from = 3600;
  choices.to = 80000;
  choices.texts = {"G", "WOF", "BBC", "28"};
  BenchFilter("HFCC filter pass, all six on", database, choices);
}

using Rows = std::vector<void*>;

// Our sort beside the library's, on the same pointers with the same test, by turns. Returns the ratio.
double CompareSorts(const char* shape, const HfccDatabase& database, const FccColumn& column, const Rows& rows) {
  const FccGreater greater(database, column, ShownZone{});
  const auto count = static_cast<uint32_t>(rows.size());
  TmyList list(count, 0);
  list.SetSize(count * static_cast<uint32_t>(sizeof(void*)));
  Rows copy;
  std::vector<double> ours, theirs;
  for (uint32_t run = 0; run < kRuns; ++run) {
    ours.push_back(Bench::MedianMs(
        1, [&] { std::copy(rows.begin(), rows.end(), list.Entries()); },
        [&] { SortFcc(list, SortDirection::kAscending, greater); }));
    theirs.push_back(Bench::MedianMs(
        1, [&] { copy = rows; },
        [&] {
          std::sort(copy.begin(), copy.end(), [&greater](const void* a, const void* b) {
            return greater(*static_cast<const FccItem*>(b), *static_cast<const FccItem*>(a));
          });
        }));
  }
  const double ratio = Bench::Median(ours) / Bench::Median(theirs);
  char what[80];
  snprintf(what, sizeof what, "HFCC sort by %s, %s (%.2f of std::sort)", column.title, shape, ratio);
  Bench::PrintMs(what, count, Bench::Median(ours));
  return ratio;
}

void BenchSorts(HfccDatabase& database) {
  const Rows fileOrder(database.Items().Entries(), database.Items().Entries() + database.Items().Count());
  Rows shuffled = fileOrder;
  std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(1));
  double worst = 0;
  for (const FccColumn& column : FccColumns()) {
    worst = std::max(worst, CompareSorts("file order", database, column, fileOrder));
    worst = std::max(worst, CompareSorts("shuffled", database, column, shuffled));
  }
  Bench::PrintRatio("HFCC sorts beside std::sort, the worst", database.Items().Count(), worst, kSortAim);
}

// This program's own calls: the C library's and the system's are not counted, those of zlib and minizip are.
void CountAllocations(const std::string& path, HfccDatabase& database) {
  if (!AllocationCount::Install(GetModuleHandleA(nullptr))) return;
  const uint32_t before = AllocationCount::calls;
  database.LoadHfcc(path.c_str());
  const uint32_t calls = AllocationCount::calls - before;
  const uint32_t rows = database.Items().Count();
  printf("%-44s %7u rows %10u     (aim none per cell, one per row: %s)\n", "HFCC load, allocations", rows, calls,
         Bench::Verdict(calls, rows * 1.1));
}

void BenchLoad(const std::string& path, HfccDatabase& database) {
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

}  // namespace

void BenchHfcc(const char* dataFolder) {
  const std::string path = FirstArchive(dataFolder);
  if (path.empty()) {
    printf("no HFCC archive in %s\n", dataFolder);
    return;
  }
  BenchMemory(path);
  HfccDatabase database;
  BenchLoad(path, database);
  BenchFilters(database);
  if (database.Items().Count() > 0) BenchSorts(database);
  CountAllocations(path, database);  // last: from then on each allocation is slower
}
